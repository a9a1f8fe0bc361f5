#pragma once

namespace TMObjects {

// Sizes of a style are kept in the unit the symbol was designed in; whoever draws or writes the
// symbol converts them to the unit it needs.
class TLStyleLength {
public:
    enum Unit { Pixel = 0, Point = 1, Millimeter = 2, Centimeter = 3, Inch = 4 };

    // `value` in unit `from` expressed in unit `to`, with `dpi` device pixels to the inch. An
    // unknown unit on either side leaves the value as it is, so that a style from a newer
    // library still draws at some size.
    static double Convert(int from, double value, int to, double dpi);

private:
    static bool inchesPerUnit(int unit, double dpi, double& inches);
};

}  // namespace TMObjects
