#include "tlsymbol/TLDisplayTransform.h"

#include <algorithm>
#include <cmath>

#include "tlbase/TLCoordinateLimit.h"
#include "tlsymbol/TLViewLimits.h"

namespace TMObjects {

void TLDisplayTransform::SetDeviceFrame(const TLRect& frame) {
    mDeviceFrame = frame;
    if (!mVisibleBounds.IsEmpty()) SetVisibleBounds(mVisibleBounds);
}

namespace {

bool usableRect(const TLRect& r) {
    return TLUsableCoordinate(r.XMinimum()) && TLUsableCoordinate(r.XMaximum()) &&
           TLUsableCoordinate(r.YMinimum()) && TLUsableCoordinate(r.YMaximum());
}

// Below this many map units per pixel, relative to the size of the coordinates, neighbouring
// pixels fall on the same double and a click can no longer be aimed.
constexpr double kFinestStep = 1e-12;

// Shows `bounds` whole and centred; see SetVisibleBounds.
void show(TLDisplayTransform& t, const TLRect& bounds) {
    const TLRect& frame = t.mDeviceFrame;
    if (bounds.IsEmpty() || frame.IsEmpty() || frame.Width() <= 0 || frame.Height() <= 0) {
        t.mVisibleBounds = bounds;
        return;
    }
    const double rx = bounds.Width() / frame.Width();
    const double ry = bounds.Height() / frame.Height();
    // A rectangle of no size (one point) fixes no scale: keep the one shown, only recentre.
    const double resolution = std::max(rx, ry);
    if (resolution > 0 && std::isfinite(resolution)) t.mResolution = resolution;
    if (t.mResolution <= 0 || !std::isfinite(t.mResolution)) t.mResolution = 1.0;
    const TLPoint c = bounds.Center();
    const double hw = frame.Width() * t.mResolution / 2;
    const double hh = frame.Height() * t.mResolution / 2;
    t.mVisibleBounds = TLRect(c.x - hw, c.x + hw, c.y - hh, c.y + hh);
}

}  // namespace

bool TLCanShow(const TLDisplayTransform& transform, const TLRect& bounds) {
    if (bounds.IsEmpty()) return true;  // a view not set yet
    if (!usableRect(bounds)) return false;
    TLDisplayTransform trial = transform;
    show(trial, bounds);
    const TLRect& shown = trial.mVisibleBounds;
    if (!usableRect(shown) || !(trial.mResolution > 0) || !std::isfinite(trial.mResolution))
        return false;
    const double size = std::max({std::fabs(shown.XMinimum()), std::fabs(shown.XMaximum()),
                                  std::fabs(shown.YMinimum()), std::fabs(shown.YMaximum())});
    return trial.mDeviceFrame.IsEmpty() || trial.mResolution >= size * kFinestStep;
}

void TLDisplayTransform::SetVisibleBounds(const TLRect& bounds) {
    if (TLCanShow(*this, bounds)) show(*this, bounds);
}

double TLDisplayTransform::GetScaleRatio() const {
    // 96 dots per inch, 0.0254 m per inch; map units taken as metres.
    return mResolution * 96.0 / 0.0254;
}

double TLDisplayTransform::MapDis2Image(const double& distance, TLUnitsType) const {
    return mResolution > 0 ? distance / mResolution : distance;
}

TLPoint TLDisplayTransform::ToDevice(const TLPoint& map) const {
    return TLPoint((map.x - mVisibleBounds.XMinimum()) / mResolution + mDeviceFrame.XMinimum(),
                   (mVisibleBounds.YMaximum() - map.y) / mResolution + mDeviceFrame.YMinimum());
}

TLPoint TLDisplayTransform::ToMap(const TLPoint& device) const {
    return TLPoint((device.x - mDeviceFrame.XMinimum()) * mResolution + mVisibleBounds.XMinimum(),
                   mVisibleBounds.YMaximum() - (device.y - mDeviceFrame.YMinimum()) * mResolution);
}

}  // namespace TMObjects
