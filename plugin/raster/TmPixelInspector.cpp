#include "raster/TmPixelInspector.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>
#include <cmath>
#include <memory>

#include "raster/TLRasterToolKit.h"
#include "tlmap/TLMap.h"
#include "tlmap/TLMultiBandImageRender.h"
#include "tlmap/TLRasterLayer.h"
#include "tlmap/TLRubberBand.h"

using namespace TMObjects;

namespace {

QTableWidget* bandTable(QWidget* page, const char* name) {
    auto* table = new QTableWidget(5, 5, page);
    table->setObjectName(QString::fromLatin1(name));
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(table);
    return table;
}

QWidget* page(const char* name) {
    auto* widget = new QWidget;
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

}  // namespace

TmPixelInspector::TmPixelInspector(QWidget* parent) : QDialog(parent) {
    buildForm();
}

void TmPixelInspector::buildForm() {
    setObjectName(QStringLiteral("TmPixelInspector"));
    setWindowTitle(QObject::tr("Pixel inspector"));
    resize(537, 387);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    tabWidget = new QTabWidget(this);
    tabWidget->setObjectName(QStringLiteral("tabWidget"));
    tab = page("tab");
    tab_2 = page("tab_2");
    tab_3 = page("tab_3");
    tableWidget_band1 = bandTable(tab, "tableWidget_band1");
    tableWidget_band2 = bandTable(tab_2, "tableWidget_band2");
    tableWidget_band3 = bandTable(tab_3, "tableWidget_band3");
    tabWidget->addTab(tab, QStringLiteral("band_1"));
    tabWidget->addTab(tab_2, QStringLiteral("band_2"));
    tabWidget->addTab(tab_3, QStringLiteral("band_3"));
    label = new QLabel(QObject::tr("Layer:"), this);
    label->setObjectName(QStringLiteral("label"));
    label->setFixedWidth(36);
    comboBox_layer = new QComboBox(this);
    comboBox_layer->setObjectName(QStringLiteral("comboBox_layer"));
    buttonBox = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttonBox->setObjectName(QStringLiteral("buttonBox"));
    auto* top = new QHBoxLayout;
    top->addWidget(label);
    top->addWidget(comboBox_layer, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(tabWidget);
    layout->addWidget(buttonBox);
    QObject::connect(buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    QObject::connect(buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    mComboConnection =
        QObject::connect(comboBox_layer, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                         [this](int index) { on_comboBox_layer_currentIndexChanged(index); });
}

void TmPixelInspector::on_comboBox_layer_currentIndexChanged(int index) {
    if (index >= 0) mLayerId = comboBox_layer->itemData(index, Qt::UserRole).toInt();
}

void TmPixelInspector::setPoint(double x, double y, TLRubberBand* gridBand) {
    mPointX = x;
    mPointY = y;
    refreshLayers();
    readBlock();
    if (mRasterLayer && gridBand) drawGrid(gridBand);
}

void TmPixelInspector::refreshLayers() {
    comboBox_layer->clear();
    TLMap* map = TLRasterToolKit::map(mBuddy);
    if (!map) return;
    QObject::disconnect(mComboConnection);
    TLRasterToolKit::addRasterLayers(comboBox_layer, map->GetLayers(true));
    const int remembered = TLRasterToolKit::indexOfLayerId(comboBox_layer, mLayerId);
    if (remembered >= 0) {
        comboBox_layer->setCurrentIndex(remembered);
    } else {
        comboBox_layer->setCurrentIndex(0);
        mLayerId = TLRasterToolKit::currentLayerId(comboBox_layer);
    }
    mComboConnection =
        QObject::connect(comboBox_layer, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                         [this](int index) { on_comboBox_layer_currentIndexChanged(index); });
}

void TmPixelInspector::showTabs(int count) {
    QWidget* pages[3] = {tab, tab_2, tab_3};
    if (count == 1 && tabWidget->count() == 3) tabWidget->clear();
    if (tabWidget->count() == 0)
        for (int i = 0; i < count; ++i)
            tabWidget->addTab(pages[i], QStringLiteral("Band_%1").arg(i + 1));
}

void TmPixelInspector::fill(QTableWidget* table, int row, int column, double value, bool hasNoData,
                            double noData) {
    const QString text = hasNoData && std::fabs(value - noData) < 1e-06
                             ? QObject::tr("Nodata")
                             : QString::number(value, 'f', 6);
    table->setItem(row, column, new QTableWidgetItem(text));
}

bool TmPixelInspector::readBlock() {
    if (comboBox_layer->currentIndex() < 0 || !mBuddy) return false;
    tabWidget->clear();
    TLMap* map = TLRasterToolKit::map(mBuddy);
    TLRefPtr<TLLayer> layer = map ? map->GetLayerByID(mLayerId) : nullptr;
    mRasterLayer = TLRasterToolKit::rasterAt(layer.get(), mPointX, mPointY);
    if (!mRasterLayer) {
        tabWidget->clear();
        return false;
    }
    TLRefPtr<TLRasterProps> raster = mRasterLayer->GetRaster();
    if (!raster) return false;
    const TLPoint p = TLRasterToolKit::toLayer(map, mRasterLayer, TLPoint(mPointX, mPointY));
    if (!raster->GetBound().PtInRect(p)) return false;

    int firstRow = 0, firstCol = 0, rowCount = 0, colCount = 0;
    double noData = 0.0;
    if (raster->GetBandCount() == 1) {
        showTabs(1);
        tableWidget_band1->clearContents();
        std::unique_ptr<TLBlock> block(mRasterLayer->GetMultiRowColPixelValue(
            p.x, p.y, firstRow, firstCol, rowCount, colCount));
        const bool hasNoData = raster->noDataValue(1, noData);
        for (int r = firstRow; block && r < firstRow + rowCount; ++r)
            for (int c = firstCol; c < firstCol + colCount; ++c)
                fill(tableWidget_band1, r, c, block->value(1, c, r), hasNoData, noData);
        return true;
    }
    showTabs(3);
    if (tabWidget->count() == 3) {
        tableWidget_band1->clearContents();
        tableWidget_band2->clearContents();
        tableWidget_band3->clearContents();
        tabWidget->setCurrentIndex(0);
    }
    std::unique_ptr<TLBlock> block(
        mRasterLayer->GetMultiRowColPixelValue(p.x, p.y, firstRow, firstCol, rowCount, colCount));
    if (!block) return false;
    const bool hasNoData = raster->noDataValue(1, noData);
    auto* render = dynamic_cast<TLMultiBandImageRender*>(mRasterLayer->GetRender().get());
    if (!render) return true;
    const int bands[3] = {render->getRedBand(), render->getGreenBand(), render->getBlueBand()};
    QTableWidget* tables[3] = {tableWidget_band1, tableWidget_band2, tableWidget_band3};
    for (int r = firstRow; r < firstRow + rowCount; ++r)
        for (int c = firstCol; c < firstCol + colCount; ++c)
            for (int i = 0; i < 3; ++i)
                fill(tables[i], r, c, block->value(bands[i], c, r), hasNoData, noData);
    return true;
}

void TmPixelInspector::drawGrid(TLRubberBand* band) {
    TLRefPtr<TLRasterProps> raster = mRasterLayer->GetRaster();
    if (!raster) return;
    const TLRect bound = raster->GetBound();
    const double w = raster->cellWidth(), h = raster->cellHeight();
    const int col = int((mPointX - bound.XMinimum()) / w);
    const int row = int((bound.YMaximum() - mPointY) / h);
    const double ox = col * w + bound.XMinimum() - 2 * w;
    // The row step is the cell width, also where cells are not square.
    const double oy = bound.YMaximum() - row * w + 2 * h;
    band->Reset(TLRubberBand::LineBand);
    for (int i = 0; i <= 5; ++i) {
        band->AddPoint(TLPoint(ox, oy - i * h), i);
        band->AddPoint(TLPoint(ox + 5 * w, oy - i * h), i);
    }
    for (int i = 0; i <= 5; ++i) {
        band->AddPoint(TLPoint(ox + i * w, oy), i + 6);
        band->AddPoint(TLPoint(ox + i * w, oy - 5 * h), i + 6);
    }
    band->Update();
}
