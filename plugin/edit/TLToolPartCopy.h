#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlgeo/TLGeometry.h"
#include "tlmap/TLLayer.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLFeatureLayer;
class TLMapView;

// Copies the stretch between two vertices of a line or polygon into a line layer chosen in a
// dialog, as a new feature without attributes, one step "part copy". The stretch runs in raw
// vertex order between the two picks, one path for each part it touches; on a ring it never runs
// across the ring's start. The source stays as it is and may lie in a read-only layer.
class TL_ACTIONEX_EXPORT TLToolPartCopy : public TLTool {
public:
    TLToolPartCopy();
    explicit TLToolPartCopy(TLToolBuddy* buddy);
    ~TLToolPartCopy() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;
    // "layerID" (any case) chooses the target layer by id, as the layer dialog answers.
    void setParam(TLString key, TLString value) override;

    // The names and ids of the map's layers of `type` (all of them for 0), in map order.
    void getbudyLayernames(TLLayer::LayerType type, std::vector<TLString>& names,
                           std::vector<int>& ids);
    // The target becomes the feature layer of that id; none when no layer has it.
    void setCopytoLayerid(int layerId);

private:
    void reset();
    void pickFirst(TLMapView* view, const TLPoint& click, double tolerance);
    void pickSecond(TLMapView* view, const TLPoint& click, double tolerance);
    void copy(TLMapView* view, int first, int second);

    int mStep = 0;
    TLFeatureLayer* mLayer = nullptr;
    int mFeatureId = -1;
    int mVertexIndex = -1;
    TLRefPtr<TLGeometry> mGeometry;
    TLFeatureLayer* mCopyToLayer = nullptr;
};

}  // namespace TMObjects
