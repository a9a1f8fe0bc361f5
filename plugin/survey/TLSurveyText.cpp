#include "survey/TLSurveyText.h"

#include <QString>

#include "TLToolText.h"

namespace TMObjects {

// Qt's asprintf keeps the decimal point whatever the C locale says, so the text always reads
// back, in whichever host.
TLString TLSurveyText::coordinate(double value) {
    return toTLString(QString::asprintf("%f", value));
}

TLString TLSurveyText::point(double x, double y) {
    return toTLString(QString::asprintf("%f,%f", x, y));
}

bool TLSurveyText::cutPoint(const TLString& text, TLPoint& p) {
    const int comma = text.Find(L',');
    if (comma < 0) return false;
    if (comma > 0) p.x = text.Left(comma).ToDouble();
    p.y = text.Mid(comma + 1).ToDouble();
    return true;
}

}  // namespace TMObjects
