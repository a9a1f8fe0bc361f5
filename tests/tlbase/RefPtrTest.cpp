#include <gtest/gtest.h>

#include <utility>

#include "tlbase/TLRefBase.h"

using TMObjects::TLRefBase;
using TMObjects::TLRefPtr;

namespace {

// Counts how many objects are alive, so that a test sees exactly when one is deleted.
class Counted : public TLRefBase {
public:
    explicit Counted(int* alive) : mAlive(alive) { ++*mAlive; }
    ~Counted() override { --*mAlive; }

private:
    int* mAlive;
};

class Derived : public Counted {
public:
    using Counted::Counted;
};

}  // namespace

TEST(TLRefPtr, CopiesTakeReferencesAndTheLastOneDeletes) {
    int alive = 0;
    auto* raw = new Counted(&alive);
    EXPECT_EQ(raw->RefCount(), 0);  // new gives a count of zero
    {
        TLRefPtr<Counted> first(raw);
        EXPECT_EQ(raw->RefCount(), 1);
        {
            TLRefPtr<Counted> second = first;
            EXPECT_EQ(raw->RefCount(), 2);
            TLRefPtr<Counted> third;
            third = second;
            EXPECT_EQ(raw->RefCount(), 3);
            third = third;  // self-assignment keeps the count
            EXPECT_EQ(raw->RefCount(), 3);
        }
        EXPECT_EQ(raw->RefCount(), 1);

        TLRefPtr<Counted> moved(std::move(first));
        EXPECT_FALSE(first);
        EXPECT_TRUE(first.IsNull());
        EXPECT_EQ(raw->RefCount(), 1);
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST(TLRefPtr, ResetReassignAndCasts) {
    int alive = 0;
    TLRefPtr<Counted> a(new Counted(&alive));
    TLRefPtr<Counted> b(new Derived(&alive));
    EXPECT_EQ(alive, 2);
    a = b;  // a's old object loses its only reference
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(a, b);
    EXPECT_EQ(b->RefCount(), 2);

    TLRefPtr<Derived> derived = a.dynamicCast<Derived>();
    ASSERT_TRUE(derived);
    EXPECT_EQ(b->RefCount(), 3);
    TLRefPtr<Counted> widened(derived);
    EXPECT_EQ(b->RefCount(), 4);
    EXPECT_FALSE(TLRefPtr<Counted>(new Counted(&alive)).dynamicCast<Derived>());
    EXPECT_EQ(alive, 1);

    widened.reset();
    derived.reset();
    a = nullptr;
    EXPECT_EQ(b->RefCount(), 1);
    b = new Counted(&alive);
    EXPECT_EQ(alive, 1);
    b.reset();
    EXPECT_EQ(alive, 0);
    b.reset();  // resetting an empty pointer is harmless
}

TEST(TLRefBase, ReleaseAnswersWhetherItDeleted) {
    int alive = 0;
    auto* object = new Counted(&alive);
    object->AddRef();
    object->AddRef();
    EXPECT_FALSE(object->Release());
    EXPECT_EQ(alive, 1);
    EXPECT_TRUE(object->Release());
    EXPECT_EQ(alive, 0);
    // A copy of a counted object starts without references of its own.
    Counted original(&alive);
    original.AddRef();
    Counted copy(original);
    EXPECT_EQ(copy.RefCount(), 0);
}
