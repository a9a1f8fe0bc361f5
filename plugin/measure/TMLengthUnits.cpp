#include "measure/TMLengthUnits.h"

#include <QComboBox>

#include "tlsymbol/TLUnits.h"

namespace {

const TMGis::UnitType kUnits[] = {TMGis::Meters,        TMGis::Kilometers, TMGis::Feet,
                                  TMGis::Yards,         TMGis::Miles,      TMGis::Degrees,
                                  TMGis::NauticalMiles, TMGis::UnknownUnit};
// Entries from this index on are shown as measured.
const int kFirstUnconverted = 7;

}  // namespace

void TMLengthUnits::fill(QComboBox* combo) {
    for (TMGis::UnitType unit : kUnits) combo->addItem(TMUnitTypes::toString(unit), int(unit));
    combo->setCurrentIndex(0);
}

TMGis::UnitType TMLengthUnits::baseUnitOf(int mapUnits) {
    using namespace TMObjects;
    switch (mapUnits) {
        case TLFeet:
            return TMGis::Feet;
        case TLYards:
            return TMGis::Yards;
        case TLMiles:
            return TMGis::Miles;
        case TLNauticalMiles:
            return TMGis::NauticalMiles;
        case TLMillimeters:
        case TLCentimeters:
        case TLMeters:
        case TLDecimeters:
            return TMGis::Meters;
        case TLKilometers:
            return TMGis::Kilometers;
        case TLDecimalDegrees:
            return TMGis::Degrees;
        default:
            return TMGis::UnknownUnit;
    }
}

int TMLengthUnits::defaultIndex(QComboBox* combo, int mapUnits) {
    const bool metric = mapUnits == TMObjects::TLMeters || mapUnits == TMObjects::TLDecimalDegrees;
    return combo->findData(int(metric ? TMGis::Meters : TMGis::UnknownUnit));
}

double TMLengthUnits::factorFromMetres(const QComboBox* combo) {
    const int chosen = combo->currentData().toInt();
    if (chosen == TMGis::Meters || combo->currentIndex() >= kFirstUnconverted) return 1.0;
    return TMUnitTypes::fromUnitToUnitFactor(TMGis::Meters, TMGis::UnitType(chosen));
}
