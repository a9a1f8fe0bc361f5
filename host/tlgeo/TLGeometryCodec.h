#pragma once

#include <cstdint>

#include "tlgeo/TLGeometry.h"
#include "tlgeo/TLPartList.h"
#include "tlgeo/TLSerialize.h"

namespace TMObjects {

// The binary form that geometries save to and open from a TLFileFunc: a version byte, the
// geometry type, then the coordinates in the machine's byte order. The stream serves the
// host's own edit buffers and caches within one process; WKB is the form for exchange.
class TLGeometryCodec {
public:
    static void WriteHeader(TLFileFunc& file, TLGeometry::GeoType type);
    // False when the stream does not hold a geometry of this type next.
    static bool ReadHeader(TLFileFunc& file, TLGeometry::GeoType type);

    // Part count, point count, Z flag, part starts, coordinates, Z values.
    static void WriteParts(TLFileFunc& file, const TLPartList& parts);
    // Reads into `parts` only when the whole list is sound; counts larger than the stream can
    // hold, or starts out of order, give false.
    static bool ReadParts(TLFileFunc& file, TLPartList& parts);

    template <class T>
    static void Write(TLFileFunc& file, const T& value) {
        file.WriteBytes(&value, sizeof value);
    }
    template <class T>
    static bool Read(TLFileFunc& file, T& value) {
        return file.ReadBytes(&value, sizeof value);
    }

private:
    static constexpr std::uint8_t kVersion = 1;
};

}  // namespace TMObjects
