#pragma once

#include <QString>

namespace TMGis {

// Units of lengths as the measuring dialogs offer them. The numbers are stored in settings and
// combo data, so the gaps stay free.
enum UnitType {
    Meters = 0,
    Feet = 1,
    Degrees = 2,
    UnknownUnit = 3,
    NauticalMiles = 7,
    Kilometers = 8,
    Yards = 9,
    Miles = 10,
};

}  // namespace TMGis

// Names and conversion factors of the units of lengths, areas and angles.
class TMUnitTypes {
public:
    enum AreaUnit {
        SquareMeters = 0,
        SquareKilometers = 1,
        SquareFeet = 2,
        SquareYards = 3,
        SquareMiles = 4,
        Hectares = 5,
        Acres = 6,
        SquareNauticalMiles = 7,
        SquareDegrees = 8,
        UnknownAreaUnit = 9,
    };

    enum AngleUnit {
        AngleDegrees = 0,
        AngleRadians = 1,
        AngleGon = 2,
        AngleMinutesOfArc = 3,
        AngleSecondsOfArc = 4,
        AngleTurn = 5,
        UnknownAngleUnit = 6,
    };

    // Metres in one degree of arc on the WGS 84 equator, for the degree units.
    static constexpr double kMetresPerDegree = 111319.49079327357;

    static QString toString(TMGis::UnitType unit);
    static QString toString(AreaUnit unit);
    static QString toString(AngleUnit unit);

    // The factor that turns a value in `from` into one in `to`; 1.0 when either is unknown.
    static double fromUnitToUnitFactor(TMGis::UnitType from, TMGis::UnitType to);
    static double fromUnitToUnitFactor(AreaUnit from, AreaUnit to);
    static double fromUnitToUnitFactor(AngleUnit from, AngleUnit to);

    // The short names kept in settings ("deg", "rad", "gon", "moa", "soa", "tr").
    static QString encodeUnit(AngleUnit unit);
    // Reads a short name or a full name, in any case; UnknownAngleUnit and *ok false otherwise.
    static AngleUnit decodeAngleUnit(const QString& text, bool* ok = nullptr);

private:
    static double metres(TMGis::UnitType unit);
    static double squareMetres(AreaUnit unit);
    static double turns(AngleUnit unit);
};
