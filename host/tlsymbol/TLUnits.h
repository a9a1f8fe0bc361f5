#pragma once

namespace TMObjects {

// Units of measured values and of the display transform.
enum TLUnitsType {
    TLUnknownUnits = 0,
    TLInches = 1,
    TLPoints = 2,
    TLFeet = 3,
    TLYards = 4,
    TLMiles = 5,
    TLNauticalMiles = 6,
    TLMillimeters = 7,
    TLCentimeters = 8,
    TLMeters = 9,
    TLKilometers = 10,
    TLDecimalDegrees = 11,
    TLDecimeters = 12,
};

// The unit a map is shown in.
enum TLUnitType {
    TLUnitUnknown = 0,
    TLUnitDegree = 1,
    TLUnitFeet = 2,
    TLUnitMeter = 3,
    TLUnitKilometer = 4,
};

}  // namespace TMObjects
