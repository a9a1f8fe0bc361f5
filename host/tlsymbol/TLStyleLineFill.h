#pragma once

#include "tlsymbol/TLStyleFill.h"

namespace TMObjects {

// An area hatched with parallel lines at an angle in degrees, the lines a separation apart.
class TLStyleLineFill : public TLStyleFill {
public:
    TLStyleLineFill() = default;
    ~TLStyleLineFill() override;

    int GetTypeID() const override { return LineFillType; }
    double GetDegree() const { return mDegree; }
    TLRefPtr<TLStyle> GetDecorateLineStyle() const { return mDecorate; }
    double GetSeperate() const { return mSeperate; }
    void SetDegree(double degree) { mDegree = degree; }
    void SetDecorateLineStyle(TLRefPtr<TLStyle> style) { mDecorate = style; }
    void SetSeperate(double seperate) { mSeperate = seperate; }

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

private:
    double mDegree = 45.0;
    TLRefPtr<TLStyle> mDecorate;
    double mSeperate = 2.0;
};

}  // namespace TMObjects
