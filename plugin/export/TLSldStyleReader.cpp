#include "export/TLSldStyleReader.h"

#include <algorithm>

#include "tlsymbol/TLStyleLength.h"
#include "tlsymbol/TLStyleMultiLayer.h"
#include "tlsymbol/TLStylePoint.h"

namespace TMObjects {

QList<TLRefPtr<TLStyle>> TLSldStyleReader::topFirst(const TLRefPtr<TLStyle>& style) {
    QList<TLRefPtr<TLStyle>> layers;
    if (!style) return layers;
    const auto* multi = dynamic_cast<const TLStyleMultiLayer*>(style.get());
    if (!multi) {
        layers.append(style);
        return layers;
    }
    for (int i = 0; i < multi->GetLayerCount(); ++i)
        if (TLRefPtr<TLStyle> layer = multi->GetLayer(i)) layers.append(layer);
    return layers;
}

QList<TLRefPtr<TLStyle>> TLSldStyleReader::bottomFirst(const TLRefPtr<TLStyle>& style) {
    QList<TLRefPtr<TLStyle>> layers = topFirst(style);
    std::reverse(layers.begin(), layers.end());
    return layers;
}

double TLSldStyleReader::pixels(const TLStyle& style, double value) {
    return TLStyleLength::Convert(style.GetUnits(), value, TLStyleLength::Pixel, 96.0);
}

double TLSldStyleReader::pointSize(const TLStyle& style) {
    const auto* point = dynamic_cast<const TLStylePoint*>(&style);
    if (!point) return 0.0;
    const double height = pixels(style, point->GetHeight());
    if (style.GetTypeID() == TLStyle::CharacterPointType) return height;
    return std::max(pixels(style, point->GetWidth()), height);
}

}  // namespace TMObjects
