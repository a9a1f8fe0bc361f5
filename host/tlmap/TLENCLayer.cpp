#include "tlmap/TLENCLayer.h"

#include <algorithm>
#include <cmath>

#include "tlgeo/TLGeoPoint.h"
#include "tlmap/TLMap.h"
#include "tlsde/TLSpatialIndex.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

TLENCLayer::TLENCLayer(const TLString& name, TLRefPtr<TLCoordinateSystem> reference)
    : TLLayer(name, UnknownLayer, reference), mIndex(std::make_unique<TLSpatialIndex>()) {}

TLENCLayer::~TLENCLayer() = default;

int TLENCLayer::IsValid() const {
    return mObjects.empty() ? 0 : 1;
}

TLRect TLENCLayer::GetExtent() const {
    return mIndex->Extent();
}

bool TLENCLayer::AddObject(std::unique_ptr<s57object> object) {
    if (!object || !object->geometry || object->geometry->IsEmpty()) return false;
    mIndex->Insert(int(mObjects.size()), object->geometry.get());
    mObjects.push_back(std::move(object));
    return true;
}

void TLENCLayer::SetHitTolerance(double tolerance) {
    mTolerance = std::isfinite(tolerance) && tolerance > 0.0 ? tolerance : 0.0;
}

bool TLENCLayer::toLayerPoint(double& x, double& y) const {
    TLMap* map = GetMap();
    TLCoordinateSystem* from = map ? map->GetSpatialReference().get() : nullptr;
    TLCoordinateSystem* to = GetSpatialReference().get();
    if (!from || !to || from == to || from->IsSame(to)) return true;
    TLGeometryProject project;
    return project.SetPrj(from, to, nullptr) && project.ProjXY(x, y);
}

// Areas are hit inside or on their edge, points and lines within the tolerance.
bool TLENCLayer::hits(s57object* object, double x, double y) const {
    TLGeoPoint point(x, y);
    const double distance = object->geometry->Distance(&point);
    return distance >= 0.0 && distance <= mTolerance;
}

std::vector<s57object*> TLENCLayer::hitTest(double x, double y) const {
    std::vector<s57object*> found;
    if (!std::isfinite(x) || !std::isfinite(y) || !toLayerPoint(x, y)) return found;
    std::vector<int> candidates =
        mIndex->Query(TLRect(x - mTolerance, x + mTolerance, y - mTolerance, y + mTolerance));
    std::sort(candidates.begin(), candidates.end());
    for (int index : candidates) {
        s57object* object = mObjects[std::size_t(index)].get();
        if (hits(object, x, y)) found.push_back(object);
    }
    return found;
}

bool TLENCLayer::GetObjectAttributes(std::string& acronym, s57object* object,
                                     std::string& className,
                                     std::vector<TLEncObjectAttribute>& attributes) const {
    acronym.clear();
    className.clear();
    attributes.clear();
    const auto mine = std::find_if(mObjects.begin(), mObjects.end(),
                                   [object](const auto& held) { return held.get() == object; });
    if (!object || mine == mObjects.end()) return false;
    acronym = object->acronym;
    className = object->className;
    attributes = object->attributes;
    return true;
}

}  // namespace TMObjects
