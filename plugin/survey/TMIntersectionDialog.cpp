#include "survey/TMIntersectionDialog.h"

#include <QButtonGroup>
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
#include "survey/TLSurveyText.h"
#include "survey/TMSurveyForm.h"

namespace {

constexpr int kPickA = 1;
constexpr int kPickB = 2;

}  // namespace

TMIntersectionDialog::TMIntersectionDialog(QWidget* parent) : TMSurveyDialog(parent) {
    setWindowFlags(surveyFlags());
}

void TMIntersectionDialog::layOut(QHBoxLayout* middle, const QString& drawText) {
    mPushButtonCalculatePointP =
        TMSurveyForm::button(this, "mPushButtonCalculatePointP", QObject::tr("Calculate P"));
    mPushButtonDrawPointP = TMSurveyForm::button(this, "mPushButtonDrawPointP", drawText);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(mPushButtonCalculatePointP);
    buttons->addWidget(mPushButtonDrawPointP);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(4);
    layout->addWidget(buildKnownPoints());
    layout->addLayout(middle);
    layout->addWidget(buildPointP());
    layout->addLayout(buttons);

    // The form is built in code, so the slots are tied to their buttons here rather than by name.
    connect(mPushButtonA, &QPushButton::clicked, this, [this] { on_mPushButtonA_clicked(); });
    connect(mPushButtonB, &QPushButton::clicked, this, [this] { on_mPushButtonB_clicked(); });
    connect(mPushButtonCalculatePointP, &QPushButton::clicked, this,
            [this] { on_mPushButtonCalculatePointP_clicked(); });
    connect(mPushButtonDrawPointP, &QPushButton::clicked, this,
            [this] { on_mPushButtonDrawPointP_clicked(); });
}

QGroupBox* TMIntersectionDialog::buildKnownPoints() {
    mGroupBoxKnownPoint =
        TMSurveyForm::box(this, "mGroupBoxKnownPoint", QObject::tr("Known point"));
    QGroupBox* box = mGroupBoxKnownPoint;
    mPushButtonA = TMSurveyForm::pickButton(box, "mPushButtonA", QObject::tr("A"));
    mPushButtonB = TMSurveyForm::pickButton(box, "mPushButtonB", QObject::tr("B"));
    mLineEditAAbscissa = TMSurveyForm::edit(box, "mLineEditAAbscissa");
    mLineEditAOrdinate = TMSurveyForm::edit(box, "mLineEditAOrdinate");
    mLineEditBAbscissa = TMSurveyForm::edit(box, "mLineEditBAbscissa");
    mLineEditBOrdinate = TMSurveyForm::edit(box, "mLineEditBOrdinate");
    knownGrid = new QGridLayout(box);
    addKnownRow(0, mPushButtonA, mLineEditAAbscissa, mLineEditAOrdinate);
    addKnownRow(1, mPushButtonB, mLineEditBAbscissa, mLineEditBOrdinate);
    return box;
}

void TMIntersectionDialog::addKnownRow(int row, QPushButton* pick, QLineEdit* x, QLineEdit* y) {
    TMSurveyForm::addPointRow(knownGrid, row, pick, x, y);
}

