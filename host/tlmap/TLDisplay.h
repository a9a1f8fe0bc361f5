#pragma once

#include <memory>
#include <vector>

#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"
#include "tlgeo/TLGeometry.h"
#include "tlsparef/TLCoordinateSystem.h"
#include "tlsymbol/TLDisplayTransform.h"

namespace TMObjects {

class TLMap;
class TLGeometryProject;

// The view's display: its transform and the conversions between the map's coordinate system and
// another. With equal or empty systems the conversions leave the value as it is.
class TLDisplay {
public:
    explicit TLDisplay(TLMap* map) : mMap(map) {}

    TLDisplayTransform* GetDisplayTransform() { return &mTransform; }

    bool ToGeometry(TLCoordinateSystem* reference, TLGeometry* geometry);
    bool ToPoint(TLCoordinateSystem* reference, TLPoint& point);
    bool ToMapGeometry(TLCoordinateSystem* reference, TLGeometry* geometry);
    bool ToMapRect(TLCoordinateSystem* reference, TLRect& rect);

    void SetMap(TLMap* map) { mMap = map; }

private:
    // What one call does: leave the value (equal or missing systems), project it, or refuse
    // because PROJ knows no way between the two systems.
    struct Route {
        bool usable = true;
        std::shared_ptr<TLGeometryProject> projector;  // null when nothing needs to change
    };
    // A route kept because every commit projects and building a PROJ pipeline costs far more
    // than using it. Both systems are held so that neither address can be reused by another
    // system while the entry lives.
    struct Conversion {
        TLRefPtr<TLCoordinateSystem> map;
        TLRefPtr<TLCoordinateSystem> reference;
        bool toMap = false;
        Route route;
    };
    // The map's system when both exist and differ, else null.
    TLCoordinateSystem* otherThanMap(TLCoordinateSystem* reference) const;
    Route route(TLCoordinateSystem* reference, bool toMap);
    Route makeRoute(TLCoordinateSystem* reference, bool toMap) const;

    TLMap* mMap;
    TLDisplayTransform mTransform;
    std::vector<Conversion> mConversions;
};

}  // namespace TMObjects
