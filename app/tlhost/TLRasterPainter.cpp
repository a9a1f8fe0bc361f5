#include "TLRasterPainter.h"

#include <gdal_priv.h>

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "TLGeometryPainter.h"
#include "tlmap/TLRasterLayer.h"

namespace TMObjects {

struct TLRasterPainter::Source {
    GDALDatasetUniquePtr dataset;
    std::vector<int> bands;                    // 1-based, the ones drawn
    std::vector<std::array<double, 2>> range;  // minimum and maximum of each drawn band
};

TLRasterPainter::TLRasterPainter() = default;

TLRasterPainter::~TLRasterPainter() = default;

TLRasterPainter::Source* TLRasterPainter::source(TLRasterLayer* layer) {
    const std::string name = layer->GetSource().toStdString();
    auto found = mSources.find(name);
    if (found != mSources.end()) return found->second.get();
    GDALAllRegister();
    auto made = std::make_unique<Source>();
    made->dataset.reset(GDALDataset::Open(name.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY));
    // A raster that cannot be opened is remembered as such, so that each redraw does not try
    // again and fill the log with the same failure.
    if (made->dataset && made->dataset->GetRasterCount() > 0) {
        const int count = made->dataset->GetRasterCount();
        made->bands = count >= 3 ? std::vector<int>{1, 2, 3} : std::vector<int>{1};
        for (int band : made->bands) {
            std::array<double, 2> minmax{0, 255};
            // Approximate statistics read an overview: exact ones would scan the whole file.
            made->dataset->GetRasterBand(band)->ComputeRasterMinMax(TRUE, minmax.data());
            made->range.push_back(minmax);
        }
    } else {
        made->dataset.reset();
    }
    return mSources.emplace(name, std::move(made)).first->second.get();
}

bool TLRasterPainter::Draw(QPainter& painter, TLRasterLayer* layer, const TLRect& area,
                           const TLGeometryPainter& geometry, bool sameSystem,
                           const TLRect& mapExtent) {
    const std::array<double, 6>& t = layer->GetGeoTransform();
    const bool northUp = t[2] == 0 && t[4] == 0 && t[1] > 0 && t[5] != 0;
    Source* src = sameSystem && northUp ? source(layer) : nullptr;
    if (!src || !src->dataset) {
        drawOutline(painter, geometry, mapExtent);
        return false;
    }
    const TLRect extent = layer->GetExtent();
    if (!extent.Intersects(area)) return true;
    const double xmin = std::max(extent.XMinimum(), area.XMinimum());
    const double xmax = std::min(extent.XMaximum(), area.XMaximum());
    const double ymin = std::max(extent.YMinimum(), area.YMinimum());
    const double ymax = std::min(extent.YMaximum(), area.YMaximum());
    // The cells that cover the area, whole.
    const auto cell = [](double v) { return int(std::floor(v)); };
    const auto cellUp = [](double v) { return int(std::ceil(v)); };
    const bool down = t[5] < 0;
    int c0 = std::clamp(cell((xmin - t[0]) / t[1]), 0, layer->GetColumnCount());
    int c1 = std::clamp(cellUp((xmax - t[0]) / t[1]), 0, layer->GetColumnCount());
    int r0 = std::clamp(cell(((down ? ymax : ymin) - t[3]) / t[5]), 0, layer->GetRowCount());
    int r1 = std::clamp(cellUp(((down ? ymin : ymax) - t[3]) / t[5]), 0, layer->GetRowCount());
    if (c1 <= c0 || r1 <= r0) return true;
    const QPointF a = geometry.ToDevice(t[0] + c0 * t[1], t[3] + r0 * t[5]);
    const QPointF b = geometry.ToDevice(t[0] + c1 * t[1], t[3] + r1 * t[5]);
    const QRectF target = QRectF(a, b).normalized();
    // Never more pixels than cells (GDAL would only repeat them) nor than the screen shows.
    const int width = std::clamp(int(std::ceil(target.width())), 1, c1 - c0);
    const int height = std::clamp(int(std::ceil(target.height())), 1, r1 - r0);
    const QImage image = read(*src, layer, c0, r0, c1 - c0, r1 - r0, width, height);
    if (image.isNull()) return false;
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(target, down ? image : image.mirrored(false, true));
    painter.restore();
    return true;
}

QImage TLRasterPainter::read(Source& src, TLRasterLayer* layer, int column, int row, int columns,
                             int rows, int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    std::vector<double> cells(std::size_t(width) * std::size_t(height));
    std::vector<unsigned char> alpha(cells.size(), 255);
    for (std::size_t b = 0; b < src.bands.size(); ++b) {
        GDALRasterBand* band = src.dataset->GetRasterBand(src.bands[b]);
        if (band->RasterIO(GF_Read, column, row, columns, rows, cells.data(), width, height,
                           GDT_Float64, 0, 0, nullptr) != CE_None)
            return QImage();
        double noData = 0;
        const bool hasNoData = layer->GetNoData(src.bands[b], noData);
        const double low = src.range[b][0];
        const double span = src.range[b][1] > low ? src.range[b][1] - low : 1.0;
        for (int y = 0; y < height; ++y) {
            auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < width; ++x) {
                const std::size_t i = std::size_t(y) * std::size_t(width) + std::size_t(x);
                const double v = cells[i];
                if ((hasNoData && v == noData) || std::isnan(v)) alpha[i] = 0;
                const int level = std::clamp(int((v - low) / span * 255.0 + 0.5), 0, 255);
                const QRgb old = line[x];
                if (src.bands.size() == 1)
                    line[x] = qRgb(level, level, level);
                else if (b == 0)
                    line[x] = qRgb(level, qGreen(old), qBlue(old));
                else if (b == 1)
                    line[x] = qRgb(qRed(old), level, qBlue(old));
                else
                    line[x] = qRgb(qRed(old), qGreen(old), level);
            }
        }
    }
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const unsigned char a = alpha[std::size_t(y) * std::size_t(width) + std::size_t(x)];
            if (a == 0) line[x] = qRgba(0, 0, 0, 0);
        }
    }
    return image;
}

void TLRasterPainter::drawOutline(QPainter& painter, const TLGeometryPainter& geometry,
                                  const TLRect& r) {
    if (r.IsEmpty()) return;
    painter.save();
    painter.setPen(QPen(Qt::darkGray, 1.0, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(geometry.ToDevice(r.XMinimum(), r.YMaximum()),
                            geometry.ToDevice(r.XMaximum(), r.YMinimum())));
    painter.restore();
}

}  // namespace TMObjects
