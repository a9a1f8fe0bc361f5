#include "plot/TLCmdArrowHelper.h"

#include <algorithm>
#include <cmath>

namespace TMObjects {

namespace {

constexpr double kPi = 3.14159265358979323846;
// Three quarters of a turn: with it getThirdPoint stands at right angles to a segment.
constexpr double kRightAngleTurn = 4.71238898038469;
constexpr double kSixtyDegrees = 1.0471975511965976;

const TLString kLeft("left");

// Sampling steps of the curves; the loops run while 1.0 >= t, which in double arithmetic gives
// 100 Bezier samples (t = 0 to 0.99) and 20 B-spline samples a span (t = 0 to 0.95).
constexpr double kBezierStep = 0.01;
constexpr double kBSplineStep = 0.05;

// Proportions of the wide arrows, of the length of their spine.
constexpr double kWideHeadHeight = 0.15;
constexpr double kWideHeadWidth = 0.4;
constexpr double kWideNeckHeight = 0.75;
constexpr double kWideNeckWidth = 0.15;
constexpr double kWideSwallowDepth = 0.0225;

// x to a whole power by repeated squaring; a power of 0 gives 1.0.
double wholePower(double x, int power) {
    double result = 1.0;
    while (power > 0) {
        if (power & 1) result *= x;
        x *= x;
        power >>= 1;
    }
    return result;
}

// Neck, then the body points of one side from the head back to the tail, then the tail corner.
// `body` holds the left points in its first half and the right ones in its second.
void edgeFromNeck(const TLPoint& neck, const std::vector<TLPoint>& body, bool leftSide,
                  const TLPoint& tailCorner, std::vector<TLPoint>& edge) {
    const std::size_t half = body.size() / 2;
    const std::size_t first = leftSide ? 0 : half;
    const std::size_t last = leftSide ? half : body.size();
    edge.push_back(neck);
    for (std::size_t i = last; i > first; --i) edge.push_back(body[i - 1]);
    edge.push_back(tailCorner);
}

}  // namespace

// ---- measures ----

double TLCmdArrowHelper::Distance(const TLPoint& a, const TLPoint& b) {
    return std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y));
}

void TLCmdArrowHelper::getMidPoint(const TLPoint& a, const TLPoint& b, TLPoint& out) {
    out = TLPoint((a.x + b.x) / 2.0, (a.y + b.y) / 2.0);
}

double TLCmdArrowHelper::wholeDistance(const std::vector<TLPoint>& points) {
    double length = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i) length += Distance(points[i - 1], points[i]);
    return length;
}

double TLCmdArrowHelper::getBaseLength(const std::vector<TLPoint>& points) {
    return wholeDistance(points);
}

// ---- angles and constructed points ----

// Worked out quadrant by quadrant from the arcsine rather than by atan2: the two differ on the
// boundaries (a direction straight along +X comes out as 2 pi here, not 0).
double TLCmdArrowHelper::getAzimuthAngle(const TLPoint& start, const TLPoint& end) {
    const double a = std::asin(std::fabs(end.y - start.y) / Distance(start, end));
    if (end.y >= start.y && end.x >= start.x) return a + kPi;
    if (end.y >= start.y && start.x > end.x) return 2 * kPi - a;
    if (start.y > end.y && start.x > end.x) return a;
    if (start.y > end.y && end.x >= start.x) return kPi - a;
    return a;  // only NaN coordinates get here
}

double TLCmdArrowHelper::getAngleOfThreePoints(const TLPoint& a, const TLPoint& b,
                                               const TLPoint& c) {
    const double angle = getAzimuthAngle(b, a) - getAzimuthAngle(b, c);
    return angle < 0 ? angle + 2 * kPi : angle;
}

void TLCmdArrowHelper::getThirdPoint(const TLPoint& start, const TLPoint& end, double angle,
                                     double distance, const TLString& side, TLPoint& out) {
    const double azimuth = getAzimuthAngle(start, end);
    const double alpha = side == kLeft ? azimuth + angle : azimuth - angle;
    out = TLPoint(end.x + std::cos(alpha) * distance, end.y + std::sin(alpha) * distance);
}

