#pragma once

#include <vector>

#include "data/CEntityGeos.h"

namespace TMObjects {

class CvectorEntityData;
class CvectorPackageData;

// The overlay of polygons that the boolean operations of the data manager are made of: the
// outlines of all inputs are noded together, the faces they bound are found, and each face knows
// the inputs that cover it. Noding is exact (GEOS, double precision): no vertex is moved and no
// piece is dropped for being small.
class CPolygonOverlay {
public:
    struct Piece {
        std::vector<int> sources;                   // 1-based input numbers, ascending
        CEntityGeos::GeometryPtr shape;             // one polygon
        const CvectorEntityData* origin = nullptr;  // the input the piece takes its record from
        bool whole = false;                         // the piece is its origin, unchanged
    };

    // Input polygons, numbered from 1 in the order added; `keepFaces` marks the inputs whose
    // pieces are wanted. Inputs that are no polygon are counted and otherwise ignored.
    void AddPolygon(const CvectorEntityData* entity, bool keepFaces);
    // Lines that cut (paths of line entities, outlines of polygon entities); not numbered.
    void AddCutter(const CvectorEntityData* entity);

    // Every face covered by a kept input, faces of the same inputs that share an edge joined:
    // pieces in the order of their source lists (compared as sequences), and of one source list
    // largest first. An input that no other input or cutter touches comes back whole.
    std::vector<Piece> Overlay() const;
    // Each kept input cut by the cutters alone (the other inputs do not cut it): its pieces,
    // largest first, each with that input as its only source.
    std::vector<Piece> CutByLines() const;

    // Puts the pieces into the (new) package `out`, linked to one polygon layer that copies the
    // layer of the first piece's origin in `firstPackage`; each entity takes its origin's handle
    // and attributes and its source list, and a whole piece its origin's vertices as they were.
    static void Store(std::vector<Piece>& pieces, const CvectorPackageData* firstPackage,
                      CvectorPackageData* out);

private:
    struct Input {
        int number;
        const CvectorEntityData* entity;
        CEntityGeos::GeometryPtr polygon;
        bool keep;
    };

    std::vector<Piece> facesOf(const std::vector<const GEOSGeometry*>& lines,
                               const std::vector<const Input*>& inputs) const;

    std::vector<Input> mInputs;
    std::vector<CEntityGeos::GeometryPtr> mCutters;
    int mCount = 0;
};

}  // namespace TMObjects
