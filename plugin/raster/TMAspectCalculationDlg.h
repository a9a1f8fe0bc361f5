#pragma once

#include "raster/TMTerrainPointDialog.h"

// The compass direction the terrain faces at a point, in degrees clockwise from north, from
// Horn's weights over the 3 by 3 cells around it; -1 on flat ground. The angle is narrowed to a
// 32-bit float and finished in it.
class TMAspectCalculationDlg : public TMTerrainPointDialog {
public:
    explicit TMAspectCalculationDlg(QWidget* parent = nullptr);
    void calculateAspectValue() { calculate(); }

protected:
    double valueOf(const double cells[9], double w, double h) const override;
};
