#include "tlsymbol/TLStyleLength.h"

namespace TMObjects {

double TLStyleLength::Convert(int from, double value, int to, double dpi) {
    double fromInches = 0.0;
    double toInches = 0.0;
    if (from == to || !inchesPerUnit(from, dpi, fromInches) || !inchesPerUnit(to, dpi, toInches))
        return value;
    return value * fromInches / toInches;
}

bool TLStyleLength::inchesPerUnit(int unit, double dpi, double& inches) {
    switch (unit) {
        case Pixel:
            if (!(dpi > 0.0)) return false;
            inches = 1.0 / dpi;
            return true;
        case Point:
            inches = 1.0 / 72.0;
            return true;
        case Millimeter:
            inches = 1.0 / 25.4;
            return true;
        case Centimeter:
            inches = 1.0 / 2.54;
            return true;
        case Inch:
            inches = 1.0;
            return true;
        default:
            return false;
    }
}

}  // namespace TMObjects
