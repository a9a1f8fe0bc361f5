#include "tlmap/TLDisplay.h"

#include "tlgeo/TLGeoEnvelope.h"
#include "tlmap/TLMap.h"
#include "tlsparef/TLGeometryProject.h"

namespace TMObjects {

namespace {

// Layers rarely use more than a few systems; the bound keeps systems made on the fly (a
// reference loaded from text per call) from piling up.
constexpr std::size_t kMaxConversions = 8;

}  // namespace

TLCoordinateSystem* TLDisplay::otherThanMap(TLCoordinateSystem* reference) const {
    if (!mMap || !reference) return nullptr;
    TLCoordinateSystem* map = mMap->GetSpatialReference().get();
    if (!map || map->IsSame(reference)) return nullptr;
    return map;
}

TLDisplay::Route TLDisplay::makeRoute(TLCoordinateSystem* reference, bool toMap) const {
    Route made;
    TLCoordinateSystem* map = otherThanMap(reference);
    if (!map) return made;
    made.projector = std::make_shared<TLGeometryProject>();
    made.usable = toMap ? made.projector->SetPrj(reference, map, nullptr)
                        : made.projector->SetPrj(map, reference, nullptr);
    return made;
}

TLDisplay::Route TLDisplay::route(TLCoordinateSystem* reference, bool toMap) {
    if (!mMap || !reference) return {};
    TLRefPtr<TLCoordinateSystem> map = mMap->GetSpatialReference();
    if (!map) return {};
    for (const Conversion& known : mConversions) {
        if (known.map == map && known.reference.get() == reference && known.toMap == toMap)
            return known.route;
    }
    Route made = makeRoute(reference, toMap);
    // Only a system that somebody holds through TLRefPtr may be kept: a reference taken on one
    // with a count of 0 (on the stack, or owned raw) would delete it when the entry goes.
    if (reference->RefCount() > 0) {
        if (mConversions.size() >= kMaxConversions) mConversions.erase(mConversions.begin());
        mConversions.push_back(Conversion{map, reference, toMap, made});
    }
    return made;
}

bool TLDisplay::ToGeometry(TLCoordinateSystem* reference, TLGeometry* geometry) {
    if (!geometry) return false;
    const Route found = route(reference, false);
    if (!found.projector) return true;
    return found.usable && found.projector->ProjTmGeometry(geometry);
}

bool TLDisplay::ToPoint(TLCoordinateSystem* reference, TLPoint& point) {
    const Route found = route(reference, false);
    if (!found.projector) return true;
    return found.usable && found.projector->ProjPoint(point);
}

bool TLDisplay::ToMapGeometry(TLCoordinateSystem* reference, TLGeometry* geometry) {
    if (!geometry) return false;
    const Route found = route(reference, true);
    if (!found.projector) return true;
    return found.usable && found.projector->ProjTmGeometry(geometry);
}

bool TLDisplay::ToMapRect(TLCoordinateSystem* reference, TLRect& rect) {
    if (rect.IsEmpty()) return true;
    const Route found = route(reference, true);
    if (!found.projector) return true;
    if (!found.usable) return false;
    TLGeoEnvelope envelope(rect.XMinimum(), rect.YMinimum(), rect.XMaximum(), rect.YMaximum());
    if (!found.projector->ProjTmGeometry(&envelope)) return false;
    double xmin = 0, ymin = 0, xmax = 0, ymax = 0;
    envelope.QueryCoords(&xmin, &ymin, &xmax, &ymax);
    rect = TLRect(xmin, xmax, ymin, ymax);
    return true;
}

}  // namespace TMObjects
