#include "tlsparef/TLCoordinateSystem.h"

namespace TMObjects {

TLRefPtr<TLCoordinateSystem> TLSpatialObjectFactory::LoadCoordinateSystem(const TLString& text) {
    if (text.trim().isEmpty()) return {};
    TLRefPtr<TLCoordinateSystem> system(new TLCoordinateSystem(text));
    if (!system->IsValid()) return {};
    return system;
}

}  // namespace TMObjects
