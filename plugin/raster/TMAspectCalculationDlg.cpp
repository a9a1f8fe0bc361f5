#include "raster/TMAspectCalculationDlg.h"

#include <cmath>

#include "raster/TMSlopeCalculationDlg.h"

TMAspectCalculationDlg::TMAspectCalculationDlg(QWidget* parent)
    : TMTerrainPointDialog(QObject::tr("Aspect calculation"), "mAspectValueLabel",
                           QObject::tr("Aspect value:"), parent) {
    setObjectName(QStringLiteral("TMAspectCalculationDlg"));
}

double TMAspectCalculationDlg::valueOf(const double cells[9], double, double) const {
    const double a = cells[0], b = cells[1], c = cells[2], d = cells[3], f = cells[5], g = cells[6],
                 h = cells[7], i = cells[8];
    const double p = (c + 2 * f + i) - (a + 2 * d + g);
    const double q = (g + 2 * h + i) - (a + 2 * b + c);
    const float angle = float(std::atan2(q, -p) / TMSlopeCalculationDlg::kDegree);
    if (p == 0.0 && q == 0.0) return -1.0;
    float result = angle > 90.0f ? 450.0f - angle : 90.0f - angle;
    if (result == 360.0f) result = 0.0f;
    return double(result);
}
