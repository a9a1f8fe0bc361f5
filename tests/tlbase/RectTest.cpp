#include <gtest/gtest.h>

#include "tlbase/TLRect.h"

using TMObjects::TLPoint;
using TMObjects::TLRect;

TEST(TLRect, UnionWithAnEmptyRectangleGivesTheOther) {
    TLRect grown;
    EXPECT_TRUE(grown.IsEmpty());
    EXPECT_EQ(grown.Width(), 0);
    grown.Union(TLRect());
    EXPECT_TRUE(grown.IsEmpty());
    grown.Union(TLRect(1, 3, 2, 5));
    EXPECT_EQ(grown, TLRect(1, 3, 2, 5));
    grown.Union(TLRect());
    EXPECT_EQ(grown, TLRect(1, 3, 2, 5));
    grown.Union(TLRect(-1, 0, 4, 9));
    EXPECT_EQ(grown, TLRect(-1, 3, 2, 9));
    EXPECT_EQ(grown.Width(), 4);
    EXPECT_EQ(grown.Height(), 7);
    // Corners given out of order are put in order.
    EXPECT_EQ(TLRect(3, 1, 5, 2), TLRect(1, 3, 2, 5));
    EXPECT_FALSE(TLRect() == TLRect(0, 0, 0, 0));
}

TEST(TLRect, TheBoundOfOnePointIsNotEmptyButHasNoSize) {
    TLRect bound;
    bound.Union(TLPoint(2, 3));
    EXPECT_FALSE(bound.IsEmpty());
    EXPECT_EQ(bound.Width(), 0);
    EXPECT_EQ(bound.Height(), 0);
    EXPECT_EQ(bound.Center(), TLPoint(2, 3));
    EXPECT_TRUE(bound.PtInRect(TLPoint(2, 3)));
    EXPECT_FALSE(bound.PtInRect(TLPoint(2, 3.0001)));
    bound.Union(TLPoint(4, 3));
    EXPECT_EQ(bound, TLRect(2, 4, 3, 3));
    EXPECT_TRUE(bound.Intersects(TLRect(4, 5, 3, 8)));  // touching edges meet
    EXPECT_FALSE(bound.Intersects(TLRect()));
}

TEST(TLRect, ScaleInflateAndContainment) {
    TLRect r(0, 4, 0, 2);
    EXPECT_TRUE(r.PtInRect(TLPoint(4, 2)));  // edges belong to the rectangle
    EXPECT_FALSE(r.PtInRect(TLPoint(4.5, 1)));
    EXPECT_FALSE(TLRect().PtInRect(TLPoint(0, 0)));

    r.Scale(2, nullptr);
    EXPECT_EQ(r, TLRect(-2, 6, -1, 3));
    const TLPoint origin(0, 0);
    r.Scale(0.5, &origin);
    EXPECT_EQ(r, TLRect(-1, 3, -0.5, 1.5));
    r.Inflate(1);
    EXPECT_EQ(r, TLRect(-2, 4, -1.5, 2.5));
    TLRect empty;
    empty.Scale(2, nullptr);
    empty.Inflate(1);
    EXPECT_TRUE(empty.IsEmpty());
}
