#pragma once

#include "tlsymbol/TLStylePoint.h"

namespace TMObjects {

// A plain geometric marker, filled with the style's colour and outlined.
class TLStyleSimplePoint : public TLStylePoint {
public:
    enum Shape { Square = 0, Circle = 1, Diamond = 2, Triangle = 3 };

    TLStyleSimplePoint() = default;
    ~TLStyleSimplePoint() override;

    int GetTypeID() const override { return SimplePointType; }
    int GetShapeType() const { return mShape; }
    TLColor GetOutlineColor() const { return mOutlineColor; }
    double GetOutlineWidth() const { return mOutlineWidth; }
    void SetShapeType(int shape) { mShape = shape; }
    void SetOutlineColor(const TLColor& color) { mOutlineColor = color; }
    void SetOutlineWidth(double width) { mOutlineWidth = width; }

    void save(TLFileFunc& file) const override;
    bool open(TLFileFunc& file) override;

private:
    int mShape = Circle;
    TLColor mOutlineColor;
    double mOutlineWidth = 0.0;
};

}  // namespace TMObjects
