#include "tmgiscore/TMUnitTypes.h"

#include <QObject>

namespace {

constexpr double kPi = 3.14159265358979323846;

}  // namespace

QString TMUnitTypes::toString(TMGis::UnitType unit) {
    switch (unit) {
        case TMGis::Meters:
            return QObject::tr("meters");
        case TMGis::Kilometers:
            return QObject::tr("kilometers");
        case TMGis::Feet:
            return QObject::tr("feet");
        case TMGis::Yards:
            return QObject::tr("yards");
        case TMGis::Miles:
            return QObject::tr("miles");
        case TMGis::Degrees:
            return QObject::tr("degrees");
        case TMGis::NauticalMiles:
            return QObject::tr("nautical miles");
        case TMGis::UnknownUnit:
            break;
    }
    return QObject::tr("map units");
}

QString TMUnitTypes::toString(AreaUnit unit) {
    switch (unit) {
        case SquareMeters:
            return QObject::tr("square meters");
        case SquareKilometers:
            return QObject::tr("square kilometers");
        case SquareFeet:
            return QObject::tr("square feet");
        case SquareYards:
            return QObject::tr("square yards");
        case SquareMiles:
            return QObject::tr("square miles");
        case Hectares:
            return QObject::tr("hectares");
        case Acres:
            return QObject::tr("acres");
        case SquareNauticalMiles:
            return QObject::tr("square nautical miles");
        case SquareDegrees:
            return QObject::tr("square degrees");
        case UnknownAreaUnit:
            break;
    }
    return QObject::tr("square map units");
}

QString TMUnitTypes::toString(AngleUnit unit) {
    switch (unit) {
        case AngleDegrees:
            return QObject::tr("degrees");
        case AngleRadians:
            return QObject::tr("radians");
        case AngleGon:
            return QObject::tr("gon");
        case AngleMinutesOfArc:
            return QObject::tr("minutes of arc");
        case AngleSecondsOfArc:
            return QObject::tr("seconds of arc");
        case AngleTurn:
            return QObject::tr("turns");
        case UnknownAngleUnit:
            break;
    }
    return QObject::tr("unknown");
}

// Lengths of one unit in metres; 0 marks a unit without a fixed length.
double TMUnitTypes::metres(TMGis::UnitType unit) {
    switch (unit) {
        case TMGis::Meters:
            return 1.0;
        case TMGis::Kilometers:
            return 1000.0;
        case TMGis::Feet:
            return 0.3048;
        case TMGis::Yards:
            return 0.9144;
        case TMGis::Miles:
            return 1609.344;
        case TMGis::NauticalMiles:
            return 1852.0;
        case TMGis::Degrees:
            return kMetresPerDegree;
        case TMGis::UnknownUnit:
            break;
    }
    return 0.0;
}

double TMUnitTypes::squareMetres(AreaUnit unit) {
    switch (unit) {
        case SquareMeters:
            return 1.0;
        case SquareKilometers:
            return 1.0e6;
        case SquareFeet:
            return 0.3048 * 0.3048;
        case SquareYards:
            return 0.9144 * 0.9144;
        case SquareMiles:
            return 1609.344 * 1609.344;
        case Hectares:
            return 1.0e4;
        case Acres:
            return 4046.8564224;
        case SquareNauticalMiles:
            return 1852.0 * 1852.0;
        case SquareDegrees:
            return kMetresPerDegree * kMetresPerDegree;
        case UnknownAreaUnit:
            break;
    }
    return 0.0;
}

double TMUnitTypes::turns(AngleUnit unit) {
    switch (unit) {
        case AngleDegrees:
            return 1.0 / 360.0;
        case AngleRadians:
            return 1.0 / (2.0 * kPi);
        case AngleGon:
            return 1.0 / 400.0;
        case AngleMinutesOfArc:
            return 1.0 / 21600.0;
        case AngleSecondsOfArc:
            return 1.0 / 1296000.0;
        case AngleTurn:
            return 1.0;
        case UnknownAngleUnit:
            break;
    }
    return 0.0;
}

double TMUnitTypes::fromUnitToUnitFactor(TMGis::UnitType from, TMGis::UnitType to) {
    const double a = metres(from), b = metres(to);
    return a > 0.0 && b > 0.0 ? a / b : 1.0;
}

double TMUnitTypes::fromUnitToUnitFactor(AreaUnit from, AreaUnit to) {
    const double a = squareMetres(from), b = squareMetres(to);
    return a > 0.0 && b > 0.0 ? a / b : 1.0;
}

double TMUnitTypes::fromUnitToUnitFactor(AngleUnit from, AngleUnit to) {
    const double a = turns(from), b = turns(to);
    return a > 0.0 && b > 0.0 ? a / b : 1.0;
}

QString TMUnitTypes::encodeUnit(AngleUnit unit) {
    switch (unit) {
        case AngleDegrees:
            return QStringLiteral("deg");
        case AngleRadians:
            return QStringLiteral("rad");
        case AngleGon:
            return QStringLiteral("gon");
        case AngleMinutesOfArc:
            return QStringLiteral("moa");
        case AngleSecondsOfArc:
            return QStringLiteral("soa");
        case AngleTurn:
            return QStringLiteral("tr");
        case UnknownAngleUnit:
            break;
    }
    return QStringLiteral("<unknown>");
}

TMUnitTypes::AngleUnit TMUnitTypes::decodeAngleUnit(const QString& text, bool* ok) {
    const QString wanted = text.trimmed().toLower();
    for (int i = AngleDegrees; i < UnknownAngleUnit; ++i) {
        const auto unit = AngleUnit(i);
        // The untranslated full name too, so that a hand-edited setting reads as meant.
        if (wanted == encodeUnit(unit) || wanted == toString(unit).toLower()) {
            if (ok) *ok = true;
            return unit;
        }
    }
    if (ok) *ok = false;
    return UnknownAngleUnit;
}
