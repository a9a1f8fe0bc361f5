#include "digitize/TLCurveSamples.h"

#include <climits>
#include <cmath>
#include <limits>

#include "tlmap/TLDrawCommonTool.h"

namespace TMObjects {

namespace {

constexpr double kPi = 3.14159265358979323846;
// Below this a circle is refused as a point.
constexpr double kSmallestRadius = 5e-7;
constexpr double kTurn = 6.283185307179586;
// 360 pi: the ellipse's sample count is this over (step * 180).
constexpr double kEllipseSpan = 1130.9733552923256;
// Directions closer than this to a quadrant's start are taken as that start.
constexpr double kAxisSnap = 0.0001;

TLPoint circleVertex(const TLPoint& centre, double radius, double degrees) {
    const double angle = degrees * kPi / 180.0;
    return TLPoint(centre.x - radius * std::cos(angle), centre.y - radius * std::sin(angle));
}

// The count of steps the ellipse loop closes at; none (-1) when the step is no number, as it is
// for two zero semi-axes.
int ellipseClosingIndex(double step) {
    const double count = kEllipseSpan / (step * 180.0);
    if (!(count > double(INT_MIN) && count < double(INT_MAX))) return -1;
    return int(count);
}

}  // namespace

double TLCurveSamples::SinglePrecisionDistance(const TLPoint& a, const TLPoint& b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double square = dx * dx + dy * dy;
    // A square beyond the single-precision range has no float to narrow to: it is infinite.
    if (square > double(std::numeric_limits<float>::max()))
        return std::numeric_limits<double>::infinity();
    return double(std::sqrt(float(square)));
}

bool TLCurveSamples::IsTooSmall(double radius) {
    return kSmallestRadius >= radius;
}

TLCurveSamples::Ring TLCurveSamples::Circle(const TLPoint& centre, double radius) {
    Ring ring;
    ring.reserve(362);
    for (double a = 0.0; 360.0 >= a; a += 1.0) ring.push_back(circleVertex(centre, radius, a));
    ring.push_back(ring.front());
    return ring;
}

TLCurveSamples::Ring TLCurveSamples::CircleFromOneDegree(const TLPoint& centre, double radius) {
    Ring ring;
    ring.reserve(362);
    ring.push_back(circleVertex(centre, radius, 1.0));
    for (double a = 1.0; 360.0 >= a; a += 1.0) ring.push_back(circleVertex(centre, radius, a));
    ring.push_back(ring.front());
    return ring;
}

TLCurveSamples::Ring TLCurveSamples::CircleThrough(const TLPoint& centre, double radius,
                                                   const TLPoint& start) {
    // The turn that puts the first vertex on `start`: the direction from it to the centre.
    const double turn = TLDrawCommonTool::FangWei(start.x, start.y, centre.x, centre.y);
    Ring ring;
    ring.reserve(361);
    for (double a = 0.0; 360.0 >= a; a += 1.0) {
        const double angle = turn - a * kPi / 180.0;
        ring.push_back(
            TLPoint(centre.x - radius * std::cos(angle), centre.y - radius * std::sin(angle)));
    }
    return ring;
}

TLPoint TLCurveSamples::ThreePointCentre(const TLPoint& p1, const TLPoint& p2, const TLPoint& p3) {
    const double k1 = -((p2.x - p1.x) / (p2.y - p1.y));
    const double k2 = -((p3.x - p2.x) / (p3.y - p2.y));
    const double m1x = (p2.x + p1.x) * 0.5;
    const double m1y = (p2.y + p1.y) * 0.5;
    const double m2y = (p2.y + p3.y) * 0.5;
    const double m2x = (p2.x + p3.x) * 0.5;
    const double b = m2y - m1y - m2x * k2;
    const double cx = (m1x * k1 + b) / (k1 - k2);
    const double cy = (m1x * k2 + b) * k1 / (k1 - k2) + m1y;
    return TLPoint(cx, cy);
}

TLCurveSamples::Ring TLCurveSamples::Ellipse(const TLPoint& centre, double a, double b,
                                             double angle) {
    const double larger = a > b ? a : b;
    // Reads like a chord tolerance of R / 5000, but R cancels: one step for every size.
    const double step = 2.0 * std::acos(1.0 - larger / 5000.0 / larger);
    const int closingIndex = ellipseClosingIndex(step);
    const double c = std::cos(angle), s = std::sin(angle);
    Ring ring;
    ring.reserve(159);
    double t = 0.0;
    int i = 0;
    do {
        const double x = std::cos(t) * a + centre.x;
        const double y = std::sin(t) * b + centre.y;
        ring.push_back(TLPoint((x - centre.x) * c - (y - centre.y) * s + centre.x,
                               (x - centre.x) * s + (y - centre.y) * c + centre.y));
        if (i == closingIndex) ring.push_back(ring.front());
        t += step;
        ++i;
    } while (kTurn >= t);
    return ring;
}

double TLCurveSamples::AxisAngle(const TLPoint& centre, const TLPoint& axisEnd) {
    double dx = axisEnd.x - centre.x, dy = axisEnd.y - centre.y;
    if (dx == 0.0) dx = 1e-6;
    if (dy == 0.0) dy = 1e-6;
    double r = std::atan2(std::fabs(dy), std::fabs(dx));
    if (kAxisSnap > r) r = 0.0;
    if (dy > 0 && dx < 0) r = kPi - r;
    if (dy < 0) {
        if (dx < 0) r = r + kPi;
        if (dx > 0) r = 2.0 * kPi - r;
    }
    return r;
}

}  // namespace TMObjects
