#pragma once

#include <QBrush>
#include <QDialog>
#include <QHash>
#include <QStandardItemModel>
#include <vector>

#include "identify/TLIdentifyLayerPick.h"
#include "tlbase/TLString.h"
#include "tlbase/TLVariant.h"

class QPushButton;
class QTableView;
class QTreeView;
class TMEditAttributeDelegate;

namespace TMObjects {
class TLFeature;
class TLFeatureLayer;
class TLField;
class TLMap;
class TLMapView;
class TLTool;
class TLToolEditAttributes;
}  // namespace TMObjects

// The attribute editor beside the map: the layers and ids of the features caught on the left,
// the editable fields of one feature on the right. Edits stay here as text until Commit writes
// them, one operation per layer, and saves the layers kept in a store. One feature's attributes
// are pasted onto another of its layer through the tree's context menu, at once.
class TMDialogEditVectorAttributes : public QDialog {
public:
    explicit TMDialogEditVectorAttributes(QWidget* parent = nullptr);
    ~TMDialogEditVectorAttributes() override;

    void setTool(TMObjects::TLTool* tool);
    // Asks what to do with pending edits (the question is "give up?": No saves them), then
    // forgets them and the fields shown.
    void askSaveEdits();
    // Fills the tree with the layers and ids and shows the first feature; false for nothing to
    // show.
    bool loadSelection(const std::vector<TMObjects::TLIdentifyLayerPick>& records);

    void on_treeView_editfeatures_clicked(const QModelIndex& index);
    void onAttributesModelDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight);
    void on_pushbtn_commit_clicked();
    void on_pushbtn_discard_clicked();
    void slotFeaturesViewMenu(const QPoint& pos);
    void slotCopyFeature();
    void slotCacelCopyFeature();
    void slotPastFeature();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildWidgets();
    TMObjects::TLMapView* mapView() const;
    TMObjects::TLFeatureLayer* featureLayer(int layerId) const;
    void loadFields(TMObjects::TLFeatureLayer* layer);
    void showAttributes(TMObjects::TLFeatureLayer* layer, TMObjects::TLFeature* feature);
    QString valueText(TMObjects::TLField* field, const TMObjects::TLFeature& feature) const;
    void saveEdits();
    void clearSelection();
    // Forgets the pending edits, the fields shown and the mark.
    void forgetEdits();
    int askEdits(const QString& text);
    bool pendingValue(int layerId, int featureId, const QString& fieldName, QString& text) const;
    void textToVariant(const QString& text, int type, TMObjects::TLVariant& variant) const;
    void domainNameToCode(TMObjects::TLField* field, const QString& text,
                          TMObjects::TLVariant& variant) const;
    void domainCodeToName(TMObjects::TLField* field, const TMObjects::TLVariant& variant,
                          QString& text) const;
    void showFeature(TMObjects::TLFeatureLayer* layer, int featureId);

    QStandardItemModel mTreeModel;
    QStandardItemModel mAttributeModel;
    TMObjects::TLToolEditAttributes* mTool = nullptr;
    TMObjects::TLFeatureLayer* mShownLayer = nullptr;
    int mLayerId = -1;
    int mFeatureId = -1;
    QHash<QString, TMObjects::TLField*> mFieldMap;
    std::vector<TMObjects::TLString> mFieldNames;
    std::vector<TMObjects::TLString> mFieldAliases;
    bool mReady = false;
    int mEditCount = 0;
    QHash<int, QHash<int, QHash<QString, QString>>> mEdits;
    TMEditAttributeDelegate* mDelegate = nullptr;
    TMObjects::TLMap* mMap = nullptr;
    QStandardItem* mMarkItem = nullptr;
    QBrush mMarkBrush;
    bool mMarked = false;

    QTreeView* treeView_editfeatures = nullptr;
    QTableView* tableView_attributes = nullptr;
    QPushButton* pushbtn_commit = nullptr;
    QPushButton* pushbtn_discard = nullptr;
};
