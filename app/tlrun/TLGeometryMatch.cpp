#include "TLGeometryMatch.h"

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "tlbase/TLString.h"
#include "tlgeo/TLGeometryWkt.h"

namespace TMObjects {

namespace {

// The WKT of a geometry cut into its numbers and the text between them (kind, parentheses,
// commas), so that the shape is compared exactly and the numbers within the tolerance.
struct Cut {
    std::string shape;
    std::vector<double> numbers;
};

bool startsNumber(const std::string& text, std::size_t at) {
    const char c = text[at];
    if (std::isdigit(static_cast<unsigned char>(c))) return true;
    return (c == '-' || c == '.') && at + 1 < text.size() &&
           (std::isdigit(static_cast<unsigned char>(text[at + 1])) || text[at + 1] == '.');
}

Cut cut(const std::string& wkt) {
    Cut result;
    for (std::size_t at = 0; at < wkt.size();) {
        if (startsNumber(wkt, at)) {
            char* end = nullptr;
            result.numbers.push_back(std::strtod(wkt.c_str() + at, &end));
            at = std::size_t(end - wkt.c_str());
            result.shape += '#';
            continue;
        }
        if (wkt[at] != ' ') result.shape += wkt[at];
        ++at;
    }
    return result;
}

std::string vertexText(const std::vector<double>& numbers, std::size_t first, std::size_t n) {
    std::string text;
    for (std::size_t i = first; i < first + n && i < numbers.size(); ++i) {
        if (!text.empty()) text += " ";
        text += TLString::Number(numbers[i]).toStdString();
    }
    return text;
}

// The expected geometry as the script writes it, in the form the host prints: the kind and the
// parentheses as written, so that a polygon of three rings is not taken for three polygons, nor
// a multilinestring of one path for a linestring. Only multipoints are read and printed anew,
// since "MULTIPOINT (1 2, 3 4)" and "MULTIPOINT ((1 2), (3 4))" are the same text twice.
std::string asWritten(const std::string& wkt, TLGeometry* expected) {
    std::string upper;
    for (char c : wkt) upper += char(std::toupper(static_cast<unsigned char>(c)));
    const std::size_t start = upper.find_first_not_of(' ');
    if (start != std::string::npos && upper.compare(start, 10, "MULTIPOINT") == 0)
        return TLGeometryWkt::ToWkt(expected);
    return upper;
}

}  // namespace

bool TLGeometryMatch::Readable(const std::string& wkt, std::string& error) {
    if (TLGeometryWkt::FromWkt(wkt)) return true;
    error = "the expected geometry \"" + wkt + "\" is no WKT";
    return false;
}

bool TLGeometryMatch::Matches(TLGeometry* actual, const std::string& expectedWkt, double tolerance,
                              std::string& why) {
    return MatchesText(actual ? TLGeometryWkt::ToWkt(actual) : std::string(), expectedWkt,
                       tolerance, why);
}

bool TLGeometryMatch::MatchesText(const std::string& have, const std::string& expectedWkt,
                                  double tolerance, std::string& why) {
    const TLRefPtr<TLGeometry> expected = TLGeometryWkt::FromWkt(expectedWkt);
    if (!expected) {
        why = "the expected geometry \"" + expectedWkt + "\" is no WKT";
        return false;
    }
    const std::string want = asWritten(expectedWkt, expected.get());
    if (have.empty()) {
        why = "expected " + want + ", got no geometry";
        return false;
    }
    const Cut a = cut(have), b = cut(want);
    if (a.shape != b.shape) {
        why = "expected " + want + ", got " + have;
        return false;
    }
    // Coordinates come in pairs (or triples with Z); name the vertex by its first number.
    const std::size_t dimension = have.find(" Z ") != std::string::npos ? 3 : 2;
    for (std::size_t i = 0; i < a.numbers.size(); ++i) {
        if (std::fabs(a.numbers[i] - b.numbers[i]) <= tolerance) continue;
        const std::size_t vertex = i / dimension;
        why = "expected vertex " + std::to_string(vertex + 1) + " at (" +
              vertexText(b.numbers, vertex * dimension, dimension) + ") within " +
              vertexText({tolerance}, 0, 1) + ", got (" +
              vertexText(a.numbers, vertex * dimension, dimension) + ") in " + have;
        return false;
    }
    return true;
}

}  // namespace TMObjects
