#include "raster/TLSurfaceAreaGrid.h"

#include <algorithm>
#include <memory>

#include "raster/TLRasterCells.h"
#include "tlanalysis/TLDem3D.h"
#include "tlmap/TLRasterProps.h"

namespace TMObjects {

namespace {

struct CellWindow {
    int firstCol, lastCol, firstRow, lastRow;
};

// The cells under the box, then two more on every side that has them, one step at a time.
CellWindow windowOf(double minX, double minY, double maxX, double maxY, const TLRect& bound,
                    double cellWidth, double cellHeight, int width, int height) {
    CellWindow w{
        int((minX - bound.XMinimum()) / cellWidth), int((maxX - bound.XMinimum()) / cellWidth),
        int((bound.YMaximum() - maxY) / cellHeight), int((bound.YMaximum() - minY) / cellHeight)};
    for (int step = 0; step < 2; ++step) {
        if (w.firstCol - 1 >= 0) --w.firstCol;
        if (width > w.lastCol + 1) ++w.lastCol;
        if (w.firstRow - 1 >= 0) --w.firstRow;
        if (height > w.lastRow + 1) ++w.lastRow;
    }
    return w;
}

}  // namespace

double TLSurfaceAreaGrid::area(TLRasterProps& raster, const std::vector<TLPoint>& ring) {
    double minX, minY, maxX, maxY;
    TLDem3D::getPolygonBox(ring, minX, minY, maxX, maxY);
    const TLRect bound = raster.GetBound();
    const double left = bound.XMinimum(), right = bound.XMaximum();
    const double bottom = bound.YMinimum(), top = bound.YMaximum();
    const double cellWidth = raster.cellWidth(), cellHeight = raster.cellHeight();
    const int width = raster.GetWidth(), height = raster.GetHeight();
    const int type = raster.dataType();
    double noData = 0.0;
    const bool hasNoData = raster.noDataValue(1, noData);

    if (minX >= right || left >= maxX || minY >= top || bottom >= maxY) return 0.0;
    minX = std::max(minX, left);
    maxX = std::min(maxX, right);
    minY = std::max(minY, bottom);
    maxY = std::min(maxY, top);
    const CellWindow w =
        windowOf(minX, minY, maxX, maxY, bound, cellWidth, cellHeight, width, height);
    const int columns = w.lastCol - w.firstCol + 1, rows = w.lastRow - w.firstRow + 1;
    std::unique_ptr<TLBlock> block(raster.newBlock(TLSize(columns, rows)));
    raster.readBlock(TLPoint(w.firstCol, w.firstRow), block.get(), 0);
    void* data = nullptr;
    block->data(1, data);
    if (!data) return 0.0;

    const double gridLeft = w.firstCol * cellWidth + left;
    const double gridRight = gridLeft + columns * cellWidth;
    const double gridTop = top - w.firstRow * cellHeight;
    const double gridBottom = gridTop - rows * cellHeight;

    // Upside down: the block's first row is the grid's last.
    std::vector<double> grid(std::size_t(columns) * rows);
    double minimum = 0.0, maximum = 0.0;
    bool first = true;
    for (int r = 0; r < rows; ++r) {
        double* line = grid.data() + std::size_t(rows - 1 - r) * columns;
        for (int c = 0; c < columns; ++c) {
            const std::size_t index = std::size_t(r) * columns + c;
            bool known = false;
            const double value = TLRasterCells::cell(data, type, index, known);
            // 64-bit cells go in as they are: neither tested for no data nor counted in the
            // minimum and maximum, which then stay 0.
            if (type == TLCellFloat64) {
                line[c] = value;
                continue;
            }
            if (!known || (hasNoData && value == noData)) {
                line[c] = TLDem3D::NoHeight;
                continue;
            }
            line[c] = value;
            minimum = first ? value : std::min(minimum, value);
            maximum = first ? value : std::max(maximum, value);
            first = false;
        }
    }
    TLDem3D dem;
    dem.GridDataTo3D(grid.data(), rows, columns, gridLeft, gridRight, gridBottom, gridTop, minimum,
                     maximum);
    return dem.ProjectedArea(ring);
}

}  // namespace TMObjects
