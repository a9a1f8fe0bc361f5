#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tlmap/TLLayer.h"
#include "tlmap/s57object.h"

namespace TMObjects {

class TLSpatialIndex;

// A layer of an electronic nautical chart: its S-57 objects, indexed by their bounds. A chart
// without objects is not usable, since nothing on it could be shown or picked.
class TLENCLayer : public TLLayer {
public:
    TLENCLayer(const TLString& name, TLRefPtr<TLCoordinateSystem> reference);
    ~TLENCLayer() override;

    int IsValid() const override;
    TLRect GetExtent() const override;

    // Takes the object over; an object without geometry is refused (false).
    bool AddObject(std::unique_ptr<s57object> object);
    int GetObjectCount() const { return int(mObjects.size()); }

    // How far from a point or a line a pick still hits it, in the layer's units; areas are hit
    // inside. Negative values count as 0.
    void SetHitTolerance(double tolerance);
    double GetHitTolerance() const { return mTolerance; }

    // The objects at the map point (x, y), in the order they were added. The point is projected
    // into the layer's system when the map's differs.
    std::vector<s57object*> hitTest(double x, double y) const;
    // The class acronym and the class name of the object, and its attributes. False, with all
    // three emptied, for a null object or one of another layer.
    bool GetObjectAttributes(std::string& acronym, s57object* object, std::string& className,
                             std::vector<TLEncObjectAttribute>& attributes) const;

private:
    bool toLayerPoint(double& x, double& y) const;
    bool hits(s57object* object, double x, double y) const;

    std::vector<std::unique_ptr<s57object>> mObjects;
    std::unique_ptr<TLSpatialIndex> mIndex;
    double mTolerance = 0.0;
};

}  // namespace TMObjects
