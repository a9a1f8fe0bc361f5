#include "export/TLSldRuleWriter.h"

#include "TLToolText.h"
#include "export/TLSldLabelWriter.h"
#include "export/TLSldNumber.h"
#include "tlmap/TLCategorizedSymbolRender.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLRuleBasedSymbolRender.h"
#include "tlmap/TLSingleSymbolRender.h"

namespace TMObjects {

void TLSldRuleWriter::appendRules(QDomElement& featureTypeStyle,
                                  const TLFeatureLayer& layer) const {
    const TLRefPtr<TLFeatureRender> render = layer.GetRender();
    if (!render) return;
    switch (render->GetRenderKind()) {
        case TLFeatureRender::SingleSymbol:
            if (const auto* single = dynamic_cast<const TLSingleSymbolRender*>(render.get()))
                appendSingle(featureTypeStyle, layer, *single);
            break;
        case TLFeatureRender::RuleBased:
            if (const auto* rules = dynamic_cast<const TLRuleBasedSymbolRender*>(render.get()))
                appendRuleBased(featureTypeStyle, layer, *rules);
            break;
        default:
            if (const auto* categories =
                    dynamic_cast<const TLCategorizedSymbolRender*>(render.get()))
                appendCategories(featureTypeStyle, layer, *categories);
            break;
    }
}

void TLSldRuleWriter::appendScales(QDomElement& rule, const TLLayer& layer) const {
    if (layer.GetVisibleInAllScale()) return;
    // The largest scale is the smallest denominator, so the maximum scale bounds the minimum
    // denominator.
    mPaint.appendText(rule, "sld:MinScaleDenominator", TLSldNumber::g6(layer.GetVisibleScaleMax()));
    mPaint.appendText(rule, "sld:MaxScaleDenominator", TLSldNumber::g6(layer.GetVisibleScaleMin()));
}

QList<QDomElement> TLSldRuleWriter::symbolizers(const TLRefPtr<TLStyle>& style,
                                                double opacity) const {
    if (!style) return {};
    switch (style->GetClassType()) {
        case TLStyle::PointClass:
            return mPoints.pointSymbolizers(style, opacity);
        case TLStyle::LineClass:
            return mLines.lineSymbolizers(style, opacity);
        default:
            return mPolygons.polygonSymbolizers(style, opacity);
    }
}

void TLSldRuleWriter::appendSingle(QDomElement& featureTypeStyle, const TLFeatureLayer& layer,
                                   const TLSingleSymbolRender& render) const {
    if (!render.GetStyle()) return;
    QDomElement rule = mDocument.createElement("sld:Rule");
    mPaint.appendText(rule, "sld:Name", toQString(layer.GetLayerName()));
    appendScales(rule, layer);
    appendSymbols(rule, layer, render.GetStyle());
    featureTypeStyle.appendChild(rule);
}

void TLSldRuleWriter::appendCategories(QDomElement& featureTypeStyle, const TLFeatureLayer& layer,
                                       const TLCategorizedSymbolRender& render) const {
    const QString field = toQString(render.GetExpression());
    for (int i = 0; i < render.GetItemCount(); ++i) {
        const TLRefPtr<TLCategoryRenderItem> item = render.GetCategoryRenderItem(i);
        if (!item) continue;
        // The category is named by its value; its legend label is not written.
        appendFiltered(featureTypeStyle, layer, toQString(item->GetValue()), field, false,
                       item->GetStyle());
    }
}

void TLSldRuleWriter::appendRuleBased(QDomElement& featureTypeStyle, const TLFeatureLayer& layer,
                                      const TLRuleBasedSymbolRender& render) const {
    for (int i = 0; i < render.RuleCount(); ++i) {
        const TLRefPtr<TLSymbolRule> rule = render.GetRule(i);
        if (!rule) continue;
        appendFiltered(featureTypeStyle, layer, toQString(rule->Expression), toQString(rule->Label),
                       true, rule->Style);
    }
}

void TLSldRuleWriter::appendFiltered(QDomElement& featureTypeStyle, const TLFeatureLayer& layer,
                                     const QString& value, const QString& field,
                                     bool parseExpression, const TLRefPtr<TLStyle>& style) const {
    QDomElement rule = mDocument.createElement("sld:Rule");
    appendScales(rule, layer);
    mPaint.appendText(rule, "sld:Name", value);
    mPaint.appendText(rule, "sld:Title", value);
    QDomElement filter = mDocument.createElement("ogc:Filter");
    rule.appendChild(filter);
    mFilters.writeFilter(filter, value, field, parseExpression);
    if (!style) return;
    appendSymbols(rule, layer, style);
    featureTypeStyle.appendChild(rule);
}

void TLSldRuleWriter::appendSymbols(QDomElement& rule, const TLFeatureLayer& layer,
                                    const TLRefPtr<TLStyle>& style) const {
    for (const QDomElement& symbolizer : symbolizers(style, layer.GetAlpha()))
        rule.appendChild(symbolizer);
    TLSldLabelWriter(mDocument).appendLabel(rule, layer);
}

}  // namespace TMObjects
