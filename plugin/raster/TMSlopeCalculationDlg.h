#pragma once

#include "raster/TMTerrainPointDialog.h"

// The slope at a point, in degrees, from Horn's weights over the 3 by 3 cells around it.
class TMSlopeCalculationDlg : public TMTerrainPointDialog {
public:
    explicit TMSlopeCalculationDlg(QWidget* parent = nullptr);
    void calculateSlopeValue() { calculate(); }

    // The program's own degree: 3.1415926 / 180, kept as it stands.
    static constexpr double kDegree = 0.017453292222222222;

protected:
    double valueOf(const double cells[9], double w, double h) const override;
};
