#include "tlgeo/TLGeometryWkt.h"

#include <algorithm>
#include <charconv>

#include "tlbase/TLString.h"
#include "tlgeo/TLGeoEnvelope.h"
#include "tlgeo/TLGeoMultiPoint.h"
#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"
#include "tlgeo/TLGeosConverter.h"
#include "tlgeo/TLRingNesting.h"

namespace TMObjects {

namespace {

GEOSContextHandle_t handle() {
    return TLGeosContext::Handle();
}

// Writes numbers with a fixed count of decimals, or the shortest text that reads back.
class Printer {
public:
    explicit Printer(int decimals) : mDecimals(std::min(decimals, 30)) {}

    std::string Number(double v) const {
        if (mDecimals < 0) return TLString::Number(v).toStdString();
        char buffer[400];
        auto [end, error] =
            std::to_chars(buffer, buffer + sizeof buffer, v, std::chars_format::fixed, mDecimals);
        if (error != std::errc()) return TLString::Number(v).toStdString();
        return std::string(buffer, end);
    }

    // "(x y, x y, ...)" for the points [first, first + n).
    std::string Sequence(const TLPartList& parts, int first, int n) const {
        std::string text = "(";
        for (int i = first; i < first + n; ++i) {
            if (i > first) text += ", ";
            const TLPoint p = parts.Point(i);
            text += Number(p.x) + " " + Number(p.y);
            if (parts.HasZ()) text += " " + Number(parts.Z()[std::size_t(i)]);
        }
        return text + ")";
    }

    std::string Part(const TLPartList& parts, int part) const {
        return Sequence(parts, parts.PartStart(part), parts.PartSize(part));
    }

private:
    int mDecimals;
};

std::string tagged(const std::string& name, bool hasZ, const std::string& body) {
    if (body.empty()) return name + " EMPTY";
    return name + (hasZ ? " Z " : " ") + body;
}

std::string joined(const std::vector<std::string>& items) {
    std::string text = "(";
    for (std::size_t i = 0; i < items.size(); ++i) text += (i ? ", " : "") + items[i];
    return text + ")";
}

std::string pointText(const TLGeoPoint& point, const Printer& printer) {
    if (point.IsEmpty()) return "POINT EMPTY";
    std::string body = "(" + printer.Number(point.GetX()) + " " + printer.Number(point.GetY());
    if (point.HasZ()) body += " " + printer.Number(point.GetZ());
    return tagged("POINT", point.HasZ(), body + ")");
}

std::string multiPointText(const TLPartList& parts, const Printer& printer) {
    std::vector<std::string> points;
    for (int i = 0; i < parts.PointCount(); ++i) points.push_back(printer.Sequence(parts, i, 1));
    return tagged("MULTIPOINT", parts.HasZ(), points.empty() ? "" : joined(points));
}

std::string polylineText(const TLPartList& parts, const Printer& printer) {
    std::vector<std::string> paths;
    for (int part = 0; part < parts.PartCount(); ++part)
        if (parts.PartSize(part) > 0) paths.push_back(printer.Part(parts, part));
    if (paths.size() == 1) return tagged("LINESTRING", parts.HasZ(), paths.front());
    return tagged(paths.empty() ? "LINESTRING" : "MULTILINESTRING", parts.HasZ(),
                  paths.empty() ? "" : joined(paths));
}

// Rings grouped by containment: each outer ring followed by its holes.
std::string polygonText(const TLPartList& parts, const Printer& printer) {
    const TLRingNesting nesting(parts);
    std::vector<std::string> polygons;
    for (int shell = 0; shell < parts.PartCount(); ++shell) {
        if (nesting.Shell(shell) != shell || parts.PartSize(shell) == 0) continue;
        std::vector<std::string> rings{printer.Part(parts, shell)};
        for (int ring = 0; ring < parts.PartCount(); ++ring)
            if (ring != shell && nesting.Shell(ring) == shell && parts.PartSize(ring) > 0)
                rings.push_back(printer.Part(parts, ring));
        polygons.push_back(joined(rings));
    }
    if (polygons.size() == 1) return tagged("POLYGON", parts.HasZ(), polygons.front());
    return tagged(polygons.empty() ? "POLYGON" : "MULTIPOLYGON", parts.HasZ(),
                  polygons.empty() ? "" : joined(polygons));
}

std::string envelopeText(const TLGeoEnvelope& envelope, const Printer& printer) {
    if (envelope.IsEmpty()) return "POLYGON EMPTY";
    double x0, y0, x1, y1;
    envelope.QueryCoords(&x0, &y0, &x1, &y1);
    const double xy[] = {x0, y0, x1, y0, x1, y1, x0, y1, x0, y0};
    TLPartList ring;
    ring.AddPart(xy, 5);
    return polygonText(ring, printer);
}

bool hasZ(TLGeometry* geometry) {
    if (auto* point = dynamic_cast<TLGeoPoint*>(geometry)) return point->HasZ();
    if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry)) return line->Parts().HasZ();
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry)) return polygon->Parts().HasZ();
    if (auto* points = dynamic_cast<TLGeoMultiPoint*>(geometry)) return points->Parts().HasZ();
    return false;
}

}  // namespace

