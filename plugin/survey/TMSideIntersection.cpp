#include "survey/TMSideIntersection.h"

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

constexpr int kPickAP = 3;
constexpr int kPickBP = 4;
constexpr int kDrawP = 5;

}  // namespace

TMSideIntersection::TMSideIntersection(QWidget* parent) : TMIntersectionDialog(parent) {
    setWindowTitle(QObject::tr("Side intersection"));
    resize(482, 400);
    layOut(buildLengths(), QObject::tr("Draw P"));
    connect(mPushButtonAP, &QPushButton::clicked, this, [this] { on_mPushButtonAP_clicked(); });
    connect(mPushButtonBP, &QPushButton::clicked, this, [this] { on_mPushButtonBP_clicked(); });
    for (QAbstractButton* button : sideGroup->buttons())
        connect(button, &QAbstractButton::clicked, this,
                [this, button] { onRadioCheck(sideGroup->id(button)); });
}

QHBoxLayout* TMSideIntersection::buildLengths() {
    QGroupBox* lengths = TMSurveyForm::box(this, "mGroupBoxLength", QObject::tr("Length"));
    mPushButtonAP = TMSurveyForm::pickButton(lengths, "mPushButtonAP", QString());
    mPushButtonBP = TMSurveyForm::pickButton(lengths, "mPushButtonBP", QString());
    mLabelAPLength = TMSurveyForm::label(lengths, "AP length", "mLabelAPLength");
    mLabelBPLength = TMSurveyForm::label(lengths, "BP length", "mLabelBPLength");
    mLineEditAPLength = TMSurveyForm::edit(lengths, "mLineEditAPLength");
    mLineEditBPLength = TMSurveyForm::edit(lengths, "mLineEditBPLength");
    auto* grid = new QGridLayout(lengths);
    grid->addWidget(mPushButtonAP, 0, 0);
    grid->addWidget(mLabelAPLength, 0, 1);
    grid->addWidget(mLineEditAPLength, 0, 2);
    grid->addWidget(TMSurveyForm::label(lengths, "m"), 0, 3);
    grid->addWidget(mPushButtonBP, 1, 0);
    grid->addWidget(mLabelBPLength, 1, 1);
    grid->addWidget(mLineEditBPLength, 1, 2);
    grid->addWidget(TMSurveyForm::label(lengths, "m"), 1, 3);

    auto* row = new QHBoxLayout;
    row->setSpacing(4);
    row->addWidget(TMSurveyForm::sketch(this, QObject::tr("Sketch map"),
                                        ":/DigitizeGraphics/_SideIntersection.png"));
    row->addWidget(lengths, 1);
    row->addWidget(buildSide(QObject::tr("P position")));
    return row;
}

void TMSideIntersection::resetForm() {
    TMIntersectionDialog::resetForm();
    r1 = r2 = 0.0;
    clearEdits({mLineEditAPLength, mLineEditBPLength});
}

void TMSideIntersection::on_mPushButtonAP_clicked() {
    requestObservationPick(kPickAP);
}

void TMSideIntersection::on_mPushButtonBP_clicked() {
    requestObservationPick(kPickBP);
}

void TMSideIntersection::onRadioCheck(int id) {
    if (id == 0) leftOfAB = true;
    if (id == 1) leftOfAB = false;
}

int TMSideIntersection::drawCode() const {
    return kDrawP;
}

// A and B are the numbers read when the pick button was pressed.
bool TMSideIntersection::takePick(const QString& x, const QString& y) {
    if (TMIntersectionDialog::takePick(x, y)) return true;
    const double px = x.toDouble(), py = y.toDouble();
    if (pickCodeText == QString::number(kPickAP)) {
        mLineEditAPLength->setText(QString::number(distance(px, py, ax, ay), 'f', 2));
        return true;
    }
    if (pickCodeText == QString::number(kPickBP)) {
        mLineEditBPLength->setText(QString::number(distance(px, py, bx, by), 'f', 2));
        return true;
    }
    return false;
}

// P is the crossing of the circles about A and B on the chosen side of the direction A to B.
bool TMSideIntersection::calculate() {
    readPoints();
    r1 = numberOf(mLineEditAPLength);
    r2 = numberOf(mLineEditBPLength);
    const double dx = bx - ax, dy = by - ay;
    const double d = std::sqrt(dx * dx + dy * dy);
    // Touching circles count as disjoint, and so do equal points A and B.
    if (r2 >= d + r1 || r1 >= d + r2 || d >= r1 + r2) {
        warn(QObject::tr("Disjoint point."));
        return false;
    }
    const double c = std::acos((d * d + r1 * r1 - r2 * r2) / (2 * r1 * d));
    double b = std::atan(dy / dx);
    if (dx < 0) b += M_PI;
    const double theta = leftOfAB ? b + c : b - c;
    resultX = QString::number(ax + std::cos(theta) * r1, 'f', 6);
    resultY = QString::number(ay + std::sin(theta) * r1, 'f', 6);
    return true;
}
