#pragma once

#include "tlbase/TLPoint.h"
#include "tlbase/TLRect.h"
#include "tlsymbol/TLUnits.h"

namespace TMObjects {

// Maps between map coordinates and device pixels. Device (0, 0) is the top-left corner, which
// shows the map point (visible left, visible top). Tools read the members directly.
class TLDisplayTransform {
public:
    TLDisplayTransform() = default;

    const TLRect& GetDeviceFrame() const { return mDeviceFrame; }
    const TLRect& GetVisibleBounds() const { return mVisibleBounds; }
    // Shows `bounds` whole, centred, in the device frame: the resolution is the larger of the
    // two ratios, and the visible bounds grow on the other axis to fill the frame.
    void SetVisibleBounds(const TLRect& bounds);
    void SetDeviceFrame(const TLRect& frame);
    double GetResolution() const { return mResolution; }
    // Map units per pixel at 96 dots per inch, as a scale denominator (1 : n) for metres.
    double GetScaleRatio() const;
    // A length in map units as pixels.
    double MapDis2Image(const double& distance, TLUnitsType units) const;

    // The image conversion and its inverse.
    TLPoint ToDevice(const TLPoint& map) const;
    TLPoint ToMap(const TLPoint& device) const;

    TLRect mDeviceFrame;
    TLRect mVisibleBounds;
    double mResolution = 1.0;
    int mUnits = 0;
};

}  // namespace TMObjects
