#pragma once

#include <QImage>
#include <map>
#include <memory>
#include <string>

#include "tlbase/TLRect.h"

class QPainter;

namespace TMObjects {

class TLGeometryPainter;
class TLRasterLayer;

// Draws raster layers through GDAL. Only the cells under the area being drawn are read, at the
// size they take on screen, so that GDAL can use the file's overviews and a large image costs
// about one screenful. One band is drawn in grey, three or more as red, green and blue, each
// stretched between its minimum and maximum; cells of the no-data value stay transparent.
// A raster that is rotated, or in a coordinate system other than the map's, is shown by its
// outline: resampling it is beyond this simple view.
class TLRasterPainter {
public:
    TLRasterPainter();
    ~TLRasterPainter();
    TLRasterPainter(const TLRasterPainter&) = delete;
    TLRasterPainter& operator=(const TLRasterPainter&) = delete;

    // `mapExtent` is the raster's extent in map coordinates, for the outline. False when the
    // cells could not be drawn; the outline is drawn then.
    bool Draw(QPainter& painter, TLRasterLayer* layer, const TLRect& area,
              const TLGeometryPainter& geometry, bool sameSystem, const TLRect& mapExtent);

private:
    struct Source;
    Source* source(TLRasterLayer* layer);
    QImage read(Source& source, TLRasterLayer* layer, int column, int row, int columns, int rows,
                int width, int height);
    static void drawOutline(QPainter& painter, const TLGeometryPainter& geometry,
                            const TLRect& mapExtent);

    std::map<std::string, std::unique_ptr<Source>> mSources;
};

}  // namespace TMObjects
