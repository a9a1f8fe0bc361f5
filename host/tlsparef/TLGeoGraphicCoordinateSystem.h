#pragma once

#include "tlsparef/TLCoordinateSystem.h"
#include "tlsparef/TLSpheroid.h"

namespace TMObjects {

// A geographic coordinate system (longitude, latitude in degrees). The factory makes one of
// these for every system PROJ reads as geographic.
class TLGeoGraphicCoordinateSystem : public TLCoordinateSystem {
public:
    explicit TLGeoGraphicCoordinateSystem(const TLString& definition);
    ~TLGeoGraphicCoordinateSystem() override;

    // The ellipsoid of the datum; empty when PROJ gives none.
    TLRefPtr<TLSpheroid> getPSpheroid() const;
};

}  // namespace TMObjects
