#pragma once

#include <cstdint>

namespace TMObjects {

// Red, green, blue and alpha as bytes.
class TLColor {
public:
    TLColor() = default;
    TLColor(int r, int g, int b) : TLColor(r, g, b, 255) {}
    TLColor(int r, int g, int b, int a) : mR(clamp(r)), mG(clamp(g)), mB(clamp(b)), mA(clamp(a)) {}

    int getR() const { return mR; }
    int getG() const { return mG; }
    int getB() const { return mB; }
    int getA() const { return mA; }
    // Packed as 0xAARRGGBB.
    unsigned GetColor() const {
        return (unsigned(mA) << 24) | (unsigned(mR) << 16) | (unsigned(mG) << 8) | unsigned(mB);
    }

    static const TLColor RED_;
    static const TLColor WHITE_;

private:
    static std::uint8_t clamp(int v) { return std::uint8_t(v < 0 ? 0 : v > 255 ? 255 : v); }
    std::uint8_t mR = 0, mG = 0, mB = 0, mA = 255;
};

inline bool operator==(const TLColor& a, const TLColor& b) {
    return a.GetColor() == b.GetColor();
}
inline bool operator!=(const TLColor& a, const TLColor& b) {
    return !(a == b);
}

}  // namespace TMObjects