void TLCmdArrowHelper::getThirdEgXY(const TLPoint& a, const TLPoint& b, TLPoint& out) {
    const double t = std::atan((b.y - a.y) / (b.x - a.x)) + kSixtyDegrees;
    const double d = Distance(a, b);
    if (b.x >= a.x)
        out = TLPoint(a.x + std::cos(t) * d, a.y + std::sin(t) * d);
    else
        out = TLPoint(a.x - std::cos(t) * d, a.y - std::sin(t) * d);
}

// ---- smoothing ----

double TLCmdArrowHelper::getFactorial(double n) {
    if (n <= 1) return 1.0;
    if (n == 2) return 2.0;
    if (n == 3) return 6.0;
    if (n == 4) return 24.0;
    if (n == 5) return 120.0;
    double product = 1.0;
    for (double i = 1.0; i <= n; i += 1.0) product *= i;
    return product;
}

double TLCmdArrowHelper::getBinomialFactor(double n, double i) {
    return getFactorial(n) / (getFactorial(n - i) * getFactorial(i));
}

void TLCmdArrowHelper::getBezierPoints(const std::vector<TLPoint>& in, std::vector<TLPoint>& out) {
    if (in.size() <= 2) {
        out.insert(out.end(), in.begin(), in.end());
        return;
    }
    const int m = int(in.size()) - 1;
    for (double t = 0.0; 1.0 >= t; t += kBezierStep) {
        TLPoint sample(0.0, 0.0);
        for (int i = 0; i <= m; ++i) {
            const double factor =
                getBinomialFactor(m, i) * wholePower(t, i) * wholePower(1.0 - t, m - i);
            sample.x += factor * in[i].x;
            sample.y += factor * in[i].y;
        }
        out.push_back(sample);
    }
    out.push_back(in.back());
}

double TLCmdArrowHelper::getQuadricBSplineFactor(double k, double t) {
    if (k == 0) return (t - 1) * (t - 1) / 2;
    if (k == 1) return (2 * t - 2 * t * t + 1) / 2;
    if (k == 2) return t * t / 2;
    return 0.0;
}

double TLCmdArrowHelper::getBSplineFFactor(double k, double n, double t) {
    if (n == 2) return getQuadricBSplineFactor(k, t);
    if (n - k < 0) return 0.0;
    double sum = 0.0;
    for (double j = 0; j <= n - k; j += 1.0) {
        const double sign = std::fmod(j, 2.0) == 0 ? 1.0 : -1.0;
        sum += sign * getBinomialFactor(n + 1, j) * std::pow(t + n - k - j, n);
    }
    return sum / getFactorial(n);
}

void TLCmdArrowHelper::getBSplinePoints(const std::vector<TLPoint>& in, int degree,
                                        std::vector<TLPoint>& out) {
    const int n = int(in.size());
    if (n < 3 || n <= degree) {
        out.insert(out.end(), in.begin(), in.end());
        return;
    }
    out.push_back(in.front());
    for (int i = 0; i <= n - degree - 1; ++i) {
        for (double t = 0.0; 1.0 >= t; t += kBSplineStep) {
            TLPoint sample(0.0, 0.0);
            for (int j = 0; j <= degree; ++j) {
                const double factor = getBSplineFFactor(j, degree, t);
                sample.x += factor * in[i + j].x;
                sample.y += factor * in[i + j].y;
            }
            out.push_back(sample);
        }
    }
    out.push_back(in.back());
}

void TLCmdArrowHelper::getAdvancedBezierPoints(std::vector<TLPoint>& points,
                                               std::vector<TLPoint>& out) {
    const std::size_t n = points.size();
    points.push_back(points.at(0));
    std::vector<TLPoint> mids(n);
    for (std::size_t i = 0; i < n; ++i) getMidPoint(points[i], points[i + 1], mids[i]);
    mids.push_back(mids.at(0));
    points.push_back(points.at(1));

    // Each input point gets an anchor on the line of its two neighbouring midpoints, dividing
    // it as the two segments at the point divide their sum.
    std::vector<TLPoint> anchors(n);
    for (std::size_t i = 1; i <= n; ++i) {
        const double d1 = Distance(points[i - 1], points[i]);
        const double d2 = Distance(points[i], points[i + 1]);
        const double d3 = Distance(mids[i - 1], mids[i]);
        getThirdPoint(mids[i], mids[i - 1], 0, d3 * d1 / (d1 + d2), kLeft, anchors[i - 1]);
    }

    // The midpoint line moved onto its point gives the two handles about that point.
    std::vector<TLPoint> controls;
    for (std::size_t i = 0; i < n; ++i) {
        const double dx = points[i + 1].x - anchors[i].x;
        const double dy = points[i + 1].y - anchors[i].y;
        controls.emplace_back(mids[i].x + dx, mids[i].y + dy);
        controls.push_back(points[i + 1]);
        controls.emplace_back(mids[i + 1].x + dx, mids[i + 1].y + dy);
    }
    if (controls.size() < 2) return;
    for (std::size_t s = 1, e = 5; s < controls.size(); s += 3, e += 3) {
        const std::vector<TLPoint> span(controls.begin() + s,
                                        controls.begin() + std::min(e, controls.size()));
        getBezierPoints(span, out);
    }
}

