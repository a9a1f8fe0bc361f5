#pragma once

#include "tlbase/TLPoint.h"
#include "tlbase/TLString.h"

namespace TMObjects {

// The texts in which survey tools and their dialogs hand coordinates across: plain "%f" decimals,
// a point as "x,y".
class TLSurveyText {
public:
    static TLString coordinate(double value);
    static TLString point(double x, double y);
    // Cuts "x,y" at its first comma into `p`. A comma in first place leaves p.x as it was; a text
    // without a comma is no point and leaves `p` alone.
    static bool cutPoint(const TLString& text, TLPoint& p);
};

}  // namespace TMObjects
