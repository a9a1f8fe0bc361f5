#pragma once

#include <QString>

#include "survey/TMSurveyDialog.h"

class QButtonGroup;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace TMObjects {
class TLDigitizeOffsetDistance;
}

// The offset distance construction: P lies at L1 along AB, measured from A or from B, and then
// either on AB itself or L2 off it at right angles.
class TMOffsetDistance : public TMSurveyDialog {
public:
    explicit TMOffsetDistance(QWidget* parent = nullptr);

    void setTool(TMObjects::TLDigitizeOffsetDistance* offsetTool);
    // Empties the form and its numbers and checks the first choice of each group.
    void resetForm();

    void on_mPushButtonA_clicked();
    void on_mPushButtonB_clicked();
    void on_mPushButtonCalculatePointP_clicked();
    void on_mPushButtonDrawPointP_clicked();
    void onRadioCheck(int id);
    void onRadioCheck2(int id);

    QString resultXText() const { return resultX; }
    QString resultYText() const { return resultY; }

protected:
    bool takePick(const QString& x, const QString& y) override;

private:
    void buildWidgets();
    QGroupBox* buildKnownPoints();
    QGroupBox* buildSketch();
    QGroupBox* buildDistanceL1();
    QGroupBox* buildDistanceL2();
    QGroupBox* buildPointP();
    void connectWidgets();

    void readForm();
    // Warns and answers false at the first value that does not allow a construction.
    bool validate();
    // P into resultX and resultY; false when the values give no finite point.
    bool calculate();

    int mode = 1;  // 1 foot on AB, 2 AB left, 3 AB right
    bool measureFromA = true;
    double ax = 0.0, ay = 0.0, bx = 0.0, by = 0.0;
    double l1 = 0.0, l2 = 0.0;
    QString resultX, resultY;
    TMObjects::TLDigitizeOffsetDistance* tool = nullptr;
    QButtonGroup* groupL1 = nullptr;
    QButtonGroup* groupL2 = nullptr;

    QGroupBox* mGroupBoxKnownPoint = nullptr;
    QPushButton* mPushButtonA = nullptr;
    QPushButton* mPushButtonB = nullptr;
    QLineEdit* mLineEditAAbscissa = nullptr;
    QLineEdit* mLineEditAOrdinate = nullptr;
    QLineEdit* mLineEditBAbscissa = nullptr;
    QLineEdit* mLineEditBOrdinate = nullptr;
    QGroupBox* mGroupBoxSketchMap = nullptr;
    QLabel* mLabelSketchMap = nullptr;
    QGroupBox* mGroupBoxDistanceL1 = nullptr;
    QRadioButton* mRadioButtonDisToA = nullptr;
    QRadioButton* mRadioButtonDisToB = nullptr;
    QLineEdit* mLineEditL1Length = nullptr;
    QGroupBox* mGroupBoxDistanceL2 = nullptr;
    QRadioButton* mRadioButtonPtoAB = nullptr;
    QRadioButton* mRadioButtonABLeft = nullptr;
    QRadioButton* mRadioButtonABRight = nullptr;
    QLineEdit* mLineEditL2Length = nullptr;
    QGroupBox* mGroupBoxTheCoordinateOfP = nullptr;
    QLineEdit* mLineEditPAbscissa = nullptr;
    QLineEdit* mLineEditPOrdinate = nullptr;
    QPushButton* mPushButtonCalculatePointP = nullptr;
    QPushButton* mPushButtonDrawPointP = nullptr;
};
