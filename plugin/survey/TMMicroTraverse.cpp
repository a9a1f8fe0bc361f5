#include "survey/TMMicroTraverse.h"

#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>

#include "TLToolText.h"
#include "survey/TLDigitizeMicroTraverse.h"
#include "survey/TLSurveyText.h"
#include "survey/TMSurveyForm.h"

using TMObjects::toQString;

namespace {

constexpr int kPickA = 1;
constexpr int kPickB = 2;
constexpr int kPickAngle = 3;
constexpr int kDrawP = 4;
const double kPi = std::acos(-1.0);

// The direction of (dx, dy), anticlockwise from +X, in [0, 2*pi). Worked out by quadrants from
// the arcsine, as surveyors' tables do; a null vector has direction 0.
double bearing(double dx, double dy) {
    if (dy == 0) return dx < 0 ? kPi : 0.0;
    if (dx == 0) return dy > 0 ? kPi / 2 : 3 * kPi / 2;
    const double e = std::fabs(std::asin(dy / std::sqrt(dx * dx + dy * dy)));
    if (dy > 0) return dx > 0 ? e : kPi - e;
    return dx < 0 ? e + kPi : 2 * kPi - e;
}

}  // namespace

TMMicroTraverse::TMMicroTraverse(QWidget* parent) : TMSurveyDialog(parent) {
    buildWidgets();
    connectWidgets();
    setWindowFlags(surveyFlags());
}

