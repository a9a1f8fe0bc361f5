#include <gtest/gtest.h>

#include <cmath>

#include "tlsymbol/TLDisplayTransform.h"
#include "tlsymbol/TLViewLimits.h"

namespace TMObjects {
namespace {

void expectRect(const TLRect& r, double xmin, double xmax, double ymin, double ymax) {
    EXPECT_DOUBLE_EQ(r.XMinimum(), xmin);
    EXPECT_DOUBLE_EQ(r.XMaximum(), xmax);
    EXPECT_DOUBLE_EQ(r.YMinimum(), ymin);
    EXPECT_DOUBLE_EQ(r.YMaximum(), ymax);
}

TEST(DisplayTransform, ImageConversionPutsTheTopLeftCornerAtTheFrameOrigin) {
    TLDisplayTransform t;
    t.SetDeviceFrame(TLRect(10, 810, 20, 620));
    t.SetVisibleBounds(TLRect(1000, 1400, 5000, 5300));
    EXPECT_DOUBLE_EQ(t.mResolution, 0.5);

    // x = (X - left) / resolution + frame left; y = (top - Y) / resolution + frame top.
    EXPECT_EQ(t.ToDevice(TLPoint(1000, 5300)), TLPoint(10, 20));
    EXPECT_EQ(t.ToDevice(TLPoint(1400, 5000)), TLPoint(810, 620));
    EXPECT_EQ(t.ToDevice(TLPoint(1100, 5200)), TLPoint(210, 220));

    for (const TLPoint& device : {TLPoint(0, 0), TLPoint(333, 17), TLPoint(-40.5, 900.25)}) {
        const TLPoint back = t.ToDevice(t.ToMap(device));
        EXPECT_NEAR(back.x, device.x, 1e-9);
        EXPECT_NEAR(back.y, device.y, 1e-9);
    }
}

TEST(DisplayTransform, VisibleBoundsShowTheRectangleWholeAndCentred) {
    TLDisplayTransform t;
    t.SetDeviceFrame(TLRect(0, 800, 0, 600));

    // Wider than the frame: x fits exactly, y grows around the centre.
    t.SetVisibleBounds(TLRect(0, 1600, 0, 100));
    EXPECT_DOUBLE_EQ(t.mResolution, 2.0);
    expectRect(t.GetVisibleBounds(), 0, 1600, -550, 650);

    // Taller than the frame: y fits exactly, x grows.
    t.SetVisibleBounds(TLRect(0, 100, 0, 120));
    EXPECT_DOUBLE_EQ(t.mResolution, 0.2);
    expectRect(t.GetVisibleBounds(), -30, 130, 0, 120);

    // A rectangle of no size keeps the scale and only recentres.
    t.SetVisibleBounds(TLRect(500, 500, 300, 300));
    EXPECT_DOUBLE_EQ(t.mResolution, 0.2);
    expectRect(t.GetVisibleBounds(), 420, 580, 240, 360);

    // A new frame keeps what was shown in view.
    t.SetDeviceFrame(TLRect(0, 400, 0, 600));
    EXPECT_DOUBLE_EQ(t.mResolution, 0.4);
    expectRect(t.GetVisibleBounds(), 420, 580, 180, 420);
}

TEST(DisplayTransform, StaysFiniteAndUsableWhateverItIsAsked) {
    TLDisplayTransform t;
    t.SetDeviceFrame(TLRect(0, 800, 0, 600));
    t.SetVisibleBounds(TLRect(0, 800, 0, 600));

    // A typed 1.7976931348623157e308 would span the view past what a double holds.
    const TLRect absurd[] = {TLRect(-1, 0, 0, 1.7976931348623157e308), TLRect(-1e300, 1e300, 0, 1),
                             TLRect(0, 2e15, 0, 1),
                             // Far out, a millimetre leaves neighbouring pixels on one double.
                             TLRect(1e14, 1e14 + 0.001, 0, 0.001)};
    for (const TLRect& bounds : absurd) {
        EXPECT_FALSE(TLCanShow(t, bounds));
        t.SetVisibleBounds(bounds);
        expectRect(t.GetVisibleBounds(), 0, 800, 0, 600);
        EXPECT_DOUBLE_EQ(t.mResolution, 1.0);
    }

    // At the limit the view is still one where every pixel has a map point of its own.
    ASSERT_TRUE(TLCanShow(t, TLRect(-1e15, 1e15, -1, 1)));
    t.SetVisibleBounds(TLRect(-1e15, 1e15, -1, 1));
    const TLPoint left = t.ToMap(TLPoint(0, 300)), next = t.ToMap(TLPoint(1, 300));
    EXPECT_TRUE(std::isfinite(left.x) && std::isfinite(next.x));
    EXPECT_LT(left.x, next.x);
    EXPECT_NEAR(t.ToDevice(t.ToMap(TLPoint(400, 300))).x, 400, 1e-6);
}

}  // namespace
}  // namespace TMObjects