// ---- arrows ----

void TLCmdArrowHelper::getArrowHeadPoints(const std::vector<TLPoint>& points,
                                          double headHeightFactor, double headWidthFactor,
                                          double neckHeightFactor, double neckWidthFactor,
                                          std::vector<TLPoint>& out) {
    const double length = wholeDistance(points);
    double headHeight = length * headHeightFactor;
    // Both widths follow the full height, even where the height is cut down below.
    const double headWidth = length * headHeightFactor * headWidthFactor;
    const double neckWidth = headHeight * neckWidthFactor;
    const TLPoint& tip = points.at(points.size() - 1);
    const TLPoint& previous = points.at(points.size() - 2);
    headHeight = std::min(headHeight, Distance(tip, previous));
    const double neckHeight = headHeight * neckHeightFactor;

    TLPoint headEnd, neckEnd;
    getThirdPoint(previous, tip, 0, headHeight, kLeft, headEnd);
    getThirdPoint(previous, tip, 0, neckHeight, kLeft, neckEnd);
    // Travelling back from the tip, the right-hand turn is the arrow's left.
    TLPoint headLeft, neckLeft, headRight, neckRight;
    getThirdPoint(tip, headEnd, kRightAngleTurn, headWidth, "right", headLeft);
    getThirdPoint(tip, neckEnd, kRightAngleTurn, neckWidth, "right", neckLeft);
    getThirdPoint(tip, headEnd, kRightAngleTurn, headWidth, kLeft, headRight);
    getThirdPoint(tip, neckEnd, kRightAngleTurn, neckWidth, kLeft, neckRight);
    out.insert(out.end(), {neckLeft, headLeft, tip, headRight, neckRight});
}

void TLCmdArrowHelper::getArrowBodyPoints(const std::vector<TLPoint>& points,
                                          const TLPoint& neckLeft, const TLPoint& neckRight,
                                          double tailWidthFactor, double leftFactor,
                                          double rightFactor, std::vector<TLPoint>& out) {
    const double length = wholeDistance(points);
    const double tailWidth = length * tailWidthFactor;
    const double widthDifference = tailWidth - Distance(neckLeft, neckRight) * 0.5;
    double run = 0.0;
    std::vector<TLPoint> lefts, rights;
    for (std::size_t i = 1; i + 1 < points.size(); ++i) {
        const double half = getAngleOfThreePoints(points[i - 1], points[i], points[i + 1]) * 0.5;
        run += Distance(points[i - 1], points[i]);
        // The half-width narrows linearly along the line; dividing by sin(half) keeps it true
        // across the bend.
        const double width = (tailWidth - run / length * widthDifference) / std::sin(half);
        TLPoint left, right;
        getThirdPoint(points[i - 1], points[i], half, width * leftFactor, "right", left);
        getThirdPoint(points[i - 1], points[i], kPi - half, width * rightFactor, kLeft, right);
        lefts.push_back(left);
        rights.push_back(right);
    }
    out.insert(out.end(), lefts.begin(), lefts.end());
    out.insert(out.end(), rights.begin(), rights.end());
}

