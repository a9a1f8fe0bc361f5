#pragma once

#include <string>
#include <vector>

#include "tlbase/TLRefBase.h"
#include "tlgeo/TLGeometry.h"
#include "tlmap/TLEncObjectAttribute.h"

namespace TMObjects {

// One object of an electronic nautical chart (S-57): its primitive (0 point, 1 line, 2 area),
// the acronym and the long name of its class, its attributes in chart order, and its geometry in
// the chart layer's coordinates.
struct s57object {
    enum Primitive { PrimitivePoint = 0, PrimitiveLine = 1, PrimitiveArea = 2 };

    int primitive = PrimitivePoint;
    std::string acronym;
    std::string className;
    std::vector<TLEncObjectAttribute> attributes;
    TLRefPtr<TLGeometry> geometry;
};

}  // namespace TMObjects
