#include "tlmap/TLSnapReckon.h"

#include <algorithm>
#include <cmath>

#include "tlmap/TLDrawCommonTool.h"

namespace TMObjects {

namespace {

bool allFinite(std::initializer_list<double> values) {
    for (double v : values)
        if (!std::isfinite(v)) return false;
    return true;
}

// The parameter of the foot of (x, y) along the segment: 0 at the first end, 1 at the second.
double footParameter(double x1, double y1, double x2, double y2, double x, double y) {
    const double dx = x2 - x1, dy = y2 - y1;
    return ((x - x1) * dx + (y - y1) * dy) / (dx * dx + dy * dy);
}

}  // namespace

bool TLSnapReckon::getNotLinePlumb(double x1, double y1, double x2, double y2, double x, double y,
                                   double& fx, double& fy) {
    return TLDrawCommonTool::GetNotLinePlumb(x1, y1, x2, y2, x, y, fx, fy);
}

bool TLSnapReckon::getPlumb(double x1, double y1, double x2, double y2, double x, double y,
                            double& fx, double& fy) {
    double footX = 0.0, footY = 0.0;
    if (!TLDrawCommonTool::GetNotLinePlumb(x1, y1, x2, y2, x, y, footX, footY)) return false;
    const double t = footParameter(x1, y1, x2, y2, x, y);
    if (t < 0.0 || t > 1.0) return false;
    fx = footX;
    fy = footY;
    return true;
}

double TLSnapReckon::fangWei(double x1, double y1, double x2, double y2) {
    return TLDrawCommonTool::FangWei(x1, y1, x2, y2);
}

double TLSnapReckon::calcDistance(double x1, double y1, double x2, double y2) {
    return TLDrawCommonTool::Distance(x1, y1, x2, y2);
}

bool TLSnapReckon::ptNearLine(const double& x1, const double& y1, const double& x2,
                              const double& y2, const double& x, const double& y,
                              const double& tolerance, double& fx, double& fy) {
    if (!allFinite({x1, y1, x2, y2, x, y})) return false;
    double nearX = x1, nearY = y1;  // a segment of no length is its one point
    if (x1 != x2 || y1 != y2) {
        const double t = std::clamp(footParameter(x1, y1, x2, y2, x, y), 0.0, 1.0);
        if (t == 1.0) {
            nearX = x2;
            nearY = y2;
        } else if (t > 0.0) {
            TLDrawCommonTool::GetNotLinePlumb(x1, y1, x2, y2, x, y, nearX, nearY);
        }
    }
    fx = nearX;
    fy = nearY;
    return TLDrawCommonTool::Distance(x, y, nearX, nearY) <= tolerance;
}

}  // namespace TMObjects
