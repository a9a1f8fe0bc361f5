#pragma once

namespace TMObjects {

// How Buffer treats the ends and joins of its input.
enum TmBufferType { TmBufferRound = 0, TmBufferFlat = 1, TmBufferSquare = 2 };

// What HitTest looks for: a vertex, or a point on the boundary (the answer is then the raw index
// of the start vertex of the segment that was hit).
enum GeoHitPartType { GeoHitNone = 0, GeoHitVertex = 1, GeoHitBoundary = 2 };

// Spatial relations of a query filter and of TLGeometry::Relation.
enum TLSpatialRelEnum {
    TLSpatialRelUndefined = 0,
    TLSpatialRelIntersects = 1,
    TLSpatialRelEnvelopeIntersects = 2,
    TLSpatialRelTouches = 4,
    TLSpatialRelOverlaps = 5,
    TLSpatialRelCrosses = 6,
    TLSpatialRelWithin = 7,
    TLSpatialRelContains = 8,
    TLSpatialRelDisjoint = 9,
    TLSpatialRelEquals = 10,
};

}  // namespace TMObjects
