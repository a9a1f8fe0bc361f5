#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QList>

#include "export/TLSldFilterWriter.h"
#include "export/TLSldLineWriter.h"
#include "export/TLSldPaintWriter.h"
#include "export/TLSldPointWriter.h"
#include "export/TLSldPolygonWriter.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

class TLLayer;
class TLFeatureLayer;
class TLSingleSymbolRender;
class TLCategorizedSymbolRender;
class TLRuleBasedSymbolRender;

// The "sld:Rule" elements of a feature layer's render: one for a single symbol, one per
// category, one per rule.
class TLSldRuleWriter {
public:
    explicit TLSldRuleWriter(QDomDocument& document)
        : mDocument(document),
          mPaint(document),
          mFilters(document),
          mPoints(document),
          mLines(document),
          mPolygons(document) {}

    // Appends the rules of the layer's render to `featureTypeStyle`. A render of a class that
    // does not match its kind writes nothing.
    void appendRules(QDomElement& featureTypeStyle, const TLFeatureLayer& layer) const;
    // "sld:MinScaleDenominator" and "sld:MaxScaleDenominator" when the layer is shown at some
    // scales only.
    void appendScales(QDomElement& rule, const TLLayer& layer) const;
    // The symbolizers of a style, by its family.
    QList<QDomElement> symbolizers(const TLRefPtr<TLStyle>& style, double opacity) const;

private:
    void appendSingle(QDomElement& featureTypeStyle, const TLFeatureLayer& layer,
                      const TLSingleSymbolRender& render) const;
    void appendCategories(QDomElement& featureTypeStyle, const TLFeatureLayer& layer,
                          const TLCategorizedSymbolRender& render) const;
    void appendRuleBased(QDomElement& featureTypeStyle, const TLFeatureLayer& layer,
                         const TLRuleBasedSymbolRender& render) const;
    // Name, title and filter of one category or rule, then its symbols; a rule without a style
    // is left out.
    void appendFiltered(QDomElement& featureTypeStyle, const TLFeatureLayer& layer,
                        const QString& value, const QString& field, bool parseExpression,
                        const TLRefPtr<TLStyle>& style) const;
    // The style's symbolizers, then the layer's label.
    void appendSymbols(QDomElement& rule, const TLFeatureLayer& layer,
                       const TLRefPtr<TLStyle>& style) const;

    QDomDocument& mDocument;
    TLSldPaintWriter mPaint;
    TLSldFilterWriter mFilters;
    TLSldPointWriter mPoints;
    TLSldLineWriter mLines;
    TLSldPolygonWriter mPolygons;
};

}  // namespace TMObjects
