#include "tlgeo/TLGeometryCodec.h"

#include <vector>

namespace TMObjects {

void TLGeometryCodec::WriteHeader(TLFileFunc& file, TLGeometry::GeoType type) {
    Write(file, kVersion);
    Write(file, std::int32_t(type));
}

bool TLGeometryCodec::ReadHeader(TLFileFunc& file, TLGeometry::GeoType type) {
    std::uint8_t version = 0;
    std::int32_t stored = 0;
    return Read(file, version) && version == kVersion && Read(file, stored) &&
           stored == std::int32_t(type);
}

void TLGeometryCodec::WriteParts(TLFileFunc& file, const TLPartList& parts) {
    Write(file, std::int32_t(parts.PartCount()));
    Write(file, std::int32_t(parts.PointCount()));
    Write(file, std::uint8_t(parts.HasZ() ? 1 : 0));
    for (int part = 0; part < parts.PartCount(); ++part)
        Write(file, std::int32_t(parts.PartStart(part)));
    if (parts.PointCount() > 0)
        file.WriteBytes(parts.Raw(), sizeof(double) * 2 * std::size_t(parts.PointCount()));
    if (parts.HasZ() && parts.PointCount() > 0)
        file.WriteBytes(parts.Z().data(), sizeof(double) * std::size_t(parts.PointCount()));
}

bool TLGeometryCodec::ReadParts(TLFileFunc& file, TLPartList& parts) {
    std::int32_t partCount = 0, pointCount = 0;
    std::uint8_t hasZ = 0;
    if (!Read(file, partCount) || !Read(file, pointCount) || !Read(file, hasZ)) return false;
    if (partCount < 0 || pointCount < 0 || hasZ > 1) return false;
    if ((pointCount > 0) != (partCount > 0)) return false;
    const std::size_t zCount = hasZ ? std::size_t(pointCount) : 0;
    const std::size_t needed =
        4 * std::size_t(partCount) + sizeof(double) * (2 * std::size_t(pointCount) + zCount);
    if (needed > file.Remaining()) return false;

    std::vector<std::int32_t> starts(static_cast<std::size_t>(partCount));
    for (auto& start : starts) Read(file, start);
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const std::int32_t previous = i == 0 ? 0 : starts[i - 1];
        if (starts[i] < previous || starts[i] > pointCount || (i == 0 && starts[i] != 0))
            return false;
    }
    std::vector<double> xy(2 * std::size_t(pointCount)), z(zCount);
    if (!xy.empty()) file.ReadBytes(xy.data(), sizeof(double) * xy.size());
    if (!z.empty()) file.ReadBytes(z.data(), sizeof(double) * z.size());

    TLPartList read;
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const std::int32_t end = i + 1 < starts.size() ? starts[i + 1] : pointCount;
        read.AddPart(xy.data() + 2 * std::size_t(starts[i]), end - starts[i]);
    }
    read.SetHasZ(hasZ != 0);
    if (hasZ) read.Z() = std::move(z);
    parts = std::move(read);
    return true;
}

}  // namespace TMObjects
