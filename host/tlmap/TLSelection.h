#pragma once

#include <vector>

#include "tlbase/TLColor.h"
#include "tlbase/TLRefBase.h"
#include "tlgeo/TLGeometry.h"

namespace TMObjects {

class TLLayer;

// One selected feature: its layer, its id, and its geometry in the layer's coordinates.
class TLSelectFeature : public TLRefBase {
public:
    TLSelectFeature(TLLayer* layer, int oid, TLRefPtr<TLGeometry> geometry)
        : mLayer(layer), mOid(oid), mGeometry(geometry) {}
    TLLayer* GetLayer() const { return mLayer; }
    TLRefPtr<TLGeometry> GetGeometry() const { return mGeometry; }
    double GetLength() const { return mGeometry ? mGeometry->GetLength() : 0.0; }
    int GetOID() const { return mOid; }

private:
    TLLayer* mLayer;
    int mOid;
    TLRefPtr<TLGeometry> mGeometry;
};

class TLFeatureSelectionSet : public TLRefBase {
public:
    int GetCount() const { return int(mFeatures.size()); }
    TLRefPtr<TLSelectFeature> GetFeature(int index) const;
    void Add(TLRefPtr<TLSelectFeature> feature) { mFeatures.push_back(feature); }

private:
    std::vector<TLRefPtr<TLSelectFeature>> mFeatures;
};

// The process-wide selection setting.
class TLSelectionEnvironment {
public:
    enum SelectionMode { SelectNew = 0, SelectAdd = 1, SelectSubtract = 2, SelectIntersect = 3 };

    static TLSelectionEnvironment* Instance();
    unsigned GetTolerance() const { return mTolerance; }
    void SetTolerance(unsigned pixels) { mTolerance = pixels; }
    SelectionMode GetMode() const { return mMode; }
    void SetMode(SelectionMode mode) { mMode = mode; }
    TLColor GetOutLineColor() const { return mOutline; }
    void SetOutLineColor(const TLColor& colour) { mOutline = colour; }

private:
    unsigned mTolerance = 5;
    SelectionMode mMode = SelectNew;
    TLColor mOutline = TLColor(0, 255, 255);
};

}  // namespace TMObjects
