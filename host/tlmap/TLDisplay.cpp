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

TLDisplay::Conversion TLDisplay::makeConversion(TLCoordinateSystem* reference, bool toMap) const {
    Conversion made;
    made.map = mMap->GetSpatialReference();
    made.reference = reference;
    made.toMap = toMap;
    made.usable = true;
    TLCoordinateSystem* map = otherThanMap(reference);
    if (!map) return made;
    made.projector = std::make_shared<TLGeometryProject>();
    made.usable = toMap ? made.projector->SetPrj(reference, map, nullptr)
                        : made.projector->SetPrj(map, reference, nullptr);
    return made;
}

const TLDisplay::Conversion* TLDisplay::conversion(TLCoordinateSystem* reference, bool toMap) {
    if (!mMap || !reference) return nullptr;
    TLCoordinateSystem* map = mMap->GetSpatialReference().get();
    if (!map) return nullptr;
    for (const Conversion& known : mConversions) {
        if (known.map.get() == map && known.reference.get() == reference && known.toMap == toMap)
            return &known;
    }
    if (mConversions.size() >= kMaxConversions) mConversions.erase(mConversions.begin());
    mConversions.push_back(makeConversion(reference, toMap));
    return &mConversions.back();
}

bool TLDisplay::ToGeometry(TLCoordinateSystem* reference, TLGeometry* geometry) {
    if (!geometry) return false;
    const Conversion* found = conversion(reference, false);
    if (!found || !found->projector) return true;
    return found->usable && found->projector->ProjTmGeometry(geometry);
}

bool TLDisplay::ToPoint(TLCoordinateSystem* reference, TLPoint& point) {
    const Conversion* found = conversion(reference, false);
    if (!found || !found->projector) return true;
    return found->usable && found->projector->ProjPoint(point);
}

bool TLDisplay::ToMapGeometry(TLCoordinateSystem* reference, TLGeometry* geometry) {
    if (!geometry) return false;
    const Conversion* found = conversion(reference, true);
    if (!found || !found->projector) return true;
    return found->usable && found->projector->ProjTmGeometry(geometry);
}

bool TLDisplay::ToMapRect(TLCoordinateSystem* reference, TLRect& rect) {
    if (rect.IsEmpty()) return true;
    const Conversion* found = conversion(reference, true);
    if (!found || !found->projector) return true;
    if (!found->usable) return false;
    TLGeoEnvelope envelope(rect.XMinimum(), rect.YMinimum(), rect.XMaximum(), rect.YMaximum());
    if (!found->projector->ProjTmGeometry(&envelope)) return false;
    double xmin = 0, ymin = 0, xmax = 0, ymax = 0;
    envelope.QueryCoords(&xmin, &ymin, &xmax, &ymax);
    rect = TLRect(xmin, xmax, ymin, ymax);
    return true;
}

}  // namespace TMObjects
