#pragma once

#include <QDialog>

#include "tmgiscore/TMUnitTypes.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace TMObjects {
class TLToolMeasureGirth;
}

// The floating display of the summed length of the picked features, in the unit picked.
class TMDisplayGirth : public QDialog {
public:
    explicit TMDisplayGirth(QWidget* parent = nullptr);

    void setTool(TMObjects::TLToolMeasureGirth* tool);
    // A new sum, in the tool's unit.
    void setValue(double value);
    void unitsChanged(int index);

private:
    void buildWidgets();
    double chosenFactor() const;
    void showValue();

    TMObjects::TLToolMeasureGirth* tool = nullptr;
    int currentIndex = 0;
    int previousIndex = 0;
    double value = 0.0;
    TMGis::UnitType baseUnit = TMGis::UnknownUnit;
    double baseFactor = 1.0;
    bool unitChosen = false;

    QLabel* mLabelGrith = nullptr;
    QLineEdit* mLineEditTotal = nullptr;
    QComboBox* mComboBoxUnits = nullptr;
};
