#pragma once

#include <vector>

#include "tlbase/TLPoint.h"

namespace TMObjects {

class TLRasterProps;

// The surface area of a ring over a raster, through the host's DEM: the raster's cells under
// the ring's box, widened by two cells where the raster has them, turned upside down into a
// height grid (no-data cells marked as having no height) and handed to TLDem3D.
class TLSurfaceAreaGrid {
public:
    static double area(TLRasterProps& raster, const std::vector<TLPoint>& ring);
};

}  // namespace TMObjects
