#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <vector>

#include "tlgeo/TLGeoPoint.h"
#include "tlgeo/TLGeoPolygon.h"
#include "tlgeo/TLGeoPolyline.h"

using namespace TMObjects;

namespace {

// Under the Itanium C++ ABI a pointer to a virtual member function holds 1 + the byte offset of
// its slot in the virtual table. The destructor takes slots 0 and 1.
template <class MemberPointer>
long slotOf(MemberPointer member) {
    std::ptrdiff_t word = 0;
    static_assert(sizeof member >= sizeof word);
    std::memcpy(&word, &member, sizeof word);
    return long((word - 1) / std::ptrdiff_t(sizeof(void*)));
}

std::vector<long> consecutiveFrom(long first, std::size_t count) {
    std::vector<long> slots;
    for (std::size_t i = 0; i < count; ++i) slots.push_back(first + long(i));
    return slots;
}

// The base table, destructor to HitTest: slots 2 to 31.
template <class G>
std::vector<long> baseSlots() {
    using LabelXY = void (G::*)(double&, double&);
    using LabelPoint = TLPoint (G::*)();
    return {
        slotOf(&G::Ptr),
        slotOf(&G::GetType),
        slotOf(&G::GetDimension),
        slotOf(&G::IsEmpty),
        slotOf(&G::IsValid),
        slotOf(&G::GetArea),
        slotOf(&G::GetLength),
        slotOf(&G::Centroid),
        slotOf(static_cast<LabelXY>(&G::LabelPoint)),
        slotOf(static_cast<LabelPoint>(&G::LabelPoint)),
        slotOf(&G::GetBound),
        slotOf(&G::Clone),
        slotOf(&G::GetRawPoints),
        slotOf(&G::UpdateRawPoints),
        slotOf(&G::Buffer),
        slotOf(&G::Clip),
        slotOf(&G::Difference),
        slotOf(&G::Intersect),
        slotOf(&G::Union),
        slotOf(&G::Simplify),
        slotOf(&G::Boundary),
        slotOf(&G::Contains),
        slotOf(&G::Crosses),
        slotOf(&G::Disjoint),
        slotOf(&G::Equals),
        slotOf(&G::Overlaps),
        slotOf(&G::Touches),
        slotOf(&G::Within),
        slotOf(&G::Relation),
        slotOf(&G::HitTest),
    };
}

template <class G>
std::vector<long> multiPartSlots() {
    std::vector<long> slots = baseSlots<G>();
    for (long slot :
         {slotOf(&G::AddRawPoints), slotOf(&G::SetRawPointsZValue), slotOf(&G::GetRawPointsZValue),
          slotOf(&G::get_HasZ), slotOf(&G::put_HasZ), slotOf(&G::Put_Z)})
        slots.push_back(slot);
    return slots;
}

}  // namespace

TEST(VirtualOrder, GeometryTablesRunInTheirFixedOrder) {
    EXPECT_EQ(baseSlots<TLGeometry>(), consecutiveFrom(2, 30));
    EXPECT_EQ(multiPartSlots<TLGeoPolyline>(), consecutiveFrom(2, 36));
    EXPECT_EQ(multiPartSlots<TLGeoPolygon>(), consecutiveFrom(2, 36));

    std::vector<long> point = baseSlots<TLGeoPoint>();
    for (long slot :
         {slotOf(&TLGeoPoint::get_HasZ), slotOf(&TLGeoPoint::put_HasZ), slotOf(&TLGeoPoint::Put_Z)})
        point.push_back(slot);
    EXPECT_EQ(point, consecutiveFrom(2, 33));
}
