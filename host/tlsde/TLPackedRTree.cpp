#include "tlsde/TLPackedRTree.h"

#include <cmath>
#include <limits>

namespace TMObjects {

namespace {

float down(double v) {
    float f = float(v);
    if (double(f) > v) f = std::nextafter(f, -std::numeric_limits<float>::infinity());
    return f;
}

float up(double v) {
    float f = float(v);
    if (double(f) < v) f = std::nextafter(f, std::numeric_limits<float>::infinity());
    return f;
}

// The position of (x, y), both in [0, 65535], along a Hilbert curve through the 2^16 x 2^16 grid
// (the branch-free construction of the curve by bit interleaving).
std::uint32_t hilbert(std::uint32_t x, std::uint32_t y) {
    std::uint32_t a = x ^ y;
    std::uint32_t b = 0xFFFF ^ a;
    std::uint32_t c = 0xFFFF ^ (x | y);
    std::uint32_t d = x & (y ^ 0xFFFF);
    std::uint32_t A = a | (b >> 1);
    std::uint32_t B = (a >> 1) ^ a;
    std::uint32_t C = ((c >> 1) ^ (b & (d >> 1))) ^ c;
    std::uint32_t D = ((a & (c >> 1)) ^ (d >> 1)) ^ d;

    a = A, b = B, c = C, d = D;
    A = (a & (a >> 2)) ^ (b & (b >> 2));
    B = (a & (b >> 2)) ^ (b & ((a ^ b) >> 2));
    C ^= (a & (c >> 2)) ^ (b & (d >> 2));
    D ^= (b & (c >> 2)) ^ ((a ^ b) & (d >> 2));

    a = A, b = B, c = C, d = D;
    A = (a & (a >> 4)) ^ (b & (b >> 4));
    B = (a & (b >> 4)) ^ (b & ((a ^ b) >> 4));
    C ^= (a & (c >> 4)) ^ (b & (d >> 4));
    D ^= (b & (c >> 4)) ^ ((a ^ b) & (d >> 4));

    a = A, b = B, c = C, d = D;
    C ^= (a & (c >> 8)) ^ (b & (d >> 8));
    D ^= (b & (c >> 8)) ^ ((a ^ b) & (d >> 8));

    a = C ^ (C >> 1);
    b = D ^ (D >> 1);
    std::uint32_t i0 = x ^ y;
    std::uint32_t i1 = b | (0xFFFF ^ (i0 | a));
    auto spread = [](std::uint32_t v) {
        v = (v | (v << 8)) & 0x00FF00FF;
        v = (v | (v << 4)) & 0x0F0F0F0F;
        v = (v | (v << 2)) & 0x33333333;
        return (v | (v << 1)) & 0x55555555;
    };
    return (spread(i1) << 1) | spread(i0);
}

// Where v lies in [lo, lo + span] on a grid of 65536 steps; anything not a number or outside
// goes to an end.
std::uint32_t gridStep(double v, double lo, double span) {
    const double t = span > 0 ? (v - lo) / span * 65535.0 : 0.0;
    if (!(t > 0)) return 0;
    return t >= 65535.0 ? 65535u : std::uint32_t(t);
}

}  // namespace

TLPackedRTree::Box TLPackedRTree::Outward(double x0, double y0, double x1, double y1) {
    return Box{down(x0), down(y0), up(x1), up(y1)};
}

void TLPackedRTree::Build(const std::vector<Box>& boxes, std::vector<std::uint32_t>& order) {
    mCount = boxes.size();
    mLevelEnds.clear();
    mBoxes.clear();
    order.clear();
    if (mCount == 0) return;

    // The levels' sizes first, so that every array is allocated once.
    std::size_t total = mCount, count = mCount;
    mLevelEnds.push_back(total);
    do {
        count = (count + kNodeSize - 1) / kNodeSize;
        total += count;
        mLevelEnds.push_back(total);
    } while (count > 1);

    double x0 = std::numeric_limits<double>::infinity(), y0 = x0, x1 = -x0, y1 = -x0;
    for (const Box& b : boxes) {
        x0 = std::min(x0, double(b.x0)), y0 = std::min(y0, double(b.y0));
        x1 = std::max(x1, double(b.x1)), y1 = std::max(y1, double(b.y1));
    }
    // Hilbert position in the high half, entry in the low half: one sort of plain integers.
    std::vector<std::uint64_t> keys(mCount);
    for (std::size_t i = 0; i < mCount; ++i) {
        const Box& b = boxes[i];
        const double cx = (double(b.x0) + double(b.x1)) / 2, cy = (double(b.y0) + double(b.y1)) / 2;
        keys[i] = std::uint64_t(hilbert(gridStep(cx, x0, x1 - x0), gridStep(cy, y0, y1 - y0)))
                      << 32 |
                  std::uint64_t(i);
    }
    std::sort(keys.begin(), keys.end());

    mBoxes.resize(total);
    order.resize(mCount);
    for (std::size_t i = 0; i < mCount; ++i) {
        order[i] = std::uint32_t(keys[i] & 0xFFFFFFFFu);
        mBoxes[i] = boxes[order[i]];
    }
    // Each node bounds the run of sixteen below it.
    for (std::size_t level = 1; level < mLevelEnds.size(); ++level) {
        const std::size_t childStart = level >= 2 ? mLevelEnds[level - 2] : 0;
        const std::size_t childEnd = mLevelEnds[level - 1];
        std::size_t node = childEnd;
        for (std::size_t first = childStart; first < childEnd; first += kNodeSize, ++node) {
            Box bound = mBoxes[first];
            for (std::size_t c = first + 1; c < std::min(first + kNodeSize, childEnd); ++c) {
                const Box& b = mBoxes[c];
                bound.x0 = std::min(bound.x0, b.x0), bound.y0 = std::min(bound.y0, b.y0);
                bound.x1 = std::max(bound.x1, b.x1), bound.y1 = std::max(bound.y1, b.y1);
            }
            mBoxes[node] = bound;
        }
    }
}

}  // namespace TMObjects
