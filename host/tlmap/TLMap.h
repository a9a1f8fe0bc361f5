#pragma once

#include <memory>
#include <vector>

#include "tlbase/TLRect.h"
#include "tlbase/TLRefBase.h"
#include "tlmap/TLEditor.h"
#include "tlmap/TLEventSignal.h"
#include "tlmap/TLLayer.h"
#include "tlmap/TLSelection.h"
#include "tlsparef/TLCoordinateSystem.h"
#include "tlsymbol/TLUnits.h"

namespace TMObjects {

// A map: its layers in drawing order, its coordinate system and its single editor. The last layer
// of the list is drawn last, on top, as in every GIS: whatever walks "from the top of the layer
// stack down" walks the list from its end to its start, and a layer panel shows the last layer
// in its first row.
class TLMap : public TLRefBase {
public:
    TLMap();
    ~TLMap() override;

    TLEditor* editor() { return &mEditor; }
    TLRefPtr<TLCoordinateSystem> GetSpatialReference() const { return mReference; }
    void SetSpatialReference(TLRefPtr<TLCoordinateSystem> reference) { mReference = reference; }
    TLRefPtr<TLLayer> GetCurrentLayer() const { return mCurrent; }
    void SetCurrentLayer(TLLayer* layer);
    TLRefPtr<TLLayer> GetLayerByID(int id) const;
    TLRefPtr<TLLayer> GetLayerByName(const TLString& name) const;
    std::vector<TLRefPtr<TLLayer>> GetLayers(bool all) const;
    int GetLayerCount() const { return int(mLayers.size()); }
    // position -1 appends, so the layer goes on top; 0 puts it at the bottom.
    bool InsertLayer(int position, TLLayer* layer, bool notify);
    bool RemoveLayer(TLLayer* layer);
    // Keeps the drawing order stable; the order is the order of insertion positions.
    void Sort();
    TLRefPtr<TLFeatureSelectionSet> GetAllSelection() const;
    TLRect GetFullExtent() const;  // in the map's coordinates
    TLUnitType GetMapDisplayUnit() const;

    TLEventSignal currentLayerChanged;
    TLEventSignal layerRemoved;
    TLEventSignal layerAdded;

private:
    TLEditor mEditor;
    TLRefPtr<TLCoordinateSystem> mReference;
    std::vector<TLRefPtr<TLLayer>> mLayers;
    TLRefPtr<TLLayer> mCurrent;
};

}  // namespace TMObjects
