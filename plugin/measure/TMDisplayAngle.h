#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

// The floating display of a measured angle, in the unit and with the decimals of the settings
// "/terraloom/measure/angleunits" and "/terraloom/measure/decimalplaces".
class TMDisplayAngle : public QDialog {
public:
    explicit TMDisplayAngle(QWidget* parent = nullptr);

    // The angle in radians.
    void setValue(double radians);

private:
    void buildWidgets();

    QLineEdit* mLineEditDegree = nullptr;
    QPushButton* mButtonClose = nullptr;
};
