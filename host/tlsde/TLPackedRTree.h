#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace TMObjects {

// A static R-tree packed in one pass: the entries are sorted along a Hilbert curve through their
// centres and grouped sixteen to a node, level by level, in flat arrays with no per-node
// allocation and no child pointers (a node's children follow from its position). Boxes are kept
// as floats rounded outwards, so a box the tree holds always contains the exact one: a search
// may visit an entry that only just misses, never miss one that meets it. Entries are numbered
// in the tree's own order; Build gives each caller's entry the number it ends up with.
class TLPackedRTree {
public:
    struct Box {
        float x0, y0, x1, y1;
    };
    static constexpr int kNodeSize = 16;

    // The smallest float box that contains the exact one.
    static Box Outward(double x0, double y0, double x1, double y1);

    // Packs the boxes; `order` gets, for each position in the tree's order, the index in `boxes`
    // of the entry there.
    void Build(const std::vector<Box>& boxes, std::vector<std::uint32_t>& order);
    std::size_t Size() const { return mCount; }

    // Calls f(position) for every entry whose box meets the closed rectangle.
    template <class F>
    void Search(double x0, double y0, double x1, double y1, F&& f) const {
        if (mCount == 0) return;
        // Compared as floats, the rectangle rounded outwards: an entry it misses then truly
        // misses the exact rectangle.
        const Box q = Outward(x0, y0, x1, y1);
        struct Pending {
            std::size_t node;
            std::size_t level;
        };
        // Depth-first, at most kNodeSize - 1 waiting on each level.
        Pending stack[kNodeSize * 16];
        int top = 0;
        stack[top++] = Pending{mBoxes.size() - 1, mLevelEnds.size() - 1};
        while (top > 0) {
            const Pending at = stack[--top];
            const std::size_t childLevelStart = at.level >= 2 ? mLevelEnds[at.level - 2] : 0;
            const std::size_t first =
                childLevelStart + (at.node - mLevelEnds[at.level - 1]) * kNodeSize;
            const std::size_t end = std::min(first + kNodeSize, mLevelEnds[at.level - 1]);
            for (std::size_t child = first; child < end; ++child) {
                const Box& b = mBoxes[child];
                if (b.x0 > q.x1 || b.x1 < q.x0 || b.y0 > q.y1 || b.y1 < q.y0) continue;
                if (at.level == 1)
                    f(child);
                else
                    stack[top++] = Pending{child, at.level - 1};
            }
        }
    }

private:
    std::size_t mCount = 0;
    // The entries, then each level of nodes up to the root.
    std::vector<Box> mBoxes;
    // Where each level ends in mBoxes: level 0 holds the entries.
    std::vector<std::size_t> mLevelEnds;
};

}  // namespace TMObjects
