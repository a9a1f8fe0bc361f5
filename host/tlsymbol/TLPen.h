#pragma once

#include "tlbase/TLColor.h"

namespace TMObjects {

class TLPen {
public:
    enum PenStyle { NoPen = 0, SolidLine = 1, DashLine = 2, DotLine = 3, DashDotLine = 4 };
    PenStyle style = SolidLine;
    double width = 1.0;
    TLColor color;
};

class TLBrush {
public:
    enum BrushStyle { NoBrush = 0, SolidPattern = 1 };
    BrushStyle style = NoBrush;
    TLColor color;
};

// A drawing style of the host's symbol library (tlsymbol/TLStyle.h).
class TLStyle;
class TLImage;

}  // namespace TMObjects
