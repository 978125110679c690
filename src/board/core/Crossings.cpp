// The crossings of the line table: Build_Intersections.
//
// Every pair of rows whose bounding boxes meet is tested with Lines_Cross, in
// the order of the rows (i, then j > i), and the crossings go into a table in
// that order until it is full. Pairs whose boxes do not meet cannot cross and
// are never looked at: the rows are sorted along the axis on which fewer boxes
// overlap, and a tree over that order finds, for each row, the rows whose
// extent on that axis meets its own. The work grows with the rows and the
// overlapping pairs, not with the square of the rows: 32,767 parallel lines
// take milliseconds.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "board/core/Viewport.h"

namespace Viewport {

namespace {

// A row's extent on each axis (0 = X, 1 = Y), taken with the same min and max
// of its two ends that the pair test compares.
struct Extent {
    std::array<float, 2> lo, hi;
    // A box with a value that is not a number meets no other box.
    bool Usable() const { return !std::isnan(lo[0]) && !std::isnan(lo[1]) && !std::isnan(hi[0]) && !std::isnan(hi[1]); }
};

Extent ExtentOf(const LineRec& r) {
    return {{std::min(r.StartPt.X, r.EndPt.X), std::min(r.StartPt.Y, r.EndPt.Y)},
            {std::max(r.StartPt.X, r.EndPt.X), std::max(r.StartPt.Y, r.EndPt.Y)}};
}

// The rows in the order of their low end on one axis, with a tree of the
// highest and lowest high end under each node, so that the rows whose extent
// meets [lo, hi] are found without looking at the others.
class AxisIndex {
public:
    AxisIndex(const std::vector<Extent>& ext, const std::vector<uint32_t>& rows, int axis) : axis_(axis) {
        order_ = rows;
        std::sort(order_.begin(), order_.end(),
                  [&](uint32_t a, uint32_t b) { return ext[a].lo[axis] < ext[b].lo[axis]; });
        lo_.reserve(order_.size());
        for (uint32_t r : order_) lo_.push_back(ext[r].lo[axis]);
        while (leaves_ < order_.size()) leaves_ *= 2;
        maxHi_.assign(2 * leaves_, -std::numeric_limits<float>::infinity());
        minHi_.assign(2 * leaves_, std::numeric_limits<float>::infinity());
        for (size_t p = 0; p < order_.size(); ++p) maxHi_[leaves_ + p] = minHi_[leaves_ + p] = ext[order_[p]].hi[axis];
        for (size_t k = leaves_ - 1; k >= 1; --k) {
            maxHi_[k] = std::max(maxHi_[2 * k], maxHi_[2 * k + 1]);
            minHi_[k] = std::min(minHi_[2 * k], minHi_[2 * k + 1]);
        }
    }

    // Pairs of rows whose extents overlap on this axis.
    uint64_t OverlappingPairs(const std::vector<Extent>& ext) const {
        uint64_t n = 0;
        for (size_t p = 0; p < order_.size(); ++p) {
            const auto end = std::upper_bound(lo_.begin(), lo_.end(), ext[order_[p]].hi[axis_]);
            n += static_cast<uint64_t>(end - lo_.begin()) - p - 1;
        }
        return n;
    }

