#pragma once

#include <QString>

#include "survey/TMSurveyDialog.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace TMObjects {
class TLDigitizeMicroTraverse;
}

// The micro traverse leg: from A to B, then turned at B by the angle a, clockwise from the leg
// back to A, and run the distance d to P. The angle may be typed or picked on the map; P is only
// drawn, never shown.
class TMMicroTraverse : public TMSurveyDialog {
public:
    explicit TMMicroTraverse(QWidget* parent = nullptr);

    void setTool(TMObjects::TLDigitizeMicroTraverse* traverseTool);
    // Empties the form and its numbers.
    void resetForm();

    void on_mPushButtonA_clicked();
    void on_mPushButtonB_clicked();
    void on_mPushButtonAngle_clicked();
    void on_mPushButtonDrawPointP_clicked();
    void clickedPushButtonClose();

    QString resultXText() const { return resultX; }
    QString resultYText() const { return resultY; }

protected:
    bool takePick(const QString& x, const QString& y) override;

private:
    void buildWidgets();
    QGroupBox* buildSketch();
    QGroupBox* buildPoint(const char* name, const char* title, QPushButton* pick, QLineEdit* x,
                          QLineEdit* y);
    QGroupBox* buildAngle();
    QGroupBox* buildDistance();
    void connectWidgets();

    void readPoints();
    // The angle at B from the leg back to A round to the picked point, into the angle field.
    void takeAngle(double px, double py);
    // P into resultX and resultY; false, after a warning, when A and B coincide.
    bool calculate();

    double ax = 0.0, ay = 0.0, bx = 0.0, by = 0.0;
    double angle = 0.0, distance = 0.0;
    QString resultX, resultY;
    TMObjects::TLDigitizeMicroTraverse* tool = nullptr;

    QLabel* mLabelSketchMap = nullptr;
    QPushButton* mPushButtonA = nullptr;
    QPushButton* mPushButtonB = nullptr;
    QLineEdit* mLineEditAAbscissa = nullptr;
    QLineEdit* mLineEditAOrdinate = nullptr;
    QLineEdit* mLineEditBAbscissa = nullptr;
    QLineEdit* mLineEditBOrdinate = nullptr;
    QPushButton* mPushButtonAngle = nullptr;
    QLineEdit* mLineEditAngle = nullptr;
    QLineEdit* mLineEditDistance = nullptr;
    QPushButton* mPushButtonDrawPointP = nullptr;
    QPushButton* mPushButtonClose = nullptr;
};
