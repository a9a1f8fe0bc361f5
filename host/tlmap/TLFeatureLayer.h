#pragma once

#include <memory>
#include <set>
#include <vector>

#include "tlmap/TLLayer.h"
#include "tlmap/TLSelection.h"
#include "tlsde/TLFeatureCursor.h"
#include "tlsde/TLFeatureTable.h"
#include "tlsde/TLQueryFilter.h"

namespace TMObjects {

class TLEditor;
class TLLayerEditBuffer;
class TLFeatureRender;
class TLLabelProperty;

// Told when a layer's observers are notified (a finished drawing command, a saved edit).
class TLLayerObserver {
public:
    virtual ~TLLayerObserver() = default;
    virtual void OnLayerNotify(TLLayer* layer, int hint) = 0;
};

// A layer of features, read from a TLFeatureTable that holds them in the layer's coordinates.
class TLFeatureLayer : public TLLayer {
public:
    // What NotifyObservers says happened.
    enum NotifyHint { HintFeaturesChanged = 0, HintSelectionChanged = 1, HintSaved = 2 };

    // A null table gives an empty one in memory, so that the layer is always usable.
    TLFeatureLayer(const TLString& name, LayerType type, TLRefPtr<TLFeatureTable> table,
                   TLRefPtr<TLCoordinateSystem> reference);
    ~TLFeatureLayer() override;

    int IsValid() const override;
    TLRect GetExtent() const override;
    bool IsFeatureLayer() const override { return true; }

    TLLayerEditBuffer* layer_edit_buffer() const { return mEditBuffer.get(); }
    TLQueryFilter query_filter() const { return mStandingFilter; }
    void set_query_filter(const TLQueryFilter& filter) { mStandingFilter = filter; }

    // Mode 0 replaces the selection, 4 adds to it; any other mode replaces. False when the layer
    // is not selectable, which leaves the selection alone. Deleted features leave the selection.
    virtual bool SelectFeatures(const TLQueryFilter& filter, int mode, int flags);
    bool ClearSelect(bool notify);
    bool AddSelect(TLFeature* feature, bool notify);
    bool AddSelect(int id);
    int SelectedFeatureCount() const { return int(mSelection.size()); }
    bool HasSelectedFeatures() const { return !mSelection.empty(); }
    TLRefPtr<TLFeatureSelectionSet> GetSelection();
    std::vector<int> GetSelectedIds() const { return {mSelection.begin(), mSelection.end()}; }
    int Get_SelFeaIDs_Val(int index) const;
    bool IsSelected(int id) const { return mSelection.count(id) != 0; }

    TLRefPtr<TLFeatureTable> GetDatasource() const { return mTable; }
    // The features that pass the filter, through the table's spatial index. The filter is taken
    // as given: a caller that wants the standing filter to hold narrows it itself, as picking
    // does.
    TLRefPtr<TLFeatureCursor> Search(const TLQueryFilter& filter) const;
    // The feature with that id, with the table's fields; empty when there is none.
    TLRefPtr<TLFeature> GetFeature(int id) const { return mTable->GetFeature(id); }
    bool IsSameCoordinateSystem(TLCoordinateSystem* reference) const;
    TLString display_field() const { return mDisplayField; }
    void set_display_field(const TLString& field) { mDisplayField = field; }

    // A bracket of the layer's own for tools that edit without the map's editor at hand. A null
    // editor means the map's. A start while the layer's own bracket is still open first closes
    // it, so that a tool that forgot a commit does not fold every later edit into one step.
    void StartOperation(TLEditor* editor);
    bool CommitOperation();
    // Writes the pending edits to the data store in one transaction.
    bool SaveEdits();
    TLString LastSaveError() const { return mSaveError; }

    static TLFeatureLayer* CreateMemoryLayer(const TLString& name, TLLayer::LayerType type,
                                             const TLFields& fields,
                                             TLRefPtr<TLCoordinateSystem> reference);

    void SetSymbolRender(TLRefPtr<TLFeatureRender> render);
    TLRefPtr<TLFeatureRender> GetSymbolRender() const;
    // The render the layer is drawn with; a new layer has a single symbol render with the plain
    // symbol of its kind, so that it always has something to show and to export.
    virtual TLRefPtr<TLFeatureRender> GetRender() const;

    // Labels are drawn when shown and the layer has a label property.
    bool display_label() const { return mDisplayLabel; }
    void set_display_label(bool display) { mDisplayLabel = display; }
    TLRefPtr<TLLabelProperty> default_property() const;
    void set_default_property(TLRefPtr<TLLabelProperty> property);

    void AddObserver(TLLayerObserver* observer);
    void RemoveObserver(TLLayerObserver* observer);
    // The change notification: each observer hears (this layer, hint).
    void NotifyObservers(int hint);

private:
    class SelectionKeeper;

    TLRefPtr<TLFeatureTable> mTable;
    std::unique_ptr<TLLayerEditBuffer> mEditBuffer;
    TLQueryFilter mStandingFilter;
    std::set<int> mSelection;
    TLString mDisplayField;
    TLString mSaveError;
    TLEditor* mOperationEditor = nullptr;
    bool mOperationOpen = false;
    TLRefPtr<TLRefBase> mRender;
    bool mDisplayLabel = false;
    TLRefPtr<TLRefBase> mLabelProperty;
    std::vector<TLLayerObserver*> mObservers;
    std::unique_ptr<SelectionKeeper> mKeeper;
};

// A layer whose features live only in memory: scratch layers of the tools.
class TLMemoryFeatureLayer : public TLFeatureLayer {
public:
    TLMemoryFeatureLayer(const TLString& name, LayerType type, const TLFields& fields,
                         TLRefPtr<TLCoordinateSystem> reference);
};

}  // namespace TMObjects