TLRefPtr<TLGeometry> TLGeometryWkt::FromWkt(const std::string& wkt) {
    GEOSWKTReader* reader = GEOSWKTReader_create_r(handle());
    if (!reader) return nullptr;
    TLGeosContext::GeometryPtr g(GEOSWKTReader_read_r(handle(), reader, wkt.c_str()));
    GEOSWKTReader_destroy_r(handle(), reader);
    return g ? TLGeosConverter::FromGeosStrict(g.get()) : nullptr;
}

std::string TLGeometryWkt::ToWkt(TLGeometry* geometry, int decimals) {
    const Printer printer(decimals);
    if (auto* point = dynamic_cast<TLGeoPoint*>(geometry)) return pointText(*point, printer);
    if (auto* line = dynamic_cast<TLGeoPolyline*>(geometry))
        return polylineText(line->Parts(), printer);
    if (auto* polygon = dynamic_cast<TLGeoPolygon*>(geometry))
        return polygonText(polygon->Parts(), printer);
    if (auto* envelope = dynamic_cast<TLGeoEnvelope*>(geometry))
        return envelopeText(*envelope, printer);
    if (auto* points = dynamic_cast<TLGeoMultiPoint*>(geometry))
        return multiPointText(points->Parts(), printer);
    return std::string();
}

TLRefPtr<TLGeometry> TLGeometryWkt::FromWkb(const unsigned char* wkb, std::size_t size) {
    if (!wkb || size == 0) return nullptr;
    GEOSWKBReader* reader = GEOSWKBReader_create_r(handle());
    if (!reader) return nullptr;
    TLGeosContext::GeometryPtr g(GEOSWKBReader_read_r(handle(), reader, wkb, size));
    GEOSWKBReader_destroy_r(handle(), reader);
    return g ? TLGeosConverter::FromGeosStrict(g.get()) : nullptr;
}

std::string TLGeometryWkt::ToWkb(TLGeometry* geometry) {
    TLGeosContext::GeometryPtr g = TLGeosConverter::ToGeos(geometry);
    GEOSWKBWriter* writer = g ? GEOSWKBWriter_create_r(handle()) : nullptr;
    if (!writer) return std::string();
    GEOSWKBWriter_setOutputDimension_r(handle(), writer, hasZ(geometry) ? 3 : 2);
    GEOSWKBWriter_setByteOrder_r(handle(), writer, GEOS_WKB_NDR);
    GEOSWKBWriter_setFlavor_r(handle(), writer, GEOS_WKB_ISO);
    std::size_t size = 0;
    unsigned char* bytes = GEOSWKBWriter_write_r(handle(), writer, g.get(), &size);
    GEOSWKBWriter_destroy_r(handle(), writer);
    if (!bytes) return std::string();
    std::string out(reinterpret_cast<const char*>(bytes), size);
    GEOSFree_r(handle(), bytes);
    return out;
}

}  // namespace TMObjects
