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
    // A conversion between the map's system and one reference, kept because every commit
    // projects and building a PROJ pipeline costs far more than using it. Both systems are held
    // so that neither address can be reused by another system while the entry lives.
    struct Conversion {
        TLRefPtr<TLCoordinateSystem> map;
        TLRefPtr<TLCoordinateSystem> reference;
        bool toMap = false;
        bool usable = false;  // false when PROJ knows no way between the two
        std::shared_ptr<TLGeometryProject> projector;  // null when nothing needs to change
    };
    // The map's system when both exist and differ, else null.
    TLCoordinateSystem* otherThanMap(TLCoordinateSystem* reference) const;
    const Conversion* conversion(TLCoordinateSystem* reference, bool toMap);
    Conversion makeConversion(TLCoordinateSystem* reference, bool toMap) const;

    TLMap* mMap;
    TLDisplayTransform mTransform;
    std::vector<Conversion> mConversions;
};

}  // namespace TMObjects
