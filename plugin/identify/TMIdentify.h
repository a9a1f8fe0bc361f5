#pragma once

#include <QDialog>
#include <QStandardItemModel>
#include <vector>

#include "identify/TLIdentifyLayerPick.h"
#include "tlbase/TLPoint.h"
#include "tlbase/TLRefBase.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTableView;
class QTextEdit;
class QTreeView;

namespace TMObjects {
class TLFeature;
class TLFeatureLayer;
class TLGeometry;
class TLGeoPolyline;
class TLMapView;
class TLStyleSimpleLine;
class TLToolBuddy;
class TLToolIdentifyFeature;
}  // namespace TMObjects

// What the identify tool found: the layers involved, the picked features of the layer chosen,
// and the attributes of one feature. Layers that were not asked during the gesture are asked
// when the user chooses them.
class TMIdentify : public QDialog {
public:
    explicit TMIdentify(QWidget* parent = nullptr);
    ~TMIdentify() override;

    void setTool(TMObjects::TLToolIdentifyFeature* tool);
    void setBuddy(TMObjects::TLToolBuddy* buddy);
    void setLocation(const TMObjects::TLPoint& point);
    void setPickEnvelope(double xmin, double xmax, double ymin, double ymax);
    void setSelectedLayerInfo(const std::vector<TMObjects::TLIdentifyLayerPick>& picks);
    // Forgets the picks, so that nothing of the last gesture is shown again.
    void clearLayerPicks();
    const std::vector<TMObjects::TLIdentifyLayerPick>& layerPicks() const { return mLayerPicks; }

    void showLayerInfo(int index);
    void onClickedFeature(const QModelIndex& index);
    void clearSelectedFeature();

private:
    void buildWidgets();
    void buildTable();
    void buildInfoBox();
    void layoutWidgets();
    void connectWidgets();
    void setUnits(int unit);
    TMObjects::TLFeatureLayer* featureLayer(int layerId) const;
    int SelectFeature(TMObjects::TLFeatureLayer* layer, std::vector<int>& ids);
    void buildTree(TMObjects::TLFeatureLayer* layer, const std::vector<int>& ids);
    void showAttributes(TMObjects::TLFeatureLayer* layer, int featureId);
    void refreshValues(TMObjects::TLFeatureLayer* layer, const TMObjects::TLFeature& feature);
    int precisionOf(TMObjects::TLFeatureLayer* layer, int fieldPrecision) const;
    bool featurePoint(TMObjects::TLGeometry* geometry, TMObjects::TLPoint& point) const;
    void flash(TMObjects::TLGeometry* geometry, const TMObjects::TLPoint& point);
    void buildCrosses(const TMObjects::TLPoint& point);

    TMObjects::TLMapView* mMapView = nullptr;
    TMObjects::TLToolIdentifyFeature* mTool = nullptr;
    QStandardItemModel mTreeModel;
    QStandardItemModel mTableModel;
    TMObjects::TLRefPtr<TMObjects::TLStyleSimpleLine> mTwinkleStyle;
    std::vector<TMObjects::TLIdentifyLayerPick> mLayerPicks;
    TMObjects::TLRefPtr<TMObjects::TLGeoPolyline> mCrosses[3];
    TMObjects::TLGeometry* mTwinkleGeometry[4] = {nullptr, nullptr, nullptr, nullptr};
    int mCurrentLayerIndex = -1;
    int mCurrentFeatureId = -1;
    double mPickXMin = 0.0;
    double mPickXMax = 0.0;
    double mPickYMin = 0.0;
    double mPickYMax = 0.0;

    QLabel* mLabelLayers = nullptr;
    QComboBox* mComboBoxLayers = nullptr;
    QTreeView* mTreeViewLayer = nullptr;
    QLabel* mLabelLocation = nullptr;
    QLineEdit* mLineEditLocation = nullptr;
    QLabel* mLabelUnits = nullptr;
    QTableView* mTableViewAttribute = nullptr;
    QTextEdit* textEdit_info = nullptr;
};
