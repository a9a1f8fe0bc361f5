#include "measure/TMDisplayArea.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "measure/TLToolMeasureArea.h"
#include "tlsymbol/TLUnits.h"

namespace {

const TMUnitTypes::AreaUnit kUnits[] = {
    TMUnitTypes::SquareMeters, TMUnitTypes::SquareKilometers,    TMUnitTypes::SquareFeet,
    TMUnitTypes::SquareYards,  TMUnitTypes::SquareMiles,         TMUnitTypes::Hectares,
    TMUnitTypes::Acres,        TMUnitTypes::SquareNauticalMiles, TMUnitTypes::UnknownAreaUnit};

// The area unit of values measured in a unit of the map (a TLUnitsType).
TMUnitTypes::AreaUnit baseUnitOf(int units) {
    using namespace TMObjects;
    switch (units) {
        case TLFeet:
            return TMUnitTypes::SquareFeet;
        case TLYards:
            return TMUnitTypes::SquareYards;
        case TLMiles:
            return TMUnitTypes::SquareMiles;
        case TLNauticalMiles:
            return TMUnitTypes::SquareNauticalMiles;
        case TLMillimeters:
        case TLCentimeters:
        case TLMeters:
        case TLDecimeters:
            return TMUnitTypes::SquareMeters;
        case TLKilometers:
            return TMUnitTypes::SquareKilometers;
        default:
            return TMUnitTypes::UnknownAreaUnit;
    }
}

}  // namespace

TMDisplayArea::TMDisplayArea(QWidget* parent)
    : QDialog(parent, Qt::WindowFlags(Qt::WindowStaysOnTopHint)) {
    buildWidgets();
    fillUnits();
    connectWidgets();
}

void TMDisplayArea::buildWidgets() {
    setWindowTitle(QObject::tr("Measure area"));
    mCheckBoxMeasureFea = new QCheckBox(QObject::tr("Measure feature"), this);
    mCheckBoxMeasureFea->setObjectName(QStringLiteral("mCheckBoxMeasureFea"));
    mCheckBoxMeasureFea->setChecked(true);
    mRadioButtonPlane = new QRadioButton(QObject::tr("Plane"), this);
    mRadioButtonPlane->setObjectName(QStringLiteral("mRadioButtonPlane"));
    mRadioButtonPlane->setChecked(true);
    mRadioButtonEllipsoid = new QRadioButton(QObject::tr("Ellipsoid"), this);
    mRadioButtonEllipsoid->setObjectName(QStringLiteral("mRadioButtonEllipsoid"));
    mTextEditCoordinateSystem = new QPlainTextEdit(this);
    mTextEditCoordinateSystem->setObjectName(QStringLiteral("mTextEditCoordinateSystem"));
    mTextEditCoordinateSystem->setReadOnly(true);
    mLabelTotal = new QLabel(QObject::tr("Area"), this);
    mLabelTotal->setObjectName(QStringLiteral("mLabelTotal"));
    mLineEditTotal = new QLineEdit(this);
    mLineEditTotal->setObjectName(QStringLiteral("mLineEditTotal"));
    mLineEditTotal->setReadOnly(true);
    mLineEditTotal->setAlignment(Qt::AlignRight);
    mComboBoxUnits = new QComboBox(this);
    mComboBoxUnits->setObjectName(QStringLiteral("mComboBoxUnits"));

    auto* radios = new QHBoxLayout;
    radios->addWidget(mRadioButtonPlane);
    radios->addWidget(mRadioButtonEllipsoid);
    radios->addStretch(1);
    auto* total = new QHBoxLayout;
    total->addWidget(mLabelTotal);
    total->addWidget(mLineEditTotal, 1);
    total->addWidget(mComboBoxUnits);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mCheckBoxMeasureFea);
    layout->addLayout(radios);
    layout->addWidget(mTextEditCoordinateSystem);
    layout->addLayout(total);
}

