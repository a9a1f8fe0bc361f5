#pragma once

#include "tlsymbol/TLUnits.h"

namespace TMObjects {

// Conversions between linear units, for tools that take a length in one unit and draw it in the
// unit the map is shown in.
class TLUnitTypes {
public:
    // The linear unit of a map's display unit; TLUnknownUnits for a map without one.
    static TLUnitsType TLUnitTypeToTLUnitTypes(TLUnitType unit);
    // What a length in `from` is multiplied by to be expressed in `to`. A degree counts as the
    // length of one degree of arc on the equator of WGS 84. With an unknown unit on either side
    // there is nothing to convert and the factor is 1.
    static double fromUnitToUnitFactor(TLUnitsType from, TLUnitsType to);
};

}  // namespace TMObjects
