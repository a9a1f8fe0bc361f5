#pragma once

#include <QDialog>
#include <cstdint>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace TMObjects {
class TLToolBuddy;
class TLLayer;
}  // namespace TMObjects

// The value, row and column of the pixel under the last click, of the layer picked in the combo
// or of the top-most raster that covers the point.
class TMViewPixelVal : public QDialog {
public:
    explicit TMViewPixelVal(QWidget* parent = nullptr);

    void setBuddy(TMObjects::TLToolBuddy* buddy) { mBuddy = buddy; }
    // A new point in map coordinates: the combo is refilled and the value read.
    void setPoint(double x, double y);

    void on_pushButton_ok_clicked();
    void on_pushButton_cancel_clicked();
    void on_comboBox_currentIndexChanged(int index);

private:
    void buildForm();
    void refreshLayers();
    bool readValue();
    // Reads one layer; false when it has no raster at the point.
    bool readLayer(int layerId);
    void showValues(int layerType);

    double mValue0 = 0.0;
    double mValue1 = 0.0;
    double mValue2 = 0.0;
    bool mNoData = false;
    TMObjects::TLToolBuddy* mBuddy = nullptr;
    double mPointX = 0.0;
    double mPointY = 0.0;
    std::int32_t mLayerId = -1;
    std::vector<std::int32_t> mRasterIds;

    QLabel* label_layer = nullptr;
    QComboBox* comboBox = nullptr;
    QLabel* label_location = nullptr;
    QLineEdit* lineEdit = nullptr;
    QLabel* label_2 = nullptr;
    QLineEdit* lineEdit_row = nullptr;
    QLabel* label_3 = nullptr;
    QLineEdit* lineEdit_col = nullptr;
    QLabel* label = nullptr;
    QLineEdit* lineEdit_viewLayer = nullptr;
    QTableWidget* tableWidget = nullptr;
    QPushButton* pushButton_ok = nullptr;
    QPushButton* pushButton_cancel = nullptr;
    QMetaObject::Connection mComboConnection;
};
