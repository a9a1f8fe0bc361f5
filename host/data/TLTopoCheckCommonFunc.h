#pragma once

namespace TMObjects {

class CvectorPackageData;

// Preparations that the topology operations of the data library share.
class TLTopoCheckCommonFunc {
public:
    // Readies a package for an overlay: in every entity, a vertex that repeats the one before it
    // in its path is dropped, empty paths go, polygon rings are put in order (outer rings
    // counter-clockwise, holes clockwise), and the box is computed. False for a null package.
    static bool PreprocessingDataForOverlay(CvectorPackageData* package);
};

}  // namespace TMObjects
