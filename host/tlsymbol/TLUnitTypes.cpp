#include "tlsymbol/TLUnitTypes.h"

namespace TMObjects {

namespace {

// 2 pi times the semi-major axis of WGS 84, over 360.
const double kMetresPerDegree = 111319.49079327357;

// Metres in one unit; 0 for a unit that is no length.
double metresPer(TLUnitsType unit) {
    switch (unit) {
        case TLInches:
            return 0.0254;
        case TLPoints:
            return 0.0254 / 72.0;
        case TLFeet:
            return 0.3048;
        case TLYards:
            return 0.9144;
        case TLMiles:
            return 1609.344;
        case TLNauticalMiles:
            return 1852.0;
        case TLMillimeters:
            return 0.001;
        case TLCentimeters:
            return 0.01;
        case TLMeters:
            return 1.0;
        case TLKilometers:
            return 1000.0;
        case TLDecimalDegrees:
            return kMetresPerDegree;
        case TLDecimeters:
            return 0.1;
        case TLUnknownUnits:
            break;
    }
    return 0.0;
}

}  // namespace

TLUnitsType TLUnitTypes::TLUnitTypeToTLUnitTypes(TLUnitType unit) {
    switch (unit) {
        case TLUnitMeter:
            return TLMeters;
        case TLUnitFeet:
            return TLFeet;
        case TLUnitDegree:
            return TLDecimalDegrees;
        case TLUnitNauticalMiles:
            return TLNauticalMiles;
        case TLUnitKilometer:
            return TLKilometers;
        case TLUnitYards:
            return TLYards;
        case TLUnitMiles:
            return TLMiles;
        case TLUnitUnknown:
            break;
    }
    return TLUnknownUnits;
}

double TLUnitTypes::fromUnitToUnitFactor(TLUnitsType from, TLUnitsType to) {
    const double fromMetres = metresPer(from);
    const double toMetres = metresPer(to);
    if (fromMetres == 0.0 || toMetres == 0.0) return 1.0;
    return fromMetres / toMetres;
}

}  // namespace TMObjects
