#include "raster/TMSlopeCalculationDlg.h"

#include <cmath>

TMSlopeCalculationDlg::TMSlopeCalculationDlg(QWidget* parent)
    : TMTerrainPointDialog(QObject::tr("Slope calculation"), "mSlopeValueLabel",
                           QObject::tr("Slope value:"), parent) {
    setObjectName(QStringLiteral("TMSlopeCalculationDlg"));
}

double TMSlopeCalculationDlg::valueOf(const double cells[9], double w, double h2) const {
    const double a = cells[0], b = cells[1], c = cells[2], d = cells[3], f = cells[5], g = cells[6],
                 h = cells[7], i = cells[8];
    const double dzdx = ((c + 2 * f + i) - (a + 2 * d + g)) / (8 * w);
    const double dzdy = ((g + 2 * h + i) - (a + 2 * b + c)) / (8 * h2);
    return std::atan(std::sqrt(dzdx * dzdx + dzdy * dzdy)) / kDegree;
}
