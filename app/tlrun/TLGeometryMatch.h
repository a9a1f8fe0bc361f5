#pragma once

#include <string>

#include "tlgeo/TLGeometry.h"

namespace TMObjects {

// Compares a geometry with an expected one written as WKT: the same kind and parts, and each
// vertex, in order, within a tolerance of the expected one. Kind and parts are compared with the
// text as written against the geometry as the host prints it (TLGeometryWkt::ToWkt): a polygon
// of three rings is no multipolygon of three parts, a hole belongs to the shell it follows, and a
// multilinestring of one path is no linestring. Rings keep their direction, so a ring drawn the
// other way round is a different ring.
class TLGeometryMatch {
public:
    // False with the reason in `why` ("expected ..., got ..."): the kind or the parts differ,
    // or the first vertex that lies too far. The expected text must read as a geometry (see
    // Readable).
    static bool Matches(TLGeometry* actual, const std::string& expectedWkt, double tolerance,
                        std::string& why);
    // The same for a geometry given as WKT, as a data source writes it (an empty text for none).
    static bool MatchesText(const std::string& actualWkt, const std::string& expectedWkt,
                            double tolerance, std::string& why);
    // False with the reason when the text is no WKT the host reads: the script is wrong, not
    // the session.
    static bool Readable(const std::string& wkt, std::string& error);
};

}  // namespace TMObjects
