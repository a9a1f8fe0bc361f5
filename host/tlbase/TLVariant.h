#pragma once

#include <cstdint>

#include "tlbase/TLString.h"

namespace TMObjects {

// A tagged value: null, a 32- or 64-bit integer, a double, a string or a date (ISO 8601 text).
class TLVariant {
public:
    enum Kind { Null, Int32, Int64, Double, String, Date };

    TLVariant() = default;
    TLVariant(double v) : mKind(Double), mDouble(v) {}
    TLVariant(const TLString& v) : mKind(String), mString(v) {}
    TLVariant(const TLVariant&) = default;
    static TLVariant FromInt(std::int64_t v);
    static TLVariant FromDate(const TLString& isoText);

    TLVariant& operator=(const TLVariant&) = default;
    TLVariant& operator=(int v);
    TLVariant& operator=(long long v);
    TLVariant& operator=(double v);
    TLVariant& operator=(const TLString& v);

    Kind GetKind() const { return mKind; }
    bool IsNull() const { return mKind == Null; }
    void Empty() { *this = TLVariant(); }
    void Set(const TLString& v) { *this = v; }

    TLString ToString() const;
    double GetDouble() const;
    float GetFloat() const { return float(GetDouble()); }
    std::int32_t GetInt32() const { return std::int32_t(GetInt64()); }
    std::int64_t GetInt64() const;
    short GetShort() const { return short(GetInt64()); }

    bool operator==(const TLVariant& o) const;
    bool operator!=(const TLVariant& o) const { return !(*this == o); }

private:
    Kind mKind = Null;
    std::int64_t mInt = 0;
    double mDouble = 0.0;
    TLString mString;
};

}  // namespace TMObjects
