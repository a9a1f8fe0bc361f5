#include "measure/TMDisplayGirth.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include "measure/TLToolMeasureGirth.h"
#include "measure/TMLengthUnits.h"

TMDisplayGirth::TMDisplayGirth(QWidget* parent)
    : QDialog(parent, Qt::WindowFlags(Qt::WindowStaysOnTopHint)) {
    buildWidgets();
    TMLengthUnits::fill(mComboBoxUnits);
    connect(mComboBoxUnits, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &TMDisplayGirth::unitsChanged);
}

void TMDisplayGirth::buildWidgets() {
    setWindowTitle(QObject::tr("Measure perimeter"));
    mLabelGrith = new QLabel(QObject::tr("Perimeter"), this);
    mLabelGrith->setObjectName(QStringLiteral("mLabelGrith"));
    mLineEditTotal = new QLineEdit(this);
    mLineEditTotal->setObjectName(QStringLiteral("mLineEditTotal"));
    mLineEditTotal->setReadOnly(true);
    mLineEditTotal->setAlignment(Qt::AlignRight);
    mComboBoxUnits = new QComboBox(this);
    mComboBoxUnits->setObjectName(QStringLiteral("mComboBoxUnits"));

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(mLabelGrith);
    layout->addWidget(mLineEditTotal, 1);
    layout->addWidget(mComboBoxUnits);
}

void TMDisplayGirth::setTool(TMObjects::TLToolMeasureGirth* girthTool) {
    tool = girthTool;
    if (!tool || unitChosen) return;
    unitChosen = true;
    const int units = tool->measureUnits();
    baseUnit = TMLengthUnits::baseUnitOf(units);
    mComboBoxUnits->setCurrentIndex(TMLengthUnits::defaultIndex(mComboBoxUnits, units));
    if (baseUnit != TMGis::UnknownUnit && baseUnit != TMGis::Meters)
        baseFactor = TMUnitTypes::fromUnitToUnitFactor(baseUnit, TMGis::Meters);
}

double TMDisplayGirth::chosenFactor() const {
    return TMLengthUnits::factorFromMetres(mComboBoxUnits);
}

void TMDisplayGirth::setValue(double sum) {
    value = sum * baseFactor;
    showValue();
}

void TMDisplayGirth::unitsChanged(int index) {
    previousIndex = currentIndex;
    currentIndex = index;
    showValue();
}

void TMDisplayGirth::showValue() {
    mLineEditTotal->setText(
        QString("%L1").arg(value * chosenFactor(), 0, 'f', 6, QLatin1Char(' ')));
}