QGroupBox* TMIntersectionDialog::buildPointP() {
    QGroupBox* box =
        TMSurveyForm::box(this, "mGroupBoxTheCoordinateOfP", QObject::tr("Coordinates of point P"));
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

QGroupBox* TMIntersectionDialog::buildUnit() {
    QGroupBox* box = TMSurveyForm::box(this, "mGroupBoxUnit", QObject::tr("Unit"));
    mRadioButtonAngle = TMSurveyForm::radio(box, "mRadioButtonAngle", QObject::tr("Angle"));
    mRadioButtonRadian = TMSurveyForm::radio(box, "mRadioButtonRadian", QObject::tr("Radian"));
    unitGroup = TMSurveyForm::choice(this, mRadioButtonAngle, mRadioButtonRadian);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(mRadioButtonAngle);
    layout->addWidget(mRadioButtonRadian);
    return box;
}

QGroupBox* TMIntersectionDialog::buildSide(const QString& title) {
    QGroupBox* box = TMSurveyForm::box(this, "mGroupBoxPPosition", title);
    mRadioButtonABLeft = TMSurveyForm::radio(box, "mRadioButtonABLeft", QObject::tr("AB left"));
    mRadioButtonABRight = TMSurveyForm::radio(box, "mRadioButtonABRight", QObject::tr("AB right"));
    sideGroup = TMSurveyForm::choice(this, mRadioButtonABLeft, mRadioButtonABRight);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(mRadioButtonABLeft);
    layout->addWidget(mRadioButtonABRight);
    return box;
}

void TMIntersectionDialog::clearEdits(std::initializer_list<QLineEdit*> edits) {
    for (QLineEdit* edit : edits)
        if (edit) edit->clear();
}

void TMIntersectionDialog::resetForm() {
    pickCodeText.clear();
    radians = false;
    leftOfAB = true;
    ax = ay = bx = by = 0.0;
    resultX.clear();
    resultY.clear();
    clearEdits({mLineEditAAbscissa, mLineEditAOrdinate, mLineEditBAbscissa, mLineEditBOrdinate,
                mLineEditPAbscissa, mLineEditPOrdinate});
    if (mRadioButtonAngle) mRadioButtonAngle->setChecked(true);
    if (mRadioButtonABLeft) mRadioButtonABLeft->setChecked(true);
}

void TMIntersectionDialog::on_mPushButtonA_clicked() {
    requestPick(kPickA);
}

void TMIntersectionDialog::on_mPushButtonB_clicked() {
    requestPick(kPickB);
}

bool TMIntersectionDialog::takePick(const QString& x, const QString& y) {
    if (pickCodeText == QString::number(kPickA)) {
        ax = x.toDouble();
        ay = y.toDouble();
        mLineEditAAbscissa->setText(x);
        mLineEditAOrdinate->setText(y);
        return true;
    }
    if (pickCodeText == QString::number(kPickB)) {
        bx = x.toDouble();
        by = y.toDouble();
        mLineEditBAbscissa->setText(x);
        mLineEditBOrdinate->setText(y);
        return true;
    }
    return false;
}

void TMIntersectionDialog::requestObservationPick(int code) {
    pickCodeText = QString::number(code);
    announce(code);
    readPoints();
    handOver(pointTexts());
    hide();
}

double TMIntersectionDialog::distance(double x1, double y1, double x2, double y2) {
    return std::sqrt((x2 - x1) * (x2 - x1) + (y2 - y1) * (y2 - y1));
}

void TMIntersectionDialog::readPoints() {
    ax = numberOf(mLineEditAAbscissa);
    ay = numberOf(mLineEditAOrdinate);
    bx = numberOf(mLineEditBAbscissa);
    by = numberOf(mLineEditBOrdinate);
}

QStringList TMIntersectionDialog::pointTexts() const {
    return {QString::asprintf("%f,%f", ax, ay), QString::asprintf("%f,%f", bx, by)};
}

void TMIntersectionDialog::on_mPushButtonCalculatePointP_clicked() {
    if (!calculate()) return;
    mLineEditPAbscissa->setText(resultX);
    mLineEditPOrdinate->setText(resultY);
}

void TMIntersectionDialog::on_mPushButtonDrawPointP_clicked() {
    if (!calculate()) return;
    pickCodeText = QString::number(drawCode());
    announce(drawCode());
    // An empty text reads as 0, so a P never calculated is drawn at the origin.
    handOver({TMObjects::toQString(
        TMObjects::TLSurveyText::point(resultX.toDouble(), resultY.toDouble()))});
    // Ends the tool and with it this dialog.
    reject();
}
