#pragma once

#include "TLPluginExport.h"
#include "tlgeo/TLGeometry.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLFeatureLayer;

// Lengthens a line feature by one new end vertex: in mode 1 to where the prolongation of an
// end segment meets a target line, in mode 2 by a typed distance along the end segment nearer
// the click. The feature keeps its id and attributes.
class TL_ACTIONEX_EXPORT TLToolExtension : public TLTool {
public:
    TLToolExtension();
    explicit TLToolExtension(TLToolBuddy* buddy);
    ~TLToolExtension() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

private:
    struct Hit {
        TLFeatureLayer* layer = nullptr;
        int id = -1;
        int segment = -1;
        TLRefPtr<TLGeometry> geometry;  // map coordinates
    };

    void reset();
    Hit pickLine(const TLPoint& click, double tolerance);
    void decideEnd(const Hit& hit);
    void extendToTarget(TLFeatureLayer* layer, int id);
    void extendByDistance(double distance);
    void selectTarget();

    int mStep = 0;
    int mMode = 1;
    bool mFinished = false;
    TLFeatureLayer* mLayer = nullptr;
    int mFeatureId = -1;
    bool mExtendAtStart = false;
};

}  // namespace TMObjects
