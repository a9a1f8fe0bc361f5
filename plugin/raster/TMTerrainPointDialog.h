#pragma once

#include "raster/TMRasterLayerDialog.h"
#include "tlmap/TLRasterProps.h"

class QDialogButtonBox;
class QGroupBox;
class QLabel;
class QLineEdit;

// The form and the 3 by 3 window of the slope and aspect dialogs, which differ only in their
// texts and in the last step of the value (`valueOf`).
class TMTerrainPointDialog : public TMRasterLayerDialog {
public:
    void setBuddy(TMObjects::TLToolBuddy* buddy);
    void OnChangeLayer(int index);
    void currentMousePos(double x, double y);
    void onClickedCancel();

    TMObjects::TLRefPtr<TMObjects::TLRasterProps> raster() const { return mRaster; }

protected:
    // `valueLabel` is the result label's object name and `valueText` its text.
    TMTerrainPointDialog(const QString& title, const char* valueLabel, const QString& valueText,
                         QWidget* parent);
    // Reads the window at the typed point and shows the value.
    void calculate();
    // The value of the window a b c / d e f / g h i (top row first) of cells w by h large.
    virtual double valueOf(const double cells[9], double w, double h) const = 0;

private:
    void buildForm(const QString& title, const char* valueLabel, const QString& valueText);
    void showValue(double value);

    TMObjects::TLRefPtr<TMObjects::TLRasterProps> mRaster;

    QLabel* label = nullptr;
    QComboBox* mLayerComboBox = nullptr;
    QGroupBox* mCoordinateInfoGroupBox = nullptr;
    QLabel* mLabel_X = nullptr;
    QLineEdit* mXCoordinateLineEdit = nullptr;
    QLabel* mLabel_Y = nullptr;
    QLineEdit* mYCoordinateLineEdit = nullptr;
    QLabel* mValueLabel = nullptr;
    QLineEdit* mOutputLineEdit = nullptr;
    QDialogButtonBox* mButtonBox = nullptr;
};
