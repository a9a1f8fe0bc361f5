#pragma once

#include <QDialog>

#include "tmgiscore/TMUnitTypes.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QRadioButton;

namespace TMObjects {
class TLToolMeasureArea;
}

// The display of a measured area: feature or free mode, plane or ellipsoid, the coordinate
// system measured in, and the area in the unit picked.
class TMDisplayArea : public QDialog {
public:
    explicit TMDisplayArea(QWidget* parent = nullptr);

    void setTool(TMObjects::TLToolMeasureArea* tool);
    // A new area: in square metres off the ellipsoid, else in the square of the map's unit.
    void setArea(double value);

    // Without a system only the plane is possible; the text box says why.
    void showPlaneOnly(const QString& why);
    // A geographic system is measured on its ellipsoid only.
    void showEllipsoidOnly();
    // A projected system may be measured either way.
    void offerBoth();
    void setSystemText(const QString& text);
    bool planeChecked() const;
    bool ellipsoidChecked() const;

    void planearea(bool checked);
    void ellipsoidarea(bool checked);
    void unitsChanged(int index);

private:
    void buildWidgets();
    void connectWidgets();
    void fillUnits();
    void showArea();

    TMObjects::TLToolMeasureArea* tool = nullptr;
    double area = 0.0;
    TMUnitTypes::AreaUnit baseUnit = TMUnitTypes::UnknownAreaUnit;
    double baseFactor = 1.0;
    int currentIndex = 0;
    int previousIndex = 0;
    bool unitChosen = false;

    QCheckBox* mCheckBoxMeasureFea = nullptr;
    QRadioButton* mRadioButtonPlane = nullptr;
    QRadioButton* mRadioButtonEllipsoid = nullptr;
    QPlainTextEdit* mTextEditCoordinateSystem = nullptr;
    QLabel* mLabelTotal = nullptr;
    QLineEdit* mLineEditTotal = nullptr;
    QComboBox* mComboBoxUnits = nullptr;
};
