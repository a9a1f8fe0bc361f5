#pragma once

#include <map>
#include <string>

#include "tlmap/TLLayer.h"

namespace TMObjects {

// The demo data: one GeoPackage, in UTM zone 33N (EPSG:32633), covering x 500000..500800 and
// y 5000000..5000600 (metres), with
//   wells       points: name, depth, drilled (a date)       3 features
//   roads       lines: name, lanes (a short integer)        2 features
//   parcels     polygons: parcel_no (64-bit), owner, area   2 features
//   benchmarks  points: code (NOT NULL, UNIQUE), height     2 features
//   dem         a raster of 80 x 60 cells of 10 m: heights of one hill, in metres
// It is small enough to read at a glance and has a layer of each kind the digitizing tools
// write to, plus a constrained one on which a save can be refused.
class TLDemoData {
public:
    // Writes the GeoPackage at `path`, replacing a file there. False with the reason.
    static bool Write(const std::string& path, std::string& error);
    // The layers Write makes, by name, with their kind (RasterLayer for the elevation).
    static std::map<std::string, TLLayer::LayerType> Layers();
};

}  // namespace TMObjects
