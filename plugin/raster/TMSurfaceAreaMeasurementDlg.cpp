#include "raster/TMSurfaceAreaMeasurementDlg.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTextStream>
#include <QVBoxLayout>
#include <memory>

#include "TLToolText.h"
#include "raster/TLSurfaceAreaGrid.h"
#include "tlbase/TLConnectionKeys.h"
#include "tlmap/TLRasterLayer.h"
#include "tlmap/TLRasterWorkspace.h"
#include "tlmap/TLRubberBand.h"
#include "tmgisutil/TMExcelUtil.h"
#include "tmgisutil/TMWaitDialog.h"

using namespace TMObjects;

namespace {

template <class W>
W* named(W* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

}  // namespace

TMSurfaceAreaMeasurementDlg::TMSurfaceAreaMeasurementDlg(QWidget* parent)
    : TMRasterLayerDialog(parent) {
    buildForm();
}

void TMSurfaceAreaMeasurementDlg::buildForm() {
    setObjectName(QStringLiteral("TMSurfaceAreaMeasurementDlg"));
    setWindowTitle(QObject::tr("Measure surface area"));
    label = named(new QLabel(QObject::tr("Layer"), this), "label");
    mLayerComboBox = named(new QComboBox(this), "mLayerComboBox");
    mLayerComboBox->setEditable(true);
    mGroupBox = named(new QGroupBox(QObject::tr("Measure range"), this), "mGroupBox");
    mSelectedFeatureCheckBox = named(new QCheckBox(QObject::tr("Select draw range"), mGroupBox),
                                     "mSelectedFeatureCheckBox");
    mUseCoordinateFileCheckBox =
        named(new QCheckBox(QObject::tr("Use range from coordinate file"), mGroupBox),
              "mUseCoordinateFileCheckBox");
    mInputCoordinateFileLineEdit = named(new QLineEdit(mGroupBox), "mInputCoordinateFileLineEdit");
    mInputCoordinateFileLineEdit->setEnabled(false);
    mButtonGroup = new QButtonGroup(this);
    mButtonGroup->addButton(mSelectedFeatureCheckBox, 1);
    mButtonGroup->addButton(mUseCoordinateFileCheckBox, 2);
    mSelectedFeatureCheckBox->setChecked(true);
    mSurfaceAreaLabel = named(new QLabel(QObject::tr("Surface area"), this), "mSurfaceAreaLabel");
    mSurfaceAreaLineEdit = named(new QLineEdit(this), "mSurfaceAreaLineEdit");
    mSurfaceAreaLineEdit->setEnabled(false);
    mPushButton_OK = named(new QPushButton(QObject::tr("OK"), this), "mPushButton_OK");
    mPushButton_Help = named(new QPushButton(QObject::tr("Help"), this), "mPushButton_Help");

    auto* range = new QGridLayout(mGroupBox);
    range->addWidget(mSelectedFeatureCheckBox, 0, 0);
    range->addWidget(mUseCoordinateFileCheckBox, 1, 0);
    range->addWidget(mInputCoordinateFileLineEdit, 2, 0);
    auto* layerRow = new QHBoxLayout;
    layerRow->addWidget(label);
    layerRow->addWidget(mLayerComboBox, 1);
    auto* areaRow = new QHBoxLayout;
    areaRow->addWidget(mSurfaceAreaLabel);
    areaRow->addWidget(mSurfaceAreaLineEdit, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(mPushButton_OK);
    buttons->addWidget(mPushButton_Help);
    auto* page = new QVBoxLayout(this);
    page->addLayout(layerRow);
    page->addWidget(mGroupBox);
    page->addLayout(areaRow);
    page->addLayout(buttons);

    // A changed layer counts from the next click, which refills the combo: nothing to do now.
    setLayerCombo(mLayerComboBox, nullptr);
    QObject::connect(mSelectedFeatureCheckBox, &QCheckBox::clicked, this,
                     [this] { onClickedSelectFeatureCheckBox(); });
    QObject::connect(mUseCoordinateFileCheckBox, &QCheckBox::clicked, this,
                     [this] { onClickedUseFileCheckBox(); });
    QObject::connect(mPushButton_OK, &QPushButton::clicked, this, [this] { onAccept(); });
    QObject::connect(mPushButton_Help, &QPushButton::clicked, this, [this] { showHelp(); });
}

void TMSurfaceAreaMeasurementDlg::setBuddy(TLToolBuddy* buddy) {
    TLRefPtr<TLLayer> layer;
    if (!refillLayers(buddy, layer)) return;
    auto* raster = dynamic_cast<TLRasterLayer*>(layer.get());
    if (!raster) {
        mRaster.reset();
        return;
    }
    mRaster = rasterOf(raster);
    mSpatialReference = raster->GetSpatialReference();
}

TLRefPtr<TLRasterProps> TMSurfaceAreaMeasurementDlg::rasterOf(TLRasterLayer* layer) const {
    const std::map<TLString, TLString> properties = layer->GetConnectionProperties();
    auto value = [&](const TLString& key) {
        auto it = properties.find(key);
        return it == properties.end() ? QString() : toQString(it->second);
    };
    const QString folder = value(CONNECT_FILEPATH);
    if (folder.isEmpty()) {
        // A raster inside a database: read through the layer's own dataset, the one workspace
        // the host keeps for it.
        return layer->GetRaster();
    }
    const QString path = folder + "/" + toQString(layer->GetRasterName());
    if (!QFileInfo::exists(path)) return layer->GetRaster();
    int cut = path.lastIndexOf('/');
    if (cut < 0) cut = path.lastIndexOf('\\');
    if (cut < 0) return layer->GetRaster();
    TLRefPtr<TLRasterWorkspace> workspace = TLRasterWorkspace::Open(
        WORKSPACE_TYPE_RASTERFILE, {{CONNECT_FILEPATH, toTLString(path.left(cut))}});
    TLRefPtr<TLRasterDataset> dataset =
        workspace ? workspace->OpenRasterDataset(toTLString(path.mid(cut + 1))) : nullptr;
    TLRefPtr<TLRasterProps> raster = dataset ? dataset->GetRaster() : nullptr;
    return raster ? raster : layer->GetRaster();
}

void TMSurfaceAreaMeasurementDlg::onClickedSelectFeatureCheckBox() {
    mSelectDrawRange = true;
}

void TMSurfaceAreaMeasurementDlg::onClickedUseFileCheckBox() {
    mSelectDrawRange = false;
    if (mRubberBand) {
        mRubberBand->Reset(TLRubberBand::PolygonBand);
        mRubberBand->Update();
    }
    const QString name =
        QFileDialog::getOpenFileName(this, QObject::tr("Open file"), QString(),
                                     QObject::tr("Coordinate file(*.txt *.xls *.xlsx)"), nullptr,
                                     QFileDialog::DontUseNativeDialog);
    if (name.isEmpty()) return;
    mInputCoordinateFileLineEdit->setText(name);
    TMWaitDialog wait(QObject::tr("Wait"), this);
    wait.WaitFor([this, name] { readCoordinateFile(name); });
}

void TMSurfaceAreaMeasurementDlg::readCoordinateFile(const QString& name) {
    if (name.endsWith(QStringLiteral(".txt"), Qt::CaseSensitive)) {
        if (readTextFile(name)) measure(mCoordinates);
        return;
    }
    mCoordinates = TMExcelUtil::readCoordinateFile(name.toStdString());
    if (mCoordinates.empty()) {
        warn(QObject::tr("The coordinate file format is not standard."));
        return;
    }
    measure(mCoordinates);
}

bool TMSurfaceAreaMeasurementDlg::readTextFile(const QString& name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        warn(QObject::tr("The file cannot open."));
        return false;
    }
    QStringList lines;
    QTextStream in(&file);
    while (!in.atEnd()) {
        const QString line = in.readLine().trimmed();
        if (!line.isEmpty()) lines << line;
    }
    std::vector<TLPoint> points;
    for (const QString& line : lines) {
        if (line == QLatin1String("Begin") || line == QLatin1String("End")) continue;
        QStringList parts = line.split(',', Qt::KeepEmptyParts);
        if (parts.size() != 3) {
            warn(QObject::tr("The file format is illegal!"));
            return false;
        }
        // The point number is not read; text that is no number reads as 0.
        const double x = parts[1].trimmed().toDouble();
        const double y = parts[2].remove('\n').trimmed().toDouble();
        points.emplace_back(x, y);
    }
    // The ring closes on its first point: a file without one fails here, out of range.
    points.push_back(points.at(0));
    mCoordinates = points;
    return true;
}

void TMSurfaceAreaMeasurementDlg::warn(const QString& text) {
    QMessageBox::warning(this, QObject::tr("Warning"), text, QMessageBox::Ok);
}

void TMSurfaceAreaMeasurementDlg::onAccept() {
    endTool();
}

void TMSurfaceAreaMeasurementDlg::showHelp() {
    QMessageBox::information(this, QObject::tr("Coordinate file"),
                             QObject::tr("The format of the coordinate file is as follows:\n"
                                         "1,100,100\n2,100,400\n3,400,100\n4,400,400\n"));
}

double TMSurfaceAreaMeasurementDlg::surfaceArea(const std::vector<TLPoint>& ring) const {
    return mRaster ? TLSurfaceAreaGrid::area(*mRaster, ring) : 0.0;
}

void TMSurfaceAreaMeasurementDlg::measure(const std::vector<TLPoint>& ring) {
    showArea(surfaceArea(ring));
}

void TMSurfaceAreaMeasurementDlg::showArea(double area) {
    if (!mRaster) return;
    QString unit;
    if (mSpatialReference && mSpatialReference->IsProjected())
        unit = QStringLiteral("(Meter)");
    else if (mSpatialReference && mSpatialReference->IsGeographic())
        unit = QStringLiteral("(Degree)");
    mSurfaceAreaLineEdit->setText(QString::number(area, 'f', 10) + unit);
}
