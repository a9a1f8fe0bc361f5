#pragma once

#include <QColor>
#include <QString>

#include "tlbase/TLColor.h"

namespace TMObjects {

// The number and colour texts of the style documents. Each has its own rounding, and the
// readers of the documents in use rely on them as they are.
class TLSldNumber {
public:
    // Fixed notation, no decimals.
    static QString number0(double value);
    // Fixed notation, 2 decimals, trailing zeros and a bare point dropped.
    static QString number2(double value);
    // Six significant digits.
    static QString g6(double value);
    // Four decimals in fixed notation, through Qt's fallback for an unknown format character.
    static QString fixed4(double value);
    // Qt's own shortest text, for opacities and radii.
    static QString plain(double value);
    // True when the value is 0 up to rounding noise of a few operations.
    static bool nearZero(double value);
    static QColor color(const TLColor& color);
};

}  // namespace TMObjects
