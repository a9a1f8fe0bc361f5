#pragma once

#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"
#include "tlgeo/TLGeometry.h"
#include "tlsparef/TLCoordinateSystem.h"
#include "tlsymbol/TLDisplayTransform.h"

namespace TMObjects {

class TLMap;

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
    // The map's system when both exist and differ, else null.
    TLCoordinateSystem* otherThanMap(TLCoordinateSystem* reference) const;
    TLMap* mMap;
    TLDisplayTransform mTransform;
};

}  // namespace TMObjects
