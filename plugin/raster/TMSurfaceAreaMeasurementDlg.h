#pragma once

#include <vector>

#include "raster/TMRasterLayerDialog.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLRasterProps.h"

class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace TMObjects {
class TLRasterLayer;
class TLRubberBand;
}  // namespace TMObjects

// The surface area of the terrain inside a polygon drawn on the map or read from a coordinate
// file. The raster is opened again from its store, apart from the layer's, where it can be.
// Closing the dialog or "OK" ends the tool.
class TMSurfaceAreaMeasurementDlg : public TMRasterLayerDialog {
public:
    explicit TMSurfaceAreaMeasurementDlg(QWidget* parent = nullptr);

    void setBuddy(TMObjects::TLToolBuddy* buddy);
    void setRubberBand(TMObjects::TLRubberBand* band) { mRubberBand = band; }

    void onClickedSelectFeatureCheckBox();
    void onClickedUseFileCheckBox();
    void onAccept();
    void showHelp();

    // The surface area over the ring (map coordinates), 0 without a raster or outside it.
    double surfaceArea(const std::vector<TMObjects::TLPoint>& ring) const;
    // Computes the ring's area and shows it.
    void measure(const std::vector<TMObjects::TLPoint>& ring);

    bool selectDrawRange() const { return mSelectDrawRange; }
    bool drawing() const { return mDrawing; }
    void setDrawing(bool drawing) { mDrawing = drawing; }
    const std::vector<TMObjects::TLPoint>& coordinates() const { return mCoordinates; }
    TMObjects::TLRefPtr<TMObjects::TLRasterProps> raster() const { return mRaster; }

private:
    void buildForm();
    void readCoordinateFile(const QString& name);
    bool readTextFile(const QString& name);
    void showArea(double area);
    void warn(const QString& text);
    // The raster of the layer, opened from its store apart from the layer's own.
    TMObjects::TLRefPtr<TMObjects::TLRasterProps> rasterOf(TMObjects::TLRasterLayer* layer) const;

    bool mSelectDrawRange = true;
    bool mDrawing = false;
    TMObjects::TLRefPtr<TMObjects::TLRasterProps> mRaster;
    TMObjects::TLRefPtr<TMObjects::TLCoordinateSystem> mSpatialReference;
    TMObjects::TLRubberBand* mRubberBand = nullptr;
    std::vector<TMObjects::TLPoint> mCoordinates;

    QLabel* label = nullptr;
    QComboBox* mLayerComboBox = nullptr;
    QGroupBox* mGroupBox = nullptr;
    QCheckBox* mSelectedFeatureCheckBox = nullptr;
    QCheckBox* mUseCoordinateFileCheckBox = nullptr;
    QButtonGroup* mButtonGroup = nullptr;
    QLineEdit* mInputCoordinateFileLineEdit = nullptr;
    QLabel* mSurfaceAreaLabel = nullptr;
    QLineEdit* mSurfaceAreaLineEdit = nullptr;
    QPushButton* mPushButton_OK = nullptr;
    QPushButton* mPushButton_Help = nullptr;
};
