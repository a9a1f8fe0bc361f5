#pragma once

#include <QString>

#include "survey/TMSurveyDialog.h"

class QButtonGroup;
class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;

// The form the intersection constructions share: the known points A and B with their pick
// buttons, the unit of angles, the side of AB, the text of P, and "Calculate P" and "Draw P".
// Each construction adds its observations and its arithmetic.
class TMIntersectionDialog : public TMSurveyDialog {
public:
    explicit TMIntersectionDialog(QWidget* parent = nullptr);

    void setTool(TMObjects::TLTool* tool) { setSurveyTool(tool); }
    // All numbers 0, all texts empty, "AB left" and "Angle" checked.
    virtual void resetForm();

    void on_mPushButtonA_clicked();
    void on_mPushButtonB_clicked();
    void on_mPushButtonCalculatePointP_clicked();
    void on_mPushButtonDrawPointP_clicked();

    QString resultXText() const { return resultX; }
    QString resultYText() const { return resultY; }

protected:
    // Fills resultX and resultY; false after a warning that stops both action slots.
    virtual bool calculate() = 0;
    // The code that tells the tool that the list holds P.
    virtual int drawCode() const = 0;
    bool takePick(const QString& x, const QString& y) override;

    // The layout of the whole form: the known points, then `middle`, then P and the buttons.
    void layOut(QHBoxLayout* middle, const QString& drawText);
    QGroupBox* buildUnit();
    QGroupBox* buildSide(const QString& title);
    // A further row for a known point in the box of A and B.
    void addKnownRow(int row, QPushButton* pick, QLineEdit* x, QLineEdit* y);
    // A click that gives an observation: the tool hears the code and the typed A and B, for
    // the lines it draws while the pointer moves, and the form steps aside.
    void requestObservationPick(int code);
    // The plain distance of two points.
    static double distance(double x1, double y1, double x2, double y2);
    // The fields of A and B into the numbers.
    void readPoints();
    // The "x,y" texts of A and B as the numbers hold them.
    QStringList pointTexts() const;
    void clearEdits(std::initializer_list<QLineEdit*> edits);

    bool radians = false;
    bool leftOfAB = true;
    double ax = 0.0, ay = 0.0, bx = 0.0, by = 0.0;
    QString resultX, resultY;

    QGroupBox* mGroupBoxKnownPoint = nullptr;
    QPushButton* mPushButtonA = nullptr;
    QPushButton* mPushButtonB = nullptr;
    QLineEdit* mLineEditAAbscissa = nullptr;
    QLineEdit* mLineEditAOrdinate = nullptr;
    QLineEdit* mLineEditBAbscissa = nullptr;
    QLineEdit* mLineEditBOrdinate = nullptr;
    QRadioButton* mRadioButtonAngle = nullptr;
    QRadioButton* mRadioButtonRadian = nullptr;
    QRadioButton* mRadioButtonABLeft = nullptr;
    QRadioButton* mRadioButtonABRight = nullptr;
    QButtonGroup* unitGroup = nullptr;
    QButtonGroup* sideGroup = nullptr;
    QLineEdit* mLineEditPAbscissa = nullptr;
    QLineEdit* mLineEditPOrdinate = nullptr;
    QPushButton* mPushButtonCalculatePointP = nullptr;
    QPushButton* mPushButtonDrawPointP = nullptr;

private:
    QGroupBox* buildKnownPoints();
    QGroupBox* buildPointP();
    QGridLayout* knownGrid = nullptr;
};
