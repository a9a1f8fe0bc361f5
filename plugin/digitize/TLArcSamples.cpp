#include "digitize/TLArcSamples.h"

#include <cmath>
#include <utility>

namespace TMObjects {

namespace {

constexpr double kPi = 3.141592653589793;

// A point's cosine against a radius rounded to single precision can overshoot one by that
// rounding; it is held to the cosine's range so that a point due east or west keeps its angle.
// No number stays no number.
double heldCosine(double ratio) {
    if (ratio > 1.0) return 1.0;
    if (ratio < -1.0) return -1.0;
    return ratio;
}

void sweep(TLArcSamples::Path& path, const TLPoint& centre, double radius, double from, double to) {
    for (double a = from; to >= a; a += 1.0)
        path.push_back(TLArcSamples::Vertex(centre, radius, a));
}

}  // namespace

TLPoint TLArcSamples::Vertex(const TLPoint& centre, double radius, double degrees) {
    const double angle = degrees * kPi / 180.0;
    return TLPoint(centre.x + std::cos(angle) * radius, centre.y + std::sin(angle) * radius);
}

double TLArcSamples::AngleOf(const TLPoint& centre, double radius, const TLPoint& p) {
    const double degrees = std::acos(heldCosine((p.x - centre.x) / radius)) * 180.0 / kPi;
    return centre.y > p.y ? 360.0 - degrees : degrees;
}

TLArcSamples::Angles TLArcSamples::ArcAngles(const TLPoint& centre, double radius,
                                             const TLPoint& first, const TLPoint& second,
                                             const TLPoint& third) {
    Angles angles;
    angles.start = AngleOf(centre, radius, first);
    angles.middle = AngleOf(centre, radius, second);
    angles.end = AngleOf(centre, radius, third);
    if (angles.start > angles.end) std::swap(angles.start, angles.end);
    return angles;
}

TLArcSamples::Path TLArcSamples::Arc(const TLPoint& centre, double radius, const Angles& angles,
                                     const TLPoint& first, const TLPoint& third) {
    const double s = angles.start, m = angles.middle, e = angles.end;
    Path path;
    if (s < m && m < e) {
        sweep(path, centre, radius, s, e);
        return path;
    }
    // First and third on opposite sides of the centre's level; NaN fails both tests.
    const double sides = (third.y - centre.y) * (first.y - centre.y);
    const bool wrapped = sides < 0 || (sides >= 0 && (s > m || m > e));
    if (!wrapped) return path;
    sweep(path, centre, radius, e, 360.0);
    // The second run starts at one degree whatever fraction the first ended on.
    sweep(path, centre, radius, 1.0, s);
    return path;
}

TLArcSamples::Path TLArcSamples::Ring(const TLPoint& centre, double radius) {
    Path path;
    path.reserve(361);
    sweep(path, centre, radius, 0.0, 360.0);
    return path;
}

TLArcSamples::Path TLArcSamples::ReversedRing(const TLPoint& centre, double radius) {
    Path path;
    path.reserve(361);
    for (double a = 0.0; 360.0 >= a; a += 1.0) {
        const double angle = a * kPi / 180.0;
        path.push_back(
            TLPoint(centre.x + std::cos(angle) * radius, centre.y - std::sin(angle) * radius));
    }
    return path;
}

}  // namespace TMObjects
