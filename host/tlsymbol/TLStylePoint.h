#pragma once

#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// A symbol drawn at a point: turned by an angle in degrees, sized by width and height in the
// style's unit.
class TLStylePoint : public TLStyle {
public:
    ~TLStylePoint() override;

    int GetClassType() const override { return PointClass; }
    double GetDegree() const { return mDegree; }
    double GetWidth() const { return mWidth; }
    double GetHeight() const { return mHeight; }
    void SetDegree(double degree) { mDegree = degree; }
    void SetWidth(double width) { mWidth = width; }
    void SetHeight(double height) { mHeight = height; }

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

protected:
    TLStylePoint() = default;

private:
    double mDegree = 0.0;
    double mWidth = 2.0;
    double mHeight = 2.0;
};

}  // namespace TMObjects
