#include "export/TLSldRasterWriter.h"

#include "TLToolText.h"
#include "export/TLSldNumber.h"
#include "export/TLSldRuleWriter.h"
#include "tlmap/TLImageClassRenderInfo.h"
#include "tlmap/TLImageStretchRenderInfo.h"
#include "tlmap/TLMultiBandImageRender.h"
#include "tlmap/TLRasterBand.h"
#include "tlmap/TLRasterLayer.h"
#include "tlmap/TLRasterProps.h"
#include "tlmap/TLSingleBandImageRender.h"

namespace TMObjects {

QString TLSldRasterWriter::algorithmName(int algoType) {
    switch (algoType) {
        case TLImageStretchRenderInfo::ClipToMinimumMaximum:
            return "ClipToMinimumMaximum";
        case TLImageStretchRenderInfo::ClipToZero:
            return "ClipToZero";
        default:
            return "StretchToMinimumMaximum";
    }
}

QString TLSldRasterWriter::colorText(const TLColor& color) {
    return "#" + QString("%1").arg(color.GetColor() & 0xFFFFFFu, 6, 16, QChar('0'));
}

void TLSldRasterWriter::appendRule(QDomElement& featureTypeStyle,
                                   const TLRasterLayer& layer) const {
    const auto* render = dynamic_cast<const TLImageRender*>(layer.GetRender().get());
    if (!render) return;
    QDomElement rule = mDocument.createElement("sld:Rule");
    TLSldRuleWriter(mDocument).appendScales(rule, layer);
    QDomElement symbolizer = mDocument.createElement("sld:RasterSymbolizer");
    QDomElement channels = mDocument.createElement("sld:ChannelSelection");
    QDomElement colorMap = mDocument.createElement("sld:ColorMap");
    const TLRefPtr<TLRasterProps> raster = layer.GetRaster();
    const int bands = raster ? raster->GetBandCount() : layer.GetBandCount();
    if (bands != 1) {
        // A raster of several bands is expected to carry a composite; any other render leaves
        // the channel selection empty.
        if (const auto* composite = dynamic_cast<const TLMultiBandImageRender*>(render))
            appendComposite(channels, layer, *composite);
    } else if (const auto* single = dynamic_cast<const TLSingleBandImageRender*>(render)) {
        appendSingleBand(channels, colorMap, layer, *single);
    }
    symbolizer.appendChild(channels);
    symbolizer.appendChild(colorMap);
    rule.appendChild(symbolizer);
    featureTypeStyle.appendChild(rule);
}

void TLSldRasterWriter::appendComposite(QDomElement& channels, const TLRasterLayer& layer,
                                        const TLMultiBandImageRender& render) const {
    const Range ranges[3] = {statistics(layer, 1), statistics(layer, 2), statistics(layer, 3)};
    // The composite's render info does not change the algorithm, and the channels are named 1, 2
    // and 3 whichever bands the render shows: readers of the document pick the bands by place.
    const QString algorithm = algorithmName(TLImageStretchRenderInfo::StretchToMinimumMaximum);
    const bool used[3] = {render.getUseRedBand(), render.getUseGreenBand(),
                          render.getUseBlueBand()};
    const char* const names[3] = {"sld:RedChannel", "sld:GreenChannel", "sld:BlueChannel"};
    for (int i = 0; i < 3; ++i) {
        if (!used[i]) continue;
        QDomElement channel = mDocument.createElement(names[i]);
        mPaint.appendText(channel, "sld:SourceChannelName", QString::number(i + 1));
        QDomElement enhancement = mDocument.createElement("sld:ContrastEnhancement");
        enhancement.appendChild(normalize(algorithm, ranges[i]));
        channel.appendChild(enhancement);
        channels.appendChild(channel);
    }
}

void TLSldRasterWriter::appendSingleBand(QDomElement& channels, QDomElement& colorMap,
                                         const TLRasterLayer& layer,
                                         const TLSingleBandImageRender& render) const {
    const QString type = toQString(render.GetType());
    const TLRefPtr<TLImageRenderInfo> info = render.getRenderInfo();
    QDomElement enhancement = mDocument.createElement("sld:ContrastEnhancement");
    if (type == "ImageStretch") {
        const auto* stretch = dynamic_cast<const TLImageStretchRenderInfo*>(info.get());
        const int count = stretch ? stretch->GetColorCount() : 0;
        // The ramp's two ends stand for the whole ramp.
        if (count != 0) {
            appendEntry(colorMap, "0", stretch->GetColor(0));
            appendEntry(colorMap, QString::number(count - 1), stretch->GetColor(count - 1));
        }
        enhancement.appendChild(
            normalize(algorithmName(stretch ? stretch->GetAlgoType() : 0), statistics(layer, 1)));
    } else if (type == "ImageClass") {
        if (const auto* classes = dynamic_cast<const TLImageClassRenderInfo*>(info.get())) {
            for (int i = 0; i < classes->GetClassCount(); ++i) {
                double value = 0.0, upper = 0.0;
                TLColor color;
                classes->GetClassItemInfo(i, value, upper, color);
                appendEntry(colorMap, QString("%1").arg(value), color);
            }
        }
    }
    QDomElement gray = mDocument.createElement("sld:GrayChannel");
    mPaint.appendText(gray, "sld:SourceChannelName", "1");
    gray.appendChild(enhancement);
    channels.appendChild(gray);
}

void TLSldRasterWriter::appendEntry(QDomElement& colorMap, const QString& quantity,
                                    const TLColor& color) const {
    QDomElement entry = mDocument.createElement("sld:ColorMapEntry");
    entry.setAttribute("quantity", quantity);
    entry.setAttribute("color", colorText(color));
    colorMap.appendChild(entry);
}

QDomElement TLSldRasterWriter::normalize(const QString& algorithm, const Range& range) const {
    QDomElement element = mDocument.createElement("sld:Normalize");
    mPaint.appendVendorOption(element, "algorithm", algorithm);
    mPaint.appendVendorOption(element, "minValue", TLSldNumber::number0(range.minimum));
    mPaint.appendVendorOption(element, "maxValue", TLSldNumber::number0(range.maximum));
    return element;
}

TLSldRasterWriter::Range TLSldRasterWriter::statistics(const TLRasterLayer& layer, int band) {
    Range range;
    const TLRefPtr<TLRasterProps> raster = layer.GetRaster();
    const TLRefPtr<TLRasterBand> object = raster ? raster->GetBand(band) : TLRefPtr<TLRasterBand>();
    if (!object) return range;
    double mean = 0.0, stdDev = 0.0;
    // Exact figures: the flag 0 asks the store for every cell.
    if (!object->GetStatistics(range.minimum, range.maximum, mean, stdDev, 0)) return Range();
    return range;
}

}  // namespace TMObjects