void TLCmdArrowHelper::getArrowTailPoints(const std::vector<TLPoint>& points,
                                          double tailWidthFactor, bool hasSwallowTail,
                                          double swallowTailFactor, std::vector<TLPoint>& out) {
    const double width = wholeDistance(points) * tailWidthFactor;
    const TLPoint& first = points.at(0);
    const TLPoint& second = points.at(1);
    TLPoint tailLeft, tailRight;
    getThirdPoint(second, first, kRightAngleTurn, width, "right", tailLeft);
    getThirdPoint(second, first, kRightAngleTurn, width, kLeft, tailRight);
    out.push_back(tailLeft);
    if (hasSwallowTail) {
        TLPoint swallowPoint;
        getThirdPoint(second, first, 0, width * swallowTailFactor, kLeft, swallowPoint);
        out.push_back(swallowPoint);
    }
    out.push_back(tailRight);
}

void TLCmdArrowHelper::getArrowPlot(const std::vector<TLPoint>& points, bool hasSwallowTail,
                                    double swallowTailFactor, const TLString& fitMode,
                                    double headHeightFactor, double headWidthFactor,
                                    double neckHeightFactor, double neckWidthFactor,
                                    double tailWidthFactor, std::vector<TLPoint>& out) {
    std::vector<TLPoint> head, body, tail;
    getArrowHeadPoints(points, headHeightFactor, headWidthFactor, neckHeightFactor, neckWidthFactor,
                       head);
    getArrowBodyPoints(points, head[0], head[4], tailWidthFactor, 1.0, 1.0, body);
    getArrowTailPoints(points, tailWidthFactor, hasSwallowTail, swallowTailFactor, tail);
    const bool swallowed = tail.size() == 3;

    std::vector<TLPoint> leftEdge, rightEdge;
    edgeFromNeck(head[0], body, true, tail.front(), leftEdge);
    edgeFromNeck(head[4], body, false, tail.back(), rightEdge);

    std::vector<TLPoint> left, right;
    if (fitMode == TLString("useBezierFit")) {
        getBezierPoints(leftEdge, left);
        getBezierPoints(rightEdge, right);
    } else {
        getBSplinePoints(leftEdge, 2, left);
        getBSplinePoints(rightEdge, 2, right);
    }
    if (swallowed) {
        left.push_back(tail[1]);
        right.push_back(tail[1]);
    }
    out.insert(out.end(), left.rbegin(), left.rend());
    out.insert(out.end(), head.begin(), head.end());
    out.insert(out.end(), right.begin(), right.end());
}

void TLCmdArrowHelper::wideArrowParts(const std::vector<TLPoint>& points,
                                      std::vector<TLPoint>& spine, std::vector<TLPoint>& head,
                                      std::vector<TLPoint>& leftEdge,
                                      std::vector<TLPoint>& rightEdge) {
    const TLPoint& leftCorner = points[0];
    const TLPoint& rightCorner = points[1];
    TLPoint mid;
    getMidPoint(leftCorner, rightCorner, mid);
    spine.push_back(mid);
    spine.insert(spine.end(), points.begin() + 2, points.end());

    getArrowHeadPoints(spine, kWideHeadHeight, kWideHeadWidth, kWideNeckHeight, kWideNeckWidth,
                       head);
    // The body starts exactly as wide as the two corners are apart.
    const double tailWidthFactor = Distance(leftCorner, rightCorner) * 0.5 / wholeDistance(spine);
    std::vector<TLPoint> body;
    getArrowBodyPoints(spine, head[0], head[4], tailWidthFactor, 1.0, 1.0, body);

    std::vector<TLPoint> left, right;
    edgeFromNeck(head[0], body, true, leftCorner, left);
    edgeFromNeck(head[4], body, false, rightCorner, right);
    getBSplinePoints(left, 2, leftEdge);
    getBSplinePoints(right, 2, rightEdge);
}

void TLCmdArrowHelper::createWideStraightArrow(std::vector<TLPoint> points,
                                               std::vector<TLPoint>& out) {
    if (points.size() < 3) return;
    std::vector<TLPoint> spine, head, left, right;
    wideArrowParts(points, spine, head, left, right);
    const std::size_t start = out.size();
    out.insert(out.end(), left.rbegin(), left.rend());
    out.insert(out.end(), head.begin(), head.end());
    out.insert(out.end(), right.begin(), right.end());
    out.push_back(out[start]);
}

