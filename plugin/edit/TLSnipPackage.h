#pragma once

#include <memory>
#include <vector>

#include "tlgeo/TLGeoPolyline.h"

namespace TMObjects {

class CdataManager;
class CRvLayer;
class CvectorEntityData;
class CvectorPackageData;
class TLTool;

// The overlay package of the tools that cut a line by another (trim, break at intersection):
// a data manager whose four limits are the tool's pixel limits in map units, one package with a
// line layer holding the target and a line layer holding the cutter, split by the manager. It
// lives for one cut.
class TLSnipPackage {
public:
    explicit TLSnipPackage(TLTool& tool);
    ~TLSnipPackage();

    // The first layer, with the field "id", and one entity filled with the target polyline.
    void SetTarget(TLGeometry* target);
    // The second layer, with one new entity for the caller to fill, and the layer to stand it in.
    CvectorEntityData* AddCutterEntity();
    CRvLayer* CutterLayer() const;

    // Prepares the package and splits the target at the cutter. False when the manager appended
    // no package; otherwise the entities of the appended package that have more than one point,
    // in order, as polylines.
    bool Snip(std::vector<TLRefPtr<TLGeoPolyline>>& pieces);

private:
    std::unique_ptr<CdataManager> mManager;
    CvectorPackageData* mPackage = nullptr;
    int mNumber = -1;
    int mTargetLayer = -1;
    int mCutterLayer = -1;
};

}  // namespace TMObjects
