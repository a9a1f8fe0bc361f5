#include "survey/TMOffsetDistance.h"

#include <QButtonGroup>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <cmath>

#include "TLToolText.h"
#include "survey/TLDigitizeOffsetDistance.h"
#include "survey/TLSurveyText.h"
#include "survey/TMSurveyForm.h"

using TMObjects::toQString;

namespace {

constexpr int kPickA = 1;
constexpr int kPickB = 2;
constexpr int kDrawP = 3;

QHBoxLayout* lengthRow(QWidget* parent, const char* name, QLineEdit* edit) {
    auto* row = new QHBoxLayout;
    row->addWidget(TMSurveyForm::label(parent, name));
    row->addWidget(edit);
    row->addWidget(TMSurveyForm::label(parent, "m"));
    return row;
}

}  // namespace

TMOffsetDistance::TMOffsetDistance(QWidget* parent) : TMSurveyDialog(parent) {
    buildWidgets();
    connectWidgets();
    setWindowFlags(surveyFlags());
    if (groupL2->checkedId() == 0) mLineEditL2Length->setEnabled(false);
}

void TMOffsetDistance::buildWidgets() {
    setWindowTitle(QObject::tr("Offset distance measurement"));
    resize(482, 468);
    auto* top = new QHBoxLayout;
    top->setSpacing(4);
    top->addWidget(buildSketch());
    top->addWidget(buildDistanceL1(), 1);

    mPushButtonCalculatePointP =
        TMSurveyForm::button(this, "mPushButtonCalculatePointP", QObject::tr("Calculate P"));
    mPushButtonDrawPointP =
        TMSurveyForm::button(this, "mPushButtonDrawPointP", QObject::tr("Draw P"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(mPushButtonCalculatePointP);
    buttons->addWidget(mPushButtonDrawPointP);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(4);
    layout->addWidget(buildKnownPoints());
    layout->addLayout(top);
    layout->addWidget(buildDistanceL2());
    layout->addWidget(buildPointP());
    layout->addLayout(buttons);
}

QGroupBox* TMOffsetDistance::buildKnownPoints() {
    mGroupBoxKnownPoint =
        TMSurveyForm::box(this, "mGroupBoxKnownPoint", QObject::tr("Known point"));
    QGroupBox* box = mGroupBoxKnownPoint;
    mPushButtonA = TMSurveyForm::pickButton(box, "mPushButtonA", QObject::tr("A"));
    mPushButtonB = TMSurveyForm::pickButton(box, "mPushButtonB", QObject::tr("B"));
    mLineEditAAbscissa = TMSurveyForm::edit(box, "mLineEditAAbscissa");
    mLineEditAOrdinate = TMSurveyForm::edit(box, "mLineEditAOrdinate");
    mLineEditBAbscissa = TMSurveyForm::edit(box, "mLineEditBAbscissa");
    mLineEditBOrdinate = TMSurveyForm::edit(box, "mLineEditBOrdinate");
    auto* grid = new QGridLayout(box);
    TMSurveyForm::addPointRow(grid, 0, mPushButtonA, mLineEditAAbscissa, mLineEditAOrdinate);
    TMSurveyForm::addPointRow(grid, 1, mPushButtonB, mLineEditBAbscissa, mLineEditBOrdinate);
    return box;
}

QGroupBox* TMOffsetDistance::buildSketch() {
    mGroupBoxSketchMap = TMSurveyForm::box(this, "mGroupBoxSketchMap", QObject::tr("Sketch map"));
    mLabelSketchMap = TMSurveyForm::label(mGroupBoxSketchMap, "", "mLabelSketchMap");
    mLabelSketchMap->setMinimumSize(161, 141);
    TMSurveyForm::applyImage(mLabelSketchMap, ":/DigitizeGraphics/_OffsetDistance.png",
                             "border-image: url(:/DigitizeGraphics/_OffsetDistance.png);");
    auto* layout = new QVBoxLayout(mGroupBoxSketchMap);
    layout->addWidget(mLabelSketchMap);
    return mGroupBoxSketchMap;
}

QGroupBox* TMOffsetDistance::buildDistanceL1() {
    mGroupBoxDistanceL1 =
        TMSurveyForm::box(this, "mGroupBoxDistanceL1", QObject::tr("Distance L1"));
    QGroupBox* box = mGroupBoxDistanceL1;
    mRadioButtonDisToA =
        TMSurveyForm::radio(box, "mRadioButtonDisToA", QObject::tr("Distance to A"));
    mRadioButtonDisToB =
        TMSurveyForm::radio(box, "mRadioButtonDisToB", QObject::tr("Distance to B"));
    mRadioButtonDisToA->setChecked(true);
    groupL1 = new QButtonGroup(this);
    groupL1->addButton(mRadioButtonDisToA, 0);
    groupL1->addButton(mRadioButtonDisToB, 1);
    mLineEditL1Length = TMSurveyForm::edit(box, "mLineEditL1Length");
    setLengthValidator(mLineEditL1Length);

    auto* layout = new QVBoxLayout(box);
    layout->addWidget(mRadioButtonDisToA);
    layout->addWidget(mRadioButtonDisToB);
    layout->addLayout(lengthRow(box, "L1", mLineEditL1Length));
    return box;
}

QGroupBox* TMOffsetDistance::buildDistanceL2() {
    mGroupBoxDistanceL2 =
        TMSurveyForm::box(this, "mGroupBoxDistanceL2", QObject::tr("Distance L2"));
    QGroupBox* box = mGroupBoxDistanceL2;
    mRadioButtonPtoAB = TMSurveyForm::radio(
        box, "mRadioButtonPtoAB", QObject::tr("Obtain perpendicular foot from P to line AB"));
    mRadioButtonABLeft = TMSurveyForm::radio(box, "mRadioButtonABLeft", QObject::tr("AB left"));
    mRadioButtonABRight = TMSurveyForm::radio(box, "mRadioButtonABRight", QObject::tr("AB right"));
    mRadioButtonPtoAB->setChecked(true);
    groupL2 = new QButtonGroup(this);
    groupL2->addButton(mRadioButtonPtoAB, 0);
    groupL2->addButton(mRadioButtonABLeft, 1);
    groupL2->addButton(mRadioButtonABRight, 2);
    mLineEditL2Length = TMSurveyForm::edit(box, "mLineEditL2Length");
    setLengthValidator(mLineEditL2Length);

    auto* layout = new QVBoxLayout(box);
    layout->addWidget(mRadioButtonPtoAB);
    layout->addWidget(mRadioButtonABLeft);
    layout->addWidget(mRadioButtonABRight);
    layout->addLayout(lengthRow(box, "L2", mLineEditL2Length));
    return box;
}

QGroupBox* TMOffsetDistance::buildPointP() {
    mGroupBoxTheCoordinateOfP =
        TMSurveyForm::box(this, "mGroupBoxTheCoordinateOfP", QObject::tr("Coordinates of point P"));
    QGroupBox* box = mGroupBoxTheCoordinateOfP;
    mLineEditPAbscissa = TMSurveyForm::edit(box, "mLineEditPAbscissa");
    mLineEditPOrdinate = TMSurveyForm::edit(box, "mLineEditPOrdinate");
    mLineEditPAbscissa->setEnabled(false);
    mLineEditPOrdinate->setEnabled(false);
    auto* row = new QHBoxLayout(box);
    row->addWidget(TMSurveyForm::label(box, "Abscissa"));
    row->addWidget(mLineEditPAbscissa);
    row->addWidget(TMSurveyForm::label(box, "m"));
    row->addWidget(TMSurveyForm::label(box, "Ordinate"));
    row->addWidget(mLineEditPOrdinate);
    row->addWidget(TMSurveyForm::label(box, "m"));
    return box;
}

// The form is built in code, so the slots are tied to their buttons here rather than by name.
void TMOffsetDistance::connectWidgets() {
    connect(mPushButtonA, &QPushButton::clicked, this, [this] { on_mPushButtonA_clicked(); });
    connect(mPushButtonB, &QPushButton::clicked, this, [this] { on_mPushButtonB_clicked(); });
    connect(mPushButtonCalculatePointP, &QPushButton::clicked, this,
            [this] { on_mPushButtonCalculatePointP_clicked(); });
    connect(mPushButtonDrawPointP, &QPushButton::clicked, this,
            [this] { on_mPushButtonDrawPointP_clicked(); });
    for (QAbstractButton* button : groupL1->buttons())
        connect(button, &QAbstractButton::clicked, this,
                [this, button] { onRadioCheck(groupL1->id(button)); });
    for (QAbstractButton* button : groupL2->buttons())
        connect(button, &QAbstractButton::clicked, this,
                [this, button] { onRadioCheck2(groupL2->id(button)); });
}

void TMOffsetDistance::setTool(TMObjects::TLDigitizeOffsetDistance* offsetTool) {
    tool = offsetTool;
    setSurveyTool(offsetTool);
}

void TMOffsetDistance::resetForm() {
    pickCodeText.clear();
    mode = 1;
    measureFromA = true;
    ax = ay = bx = by = 0.0;
    l1 = l2 = 0.0;
    resultX.clear();
    resultY.clear();
    for (QLineEdit* edit :
         {mLineEditAAbscissa, mLineEditAOrdinate, mLineEditBAbscissa, mLineEditBOrdinate,
          mLineEditL1Length, mLineEditL2Length, mLineEditPAbscissa, mLineEditPOrdinate})
        edit->clear();
    mRadioButtonDisToA->setChecked(true);
    mRadioButtonPtoAB->setChecked(true);
    // Checking by code sends no click: L2 follows the foot choice here by hand.
    mLineEditL2Length->setEnabled(false);
}

void TMOffsetDistance::on_mPushButtonA_clicked() {
    requestPick(kPickA);
}

void TMOffsetDistance::on_mPushButtonB_clicked() {
    requestPick(kPickB);
}

bool TMOffsetDistance::takePick(const QString& x, const QString& y) {
    const double px = TMObjects::toTLString(x).ToDouble();
    const double py = TMObjects::toTLString(y).ToDouble();
    if (pickCodeText == "1") {
        ax = px;
        ay = py;
        mLineEditAAbscissa->setText(x);
        mLineEditAOrdinate->setText(y);
        return true;
    }
    if (pickCodeText == "2") {
        bx = px;
        by = py;
        mLineEditBAbscissa->setText(x);
        mLineEditBOrdinate->setText(y);
        return true;
    }
    return false;
}

void TMOffsetDistance::onRadioCheck(int id) {
    if (id == 0) measureFromA = true;
    if (id == 1) measureFromA = false;
}

void TMOffsetDistance::onRadioCheck2(int id) {
    if (id < 0 || id > 2) return;
    mode = id + 1;
    mLineEditL2Length->setEnabled(id != 0);
}

void TMOffsetDistance::readForm() {
    ax = numberOf(mLineEditAAbscissa);
    ay = numberOf(mLineEditAOrdinate);
    bx = numberOf(mLineEditBAbscissa);
    by = numberOf(mLineEditBOrdinate);
    l1 = numberOf(mLineEditL1Length);
    l2 = numberOf(mLineEditL2Length);
}

bool TMOffsetDistance::validate() {
    QString missing;
    if (l1 <= 0) missing += QObject::tr("Length value of L1 ");
    if (l2 <= 0 && mode != 1) missing += QObject::tr("Length value of L2 ");
    if (!missing.isEmpty()) {
        warn(QObject::tr("Please input first ") + missing +
             QObject::tr("Then calculate the coordinates of the point p!"));
        return false;
    }
    if (ax == bx && ay == by) {
        warn(QObject::tr("A and B are coincident, please re-enter and calculate."));
        return false;
    }
    if (l1 < 0) {
        warn(
            QObject::tr("The length value of L1 cannot be less than zero, please re-enter and "
                        "calculate."));
        return false;
    }
    if (l2 < 0 && mode != 1) {
        warn(
            QObject::tr("The length value of L2 cannot be less than zero, please re-enter and "
                        "calculate."));
        return false;
    }
    const double dx = bx - ax, dy = by - ay;
    if (l1 > std::sqrt(dx * dx + dy * dy)) {
        warn(
            QObject::tr("The length value of L1 is greater than that of AB. Logical error, please "
                        "re-enter and calculate."));
        return false;
    }
    return true;
}

bool TMOffsetDistance::calculate() {
    readForm();
    if (!validate()) return false;
    const double dx = bx - ax, dy = by - ay;
    const double ab2 = dx * dx + dy * dy;
    const double ab = std::sqrt(ab2);
    const double t = l1 / ab;
    const double mx = measureFromA ? ax + t * dx : bx - t * dx;
    const double my = measureFromA ? ay + t * dy : by - t * dy;

    double px = mx, py = my;
    if (mode != 1) {
        // The perpendicular through M is dx*X + dy*Y + c = 0; the two points at L2 from M on it.
        const double c = -(mx * dx + my * dy);
        const double v = dx * ay - dy * ax;
        const double w = ab * l2;
        // The side words hold in the first and third quadrants of AB only; elsewhere, and for a
        // vertical AB, they swap. That is how the construction has always worked.
        const bool rising = (bx > ax && by >= ay) || (ax > bx && ay >= by);
        const bool left = (mode == 2) == rising;
        const double u = left ? v + w : v - w;
        px = -(c * dx + u * dy) / ab2;
        py = (u * dx - c * dy) / ab2;
    }
    if (!std::isfinite(px) || !std::isfinite(py)) {
        warn(
            QObject::tr("The coordinates of point P are out of range, please re-enter and "
                        "calculate."));
        return false;
    }
    resultX = QString::number(px, 'f', 6);
    resultY = QString::number(py, 'f', 6);
    return true;
}

void TMOffsetDistance::on_mPushButtonCalculatePointP_clicked() {
    if (!calculate()) return;
    mLineEditPAbscissa->setText(resultX);
    mLineEditPOrdinate->setText(resultY);
}

void TMOffsetDistance::on_mPushButtonDrawPointP_clicked() {
    if (!calculate()) return;
    pickCodeText = QString::number(kDrawP);
    announce(kDrawP);
    handOver({toQString(TMObjects::TLSurveyText::point(resultX.toDouble(), resultY.toDouble()))});
    // Ends the tool and with it this dialog.
    reject();
}
