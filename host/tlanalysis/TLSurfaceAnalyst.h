#pragma once

namespace TMObjects {

class TLRasterDataset;

// Measures along the terrain of an elevation raster.
class TLSurfaceAnalyst {
public:
    // The length of the path over the terrain from (x1, y1) to (x2, y2), in the raster's
    // coordinates, heights taken in the same unit. The segment is sampled at the raster's cell
    // size (the smaller of width and height), each sample's height interpolated bilinearly
    // between the four nearest cell centres (the edge cells carried out to the raster's border),
    // and the lengths between neighbouring samples in 3D are summed. Where a sample has no height
    // (a no-data cell among its four, or outside the raster) the pieces on either side count
    // with their plane length, so the result is never below the plane distance. -1 without a
    // raster or when its cells cannot be read.
    static double getSurfaceDistance(TLRasterDataset* dataset, double x1, double y1, double x2,
                                     double y2);
};

}  // namespace TMObjects
