#include "survey/TMBackwardIntersection.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <cmath>

#include "survey/TMSurveyForm.h"

namespace {

constexpr int kPickC = 3;
constexpr int kDrawP = 4;

// The direction from p to q, in [0, 2π) for q east of p.
double direction(double px, double py, double qx, double qy) {
    const double t = std::atan((qy - py) / (qx - px));
    if (qx > px) {
        const double east = t + 2 * M_PI;
        return east > 2 * M_PI ? east - 2 * M_PI : east;
    }
    return t + M_PI;
}

// The weight of a known point from the angle observed at P opposite it and its triangle angle.
double weight(double observed, double triangle) {
    const double to = std::tan(observed), tt = std::tan(triangle);
    return to * tt / (to - tt);
}

}  // namespace

TMBackwardIntersection::TMBackwardIntersection(QWidget* parent) : TMIntersectionDialog(parent) {
    setWindowTitle(QObject::tr("Backward intersection"));
    resize(482, 420);
    layOut(buildObservations(), QObject::tr("Draw  P"));
    mPushButtonC = TMSurveyForm::pickButton(mGroupBoxKnownPoint, "mPushButtonC", QObject::tr("C"));
    mLineEditCAbscissa = TMSurveyForm::edit(mGroupBoxKnownPoint, "mLineEditCAbscissa");
    mLineEditCOrdinate = TMSurveyForm::edit(mGroupBoxKnownPoint, "mLineEditCOrdinate");
    addKnownRow(2, mPushButtonC, mLineEditCAbscissa, mLineEditCOrdinate);
    connect(mPushButtonC, &QPushButton::clicked, this, [this] { on_mPushButtonC_clicked(); });
    for (QAbstractButton* button : unitGroup->buttons())
        connect(button, &QAbstractButton::clicked, this,
                [this, button] { onRadioCheck(unitGroup->id(button)); });
}

QHBoxLayout* TMBackwardIntersection::buildObservations() {
    QGroupBox* observed =
        TMSurveyForm::box(this, "mGroupBoxObservationValue", QObject::tr("Observation value"));
    mLabelA1 = TMSurveyForm::label(observed, "a1", "mLabelA1");
    mLabelA2 = TMSurveyForm::label(observed, "a2", "mLabelA2");
    mLineEditAngle = TMSurveyForm::edit(observed, "mLineEditAngle");
    mLineEditAngle2 = TMSurveyForm::edit(observed, "mLineEditAngle2");
    auto* grid = new QGridLayout(observed);
    grid->addWidget(mLabelA1, 0, 0);
    grid->addWidget(mLineEditAngle, 0, 1);
    grid->addWidget(mLabelA2, 1, 0);
    grid->addWidget(mLineEditAngle2, 1, 1);

    auto* row = new QHBoxLayout;
    row->setSpacing(4);
    row->addWidget(TMSurveyForm::sketch(this, QObject::tr("Sketch map"),
                                        ":/DigitizeGraphics/_BackwardIntersection.png"));
    row->addWidget(observed, 1);
    row->addWidget(buildUnit());
    return row;
}

void TMBackwardIntersection::resetForm() {
    TMIntersectionDialog::resetForm();
    cx = cy = 0.0;
    a1 = a2 = 0.0;
    clearEdits({mLineEditCAbscissa, mLineEditCOrdinate, mLineEditAngle, mLineEditAngle2});
}

void TMBackwardIntersection::on_mPushButtonC_clicked() {
    requestPick(kPickC);
}

void TMBackwardIntersection::onRadioCheck(int id) {
    if (id == 0) radians = false;
    if (id == 1) radians = true;
}

int TMBackwardIntersection::drawCode() const {
    return kDrawP;
}

bool TMBackwardIntersection::takePick(const QString& x, const QString& y) {
    if (TMIntersectionDialog::takePick(x, y)) return true;
    if (pickCodeText != QString::number(kPickC)) return false;
    cx = x.toDouble();
    cy = y.toDouble();
    mLineEditCAbscissa->setText(x);
    mLineEditCOrdinate->setText(y);
    return true;
}

void TMBackwardIntersection::readForm() {
    readPoints();
    cx = numberOf(mLineEditCAbscissa);
    cy = numberOf(mLineEditCOrdinate);
    a1 = numberOf(mLineEditAngle);
    a2 = numberOf(mLineEditAngle2);
}

// Both angles must be positive and together no more than a full turn; degrees are then turned
// into radians.
bool TMBackwardIntersection::anglesValid() {
    const double full = radians ? 2 * M_PI : 360.0;
    if (a1 > full || a2 > full || a1 + a2 > full || a1 <= 0 || a2 <= 0) {
        warn(QObject::tr("The angle input is incorrect. Please recheck."));
        return false;
    }
    if (!radians) {
        a1 = a1 / 180 * M_PI;
        a2 = a2 / 180 * M_PI;
    }
    return true;
}

bool TMBackwardIntersection::calculate() {
    readForm();
    if (!anglesValid()) return false;
    const double a3 = 2 * M_PI - a1 - a2;
    const double gA = direction(ax, ay, bx, by) - direction(ax, ay, cx, cy);
    const double gB = direction(bx, by, cx, cy) - direction(bx, by, ax, ay);
    const double gC = direction(cx, cy, ax, ay) - direction(cx, cy, bx, by);
    const double wA = weight(a2, gA);
    const double wB = weight(a3, gB);
    const double wC = weight(a1, gC);
    const double sum = wA + wB + wC;
    resultX = QString::number((wB * bx + wA * ax + wC * cx) / sum, 'f', 6);
    resultY = QString::number((wB * by + wA * ay + wC * cy) / sum, 'f', 6);
    return true;
}
