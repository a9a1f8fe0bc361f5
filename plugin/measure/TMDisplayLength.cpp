#include "measure/TMDisplayLength.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "measure/TLToolMeasureLine.h"
#include "measure/TMLengthUnits.h"

TMDisplayLength::TMDisplayLength(QWidget* parent)
    : QDialog(parent, Qt::WindowFlags(Qt::WindowStaysOnTopHint)) {
    buildWidgets();
    TMLengthUnits::fill(mComboBoxUnits);
    connect(mComboBoxUnits, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &TMDisplayLength::unitsChanged);
}

void TMDisplayLength::buildWidgets() {
    setWindowTitle(QObject::tr("Measure distance"));
    mTreeWidget = new QTreeWidget(this);
    mTreeWidget->setObjectName(QStringLiteral("mTreeWidget"));
    mTreeWidget->setColumnCount(1);
    mTreeWidget->setHeaderLabels({QObject::tr("Segments")});
    mTreeWidget->setRootIsDecorated(false);
    mTreeWidget->header()->setDefaultAlignment(Qt::AlignRight);

    mLabelTotal = new QLabel(QObject::tr("Total"), this);
    mLabelTotal->setObjectName(QStringLiteral("mLabelTotal"));
    mLineEditTotal = new QLineEdit(this);
    mLineEditTotal->setObjectName(QStringLiteral("mLineEditTotal"));
    mLineEditTotal->setReadOnly(true);
    mLineEditTotal->setAlignment(Qt::AlignRight);
    mComboBoxUnits = new QComboBox(this);
    mComboBoxUnits->setObjectName(QStringLiteral("mComboBoxUnits"));

    auto* row = new QHBoxLayout;
    row->addWidget(mLabelTotal);
    row->addWidget(mLineEditTotal, 1);
    row->addWidget(mComboBoxUnits);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mTreeWidget);
    layout->addLayout(row);
}

void TMDisplayLength::setTool(TMObjects::TLToolMeasureLine* measureTool) {
    tool = measureTool;
    if (!tool || unitChosen) return;
    unitChosen = true;
    const int units = tool->measureUnits();
    baseUnit = TMLengthUnits::baseUnitOf(units);
    mComboBoxUnits->setCurrentIndex(TMLengthUnits::defaultIndex(mComboBoxUnits, units));
    if (baseUnit != TMGis::UnknownUnit && baseUnit != TMGis::Meters)
        baseFactor = TMUnitTypes::fromUnitToUnitFactor(baseUnit, TMGis::Meters);
}

double TMDisplayLength::chosenFactor() const {
    return TMLengthUnits::factorFromMetres(mComboBoxUnits);
}

void TMDisplayLength::setLastSegment(double value) {
    lastSegment = value * baseFactor;
    takeSegments();
    showSegments(true);
}

void TMDisplayLength::unitsChanged(int index) {
    previousIndex = currentIndex;
    currentIndex = index;
    showSegments(false);
}

void TMDisplayLength::takeSegments() {
    segments.clear();
    if (!tool) return;
    const auto& points = tool->clickedPoints();
    for (size_t i = 1; i < points.size(); ++i)
        segments.push_back(tool->segmentLength(points[i - 1], points[i]) * baseFactor);
}

void TMDisplayLength::showSegments(bool withLiveSegment) {
    const double f = chosenFactor();
    mTreeWidget->clear();
    total = 0.0;
    for (double segment : segments) {
        addRow(segment * f);
        total += segment * f;
    }
    if (withLiveSegment) {
        addRow(lastSegment * f);
        total += lastSegment * f;
    }
    mLineEditTotal->setText(QString("%L1").arg(total, 0, 'f', 6, QLatin1Char(' ')));
}

void TMDisplayLength::addRow(double value) {
    auto* item = new QTreeWidgetItem(QStringList{QLocale::system().toString(value, 'f', 6)});
    item->setTextAlignment(0, Qt::AlignRight);
    mTreeWidget->addTopLevelItem(item);
    mTreeWidget->scrollToItem(item);
}