// Clicks only: the tool sets the radios itself while measuring, and must not hear that back.
void TMDisplayArea::connectWidgets() {
    connect(mCheckBoxMeasureFea, &QCheckBox::clicked, this, [this](bool checked) {
        if (tool) tool->setMeasureFea(checked);
    });
    connect(mRadioButtonPlane, &QRadioButton::clicked, this, &TMDisplayArea::planearea);
    connect(mRadioButtonEllipsoid, &QRadioButton::clicked, this, &TMDisplayArea::ellipsoidarea);
    connect(mComboBoxUnits, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &TMDisplayArea::unitsChanged);
}

void TMDisplayArea::fillUnits() {
    for (TMUnitTypes::AreaUnit unit : kUnits)
        mComboBoxUnits->addItem(TMUnitTypes::toString(unit), int(unit));
    mComboBoxUnits->setCurrentIndex(0);
}

void TMDisplayArea::setTool(TMObjects::TLToolMeasureArea* areaTool) {
    tool = areaTool;
    if (!tool) return;
    mCheckBoxMeasureFea->setChecked(tool->isMeasureFea());
    if (unitChosen) return;
    unitChosen = true;
    const int units = tool->measureUnits();
    baseUnit = baseUnitOf(units);
    if (units == TMObjects::TLUnknownUnits)
        mComboBoxUnits->setCurrentIndex(mComboBoxUnits->findData(TMUnitTypes::UnknownAreaUnit));
    if (baseUnit != TMUnitTypes::UnknownAreaUnit && baseUnit != TMUnitTypes::SquareMeters)
        baseFactor = TMUnitTypes::fromUnitToUnitFactor(baseUnit, TMUnitTypes::SquareMeters);
}

void TMDisplayArea::setArea(double value) {
    const bool metres = tool && tool->measuredOnEllipsoid();
    area = value * (metres ? 1.0 : baseFactor);
    showArea();
}

void TMDisplayArea::unitsChanged(int index) {
    previousIndex = currentIndex;
    currentIndex = index;
    showArea();
}

// The area is kept in square metres (or square map units) and converted for the unit picked
// only, so that going through several units loses nothing.
void TMDisplayArea::showArea() {
    const auto chosen = TMUnitTypes::AreaUnit(mComboBoxUnits->currentData().toInt());
    double f = 1.0;
    if (chosen != TMUnitTypes::SquareMeters && chosen != TMUnitTypes::UnknownAreaUnit)
        f = TMUnitTypes::fromUnitToUnitFactor(TMUnitTypes::SquareMeters, chosen);
    mLineEditTotal->setText(QString("%L1").arg(area * f, 0, 'f', 6, QLatin1Char(' ')));
}

void TMDisplayArea::showPlaneOnly(const QString& why) {
    mRadioButtonEllipsoid->setEnabled(false);
    mRadioButtonEllipsoid->setChecked(false);
    mRadioButtonPlane->setChecked(true);
    mRadioButtonPlane->setEnabled(false);
    mTextEditCoordinateSystem->clear();
    mTextEditCoordinateSystem->setPlainText(why);
}

void TMDisplayArea::showEllipsoidOnly() {
    mRadioButtonPlane->setEnabled(false);
    mRadioButtonPlane->setChecked(false);
    mRadioButtonEllipsoid->setEnabled(false);
    mRadioButtonEllipsoid->setChecked(true);
}

void TMDisplayArea::offerBoth() {
    mRadioButtonPlane->setEnabled(true);
    mRadioButtonEllipsoid->setEnabled(true);
}

void TMDisplayArea::setSystemText(const QString& text) {
    mTextEditCoordinateSystem->setPlainText(text);
}

bool TMDisplayArea::planeChecked() const {
    return mRadioButtonPlane->isChecked();
}

bool TMDisplayArea::ellipsoidChecked() const {
    return mRadioButtonEllipsoid->isChecked();
}

void TMDisplayArea::planearea(bool checked) {
    if (checked && tool) tool->react2check();
}

void TMDisplayArea::ellipsoidarea(bool checked) {
    if (checked && tool) tool->react2check();
}
