#include "TLRasterPainter.h"

#include <gdal_priv.h>
#include <gdal_utils.h>

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "TLGeometryPainter.h"
#include "tlmap/TLRasterLayer.h"

namespace TMObjects {

struct TLRasterPainter::Source {
    GDALDatasetUniquePtr dataset;              // the raster's own file
    GDALDatasetUniquePtr warped;               // the warped view of it, when one is needed
    std::vector<int> bands;                    // 1-based, the ones drawn
    std::vector<std::array<double, 2>> range;  // minimum and maximum of each drawn band
    int alphaBand = 0;                         // of the warped view: 0 outside the raster
    std::array<double, 6> transform{};         // of what is read: the warped view or the file
    int columns = 0, rows = 0;
    std::string error;

    GDALDataset* drawn() const { return warped ? warped.get() : dataset.get(); }
};

namespace {

bool northUp(const std::array<double, 6>& t) {
    return t[2] == 0 && t[4] == 0 && t[1] > 0 && t[5] != 0;
}

}  // namespace

TLRasterPainter::TLRasterPainter() = default;

TLRasterPainter::~TLRasterPainter() {
    // The warped views read from their files: they go first.
    for (auto& [name, source] : mSources) source->warped.reset();
}

TLRasterPainter::Source* TLRasterPainter::source(TLRasterLayer* layer,
                                                 const QString& mapSystemWkt) {
    const std::string name = layer->GetSource().toStdString() + "\n" + mapSystemWkt.toStdString();
    auto found = mSources.find(name);
    if (found != mSources.end()) return found->second.get();
    GDALAllRegister();
    auto made = std::make_unique<Source>();
    made->dataset.reset(GDALDataset::Open(layer->GetSource().toStdString().c_str(),
                                          GDAL_OF_RASTER | GDAL_OF_READONLY));
    // A raster that cannot be opened is remembered as such, so that each redraw does not try
    // again and fill the log with the same failure.
    if (!made->dataset || made->dataset->GetRasterCount() == 0) {
        made->dataset.reset();
        made->error = "GDAL cannot read it";
        return mSources.emplace(name, std::move(made)).first->second.get();
    }
    const int count = made->dataset->GetRasterCount();
    made->bands = count >= 3 ? std::vector<int>{1, 2, 3} : std::vector<int>{1};
    for (int band : made->bands) {
        std::array<double, 2> minmax{0, 255};
        // Approximate statistics read an overview: exact ones would scan the whole file.
        made->dataset->GetRasterBand(band)->ComputeRasterMinMax(TRUE, minmax.data());
        made->range.push_back(minmax);
    }
    made->dataset->GetGeoTransform(made->transform.data());
    if (!mapSystemWkt.isEmpty() || !northUp(made->transform)) warp(*made, mapSystemWkt);
    if (made->drawn()) {
        made->columns = made->drawn()->GetRasterXSize();
        made->rows = made->drawn()->GetRasterYSize();
    }
    return mSources.emplace(name, std::move(made)).first->second.get();
}

bool TLRasterPainter::warp(Source& src, const QString& mapSystemWkt) {
    // Nearest neighbour keeps class values (land use, soil codes) what they are; an alpha band
    // tells the corners outside the raster from cells of value 0.
    const std::string target = mapSystemWkt.toStdString();
    std::vector<const char*> arguments = {"-of", "VRT", "-r", "near", "-dstalpha"};
    if (!target.empty()) {
        arguments.push_back("-t_srs");
        arguments.push_back(target.c_str());
    }
    arguments.push_back(nullptr);
    GDALWarpAppOptions* options =
        GDALWarpAppOptionsNew(const_cast<char**>(arguments.data()), nullptr);
    GDALDatasetH input = GDALDataset::ToHandle(src.dataset.get());
    int usageError = 0;
    CPLErrorReset();
    GDALDatasetH output = GDALWarp("", nullptr, 1, &input, options, &usageError);
    GDALWarpAppOptionsFree(options);
    if (!output) {
        src.error = CPLGetLastErrorMsg();
        if (src.error.empty()) src.error = "GDAL could not warp it";
        src.dataset.reset();
        return false;
    }
    src.warped.reset(GDALDataset::FromHandle(output));
    src.alphaBand = src.warped->GetRasterCount();
    src.warped->GetGeoTransform(src.transform.data());
    return true;
}

bool TLRasterPainter::Draw(QPainter& painter, TLRasterLayer* layer, const TLRect& area,
                           const TLGeometryPainter& geometry, const QString& mapSystemWkt,
                           const TLRect& mapExtent) {
    Source* src = source(layer, mapSystemWkt);
    if (!src->drawn() || !northUp(src->transform)) {
        mError = QString::fromStdString(src->error);
        drawOutline(painter, geometry, mapExtent);
        return false;
    }
    const std::array<double, 6>& t = src->transform;
    const bool down = t[5] < 0;
    const TLRect extent(t[0], t[0] + src->columns * t[1], std::min(t[3], t[3] + src->rows * t[5]),
                        std::max(t[3], t[3] + src->rows * t[5]));
    if (!extent.Intersects(area)) return true;
    const double xmin = std::max(extent.XMinimum(), area.XMinimum());
    const double xmax = std::min(extent.XMaximum(), area.XMaximum());
    const double ymin = std::max(extent.YMinimum(), area.YMinimum());
    const double ymax = std::min(extent.YMaximum(), area.YMaximum());
    // The cells that cover the area, whole.
    const auto cell = [](double v) { return int(std::floor(v)); };
    const auto cellUp = [](double v) { return int(std::ceil(v)); };
    int c0 = std::clamp(cell((xmin - t[0]) / t[1]), 0, src->columns);
    int c1 = std::clamp(cellUp((xmax - t[0]) / t[1]), 0, src->columns);
    int r0 = std::clamp(cell(((down ? ymax : ymin) - t[3]) / t[5]), 0, src->rows);
    int r1 = std::clamp(cellUp(((down ? ymin : ymax) - t[3]) / t[5]), 0, src->rows);
    if (c1 <= c0 || r1 <= r0) return true;
    const QPointF a = geometry.ToDevice(t[0] + c0 * t[1], t[3] + r0 * t[5]);
    const QPointF b = geometry.ToDevice(t[0] + c1 * t[1], t[3] + r1 * t[5]);
    const QRectF target = QRectF(a, b).normalized();
    // Never more pixels than cells (GDAL would only repeat them) nor than the screen shows.
    const int width = std::clamp(int(std::ceil(target.width())), 1, c1 - c0);
    const int height = std::clamp(int(std::ceil(target.height())), 1, r1 - r0);
    const QImage image = read(*src, layer, c0, r0, c1 - c0, r1 - r0, width, height);
    if (image.isNull()) {
        mError = QString::fromLatin1(CPLGetLastErrorMsg());
        return false;
    }
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
    GDALDataset* dataset = src.drawn();
    for (std::size_t b = 0; b < src.bands.size(); ++b) {
        GDALRasterBand* band = dataset->GetRasterBand(src.bands[b]);
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
    if (src.alphaBand > 0) {
        std::vector<unsigned char> inside(cells.size());
        if (dataset->GetRasterBand(src.alphaBand)
                ->RasterIO(GF_Read, column, row, columns, rows, inside.data(), width, height,
                           GDT_Byte, 0, 0, nullptr) != CE_None)
            return QImage();
        for (std::size_t i = 0; i < inside.size(); ++i)
            if (inside[i] == 0) alpha[i] = 0;
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
