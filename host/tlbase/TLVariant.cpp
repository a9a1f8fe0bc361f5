#include "tlbase/TLVariant.h"

#include <charconv>
#include <cmath>
#include <string>

namespace TMObjects {

namespace {

// A double as a 64-bit integer, truncated toward zero. Values beyond the range saturate and NaN
// gives 0: the plain conversion of such values is undefined.
std::int64_t saturatedInt64(double v) {
    if (std::isnan(v)) return 0;
    if (v >= 9223372036854775808.0) return INT64_MAX;
    if (v < -9223372036854775808.0) return INT64_MIN;
    return std::int64_t(v);
}

// Text that is one whole number is read as an integer, so that 64-bit values beyond the 53 bits
// of a double keep every digit; any other text goes through the double.
std::int64_t textToInt64(const TLString& text) {
    std::string digits = text.trim().toStdString();
    if (!digits.empty() && digits[0] == '+') digits.erase(0, 1);
    std::int64_t value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (error == std::errc() && stop == end) return value;
    return saturatedInt64(text.ToDouble());
}

}  // namespace

TLVariant TLVariant::FromInt(std::int64_t v) {
    TLVariant r;
    r.mKind = (v >= INT32_MIN && v <= INT32_MAX) ? Int32 : Int64;
    r.mInt = v;
    return r;
}

TLVariant TLVariant::FromDate(const TLString& isoText) {
    TLVariant r(isoText);
    r.mKind = Date;
    return r;
}

TLVariant& TLVariant::operator=(int v) {
    return *this = FromInt(v);
}

TLVariant& TLVariant::operator=(long long v) {
    *this = FromInt(v);
    mKind = Int64;
    return *this;
}

TLVariant& TLVariant::operator=(double v) {
    return *this = TLVariant(v);
}

TLVariant& TLVariant::operator=(const TLString& v) {
    return *this = TLVariant(v);
}

TLString TLVariant::ToString() const {
    switch (mKind) {
        case Null:
            return TLString();
        case Int32:
        case Int64:
            return TLString(std::to_string(mInt));
        case Double:
            return TLString::Number(mDouble);
        case String:
        case Date:
            return mString;
    }
    return TLString();
}

double TLVariant::GetDouble() const {
    switch (mKind) {
        case Int32:
        case Int64:
            return double(mInt);
        case Double:
            return mDouble;
        case String:
            return mString.ToDouble();
        default:
            return 0.0;
    }
}

std::int64_t TLVariant::GetInt64() const {
    switch (mKind) {
        case Int32:
        case Int64:
            return mInt;
        case Double:
            return saturatedInt64(mDouble);
        case String:
            return textToInt64(mString);
        default:
            return 0;
    }
}

bool TLVariant::operator==(const TLVariant& o) const {
    if (mKind != o.mKind) return false;
    switch (mKind) {
        case Null:
            return true;
        case Int32:
        case Int64:
            return mInt == o.mInt;
        case Double:
            return mDouble == o.mDouble;
        default:
            return mString == o.mString;
    }
}

}  // namespace TMObjects
