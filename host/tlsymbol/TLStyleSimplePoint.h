#pragma once

#include "tlbase/TLColor.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// A point marker: a shape (0 circle, 1 square), its colour and its size in pixels.
class TLStyleSimplePoint : public TLStyle {
public:
    void SetShapeType(int shape) { mShape = shape; }
    int GetShapeType() const { return mShape; }
    void SetColor(const TLColor& colour) { mColor = colour; }
    TLColor GetColor() const { return mColor; }
    void SetWidth(double width) { mWidth = width; }
    double GetWidth() const { return mWidth; }
    void SetHeight(double height) { mHeight = height; }
    double GetHeight() const { return mHeight; }

private:
    int mShape = 0;
    TLColor mColor;
    double mWidth = 1.0;
    double mHeight = 1.0;
};

}  // namespace TMObjects
