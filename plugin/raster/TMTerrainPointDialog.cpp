#include "raster/TMTerrainPointDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

#include "raster/TLRasterCells.h"
#include "raster/TLRasterToolKit.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLRasterLayer.h"

using namespace TMObjects;

namespace {

template <class W>
W* named(W* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

}  // namespace

TMTerrainPointDialog::TMTerrainPointDialog(const QString& title, const char* valueLabel,
                                           const QString& valueText, QWidget* parent)
    : TMRasterLayerDialog(parent) {
    buildForm(title, valueLabel, valueText);
}

void TMTerrainPointDialog::buildForm(const QString& title, const char* valueLabel,
                                     const QString& valueText) {
    setWindowTitle(title);
    label = named(new QLabel(QObject::tr("Layer"), this), "label");
    mLayerComboBox = named(new QComboBox(this), "mLayerComboBox");
    mLayerComboBox->setEditable(true);
    mCoordinateInfoGroupBox = named(new QGroupBox(QObject::tr("Select point coordinates"), this),
                                    "mCoordinateInfoGroupBox");
    mLabel_X = named(new QLabel(QObject::tr("X:"), mCoordinateInfoGroupBox), "mLabel_X");
    mXCoordinateLineEdit = named(new QLineEdit(mCoordinateInfoGroupBox), "mXCoordinateLineEdit");
    mLabel_Y = named(new QLabel(QObject::tr("Y:"), mCoordinateInfoGroupBox), "mLabel_Y");
    mYCoordinateLineEdit = named(new QLineEdit(mCoordinateInfoGroupBox), "mYCoordinateLineEdit");
    mValueLabel = named(new QLabel(valueText, this), valueLabel);
    mOutputLineEdit = named(new QLineEdit(this), "mOutputLineEdit");
    mButtonBox = named(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this),
                       "mButtonBox");
    mButtonBox->button(QDialogButtonBox::Ok)->setText(QObject::tr("Calculate"));
    mButtonBox->button(QDialogButtonBox::Cancel)->setText(QObject::tr("Cancle"));
    // Named, so that scripts and tests can press them as a user does.
    mButtonBox->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("mButtonBox_Calculate"));
    mButtonBox->button(QDialogButtonBox::Cancel)
        ->setObjectName(QStringLiteral("mButtonBox_Cancle"));

    auto* coordinates = new QGridLayout(mCoordinateInfoGroupBox);
    coordinates->addWidget(mLabel_X, 0, 0);
    coordinates->addWidget(mXCoordinateLineEdit, 0, 1);
    coordinates->addWidget(mLabel_Y, 1, 0);
    coordinates->addWidget(mYCoordinateLineEdit, 1, 1);
    auto* layerRow = new QHBoxLayout;
    layerRow->addWidget(label);
    layerRow->addWidget(mLayerComboBox, 1);
    auto* valueRow = new QHBoxLayout;
    valueRow->addWidget(mValueLabel);
    valueRow->addWidget(mOutputLineEdit, 1);
    auto* page = new QVBoxLayout(this);
    page->addLayout(layerRow);
    page->addWidget(mCoordinateInfoGroupBox);
    page->addLayout(valueRow);
    page->addWidget(mButtonBox);

    setLayerCombo(mLayerComboBox, [this](int index) { OnChangeLayer(index); });
    QObject::connect(mButtonBox, &QDialogButtonBox::accepted, this, [this] { calculate(); });
    QObject::connect(mButtonBox, &QDialogButtonBox::rejected, this, [this] { onClickedCancel(); });
}

void TMTerrainPointDialog::setBuddy(TLToolBuddy* buddy) {
    TLRefPtr<TLLayer> layer;
    if (!refillLayers(buddy, layer)) return;
    auto* raster = dynamic_cast<TLRasterLayer*>(layer.get());
    mRaster = raster ? raster->GetRaster() : TLRefPtr<TLRasterProps>();
}

void TMTerrainPointDialog::OnChangeLayer(int index) {
    TLMap* map = TLRasterToolKit::map(mBuddy);
    if (index < 0 || !map) return;
    TLRefPtr<TLLayer> layer =
        map->GetLayerByID(mLayerComboBox->itemData(index, Qt::UserRole).toInt());
    auto* raster = dynamic_cast<TLRasterLayer*>(layer.get());
    mRaster = raster ? raster->GetRaster() : TLRefPtr<TLRasterProps>();
}

void TMTerrainPointDialog::currentMousePos(double x, double y) {
    if (!mBuddy || !mRaster) return;
    mOutputLineEdit->clear();
    TLMap* map = TLRasterToolKit::map(mBuddy);
    if (map && map->GetLayerCount() == 0) {
        mXCoordinateLineEdit->setText(QStringLiteral("0.0"));
        mYCoordinateLineEdit->setText(QStringLiteral("0.0"));
    } else {
        mXCoordinateLineEdit->setText(QString::number(x, 'f', 4));
        mYCoordinateLineEdit->setText(QString::number(y, 'f', 4));
    }
    calculate();
}

void TMTerrainPointDialog::onClickedCancel() {
    close();
}

void TMTerrainPointDialog::calculate() {
    if (!mRaster) return;
    const double x = mXCoordinateLineEdit->text().toDouble();
    const double y = mYCoordinateLineEdit->text().toDouble();
    mRaster->GetWidth();
    mRaster->GetHeight();
    const double w = mRaster->cellWidth(), h = mRaster->cellHeight();
    const int type = mRaster->dataType();
    const TLRect bound = mRaster->GetBound();
    if (x < bound.XMinimum() || x > bound.XMaximum() || y < bound.YMinimum() ||
        y > bound.YMaximum()) {
        QMessageBox::warning(
            this, QObject::tr("warning"),
            QObject::tr("The coordinates are not in this range, please re-enter."));
        return;
    }
    std::unique_ptr<TLBlock> block(mRaster->newBlock(TLSize(3, 3)));
    const int col = int((x - bound.XMinimum()) / w);
    const int row = int((bound.YMaximum() - y) / h);
    mRaster->readBlock(TLPoint(col - 1, row - 1), block.get(), 0);
    void* data = nullptr;
    block->data(1, data);
    double noData = 0.0;
    mRaster->noDataValue(1, noData);
    double cells[9];
    for (int k = 0; k < 9; ++k) {
        bool known = false;
        cells[k] = TLRasterCells::cell(data, type, k, known);
        // The first no-data cell ends it; the formula would not have needed all of them.
        if (!known || cells[k] == noData) {
            showValue(-1.0);
            return;
        }
    }
    showValue(valueOf(cells, w, h));
}

void TMTerrainPointDialog::showValue(double value) {
    mOutputLineEdit->setText(QString::number(value, 'g', 6));
}
