#include "digitize/TLDigitizeConstruction.h"

#include <algorithm>
#include <cmath>

#include "tlmap/TLDrawCommonTool.h"
#include "tlmap/TLSnapReckon.h"
#include "tlsymbol/TLDisplayTransform.h"

namespace TMObjects {

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kQuarter = 1.5707963267948966;
constexpr double kThreeQuarters = 4.71238898038469;
constexpr double kSixtyDegrees = 1.0471975511965976;
constexpr double kHundredTwentyDegrees = 2.0943951023931953;
// The parallel reference of PY is a fixed 100 map units long: only its direction counts.
constexpr double kParallelReach = 100.0;

}  // namespace

bool TLDigitizeConstruction::VerticalGuideEnd(const TLPoint& a, const TLPoint& b, const TLPoint& m,
                                              TLPoint& end) {
    const double back = TLDrawCommonTool::FangWei(b.x, b.y, a.x, a.y);
    const double toPointer = TLDrawCommonTool::FangWei(b.x, b.y, m.x, m.y);
    const double along = TLDrawCommonTool::FangWei(a.x, a.y, b.x, b.y);

    double turn = std::fabs(back - toPointer);
    if (turn > kPi) turn = 2 * kPi - turn;
    if (turn < kSixtyDegrees || turn > kHundredTwentyDegrees) return false;

    // Square to the segment on the side the pointer is; the wrap-around of the angles past pi
    // flips which quarter turn that is.
    double direction = along + kQuarter;
    if (along > toPointer)
        direction = along - toPointer < kPi ? along - kQuarter : along - kThreeQuarters;
    else if (toPointer > along)
        direction = toPointer - along < kPi ? along + kQuarter : along + kThreeQuarters;

    const double length = TLDrawCommonTool::Distance(b, m);
    end = TLPoint(b.x + length * std::cos(direction), b.y + length * std::sin(direction));
    return true;
}

double TLDigitizeConstruction::MicroTraverseTurn(const TLPoint& a, const TLPoint& b,
                                                 const TLPoint& p) {
    const double ab = TLDrawCommonTool::Distance(a, b);
    const double bp = TLDrawCommonTool::Distance(b, p);
    const double ap = TLDrawCommonTool::Distance(a, p);
    // The angle at the station by the law of cosines. A click on the station itself gives no
    // direction: it counts as a sight back along the line. Rounding may push the cosine of a
    // straight line just past -1 or 1, which acos would turn into NaN.
    double angle = 0.0;
    if (ab > 0 && bp > 0)
        angle = std::acos(std::clamp((bp * bp + ab * ab - ap * ap) / (2 * ab * bp), -1.0, 1.0));
    const double side = (p.y - b.y) * (b.x - a.x) - (p.x - b.x) * (b.y - a.y);
    const double turn = side > 0 ? angle : 2 * kPi - angle;
    return turn * 180 / kPi;
}

TLPoint TLDigitizeConstruction::ParallelThrough(const TLPoint& b, const TLPoint& pickStart,
                                                const TLPoint& pickEnd) {
    const double a = TLDrawCommonTool::FangWei(pickStart.x, pickStart.y, pickEnd.x, pickEnd.y);
    return TLPoint(b.x + kParallelReach * std::cos(a), b.y + kParallelReach * std::sin(a));
}

TLPoint TLDigitizeConstruction::ParallelExtendGuide(const TLPoint& refStart, const TLPoint& refEnd,
                                                    const TLPoint& b, const TLPoint& m) {
    const double a = TLSnapReckon::fangWei(refStart.x, refStart.y, refEnd.x, refEnd.y);
    return TLPoint(m.x, std::tan(a) * (m.x - b.x) + b.y);
}

TLPoint TLDigitizeConstruction::ParallelOffset(const TLPoint& b, const TLPoint& refStart,
                                               const TLPoint& refEnd, double distance) {
    const double a = TLDrawCommonTool::FangWei(refStart.x, refStart.y, refEnd.x, refEnd.y);
    return TLPoint(b.x + distance * std::cos(a), b.y + distance * std::sin(a));
}

TLPoint TLDigitizeConstruction::ImageForm(const TLDisplayTransform& transform, const TLPoint& p) {
    return TLPoint((p.x - transform.mVisibleBounds.XMinimum()) / transform.mResolution +
                       transform.mDeviceFrame.XMinimum(),
                   (transform.mVisibleBounds.YMaximum() - p.y) / transform.mResolution +
                       transform.mDeviceFrame.YMinimum());
}

bool TLDigitizeConstruction::AllZero(const TLPoint& start, const TLPoint& end) {
    return start.x == 0 && start.y == 0 && end.x == 0 && end.y == 0;
}

}  // namespace TMObjects
