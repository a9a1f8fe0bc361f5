#pragma once

#include <vector>

#include "TLPluginExport.h"
#include "tlbase/TLPoint.h"
#include "tlmap/TLSnapTool.h"
#include "tlmap/TLTool.h"
#include "tlsde/TLFeature.h"

namespace TMObjects {

class CvectorEntityData;
class CvectorPackageData;
class TLFeatureLayer;
class TLRubberBand;

// Reshapes features with a drawn connect line. The stretch of the line between its outermost
// crossings with a feature replaces the feature's outline between those crossings: on a line
// layer one line is reshaped, on a polygon layer one polygon, or the shared boundary of two
// neighbouring polygons moves so that area passes from one to the other. The feature keeps its
// id and attributes. No prompts: left clicks draw (snapped), Escape drops the points, Ctrl+Z
// takes the last one back, a double click connects in one step "Part connect".
//
// The crossings are found on coordinates brought to about metres: geographic data are scaled by
// the length of a degree on the spheroid's major axis, projected data by their unit, and
// degree-like coordinates without a geographic system by 100000; the result is scaled back.
class TL_ACTIONEX_EXPORT TLToolPartConnect : public TLTool {
public:
    TLToolPartConnect();
    explicit TLToolPartConnect(TLToolBuddy* buddy);
    ~TLToolPartConnect() override;

    void activate() override;
    void deactivate() override;
    bool OnMouseDown(TLMouseButton button, int x, int y) override;
    bool OnMouseMove(TLMouseButton button, int x, int y) override;
    bool OnDblClick(TLMouseButton button, int x, int y) override;
    bool OnKeyDown(int key) override;

private:
    // Reshapes the features (one line, or one or two polygons of `layer`) with the connect line
    // in the layer's coordinates; true when their geometries were set anew.
    bool process(TLFeatureLayer* layer, std::vector<TLRefPtr<TLFeature>>& features,
                 TLGeometry* line);
    // The length along the entity from its first vertex to (x, y) on segment `index`, or with
    // `toEnd` from (x, y) to its last vertex.
    double calcDis(CvectorEntityData* entity, int index, double x, double y, bool toEnd);
    CvectorEntityData* ReSetLineObj(CvectorEntityData* object, CvectorEntityData* line);
    CvectorEntityData* ReSetPolygonObj(CvectorEntityData* object, CvectorEntityData* line);
    bool CutChunkByLine(CvectorPackageData* package, CvectorEntityData* line,
                        CvectorEntityData* chunk, std::vector<CvectorEntityData*>& chunks);
    CvectorEntityData* RemoveMaxChunk(std::vector<CvectorEntityData*>& chunks,
                                      CvectorEntityData* unused = nullptr);
    bool TogetherChunk(CvectorPackageData* package, std::vector<CvectorEntityData*>& chunks,
                       CvectorEntityData* chunk, std::vector<CvectorEntityData*>& result);

    // The steps of process for one object and for two polygons.
    bool connectOne(CvectorEntityData* object, CvectorEntityData* line, int layerType,
                    TLFeature* feature, double scale);
    bool connectTwo(CvectorPackageData* package, CvectorEntityData* first,
                    CvectorEntityData* second, CvectorEntityData* line, TLFeature* firstFeature,
                    TLFeature* secondFeature, double scale);
    // The data manager's limits, from pixels to map units.
    void convertLimits(class CdataManager& manager);
    double workingScale(TLFeatureLayer* layer) const;
    // Redraws the band: the points, then the cursor point.
    void redrawBand(bool withCursor);

    TLRubberBand* mBand = nullptr;
    TLPoint mCursorPoint;
    std::vector<TLPoint> mPoints;
    TLSnapTool mSnapTool;
};

}  // namespace TMObjects
