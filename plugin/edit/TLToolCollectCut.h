#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlgeo/TLGeometry.h"
#include "tlmap/TLTool.h"

namespace TMObjects {

class TLFeatureLayer;

// Trims a line feature at its crossings with a cutting feature: the user picks the cutting
// feature, then the line, then clicks the piece to throw away. Every other piece becomes a new
// feature with the old one's attributes, and the old feature goes, in one undoable step.
class TL_ACTIONEX_EXPORT TLToolCollectCut : public TLTool {
public:
    TLToolCollectCut();
    explicit TLToolCollectCut(TLToolBuddy* buddy);
    ~TLToolCollectCut() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool processChildCmd(TLString text) override;

protected:
    // Cuts `target` wherever `cutter` meets it and appends the pieces; both in one coordinate
    // system. Nothing for a target that is no polyline or a polygon cutter.
    void geoCutPolyine(TLRefPtr<TLGeometry> target, TLRefPtr<TLGeometry> cutter,
                       std::vector<TLRefPtr<TLGeometry>>& pieces);

private:
    void clearMembers();
    void promptStep();
    void pick(const TLPoint& click, double tolerance);
    void cut(const TLPoint& click, double tolerance);

    int mStep = 0;
    bool mFinished = false;
    TLFeatureLayer* mCandidateLayer = nullptr;
    int mCandidateId = -1;
    TLFeatureLayer* mCutLineLayer = nullptr;
    int mCutLineId = -1;
    TLFeatureLayer* mTargetLayer = nullptr;
    int mTargetId = -1;
};

}  // namespace TMObjects
