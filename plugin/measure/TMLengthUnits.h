#pragma once

#include "tmgiscore/TMUnitTypes.h"

class QComboBox;

// The length units of the measuring dialogs' combo: which are offered, which is picked first,
// and how a value in metres (or map units) is shown in the one picked.
class TMLengthUnits {
public:
    static void fill(QComboBox* combo);
    // The base unit of values measured in a unit of the map (a TLUnitsType).
    static TMGis::UnitType baseUnitOf(int mapUnits);
    // Metres for a metric or geographic map, map units otherwise.
    static int defaultIndex(QComboBox* combo, int mapUnits);
    // 1.0 for metres and for the entries that are not converted (map units).
    static double factorFromMetres(const QComboBox* combo);
};
