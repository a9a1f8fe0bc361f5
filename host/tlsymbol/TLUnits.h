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

// The unit a map is shown in. The values are the ones the identify dialog labels (0 metres,
// 1 feet, 2 degrees, 3 unknown, 7 to 10); the gaps are kept free on purpose.
enum TLUnitType {
    TLUnitMeter = 0,
    TLUnitFeet = 1,
    TLUnitDegree = 2,
    TLUnitUnknown = 3,
    TLUnitNauticalMiles = 7,
    TLUnitKilometer = 8,
    TLUnitYards = 9,
    TLUnitMiles = 10,
};

}  // namespace TMObjects
