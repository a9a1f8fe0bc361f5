#include "raster/TMMeasurementForSurfaceDistanceDlg.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "tlanalysis/TLSurfaceAnalyst.h"
#include "tlmap/TLRasterLayer.h"

using namespace TMObjects;

namespace {

template <class W>
W* named(W* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

}  // namespace

TMMeasurementForSurfaceDistanceDlg::TMMeasurementForSurfaceDistanceDlg(QWidget* parent)
    : TMRasterLayerDialog(parent) {
    // Closing the window only closes it; "Cancle" ends the tool.
    setEndsToolOnClose(false);
    buildForm();
}

void TMMeasurementForSurfaceDistanceDlg::buildForm() {
    setObjectName(QStringLiteral("TMMeasurementForSurfaceDistanceDlg"));
    setWindowTitle(QObject::tr("Measure surface distance"));
    label = named(new QLabel(QObject::tr("Layer"), this), "label");
    mLayerComboBox = named(new QComboBox(this), "mLayerComboBox");
    mLayerComboBox->setEditable(true);
    mSelectPtGroupBox =
        named(new QGroupBox(QObject::tr("Select point coordinates:"), this), "mSelectPtGroupBox");
    QWidget* box = mSelectPtGroupBox;
    mPointLabel1 = named(new QLabel(QObject::tr("point1:"), box), "mPointLabel1");
    mlabel_X1 = named(new QLabel(QObject::tr("X:"), box), "mlabel_X1");
    mXCoordinateLineEdit1 = named(new QLineEdit(box), "mXCoordinateLineEdit1");
    mLabel_Y1 = named(new QLabel(QObject::tr("Y:"), box), "mLabel_Y1");
    mYCoordinateLineEdit1 = named(new QLineEdit(box), "mYCoordinateLineEdit1");
    mPointlabe2 = named(new QLabel(QObject::tr("Point 2:"), box), "mPointlabe2");
    mLabel_X2 = named(new QLabel(QObject::tr("X:"), box), "mLabel_X2");
    mXCoordinateLineEdit2 = named(new QLineEdit(box), "mXCoordinateLineEdit2");
    mLabel_Y2 = named(new QLabel(QObject::tr("Y:"), box), "mLabel_Y2");
    mYCoordinateLineEdit2 = named(new QLineEdit(box), "mYCoordinateLineEdit2");
    mDistanceLabel = named(new QLabel(QObject::tr("Distance:"), this), "mDistanceLabel");
    mOutptDistanceLineEidt = named(new QLineEdit(this), "mOutptDistanceLineEidt");
    mDialogButtonBox =
        named(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this),
              "mDialogButtonBox");
    mDialogButtonBox->setFixedSize(180, 28);
    mDialogButtonBox->button(QDialogButtonBox::Ok)->setText(QObject::tr("Calculate"));
    mDialogButtonBox->button(QDialogButtonBox::Cancel)->setText(QObject::tr("Cancle"));
    // Named, so that scripts and tests can press them as a user does.
    mDialogButtonBox->button(QDialogButtonBox::Ok)
        ->setObjectName(QStringLiteral("mDialogButtonBox_Calculate"));
    mDialogButtonBox->button(QDialogButtonBox::Cancel)
        ->setObjectName(QStringLiteral("mDialogButtonBox_Cancle"));

    auto* points = new QGridLayout(box);
    points->addWidget(mPointLabel1, 0, 0);
    points->addWidget(mlabel_X1, 0, 1);
    points->addWidget(mXCoordinateLineEdit1, 0, 2);
    points->addWidget(mLabel_Y1, 0, 3);
    points->addWidget(mYCoordinateLineEdit1, 0, 4);
    points->addWidget(mPointlabe2, 1, 0);
    points->addWidget(mLabel_X2, 1, 1);
    points->addWidget(mXCoordinateLineEdit2, 1, 2);
    points->addWidget(mLabel_Y2, 1, 3);
    points->addWidget(mYCoordinateLineEdit2, 1, 4);
    auto* layerRow = new QHBoxLayout;
    layerRow->addWidget(label);
    layerRow->addWidget(mLayerComboBox, 1);
    auto* distanceRow = new QHBoxLayout;
    distanceRow->addWidget(mDistanceLabel);
    distanceRow->addWidget(mOutptDistanceLineEidt, 1);
    auto* page = new QVBoxLayout(this);
    page->addLayout(layerRow);
    page->addWidget(mSelectPtGroupBox);
    page->addLayout(distanceRow);
    page->addWidget(mDialogButtonBox, 0, Qt::AlignRight);

    // A changed layer counts from the next click, which refills the combo: nothing to do now.
    setLayerCombo(mLayerComboBox, nullptr);
    QObject::connect(mDialogButtonBox, &QDialogButtonBox::accepted, this,
                     [this] { calculateDistance(); });
    QObject::connect(mDialogButtonBox, &QDialogButtonBox::rejected, this,
                     [this] { onClickedCancel(); });
}

void TMMeasurementForSurfaceDistanceDlg::setBuddy(TLToolBuddy* buddy) {
    TLRefPtr<TLLayer> layer;
    if (!refillLayers(buddy, layer)) return;
    auto* raster = dynamic_cast<TLRasterLayer*>(layer.get());
    TLRefPtr<TLRasterProps> props = raster ? raster->GetRaster() : nullptr;
    mRasterDataset = props ? props->GetRasterDataset() : nullptr;
}

void TMMeasurementForSurfaceDistanceDlg::calculateDistance() {
    if (!mRasterDataset) return;
    const double distance = TLSurfaceAnalyst::getSurfaceDistance(
        mRasterDataset.get(), mXCoordinateLineEdit1->text().toDouble(),
        mYCoordinateLineEdit1->text().toDouble(), mXCoordinateLineEdit2->text().toDouble(),
        mYCoordinateLineEdit2->text().toDouble());
    mOutptDistanceLineEidt->setText(QString::number(distance, 'g', 6));
}

void TMMeasurementForSurfaceDistanceDlg::onClickedCancel() {
    endTool();
}

void TMMeasurementForSurfaceDistanceDlg::clearFields() {
    for (QLineEdit* edit : {mXCoordinateLineEdit1, mYCoordinateLineEdit1, mXCoordinateLineEdit2,
                            mYCoordinateLineEdit2, mOutptDistanceLineEidt})
        edit->clear();
}

void TMMeasurementForSurfaceDistanceDlg::setPoint(int which, double x, double y) {
    QLineEdit* xs = which == 0 ? mXCoordinateLineEdit1 : mXCoordinateLineEdit2;
    QLineEdit* ys = which == 0 ? mYCoordinateLineEdit1 : mYCoordinateLineEdit2;
    xs->setText(QString::number(x, 'f', 10));
    ys->setText(QString::number(y, 'f', 10));
}
