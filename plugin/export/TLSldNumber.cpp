#include "export/TLSldNumber.h"

#include <QRegExp>
#include <cmath>

namespace TMObjects {

QString TLSldNumber::number0(double value) {
    return QString::number(value, 'f', 0);
}

QString TLSldNumber::number2(double value) {
    return QString::number(value, 'f', 2).remove(QRegExp("\\.?0+$"));
}

QString TLSldNumber::g6(double value) {
    return QString::number(value, 'g', 6);
}

QString TLSldNumber::fixed4(double value) {
    // The rotation has always been written this way; the character 10 is no format, so Qt
    // writes fixed notation.
    return QString::number(value, char(10), 4);
}

QString TLSldNumber::plain(double value) {
    return QString::number(value);
}

bool TLSldNumber::nearZero(double value) {
    return std::fabs(value) <= 8.881784197001252e-16;
}

QColor TLSldNumber::color(const TLColor& color) {
    return QColor(color.getR(), color.getG(), color.getB(), color.getA());
}

}  // namespace TMObjects
