#include "tlmap/TLSingleSymbolRender.h"

#include "tlmap/TLLayer.h"
#include "tlsymbol/TLStyleSimpleFill.h"
#include "tlsymbol/TLStyleSimpleLine.h"
#include "tlsymbol/TLStyleSimplePoint.h"

namespace TMObjects {

TLSingleSymbolRender::TLSingleSymbolRender(TLRefPtr<TLStyle> style)
    : TLFeatureRender(SingleSymbol), mStyle(style) {}

TLSingleSymbolRender::~TLSingleSymbolRender() = default;

std::vector<TLRefPtr<TLStyle>> TLSingleSymbolRender::GetStyles() const {
    std::vector<TLRefPtr<TLStyle>> styles;
    addStyle(styles, mStyle);
    return styles;
}

TLRefPtr<TLStyle> TLSingleSymbolRender::DefaultStyle(int layerType) {
    switch (layerType) {
        case TLLayer::PointLayer:
        case TLLayer::MultiPointLayer: {
            TLRefPtr<TLStyleSimplePoint> point(new TLStyleSimplePoint());
            point->SetColor(TLColor(255, 0, 0));
            return point;
        }
        case TLLayer::LineLayer:
            return TLRefPtr<TLStyle>(new TLStyleSimpleLine());
        case TLLayer::PolygonLayer: {
            TLRefPtr<TLStyleSimpleFill> fill(new TLStyleSimpleFill());
            fill->SetBackgroundColor(TLColor(190, 207, 80));
            fill->SetOutlineStyle(TLRefPtr<TLStyle>(new TLStyleSimpleLine()));
            return fill;
        }
        default:
            return TLRefPtr<TLStyle>();
    }
}

}  // namespace TMObjects
