#include "tlsparef/TLCoordinateSystem.h"
#include "tlsparef/TLGeoGraphicCoordinateSystem.h"
#include "tlsparef/TLProjectedCoordinateSystem.h"

namespace TMObjects {

TLRefPtr<TLCoordinateSystem> TLSpatialObjectFactory::LoadCoordinateSystem(const TLString& text) {
    if (text.trim().isEmpty()) return {};
    TLRefPtr<TLCoordinateSystem> system(new TLCoordinateSystem(text));
    if (!system->IsValid()) return {};
    // Of the kind PROJ reads it as, so that a tool can ask a geographic system for its
    // spheroid and a projected one for its unit.
    if (system->IsGeographic())
        return TLRefPtr<TLCoordinateSystem>(new TLGeoGraphicCoordinateSystem(text));
    if (system->IsProjected())
        return TLRefPtr<TLCoordinateSystem>(new TLProjectedCoordinateSystem(text));
    return system;
}

}  // namespace TMObjects
