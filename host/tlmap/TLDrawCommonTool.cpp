#include "tlmap/TLDrawCommonTool.h"

#include <charconv>
#include <cmath>
#include <string>
#include <system_error>

#include "tlmap/TLMathHelper.h"
#include "tlmap/TLRubberBand.h"

namespace TMObjects {

namespace {

constexpr double kPi = 3.141592653589793;

// Relative size below which a cross or dot product counts as zero: far below any digitizing
// accuracy, far above the rounding of the products themselves.
constexpr double kFlat = 1e-12;

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool allFinite(std::initializer_list<double> values) {
    for (double v : values)
        if (!std::isfinite(v)) return false;
    return true;
}

// The number grammar is plain ASCII; any other character makes the text no number.
bool toAscii(const TLString& text, std::string& out) {
    out.clear();
    for (wchar_t c : text.toStdWString()) {
        if (c <= 0 || c > 0x7f) return false;
        out.push_back(char(c));
    }
    return true;
}

std::size_t skipBlanks(const std::string& s, std::size_t pos) {
    while (pos < s.size() && isBlank(s[pos])) ++pos;
    return pos;
}

std::size_t skipDigits(const std::string& s, std::size_t pos) {
    while (pos < s.size() && isDigit(s[pos])) ++pos;
    return pos;
}

// Reads one decimal number starting at `pos`, with the blanks around it, and leaves `pos` after
// them. The grammar is checked here and not left to the converter, because the converter would
// also take "inf", "nan" and hexadecimal forms, which no surveyor types as a coordinate.
// from_chars is used because it ignores the locale: a German LC_NUMERIC must not turn "1.5"
// into 1.
bool scanNumber(const std::string& s, std::size_t& pos, double& value) {
    std::size_t p = skipBlanks(s, pos);
    // One sign at most; from_chars takes a minus only, so a plus is stepped over.
    std::size_t begin = p;
    if (p < s.size() && (s[p] == '+' || s[p] == '-')) {
        if (s[p] == '+') ++begin;
        ++p;
    }
    const std::size_t intEnd = skipDigits(s, p);
    std::size_t mantissaEnd = intEnd;
    if (mantissaEnd < s.size() && s[mantissaEnd] == '.') mantissaEnd = skipDigits(s, intEnd + 1);
    const bool hasDigits = intEnd > p || mantissaEnd > intEnd + 1;
    if (!hasDigits) return false;
    std::size_t end = mantissaEnd;
    if (end < s.size() && (s[end] == 'e' || s[end] == 'E')) {
        std::size_t e = end + 1;
        if (e < s.size() && (s[e] == '+' || s[e] == '-')) ++e;
        const std::size_t expEnd = skipDigits(s, e);
        if (expEnd == e) return false;
        end = expEnd;
    }
    double v = 0.0;
    const auto result = std::from_chars(s.data() + begin, s.data() + end, v);
    if (result.ec != std::errc() || result.ptr != s.data() + end || !std::isfinite(v)) return false;
    value = v;
    pos = skipBlanks(s, end);
    return true;
}

bool readOneNumber(const TLString& text, double& value) {
    std::string s;
    if (!toAscii(text, s)) return false;
    std::size_t pos = 0;
    double v = 0.0;
    if (!scanNumber(s, pos, v) || pos != s.size()) return false;
    value = v;
    return true;
}

// Index of the first entry of `points` that belongs to the band's last part. A line of several
// parts keeps all of them in one list, and the jump between two parts is no segment that
// could give a direction.
std::size_t firstOfCurrentPart(const TLRubberBand* band, std::size_t count) {
    if (band == nullptr || band->Parts().empty()) return 0;
    const std::size_t inPart = band->Parts().back().size();
    return inPart < count ? count - inPart : 0;
}

}  // namespace

bool TLDrawCommonTool::ReadInputPoint(const TLString& text, double& x, double& y) {
    std::string s;
    if (!toAscii(text, s)) return false;
    std::size_t pos = 0;
    double first = 0.0, second = 0.0;
    if (!scanNumber(s, pos, first)) return false;
    if (pos >= s.size() || s[pos] != ',') return false;
    ++pos;
    if (!scanNumber(s, pos, second) || pos != s.size()) return false;
    x = first;
    y = second;
    return true;
}

bool TLDrawCommonTool::CheckStrIsDouble(const TLString& text) {
    double ignored = 0.0;
    return readOneNumber(text, ignored);
}

bool TLDrawCommonTool::CheckStrIsLength(TLString text) {
    double ignored = 0.0;
    return readOneNumber(text, ignored);
}

void TLDrawCommonTool::GetLenFromStr(TLString text, double& length) {
    double value = 0.0;
    length = readOneNumber(text, value) ? value : 0.0;
}

double TLDrawCommonTool::Distance(double x1, double y1, double x2, double y2) {
    return std::hypot(x2 - x1, y2 - y1);
}

double TLDrawCommonTool::Distance(TLPoint a, TLPoint b) {
    return Distance(a.x, a.y, b.x, b.y);
}

double TLDrawCommonTool::FangWei(double x1, double y1, double x2, double y2) {
    const double dx = x2 - x1, dy = y2 - y1;
    if (dx == 0.0 && dy == 0.0) return 0.0;  // also keeps atan2(-0, -0) = -pi out
    const double a = std::atan2(dy, dx);
    return std::isfinite(a) ? a : 0.0;
}

double TLDrawCommonTool::PointDistanceLine(double x1, double y1, double x2, double y2, double x,
                                           double y) {
    const double dx = x2 - x1, dy = y2 - y1;
    const double length = std::hypot(dx, dy);
    if (length == 0.0) return Distance(x1, y1, x, y);
    return ((x - x1) * dy - (y - y1) * dx) / length;
}

bool TLDrawCommonTool::GetNotLinePlumb(double x1, double y1, double x2, double y2, double x,
                                       double y, double& fx, double& fy) {
    if (!allFinite({x1, y1, x2, y2, x, y})) return false;
    const double dx = x2 - x1, dy = y2 - y1;
    const double squared = dx * dx + dy * dy;
    if (squared == 0.0) return false;
    const double t = ((x - x1) * dx + (y - y1) * dy) / squared;
    // An axis-parallel line keeps its constant coordinate exactly, not through t.
    const double footX = dx == 0.0 ? x1 : x1 + t * dx;
    const double footY = dy == 0.0 ? y1 : y1 + t * dy;
    if (!allFinite({footX, footY})) return false;
    fx = footX;
    fy = footY;
    return true;
}

bool TLDrawCommonTool::CalculateDistancePoint(const double& x1, const double& y1, const double& x2,
                                              const double& y2, const double& length, double& x,
                                              double& y) {
    if (!allFinite({x1, y1, x2, y2, length})) return false;
    const double dx = x2 - x1, dy = y2 - y1;
    const double distance = std::hypot(dx, dy);
    if (distance == 0.0) return false;
    const double px = x1 + length * dx / distance, py = y1 + length * dy / distance;
    if (!allFinite({px, py})) return false;
    x = px;
    y = py;
    return true;
}

bool TLDrawCommonTool::CalculateExtendPoint(TLPoint* a, TLPoint* b, const double& length, double& x,
                                            double& y) {
    if (a == nullptr || b == nullptr) return false;
    if (!allFinite({a->x, a->y, b->x, b->y, length})) return false;
    const double dx = b->x - a->x, dy = b->y - a->y;
    const double distance = std::hypot(dx, dy);
    if (distance == 0.0) return false;
    const double px = b->x + length * dx / distance, py = b->y + length * dy / distance;
    if (!allFinite({px, py})) return false;
    x = px;
    y = py;
    return true;
}

bool TLDrawCommonTool::ChangeLength(TLPoint a, TLPoint b, TLPoint& out, double length) {
    // A segment of no length, or one turned back through its start, is no change of length.
    if (!(length > 0.0)) return false;
    double x = 0.0, y = 0.0;
    if (!CalculateDistancePoint(a.x, a.y, b.x, b.y, length, x, y)) return false;
    out = TLPoint(x, y);
    return true;
}

bool TLDrawCommonTool::CalculateMicroPoint(const double& x1, const double& y1, const double& x2,
                                           const double& y2, const double& angle,
                                           const double& distance, double& x, double& y) {
    if (!allFinite({x1, y1, x2, y2, angle, distance})) return false;
    if (x1 == x2 && y1 == y2) return false;
    // The angle is the one a surveyor reads at the station: clockwise from the back-sight. A
    // click to the left of the line therefore gives less than 180 degrees and one to the right
    // more, which is how the click construction of the line tool measures it too.
    const double direction = FangWei(x2, y2, x1, y1) - angle * kPi / 180.0;
    const double px = x2 + distance * std::cos(direction);
    const double py = y2 + distance * std::sin(direction);
    if (!allFinite({px, py})) return false;
    x = px;
    y = py;
    return true;
}

bool TLDrawCommonTool::CalculateIntersectPoint(const double& ax, const double& ay, const double& bx,
                                               const double& by, const double& cx, const double& cy,
                                               const double& dx, const double& dy, double& x,
                                               double& y) {
    if (!allFinite({ax, ay, bx, by, cx, cy, dx, dy})) return false;
    const double ux = bx - ax, uy = by - ay;  // first line
    const double vx = dx - cx, vy = dy - cy;  // second line
    const double scale = std::hypot(ux, uy) * std::hypot(vx, vy);
    const double cross = ux * vy - uy * vx;
    if (scale == 0.0 || std::fabs(cross) <= kFlat * scale) return false;
    const double t = ((cx - ax) * vy - (cy - ay) * vx) / cross;
    const double px = ax + t * ux, py = ay + t * uy;
    if (!allFinite({px, py})) return false;
    x = px;
    y = py;
    return true;
}

bool TLDrawCommonTool::CalculateSpacePoint(TLRubberBand* band, std::vector<TLPoint> points,
                                           const double& x, const double& y, double& ox,
                                           double& oy) {
    if (!allFinite({x, y})) return false;
    const std::size_t first = firstOfCurrentPart(band, points.size());
    if (points.size() < first + 2) return false;
    const TLPoint last = points.back();
    // A doubled vertex gives no direction; look further back in the same part.
    const TLPoint* previous = nullptr;
    for (std::size_t i = points.size() - 1; i-- > first;) {
        if (points[i] != last) {
            previous = &points[i];
            break;
        }
    }
    if (previous == nullptr) return false;
    const double length = Distance(*previous, last);
    const double ux = (last.x - previous->x) / length, uy = (last.y - previous->y) / length;
    const double tx = x - last.x, ty = y - last.y;
    const double reach = std::hypot(tx, ty);
    const double along = tx * ux + ty * uy;   // the second leg, parallel to the last segment
    const double across = ty * ux - tx * uy;  // the first leg, square to it, positive to the left
    if (!allFinite({ux, uy, along, across}) || reach == 0.0) return false;
    // A target on the line ahead, or square off the last point, needs no corner: adding one
    // would only double a vertex.
    if (std::fabs(across) <= kFlat * reach || std::fabs(along) <= kFlat * reach) return false;
    ox = last.x - across * uy;
    oy = last.y + across * ux;
    return true;
}

void TLDrawCommonTool::ComputePoint(double angle, TLPoint pivot, double x, double y, TLPoint& out) {
    TLMathHelper::RotatePoint(x, y, pivot.x, pivot.y, angle, false);
    out = TLPoint(x, y);
}

void TLDrawCommonTool::GetIntersectPoint(TLPoint a, TLPoint edgePoint, TLPoint c, TLPoint& cornerB,
                                         TLPoint& cornerD) {
    double fx = a.x, fy = a.y;
    if (!GetNotLinePlumb(a.x, a.y, edgePoint.x, edgePoint.y, c.x, c.y, fx, fy)) {
        fx = a.x;
        fy = a.y;
    }
    cornerB = TLPoint(fx, fy);
    cornerD = TLPoint(a.x + (c.x - fx), a.y + (c.y - fy));
}

}  // namespace TMObjects
