#include "raster/TMViewPixelVal.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "TLToolText.h"
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

TMViewPixelVal::TMViewPixelVal(QWidget* parent) : QDialog(parent) {
    buildForm();
}

void TMViewPixelVal::buildForm() {
    setObjectName(QStringLiteral("TMViewPixelVal"));
    setWindowTitle(QObject::tr("View Pixel Value"));
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    label_layer = named(new QLabel(QObject::tr("layer:"), this), "label_layer");
    comboBox = named(new QComboBox(this), "comboBox");
    comboBox->setEditable(false);
    label_location = named(new QLabel(QObject::tr("location:"), this), "label_location");
    lineEdit = named(new QLineEdit(this), "lineEdit");
    label_2 = named(new QLabel(QObject::tr("Row:"), this), "label_2");
    lineEdit_row = named(new QLineEdit(this), "lineEdit_row");
    label_3 = named(new QLabel(QObject::tr("Col:"), this), "label_3");
    lineEdit_col = named(new QLineEdit(this), "lineEdit_col");
    label = named(new QLabel(QObject::tr("view layer:"), this), "label");
    lineEdit_viewLayer = named(new QLineEdit(this), "lineEdit_viewLayer");
    tableWidget = named(new QTableWidget(this), "tableWidget");
    tableWidget->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tableWidget->setColumnCount(2);
    tableWidget->setHorizontalHeaderLabels({QObject::tr("Field name"), QObject::tr("Value")});
    tableWidget->horizontalHeader()->setDefaultAlignment(Qt::Alignment(132));
    tableWidget->setColumnWidth(0, 80);
    tableWidget->setColumnWidth(1, 150);
    tableWidget->verticalHeader()->setVisible(false);
    pushButton_ok = named(new QPushButton(QObject::tr("Ok"), this), "pushButton_ok");
    pushButton_cancel = named(new QPushButton(QObject::tr("Cancel"), this), "pushButton_cancel");

    auto* grid = new QGridLayout;
    grid->addWidget(label_layer, 0, 0);
    grid->addWidget(comboBox, 0, 1, 1, 3);
    grid->addWidget(label_location, 1, 0);
    grid->addWidget(lineEdit, 1, 1, 1, 3);
    grid->addWidget(label_2, 2, 0);
    grid->addWidget(lineEdit_row, 2, 1);
    grid->addWidget(label_3, 2, 2);
    grid->addWidget(lineEdit_col, 2, 3);
    grid->addWidget(label, 3, 0);
    grid->addWidget(lineEdit_viewLayer, 3, 1, 1, 3);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(pushButton_ok);
    buttons->addWidget(pushButton_cancel);
    auto* page = new QVBoxLayout(this);
    page->addLayout(grid);
    page->addWidget(tableWidget);
    page->addLayout(buttons);

    QObject::connect(pushButton_ok, &QPushButton::clicked, this,
                     [this] { on_pushButton_ok_clicked(); });
    QObject::connect(pushButton_cancel, &QPushButton::clicked, this,
                     [this] { on_pushButton_cancel_clicked(); });
    mComboConnection =
        QObject::connect(comboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                         [this](int index) { on_comboBox_currentIndexChanged(index); });
}

void TMViewPixelVal::on_pushButton_ok_clicked() {
    close();
}

void TMViewPixelVal::on_pushButton_cancel_clicked() {
    close();
}

void TMViewPixelVal::on_comboBox_currentIndexChanged(int index) {
    if (!mBuddy || !TLRasterToolKit::view(mBuddy) || index < 0) return;
    mLayerId = index == 0 ? 0 : comboBox->itemData(index, Qt::UserRole).toInt();
}

void TMViewPixelVal::setPoint(double x, double y) {
    mPointX = x;
    mPointY = y;
    refreshLayers();
    readValue();
}

