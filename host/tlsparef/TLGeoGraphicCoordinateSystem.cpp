#include "tlsparef/TLGeoGraphicCoordinateSystem.h"

namespace TMObjects {

TLGeoGraphicCoordinateSystem::TLGeoGraphicCoordinateSystem(const TLString& definition)
    : TLCoordinateSystem(definition) {}

TLGeoGraphicCoordinateSystem::~TLGeoGraphicCoordinateSystem() = default;

TLRefPtr<TLSpheroid> TLGeoGraphicCoordinateSystem::getPSpheroid() const {
    double majorAxis = 0.0, flattening = 0.0;
    if (!GetEllipsoid(majorAxis, flattening)) return {};
    return TLRefPtr<TLSpheroid>(new TLSpheroid(majorAxis, flattening));
}

}  // namespace TMObjects
