#pragma once

#include "tlsparef/TLCoordinateSystem.h"

namespace TMObjects {

// A projected coordinate system (easting, northing). The factory makes one of these for every
// system PROJ reads as projected.
class TLProjectedCoordinateSystem : public TLCoordinateSystem {
public:
    explicit TLProjectedCoordinateSystem(const TLString& definition);
    ~TLProjectedCoordinateSystem() override;

    // Metres in one unit of the easting axis (1 for metres, 0.3048 for feet); 0 when the system
    // names no linear unit.
    double GetLinearUnitFactor() const;
};

}  // namespace TMObjects
