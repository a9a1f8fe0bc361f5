#pragma once

#include <QDialog>
#include <cstdint>

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QTabWidget;
class QTableWidget;

namespace TMObjects {
class TLRasterLayer;
class TLRubberBand;
class TLToolBuddy;
}  // namespace TMObjects

// The 5 by 5 cells around the last click, band by band, of the raster layer picked in the
// combo; with a grid band, the block's cell grid is drawn on the map.
class TmPixelInspector : public QDialog {
public:
    explicit TmPixelInspector(QWidget* parent = nullptr);

    void setBuddy(TMObjects::TLToolBuddy* buddy) { mBuddy = buddy; }
    // A new point in map coordinates; the grid goes into `gridBand` when it is given.
    void setPoint(double x, double y, TMObjects::TLRubberBand* gridBand);
    TMObjects::TLRasterLayer* rasterLayer() const { return mRasterLayer; }

    void on_comboBox_layer_currentIndexChanged(int index);

private:
    void buildForm();
    void refreshLayers();
    bool readBlock();
    void showTabs(int count);
    void fill(QTableWidget* table, int row, int column, double value, bool hasNoData,
              double noData);
    void drawGrid(TMObjects::TLRubberBand* band);

    TMObjects::TLToolBuddy* mBuddy = nullptr;
    std::int32_t mLayerId = -1;
    double mPointX = 0.0;
    double mPointY = 0.0;
    TMObjects::TLRasterLayer* mRasterLayer = nullptr;

    QTabWidget* tabWidget = nullptr;
    QWidget* tab = nullptr;
    QWidget* tab_2 = nullptr;
    QWidget* tab_3 = nullptr;
    QTableWidget* tableWidget_band1 = nullptr;
    QTableWidget* tableWidget_band2 = nullptr;
    QTableWidget* tableWidget_band3 = nullptr;
    QLabel* label = nullptr;
    QComboBox* comboBox_layer = nullptr;
    QDialogButtonBox* buttonBox = nullptr;
    QMetaObject::Connection mComboConnection;
};