void TMViewPixelVal::refreshLayers() {
    comboBox->clear();
    tableWidget->clearContents();
    lineEdit->clear();
    TLMap* map = TLRasterToolKit::map(mBuddy);
    if (!map) return;
    QObject::disconnect(mComboConnection);
    comboBox->addItem(QObject::tr("Top most layer"));
    mRasterIds.clear();
    int remembered = -1;
    for (const TLRefPtr<TLLayer>& layer : map->GetLayers(true)) {
        if (!layer || !layer->IsRasterLayer() || !layer->IsValid()) continue;
        const QString name = toQString(layer->GetLayerName());
        comboBox->addItem(name);
        // Found again by its text: of two rasters of one name the first takes both ids.
        const int index = comboBox->findText(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (index < 0) continue;
        comboBox->setItemData(index, QVariant(layer->GetLayerId()), Qt::UserRole);
        mRasterIds.push_back(layer->GetLayerId());
        if (layer->GetLayerId() == mLayerId) remembered = index;
    }
    comboBox->setCurrentIndex(mLayerId > 0 && remembered >= 0 ? remembered : 0);
    mComboConnection =
        QObject::connect(comboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                         [this](int index) { on_comboBox_currentIndexChanged(index); });
}

bool TMViewPixelVal::readValue() {
    const int index = comboBox->currentIndex();
    if (index < 0 || !mBuddy) return false;
    tableWidget->clearContents();
    TLMap* map = TLRasterToolKit::map(mBuddy);
    if (!map) return false;
    if (index == 0) {
        for (std::int32_t id : mRasterIds) {
            if (id <= 0 || !readLayer(id)) continue;
            lineEdit_viewLayer->setText(toQString(map->GetLayerByID(id)->GetLayerName()));
            return true;
        }
        return false;
    }
    if (!readLayer(mLayerId)) return false;
    lineEdit_viewLayer->setText(toQString(map->GetLayerByID(mLayerId)->GetLayerName()));
    return true;
}

bool TMViewPixelVal::readLayer(int layerId) {
    TLMap* map = TLRasterToolKit::map(mBuddy);
    TLRefPtr<TLLayer> layer = map ? map->GetLayerByID(layerId) : nullptr;
    if (!layer) return false;
    TLRefPtr<TLCoordinateSystem> mapReference = map->GetSpatialReference();
    const bool geographic = mapReference && mapReference->IsGeographic();
    TLRasterLayer* raster = TLRasterToolKit::rasterAt(layer.get(), mPointX, mPointY);
    if (!raster || !raster->GetRaster()) return false;
    const TLPoint point(mPointX, mPointY);
    const TLPoint projected = TLRasterToolKit::toLayer(map, raster, point);
    // Tested with the map's point, which is the layer's only when the two systems agree.
    if (!raster->GetRaster()->GetBound().PtInRect(point)) return false;
    lineEdit->setText(QString::asprintf("%f  %f", mPointX, mPointY) +
                      (geographic ? QObject::tr(" Degrees") : QObject::tr(" Meters")));
    TLPoint rowCol;
    const int type = raster->GetLayerType();
    if (type == TLRasterLayer::SingleBandRaster)
        raster->GetPixelValue(projected, rowCol, mValue0, mNoData);
    else if (type == TLRasterLayer::MultiBandRaster)
        raster->GetPixelValue(projected, rowCol, mValue0, mValue1, mValue2, mNoData);
    lineEdit_row->setText(QString::number(rowCol.y, 'g', 6));
    lineEdit_col->setText(QString::number(rowCol.x, 'g', 6));
    showValues(type);
    return true;
}

void TMViewPixelVal::showValues(int layerType) {
    tableWidget->setRowCount(20);
    const int third = tableWidget->viewport()->width() / 3;
    tableWidget->setColumnWidth(0, third);
    tableWidget->setColumnWidth(1, tableWidget->viewport()->width() - third);
    const bool single = layerType == TLRasterLayer::SingleBandRaster;
    const QStringList names =
        single ? QStringList{QObject::tr("Pixel value")}
               : QStringList{QObject::tr("Red"), QObject::tr("Green"), QObject::tr("Blue")};
    const double values[3] = {mValue0, mValue1, mValue2};
    for (int row = 0; row < names.size(); ++row) {
        tableWidget->setItem(row, 0, new QTableWidgetItem(names[row]));
        tableWidget->setItem(row, 1,
                             new QTableWidgetItem(mNoData ? QObject::tr("NoData")
                                                          : QString::number(values[row], 'f', 6)));
    }
}
