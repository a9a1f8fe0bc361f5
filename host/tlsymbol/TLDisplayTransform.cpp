#include "tlsymbol/TLDisplayTransform.h"

#include <algorithm>
#include <cmath>

namespace TMObjects {

void TLDisplayTransform::SetDeviceFrame(const TLRect& frame) {
    mDeviceFrame = frame;
    if (!mVisibleBounds.IsEmpty()) SetVisibleBounds(mVisibleBounds);
}

void TLDisplayTransform::SetVisibleBounds(const TLRect& bounds) {
    if (bounds.IsEmpty() || mDeviceFrame.IsEmpty() || mDeviceFrame.Width() <= 0 ||
        mDeviceFrame.Height() <= 0) {
        mVisibleBounds = bounds;
        return;
    }
    const double rx = bounds.Width() / mDeviceFrame.Width();
    const double ry = bounds.Height() / mDeviceFrame.Height();
    // A rectangle of no size (one point) fixes no scale: keep the one shown, only recentre.
    const double resolution = std::max(rx, ry);
    if (resolution > 0 && std::isfinite(resolution)) mResolution = resolution;
    if (mResolution <= 0 || !std::isfinite(mResolution)) mResolution = 1.0;
    const TLPoint c = bounds.Center();
    const double hw = mDeviceFrame.Width() * mResolution / 2;
    const double hh = mDeviceFrame.Height() * mResolution / 2;
    mVisibleBounds = TLRect(c.x - hw, c.x + hw, c.y - hh, c.y + hh);
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
