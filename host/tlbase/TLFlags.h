#pragma once

namespace TMObjects {

template <class Enum>
class TLFlags {
public:
    TLFlags() = default;
    TLFlags(Enum e) : mValue(int(e)) {}
    explicit TLFlags(int v) : mValue(v) {}
    bool testFlag(Enum e) const {
        return (mValue & int(e)) == int(e) && (int(e) != 0 || mValue == 0);
    }
    TLFlags operator|(Enum e) const { return TLFlags(mValue | int(e)); }
    int value() const { return mValue; }

private:
    int mValue = 0;
};

}  // namespace TMObjects
