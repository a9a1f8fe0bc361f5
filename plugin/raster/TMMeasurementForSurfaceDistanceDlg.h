#pragma once

#include "raster/TMRasterLayerDialog.h"
#include "tlmap/TLRasterDataset.h"

class QDialogButtonBox;
class QGroupBox;
class QLabel;
class QLineEdit;

namespace TMObjects {
class TLRubberBand;
}

// The distance along the terrain between two points, clicked or typed. "Cancle" ends the tool.
class TMMeasurementForSurfaceDistanceDlg : public TMRasterLayerDialog {
public:
    explicit TMMeasurementForSurfaceDistanceDlg(QWidget* parent = nullptr);

    void setBuddy(TMObjects::TLToolBuddy* buddy);
    void setRubberBand(TMObjects::TLRubberBand* band) { mRubberBand = band; }

    void calculateDistance();
    void onClickedCancel();

    bool pickEnabled() const { return mPickEnabled; }
    TMObjects::TLRefPtr<TMObjects::TLRasterDataset> rasterDataset() const { return mRasterDataset; }
    // Clears the five line edits.
    void clearFields();
    // Writes a point into the first or the second pair, with 10 decimals.
    void setPoint(int which, double x, double y);

private:
    void buildForm();

    bool mPickEnabled = true;
    TMObjects::TLRubberBand* mRubberBand = nullptr;
    TMObjects::TLRefPtr<TMObjects::TLRasterDataset> mRasterDataset;

    QLabel* label = nullptr;
    QComboBox* mLayerComboBox = nullptr;
    QGroupBox* mSelectPtGroupBox = nullptr;
    QLabel* mPointLabel1 = nullptr;
    QLabel* mlabel_X1 = nullptr;
    QLineEdit* mXCoordinateLineEdit1 = nullptr;
    QLabel* mLabel_Y1 = nullptr;
    QLineEdit* mYCoordinateLineEdit1 = nullptr;
    QLabel* mPointlabe2 = nullptr;
    QLabel* mLabel_X2 = nullptr;
    QLineEdit* mXCoordinateLineEdit2 = nullptr;
    QLabel* mLabel_Y2 = nullptr;
    QLineEdit* mYCoordinateLineEdit2 = nullptr;
    QLabel* mDistanceLabel = nullptr;
    QLineEdit* mOutptDistanceLineEidt = nullptr;
    QDialogButtonBox* mDialogButtonBox = nullptr;
};