void TMMicroTraverse::buildWidgets() {
    setWindowTitle(QObject::tr("Micro-traverse"));
    resize(441, 348);
    mPushButtonA = TMSurveyForm::pickButton(this, "mPushButtonA", QObject::tr("A"));
    mPushButtonB = TMSurveyForm::pickButton(this, "mPushButtonB", QObject::tr("B"));
    mLineEditAAbscissa = TMSurveyForm::edit(this, "mLineEditAAbscissa");
    mLineEditAOrdinate = TMSurveyForm::edit(this, "mLineEditAOrdinate");
    mLineEditBAbscissa = TMSurveyForm::edit(this, "mLineEditBAbscissa");
    mLineEditBOrdinate = TMSurveyForm::edit(this, "mLineEditBOrdinate");

    auto* points = new QVBoxLayout;
    points->addWidget(buildPoint("mGroupBoxStartingPointA", "Starting point A", mPushButtonA,
                                 mLineEditAAbscissa, mLineEditAOrdinate));
    points->addWidget(buildPoint("mGroupBoxEndPointB", "End point B", mPushButtonB,
                                 mLineEditBAbscissa, mLineEditBOrdinate));
    auto* top = new QHBoxLayout;
    top->addWidget(buildSketch());
    top->addLayout(points, 1);

    mPushButtonDrawPointP =
        TMSurveyForm::button(this, "mPushButtonDrawPointP", QObject::tr("Draw P"));
    mPushButtonClose = TMSurveyForm::button(this, "mPushButtonClose", QObject::tr("Close"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(mPushButtonDrawPointP);
    buttons->addWidget(mPushButtonClose);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(4);
    layout->addLayout(top);
    layout->addWidget(buildAngle());
    layout->addWidget(buildDistance());
    layout->addLayout(buttons);
}

QGroupBox* TMMicroTraverse::buildSketch() {
    auto* box = TMSurveyForm::box(this, "mGroupBoxSketchMap", QObject::tr("Sketch map"));
    mLabelSketchMap = TMSurveyForm::label(box, "", "mLabelSketchMap");
    mLabelSketchMap->setMinimumSize(161, 101);
    TMSurveyForm::applyImage(mLabelSketchMap, ":/DigitizeGraphics/_MicroTraverse.png",
                             "border-image: url(:/DigitizeGraphics/_MicroTraverse.png);");
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(mLabelSketchMap);
    return box;
}

// One point's group: its pick button, then x and y, each with its unit.
QGroupBox* TMMicroTraverse::buildPoint(const char* name, const char* title, QPushButton* pick,
                                       QLineEdit* x, QLineEdit* y) {
    auto* box = TMSurveyForm::box(this, name, QObject::tr(title));
    for (QWidget* child :
         {static_cast<QWidget*>(pick), static_cast<QWidget*>(x), static_cast<QWidget*>(y)})
        child->setParent(box);
    auto* grid = new QGridLayout(box);
    grid->addWidget(pick, 0, 0, 2, 1);
    grid->addWidget(TMSurveyForm::label(box, "Abscissa"), 0, 1);
    grid->addWidget(x, 0, 2);
    grid->addWidget(TMSurveyForm::label(box, "m"), 0, 3);
    grid->addWidget(TMSurveyForm::label(box, "Ordinate"), 1, 1);
    grid->addWidget(y, 1, 2);
    grid->addWidget(TMSurveyForm::label(box, "m"), 1, 3);
    return box;
}

QGroupBox* TMMicroTraverse::buildAngle() {
    auto* box = TMSurveyForm::box(this, "mGroupBoxAngle", QObject::tr("Angle a"));
    mPushButtonAngle = TMSurveyForm::pickButton(box, "mPushButtonAngle", QObject::tr("a"));
    // Any text is taken; one that is no number reads as 0.
    mLineEditAngle = TMSurveyForm::edit(box, "mLineEditAngle");
    auto* row = new QHBoxLayout(box);
    row->addWidget(mPushButtonAngle);
    row->addWidget(TMSurveyForm::label(box, "Angle   "));
    row->addWidget(mLineEditAngle);
    row->addWidget(TMSurveyForm::label(box, "Degree"));
    return box;
}

QGroupBox* TMMicroTraverse::buildDistance() {
    auto* box = TMSurveyForm::box(this, "mGroupBoxDistance", QObject::tr("Distance d"));
    mLineEditDistance = TMSurveyForm::edit(box, "mLineEditDistance");
    setLengthValidator(mLineEditDistance);
    auto* row = new QHBoxLayout(box);
    row->addWidget(TMSurveyForm::label(box, "    Distance"));
    row->addWidget(mLineEditDistance);
    row->addWidget(TMSurveyForm::label(box, "m"));
    return box;
}

// The form is built in code, so the slots are tied to their buttons here rather than by name.
void TMMicroTraverse::connectWidgets() {
    connect(mPushButtonA, &QPushButton::clicked, this, [this] { on_mPushButtonA_clicked(); });
    connect(mPushButtonB, &QPushButton::clicked, this, [this] { on_mPushButtonB_clicked(); });
    connect(mPushButtonAngle, &QPushButton::clicked, this,
            [this] { on_mPushButtonAngle_clicked(); });
    connect(mPushButtonDrawPointP, &QPushButton::clicked, this,
            [this] { on_mPushButtonDrawPointP_clicked(); });
}

void TMMicroTraverse::setTool(TMObjects::TLDigitizeMicroTraverse* traverseTool) {
    tool = traverseTool;
    setSurveyTool(traverseTool);
}

void TMMicroTraverse::resetForm() {
    pickCodeText.clear();
    ax = ay = bx = by = 0.0;
    angle = distance = 0.0;
    resultX.clear();
    resultY.clear();
    for (QLineEdit* edit : {mLineEditAAbscissa, mLineEditAOrdinate, mLineEditBAbscissa,
                            mLineEditBOrdinate, mLineEditAngle, mLineEditDistance})
        edit->clear();
    // Made anew with every reset, so that the button never ends the tool twice.
    disconnect(mPushButtonClose, &QPushButton::clicked, this, nullptr);
    connect(mPushButtonClose, &QPushButton::clicked, this, [this] { clickedPushButtonClose(); });
}

void TMMicroTraverse::on_mPushButtonA_clicked() {
    requestPick(kPickA);
}

void TMMicroTraverse::on_mPushButtonB_clicked() {
    requestPick(kPickB);
}

void TMMicroTraverse::on_mPushButtonAngle_clicked() {
    // The angle is measured against A and B as the form holds them now.
    readPoints();
    requestPick(kPickAngle);
    handOver({toQString(TMObjects::TLSurveyText::point(ax, ay)),
              toQString(TMObjects::TLSurveyText::point(bx, by))});
}

void TMMicroTraverse::clickedPushButtonClose() {
    reject();
}

bool TMMicroTraverse::takePick(const QString& x, const QString& y) {
    const double px = TMObjects::toTLString(x).ToDouble();
    const double py = TMObjects::toTLString(y).ToDouble();
    if (pickCodeText == QString::number(kPickA)) {
        ax = px;
        ay = py;
        mLineEditAAbscissa->setText(x);
        mLineEditAOrdinate->setText(y);
        return true;
    }
    if (pickCodeText == QString::number(kPickB)) {
        bx = px;
        by = py;
        mLineEditBAbscissa->setText(x);
        mLineEditBOrdinate->setText(y);
        return true;
    }
    if (pickCodeText == QString::number(kPickAngle)) {
        takeAngle(px, py);
        return true;
    }
    return false;
}

void TMMicroTraverse::takeAngle(double px, double py) {
    double a = bearing(ax - bx, ay - by) - bearing(px - bx, py - by);
    if (a < 0) a += 2 * kPi;
    angle = a / kPi * 180;
    mLineEditAngle->setText(QString::number(angle, 'f', 2));
}

void TMMicroTraverse::readPoints() {
    ax = numberOf(mLineEditAAbscissa);
    ay = numberOf(mLineEditAOrdinate);
    bx = numberOf(mLineEditBAbscissa);
    by = numberOf(mLineEditBOrdinate);
}

bool TMMicroTraverse::calculate() {
    readPoints();
    angle = numberOf(mLineEditAngle);
    distance = numberOf(mLineEditDistance);
    if (ax == bx && ay == by) {
        warn(QObject::tr(
            "The two points are coincident. Please check whether the input is correct."));
        return false;
    }
    // Clockwise from the leg back to A: 180 degrees carries straight on through B.
    const double direction = bearing(ax - bx, ay - by) - angle / 180 * kPi;
    resultX = QString::number(bx + std::cos(direction) * distance, 'f', 6);
    resultY = QString::number(by + std::sin(direction) * distance, 'f', 6);
    return true;
}

void TMMicroTraverse::on_mPushButtonDrawPointP_clicked() {
    pickCodeText = QString::number(kDrawP);
    announce(kDrawP);
    if (!calculate()) return;
    handOver({toQString(TMObjects::TLSurveyText::point(resultX.toDouble(), resultY.toDouble()))});
    // Ends the tool and with it this dialog.
    reject();
}
