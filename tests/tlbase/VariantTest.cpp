#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "tlbase/TLVariant.h"

using TMObjects::TLString;
using TMObjects::TLVariant;

TEST(TLVariant, NullAndAssignmentsSetTheKind) {
    TLVariant v;
    EXPECT_TRUE(v.IsNull());
    EXPECT_EQ(v.ToString(), TLString(""));
    EXPECT_EQ(v.GetDouble(), 0);
    EXPECT_EQ(v.GetInt32(), 0);

    v = 7;
    EXPECT_EQ(v.GetKind(), TLVariant::Int32);
    v = 7LL;
    EXPECT_EQ(v.GetKind(), TLVariant::Int64);
    v = 2.5;
    EXPECT_EQ(v.GetKind(), TLVariant::Double);
    v = TLString("text");
    EXPECT_EQ(v.GetKind(), TLVariant::String);
    v.Set(TLString("other"));
    EXPECT_EQ(v.ToString(), TLString("other"));
    v.Empty();
    EXPECT_TRUE(v.IsNull());
    EXPECT_EQ(TLVariant::FromInt(std::int64_t(1) << 40).GetKind(), TLVariant::Int64);
    EXPECT_EQ(TLVariant::FromInt(-5).GetKind(), TLVariant::Int32);
    EXPECT_EQ(TLVariant::FromDate("2024-02-29").ToString(), TLString("2024-02-29"));
    EXPECT_EQ(TLVariant::FromDate("2024-02-29").GetKind(), TLVariant::Date);
}

TEST(TLVariant, ConversionsBetweenNumbersAndText) {
    const TLVariant half(12.5);
    EXPECT_EQ(half.GetInt32(), 12);
    EXPECT_EQ(half.GetInt64(), 12);
    EXPECT_EQ(half.GetShort(), 12);
    EXPECT_EQ(half.GetFloat(), 12.5f);
    EXPECT_EQ(half.ToString(), TLString("12.5"));
    EXPECT_EQ(TLVariant(-0.1).ToString(), TLString("-0.1"));
    EXPECT_EQ(TLVariant(100.0).ToString(), TLString("100"));

    const TLVariant text(TLString("  -3.75"));
    EXPECT_EQ(text.GetDouble(), -3.75);
    EXPECT_EQ(text.GetInt32(), -3);
    EXPECT_EQ(TLVariant(TLString("abc")).GetDouble(), 0);
    EXPECT_EQ(TLVariant(TLString("abc")).GetInt64(), 0);

    TLVariant big;
    big = 9007199254740993LL;  // not a double: the integer is kept exactly
    EXPECT_EQ(big.GetInt64(), 9007199254740993LL);
    EXPECT_EQ(big.ToString(), TLString("9007199254740993"));
    // Its text reads back to the same integer, not to the nearest double.
    EXPECT_EQ(TLVariant(big.ToString()).GetInt64(), 9007199254740993LL);
    EXPECT_EQ(TLVariant(TLString(" +9007199254740993 ")).GetInt64(), 9007199254740993LL);
    EXPECT_EQ(TLVariant(TLString("-9007199254740993")).GetInt64(), -9007199254740993LL);
    EXPECT_EQ(TLVariant(TLString("99999999999999999999")).GetInt64(),
              std::numeric_limits<std::int64_t>::max());
    TLVariant small;
    small = -42;
    EXPECT_EQ(small.GetDouble(), -42);
    EXPECT_EQ(small.ToString(), TLString("-42"));

    // Doubles beyond the integer range saturate; NaN gives 0.
    EXPECT_EQ(TLVariant(1e30).GetInt64(), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(TLVariant(-1e30).GetInt64(), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(TLVariant(std::nan("")).GetInt64(), 0);
    EXPECT_EQ(TLVariant(TLString("1e300")).GetInt64(), std::numeric_limits<std::int64_t>::max());
}

TEST(TLVariant, EqualityComparesKindAndValue) {
    TLVariant a, b;
    EXPECT_EQ(a, b);
    a = 3;
    b = 3;
    EXPECT_EQ(a, b);
    b = 3.0;
    EXPECT_NE(a, b);  // an integer and a double are different values
    EXPECT_EQ(TLVariant(TLString("x")), TLVariant(TLString("x")));
    EXPECT_NE(TLVariant(TLString("2024-01-01")), TLVariant::FromDate("2024-01-01"));
    const TLVariant copy(a);
    EXPECT_EQ(copy, a);
}
