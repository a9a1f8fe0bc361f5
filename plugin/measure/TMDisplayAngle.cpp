#include "measure/TMDisplayAngle.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

#include "tmgiscore/TMUnitTypes.h"

namespace {

const char* const kUnitsKey = "/terraloom/measure/angleunits";
const char* const kDecimalsKey = "/terraloom/measure/decimalplaces";
// More would only show the noise of the pointer's pixels.
const int kMostDecimals = 12;

}  // namespace

TMDisplayAngle::TMDisplayAngle(QWidget* parent)
    : QDialog(parent, Qt::WindowFlags(Qt::WindowStaysOnTopHint)) {
    buildWidgets();
    connect(mButtonClose, &QPushButton::clicked, this, &QDialog::hide);
}

void TMDisplayAngle::buildWidgets() {
    setWindowTitle(QObject::tr("Measure angle"));
    mLineEditDegree = new QLineEdit(this);
    mLineEditDegree->setObjectName(QStringLiteral("mLineEditDegree"));
    mLineEditDegree->setReadOnly(true);
    mLineEditDegree->setAlignment(Qt::AlignRight);
    QFont bold = mLineEditDegree->font();
    bold.setBold(true);
    mLineEditDegree->setFont(bold);
    mButtonClose = new QPushButton(QObject::tr("Close"), this);
    mButtonClose->setObjectName(QStringLiteral("mButtonClose"));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(mButtonClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mLineEditDegree);
    layout->addLayout(buttons);
}

// The settings are read at each value, so that a change in the options shows at once. A unit or
// a count of decimals that cannot be read falls back to degrees and three decimals.
void TMDisplayAngle::setValue(double radians) {
    QSettings settings;
    bool known = false;
    TMUnitTypes::AngleUnit unit = TMUnitTypes::decodeAngleUnit(
        settings.value(kUnitsKey, TMUnitTypes::encodeUnit(TMUnitTypes::AngleDegrees)).toString(),
        &known);
    if (!known) unit = TMUnitTypes::AngleDegrees;
    bool read = false;
    int decimals = settings.value(kDecimalsKey, QStringLiteral("3")).toString().toInt(&read);
    if (!read || decimals < 0) decimals = 3;
    decimals = qMin(decimals, kMostDecimals);

    const double value =
        radians * TMUnitTypes::fromUnitToUnitFactor(TMUnitTypes::AngleRadians, unit);
    mLineEditDegree->setText(QString("%L1").arg(value, 0, 'f', decimals, QLatin1Char(' ')));
}
