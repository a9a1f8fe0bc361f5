#pragma once

#include <QImage>
#include <QString>
#include <array>
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
// A raster in another coordinate system than the map's, or a rotated one, is drawn through a
// warped virtual raster (GDAL's VRT): it is resampled into the map's system, north up, on the
// fly and only where it is shown. The outline stands in only when GDAL cannot do that.
class TLRasterPainter {
public:
    TLRasterPainter();
    ~TLRasterPainter();
    TLRasterPainter(const TLRasterPainter&) = delete;
    TLRasterPainter& operator=(const TLRasterPainter&) = delete;

    // `mapSystemWkt` is the map's system when it differs from the raster's, else empty.
    // `mapExtent` is the raster's extent in map coordinates, for the outline. False when the
    // cells could not be drawn; the outline is drawn then.
    bool Draw(QPainter& painter, TLRasterLayer* layer, const TLRect& area,
              const TLGeometryPainter& geometry, const QString& mapSystemWkt,
              const TLRect& mapExtent);
    // Why the last Draw that answered false could not draw the cells.
    const QString& LastError() const { return mError; }

private:
    struct Source;
    Source* source(TLRasterLayer* layer, const QString& mapSystemWkt);
    bool warp(Source& source, const QString& mapSystemWkt);
    QImage read(Source& source, TLRasterLayer* layer, int column, int row, int columns, int rows,
                int width, int height);
    static void drawOutline(QPainter& painter, const TLGeometryPainter& geometry,
                            const TLRect& mapExtent);

    std::map<std::string, std::unique_ptr<Source>> mSources;
    QString mError;
};

}  // namespace TMObjects
