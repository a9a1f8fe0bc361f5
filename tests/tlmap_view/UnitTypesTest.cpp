#include <gtest/gtest.h>

#include "tlsymbol/TLUnitTypes.h"

namespace TMObjects {
namespace {

TEST(UnitTypes, FactorsConvertLengthsBothWays) {
    EXPECT_DOUBLE_EQ(TLUnitTypes::fromUnitToUnitFactor(TLMeters, TLMeters), 1.0);
    EXPECT_DOUBLE_EQ(TLUnitTypes::fromUnitToUnitFactor(TLKilometers, TLMeters), 1000.0);
    EXPECT_DOUBLE_EQ(TLUnitTypes::fromUnitToUnitFactor(TLMeters, TLFeet), 1 / 0.3048);
    EXPECT_DOUBLE_EQ(TLUnitTypes::fromUnitToUnitFactor(TLMiles, TLYards), 1760.0);
    EXPECT_DOUBLE_EQ(TLUnitTypes::fromUnitToUnitFactor(TLInches, TLPoints), 72.0);
    // A degree of the equator of WGS 84: 2 pi 6378137 m / 360.
    EXPECT_NEAR(TLUnitTypes::fromUnitToUnitFactor(TLDecimalDegrees, TLMeters), 111319.4908, 1e-4);
    // Nothing is known of an unknown unit, so nothing is converted.
    EXPECT_EQ(TLUnitTypes::fromUnitToUnitFactor(TLMeters, TLUnknownUnits), 1.0);
    EXPECT_EQ(TLUnitTypes::fromUnitToUnitFactor(TLUnknownUnits, TLFeet), 1.0);
}

}  // namespace
}  // namespace TMObjects