    // The rows whose extent on this axis meets [lo, hi].
    void Meeting(float lo, float hi, std::vector<uint32_t>& out) const {
        const size_t last = static_cast<size_t>(std::upper_bound(lo_.begin(), lo_.end(), hi) - lo_.begin());
        stack_.assign(1, {1, 0, leaves_});
        while (!stack_.empty()) {
            const Node n = stack_.back();
            stack_.pop_back();
            if (n.first >= last || maxHi_[n.k] < lo) continue;
            if (n.end <= last && minHi_[n.k] >= lo) {
                // Every row under this node meets [lo, hi].
                out.insert(out.end(), order_.begin() + static_cast<std::ptrdiff_t>(n.first),
                           order_.begin() + static_cast<std::ptrdiff_t>(std::min(n.end, order_.size())));
                continue;
            }
            const size_t mid = (n.first + n.end) / 2;
            stack_.push_back({2 * n.k + 1, mid, n.end});
            stack_.push_back({2 * n.k, n.first, mid});
        }
    }

private:
    // A node of the tree and the positions [first, end) under it; a leaf
    // always lies wholly inside or outside the search, so it never descends.
    struct Node {
        size_t k, first, end;
    };
    int axis_;
    std::vector<uint32_t> order_;
    std::vector<float> lo_;
    size_t leaves_ = 1;
    std::vector<float> maxHi_, minHi_;
    mutable std::vector<Node> stack_;
};

// Puts row numbers in order: a long list (most rows meet this one) through a
// bit per row, a short one by sorting.
void InRowOrder(std::vector<uint32_t>& rows, std::vector<uint64_t>& marks) {
    if (rows.size() * 16 < marks.size() * 64) {
        std::sort(rows.begin(), rows.end());
        return;
    }
    for (uint32_t r : rows) marks[r / 64] |= uint64_t{1} << (r % 64);
    rows.clear();
    for (size_t w = 0; w < marks.size(); ++w) {
        for (uint64_t bits = marks[w]; bits != 0; bits &= bits - 1)
            rows.push_back(static_cast<uint32_t>(w * 64 + static_cast<size_t>(std::countr_zero(bits))));
        marks[w] = 0;
    }
}

// Searches started so far. Events that a long search lets run may change the
// drawing and start a search of their own; the older one then stops without
// writing, and the table stays the newer one's.
uint64_t searchesStarted = 0;

// Work between two calls of yield: rows, rows looked at and pairs tested.
constexpr uint32_t kWorkPerYield = 1024;

}  // namespace

void Build_Intersections(const LineTable& t, PointTable& result, bool& flag, const YieldFn& yield) {
    const uint64_t search = ++searchesStarted;
    // The ends of each row, copied: a change of the table while events run
    // cannot reach this search.
    std::vector<LineRec> rows(t.size());
    std::vector<Extent> ext(t.size());
    std::vector<uint32_t> usable;
    for (size_t i = 0; i < t.size(); ++i) {
        rows[i].StartPt = t[i].StartPt;
        rows[i].EndPt = t[i].EndPt;
        ext[i] = ExtentOf(rows[i]);
        if (ext[i].Usable()) usable.push_back(static_cast<uint32_t>(i));
    }
    const AxisIndex byX(ext, usable, 0);
    const AxisIndex byY(ext, usable, 1);
    const bool alongX = byX.OverlappingPairs(ext) <= byY.OverlappingPairs(ext);
    const AxisIndex& index = alongX ? byX : byY;
    const int other = alongX ? 1 : 0;

    PointTable found = Layout::BlankPoints();
    bool foundFlag = flag;
    uint32_t work = 0;
    auto pause = [&](uint32_t units) {
        work += units;
        if (work < kWorkPerYield) return true;
        work = 0;
        if (yield) yield();
        return searchesStarted == search;
    };
    std::vector<uint32_t> partners;
    std::vector<uint64_t> marks((t.size() + 63) / 64);
    bool full = false;
    for (uint32_t i : usable) {
        const Extent& a = ext[i];
        const int axis = alongX ? 0 : 1;
        partners.clear();
        index.Meeting(a.lo[axis], a.hi[axis], partners);
        if (!pause(1 + static_cast<uint32_t>(partners.size()))) return;
        // Later rows only, whose boxes meet on the other axis too, in row order.
        std::erase_if(partners, [&](uint32_t j) {
            return j <= i || !(a.hi[other] >= ext[j].lo[other] && ext[j].hi[other] >= a.lo[other]);
        });
        InRowOrder(partners, marks);
        for (uint32_t j : partners) {
            PointRec p;
            if (Lines_Cross(rows[i], rows[j], p)) {
                // A full table takes no more: the rest cannot change it.
                if (!Add_Intersection_Slot(found)) {
                    full = true;
                    break;
                }
                p.Flag = -1;
                found.back() = p;
                foundFlag = true;
            }
            if (!pause(1)) return;
        }
        if (full) break;
    }
    result = std::move(found);
    flag = foundFlag;
}

}  // namespace Viewport
