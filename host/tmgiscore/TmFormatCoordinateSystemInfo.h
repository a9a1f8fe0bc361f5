#pragma once

#include <QString>

namespace TMObjects {
class TLCoordinateSystem;
}

// A description of a coordinate system for the user: name, authority code, kind, ellipsoid
// and the PROJ definition, one item a line.
class TmFormatCoordinateSystemInfo {
public:
    // Empty for a null or invalid system.
    static QString formatCoordinateSystemInfo(TMObjects::TLCoordinateSystem* system);
};