void TLCmdArrowHelper::createWideSwallowArrow(std::vector<TLPoint> points,
                                              std::vector<TLPoint>& out) {
    if (points.size() < 3) return;
    std::vector<TLPoint> spine, head, left, right;
    wideArrowParts(points, spine, head, left, right);
    TLPoint swallowPoint;
    getThirdPoint(spine[1], spine[0], 0, wholeDistance(spine) * kWideSwallowDepth, kLeft,
                  swallowPoint);
    const std::size_t start = out.size();
    out.insert(out.end(), left.rbegin(), left.rend());
    out.insert(out.end(), head.begin(), head.end());
    out.insert(out.end(), right.begin(), right.end());
    out.push_back(swallowPoint);
    out.push_back(out[start]);
}

// ---- flags ----

double TLCmdArrowHelper::poleInnerX(const TLPoint& middle, const TLPoint& farEnd, double t) {
    return farEnd.x > middle.x ? middle.x + t : middle.x - t;
}

void TLCmdArrowHelper::getTriangelFlagPoints(TLPoint start, TLPoint end,
                                             std::vector<TLPoint>& out) {
    if (start.x == end.x || start.y == end.y) return;
    out.clear();
    const TLPoint foot(start.x, end.y);
    TLPoint middle;
    getMidPoint(start, foot, middle);
    const TLPoint tip(end.x, middle.y);
    const double innerX = poleInnerX(middle, tip, Distance(middle, tip) / 20);
    out.insert(out.end(),
               {foot, start, tip, TLPoint(innerX, middle.y), TLPoint(innerX, foot.y), foot});
}

void TLCmdArrowHelper::getStraightFlagPoints(TLPoint start, TLPoint end,
                                             std::vector<TLPoint>& out) {
    if (start.x == end.x || start.y == end.y) return;
    out.clear();
    const TLPoint foot(start.x, end.y);
    TLPoint middle;
    getMidPoint(start, foot, middle);
    const TLPoint farMiddle(end.x, middle.y);
    const TLPoint farTop(end.x, start.y);
    const double innerX = poleInnerX(middle, farMiddle, Distance(middle, farMiddle) / 20);
    out.insert(out.end(), {foot, start, farTop, farMiddle, TLPoint(innerX, middle.y),
                           TLPoint(innerX, foot.y), foot});
}

void TLCmdArrowHelper::wavingEdge(const TLPoint& from, const TLPoint& to, double f, double h,
                                  std::vector<TLPoint>& out) {
    TLPoint quarter, threeQuarters, first, second;
    getThirdPoint(to, from, 0, f * 0.25, kLeft, quarter);
    getThirdPoint(from, quarter, kRightAngleTurn, h, "right", first);
    getThirdPoint(to, from, 0, f * 0.25 * 3.0, kLeft, threeQuarters);
    getThirdPoint(from, threeQuarters, kRightAngleTurn, h, kLeft, second);
    getBezierPoints({from, first, second, to}, out);
}

void TLCmdArrowHelper::getCurveFlagPoints(TLPoint start, TLPoint end, std::vector<TLPoint>& out) {
    if (start.x == end.x || start.y == end.y) return;
    out.clear();
    const TLPoint foot(start.x, end.y);
    TLPoint middle;
    getMidPoint(start, foot, middle);
    const TLPoint farMiddle(end.x, middle.y);
    const TLPoint farTop(end.x, start.y);
    const double h = Distance(start, middle) * 0.5;
    const double f = Distance(start, farTop);
    if (h == 0.0 || f == 0.0) return;

    std::vector<TLPoint> upper, lower;
    wavingEdge(start, farTop, f, h, upper);
    wavingEdge(middle, farMiddle, f, h, lower);

    // The pole's inner side starts a tenth of the width in, but ends up at the fourth sample of
    // the lower edge, where the lower edge meets it on the way back.
    double innerX = poleInnerX(middle, farMiddle, Distance(middle, farMiddle) / 10);
    out.push_back(foot);
    out.insert(out.end(), upper.begin(), upper.end());
    for (std::size_t i = lower.size(); i > 3; --i) {
        out.push_back(lower[i - 1]);
        if (i - 1 == 3) innerX = lower[3].x;
    }
    out.insert(out.end(), {TLPoint(innerX, middle.y), TLPoint(innerX, foot.y), foot});
}

}  // namespace TMObjects
