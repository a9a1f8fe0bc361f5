#include "tlanalysis/TLSurfaceAnalyst.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <vector>

#include "tlanalysis/TLExactSum.h"
#include "tlmap/TLRasterDataset.h"

namespace TMObjects {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The raster's heights over a window, NaN where there is none.
struct Window {
    int column = 0, row = 0, columns = 0, rows = 0;
    std::vector<double> heights;

    double at(int c, int r) const {
        c = std::clamp(c - column, 0, columns - 1);
        r = std::clamp(r - row, 0, rows - 1);
        return heights[std::size_t(r) * columns + c];
    }
};

bool readWindow(TLRasterProps& raster, int column, int row, int columns, int rows, Window& window) {
    std::unique_ptr<TLBlock> block(raster.newBlock(TLSize(columns, rows)));
    if (!block || !raster.readBlock(TLPoint(column, row), block.get(), 0)) return false;
    double noData = kNaN;
    const bool hasNoData = raster.noDataValue(1, noData);
    window = Window{column, row, columns, rows, {}};
    window.heights.resize(std::size_t(columns) * rows);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c) {
            const double v = block->value(1, c, r);
            window.heights[std::size_t(r) * columns + c] = hasNoData && v == noData ? kNaN : v;
        }
    return true;
}

}  // namespace

double TLSurfaceAnalyst::getSurfaceDistance(TLRasterDataset* dataset, double x1, double y1,
                                            double x2, double y2) {
    TLRefPtr<TLRasterProps> raster = dataset ? dataset->GetRaster() : TLRefPtr<TLRasterProps>();
    if (!raster || raster->GetWidth() <= 0 || raster->GetHeight() <= 0) return -1.0;
    const TLRect bound = raster->GetBound();
    const double w = raster->cellWidth(), h = raster->cellHeight();
    const double left = bound.XMinimum(), top = bound.YMaximum();
    // Cell-centre coordinates: (0, 0) is the centre of the top-left cell.
    auto u = [&](double x) { return (x - left) / w - 0.5; };
    auto v = [&](double y) { return (top - y) / h - 0.5; };
    const int width = raster->GetWidth(), height = raster->GetHeight();
    const int c0 = std::clamp(int(std::floor(std::min(u(x1), u(x2)))), 0, width - 1);
    const int c1 = std::clamp(int(std::floor(std::max(u(x1), u(x2)))) + 1, 0, width - 1);
    const int r0 = std::clamp(int(std::floor(std::min(v(y1), v(y2)))), 0, height - 1);
    const int r1 = std::clamp(int(std::floor(std::max(v(y1), v(y2)))) + 1, 0, height - 1);
    Window window;
    if (!readWindow(*raster, c0, r0, c1 - c0 + 1, r1 - r0 + 1, window)) return -1.0;

    auto heightAt = [&](double x, double y) {
        if (!bound.PtInRect(TLPoint(x, y))) return kNaN;
        const double cu = u(x), cv = v(y);
        const int c = int(std::floor(cu)), r = int(std::floor(cv));
        const double fu = cu - c, fv = cv - r;
        return (window.at(c, r) * (1 - fu) + window.at(c + 1, r) * fu) * (1 - fv) +
               (window.at(c, r + 1) * (1 - fu) + window.at(c + 1, r + 1) * fu) * fv;
    };

    const double plane = std::hypot(x2 - x1, y2 - y1);
    const long long steps = std::max<long long>(1, (long long)std::ceil(plane / std::min(w, h)));
    TLExactSum length;
    double px = x1, py = y1, pz = heightAt(x1, y1);
    for (long long s = 1; s <= steps; ++s) {
        const double t = double(s) / double(steps);
        const double x = x1 + t * (x2 - x1), y = y1 + t * (y2 - y1), z = heightAt(x, y);
        const double dz = std::isnan(z) || std::isnan(pz) ? 0.0 : z - pz;
        length.Add(std::sqrt((x - px) * (x - px) + (y - py) * (y - py) + dz * dz));
        px = x;
        py = y;
        pz = z;
    }
    return length.Value();
}

}  // namespace TMObjects
