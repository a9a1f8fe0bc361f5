#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QString>

#include "export/TLSldPaintWriter.h"
#include "tlbase/TLColor.h"

namespace TMObjects {

class TLRasterLayer;
class TLMultiBandImageRender;
class TLSingleBandImageRender;

// The "sld:Rule" of a raster layer: one "sld:RasterSymbolizer" whose channel selection and
// colour map come from the layer's image render and the statistics of its bands.
class TLSldRasterWriter {
public:
    explicit TLSldRasterWriter(QDomDocument& document) : mDocument(document), mPaint(document) {}

    // Appends the rule to `featureTypeStyle`. A render that is no image render appends nothing,
    // so that the style stays without a rule.
    void appendRule(QDomElement& featureTypeStyle, const TLRasterLayer& layer) const;

    // The text of the "algorithm" option for a stretch's algorithm type.
    static QString algorithmName(int algoType);
    // "#rrggbb" of the colour's 24 low bits.
    static QString colorText(const TLColor& color);

private:
    struct Range {
        double minimum = 0.0;
        double maximum = 0.0;
    };

    void appendComposite(QDomElement& channels, const TLRasterLayer& layer,
                         const TLMultiBandImageRender& render) const;
    void appendSingleBand(QDomElement& channels, QDomElement& colorMap, const TLRasterLayer& layer,
                          const TLSingleBandImageRender& render) const;
    void appendEntry(QDomElement& colorMap, const QString& quantity, const TLColor& color) const;
    // "sld:Normalize" with the algorithm and the range.
    QDomElement normalize(const QString& algorithm, const Range& range) const;
    // Minimum and maximum of a band of the layer's raster, by number from 1; 0 and 0 for a band
    // the raster does not have or that holds no valid cell.
    static Range statistics(const TLRasterLayer& layer, int band);

    QDomDocument& mDocument;
    TLSldPaintWriter mPaint;
};

}  // namespace TMObjects
