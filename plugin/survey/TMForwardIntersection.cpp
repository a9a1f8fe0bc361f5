#include "survey/TMForwardIntersection.h"

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

constexpr int kPickAngle1 = 3;
constexpr int kPickAngle2 = 4;
constexpr int kDrawP = 5;

}  // namespace

TMForwardIntersection::TMForwardIntersection(QWidget* parent) : TMIntersectionDialog(parent) {
    setWindowTitle(QObject::tr("Forward intersection"));
    resize(482, 420);
    layOut(buildObservations(), QObject::tr("Draw P"));
    connect(mPushButtonAngle1, &QPushButton::clicked, this,
            [this] { on_mPushButtonAngle1_clicked(); });
    connect(mPushButtonAngle2, &QPushButton::clicked, this,
            [this] { on_mPushButtonAngle2_clicked(); });
    for (QAbstractButton* button : unitGroup->buttons())
        connect(button, &QAbstractButton::clicked, this,
                [this, button] { onRadioCheck(unitGroup->id(button)); });
    for (QAbstractButton* button : sideGroup->buttons())
        connect(button, &QAbstractButton::clicked, this,
                [this, button] { onRadioCheck2(sideGroup->id(button)); });
}

QHBoxLayout* TMForwardIntersection::buildObservations() {
    QGroupBox* observed =
        TMSurveyForm::box(this, "mGroupBoxObservationValue", QObject::tr("Observation value"));
    mPushButtonAngle1 = TMSurveyForm::pickButton(observed, "mPushButtonAngle1", QString());
    mPushButtonAngle2 = TMSurveyForm::pickButton(observed, "mPushButtonAngle2", QString());
    mLabelA1 = TMSurveyForm::label(observed, "a1", "mLabelA1");
    mLabelA2 = TMSurveyForm::label(observed, "a2", "mLabelA2");
    mLineEditAngle1 = TMSurveyForm::edit(observed, "mLineEditAngle1");
    mLineEditAngle2 = TMSurveyForm::edit(observed, "mLineEditAngle2");
    auto* grid = new QGridLayout(observed);
    grid->addWidget(mPushButtonAngle1, 0, 0);
    grid->addWidget(mLabelA1, 0, 1);
    grid->addWidget(mLineEditAngle1, 0, 2);
    grid->addWidget(mPushButtonAngle2, 1, 0);
    grid->addWidget(mLabelA2, 1, 1);
    grid->addWidget(mLineEditAngle2, 1, 2);

    auto* choices = new QVBoxLayout;
    choices->addWidget(buildUnit());
    choices->addWidget(buildSide(QObject::tr("P position")));
    auto* row = new QHBoxLayout;
    row->setSpacing(4);
    row->addWidget(TMSurveyForm::sketch(this, QObject::tr("Sketch Map"),
                                        ":/DigitizeGraphics/_ForwardIntersection.png"));
    row->addWidget(observed, 1);
    row->addLayout(choices);
    return row;
}

void TMForwardIntersection::resetForm() {
    TMIntersectionDialog::resetForm();
    a1 = a2 = 0.0;
    clearEdits({mLineEditAngle1, mLineEditAngle2});
}

void TMForwardIntersection::on_mPushButtonAngle1_clicked() {
    requestObservationPick(kPickAngle1);
}

void TMForwardIntersection::on_mPushButtonAngle2_clicked() {
    requestObservationPick(kPickAngle2);
}

void TMForwardIntersection::onRadioCheck(int id) {
    if (id == 0) radians = false;
    if (id == 1) radians = true;
}

void TMForwardIntersection::onRadioCheck2(int id) {
    if (id == 0) leftOfAB = true;
    if (id == 1) leftOfAB = false;
}

int TMForwardIntersection::drawCode() const {
    return kDrawP;
}

double TMForwardIntersection::pickedAngle(double px, double py) const {
    const double d1 = distance(px, py, ax, ay);
    const double d2 = distance(px, py, bx, by);
    const double c = distance(ax, ay, bx, by);
    if (pickCodeText == QString::number(kPickAngle1))
        return std::acos((c * c + d1 * d1 - d2 * d2) / (2 * d1 * c));
    return std::acos((c * c + d2 * d2 - d1 * d1) / (2 * c * d2));
}

// A and B are the numbers read when the pick button was pressed.
bool TMForwardIntersection::takePick(const QString& x, const QString& y) {
    if (TMIntersectionDialog::takePick(x, y)) return true;
    QLineEdit* field = pickCodeText == QString::number(kPickAngle1)   ? mLineEditAngle1
                       : pickCodeText == QString::number(kPickAngle2) ? mLineEditAngle2
                                                                      : nullptr;
    if (!field) return false;
    double angle = pickedAngle(x.toDouble(), y.toDouble());
    if (!radians) angle = angle / M_PI * 180;
    field->setText(QString::number(angle, 'f', 2));
    return true;
}

bool TMForwardIntersection::inputValid() {
    if (ax == bx && ay == by) {
        warn(QObject::tr(
            "The two points are coincident. Please check whether the input is correct."));
        return false;
    }
    // Radians are taken as they come.
    if (!radians && !(a1 > 0 && a2 < 180 && a2 != 0)) {
        warn(QObject::tr("The angle input is incorrect. Please recheck."));
        return false;
    }
    return true;
}

bool TMForwardIntersection::calculate() {
    readPoints();
    a1 = numberOf(mLineEditAngle1);
    a2 = numberOf(mLineEditAngle2);
    if (inputValid()) solve();
    return true;
}

// P from A along the side AP, turned by a1 from AB within its quadrant. Due west and due south
// fall through the quadrant tests and leave P at A.
void TMForwardIntersection::solve() {
    if (!radians) {
        a1 = a1 / 180 * M_PI;
        a2 = a2 / 180 * M_PI;
    }
    const double dx = bx - ax, dy = by - ay;
    const double d = std::sqrt(dx * dx + dy * dy);
    const double s = d * std::tan(a2) / (std::tan(a1) + std::tan(a2)) / std::cos(a1);
    const double e = std::asin(std::fabs(dy) / d);
    // Turning towards AB's left adds a1 where AB rises with x or falls against it.
    const bool addsOnLeft = (dx >= 0 && dy >= 0) || (dx < 0 && dy < 0);
    const double theta = (addsOnLeft == leftOfAB) ? e + a1 : e - a1;
    double ox = 0.0, oy = 0.0;
    if ((dx > 0 && dy < 0) || (dx >= 0 && dy >= 0) || (dx < 0 && dy != 0)) {
        ox = (dx < 0 ? -1 : 1) * std::cos(theta) * s;
        oy = (dy < 0 ? -1 : 1) * std::sin(theta) * s;
    }
    // The side decides the precision of P's text.
    const int decimals = leftOfAB ? 6 : 3;
    resultX = QString::number(ax + ox, 'f', decimals);
    resultY = QString::number(ay + oy, 'f', decimals);
}
