#pragma once
// Rays from one centre to consecutive border pixels, taken exactly as the
// slanted primitive of the board draws them and written as runs along the
// rows.
//
// Drawn ray by ray, a steep ray walks the canvas a whole row at a time,
// which the caches cannot follow, and neighbouring rays draw the same
// pixels near the centre over and over. But consecutive rays to the same
// edge with the same driving axis differ by at most one pixel at each step
// of that axis, and each is a staircase: together they cover, row by row,
// one unbroken run, whose ends lie on the group's first or last ray, or at
// the end of the ray that ends in that row. So only the first and the last
// ray of a group are walked, the others give their end pixel, and each row
// of a group is written once.

#include <array>
#include <climits>
#include <cstddef>
#include <vector>

namespace orv {

class CRayFan {
public:
    explicit CRayFan(int height);

    void AddRay(int cx, int cy, int x, int y);
    // put(x1, x2, y) for every run of the rays added since the last flush.
    template <typename Put>
    void Flush(Put put) {
        EndGroup();
        for (const auto& [y, lo, hi] : m_runs)
            put(lo, hi, y);
        m_runs.clear();
    }

private:
    void EndGroup();
    bool Continues(int x, int y, bool yDrives) const;
    void Extend(int from, int to, int y);

    std::vector<int> m_lo, m_hi;                // each row's extremes in the open group
    int m_nTop = INT_MAX, m_nBottom = INT_MIN;  // the rows the open group touched
    bool m_bOpen = false;
    bool m_bYDrives = false;
    int m_nCentreX = 0, m_nCentreY = 0;
    int m_nFirstX = 0, m_nFirstY = 0;        // the first ray's end
    int m_nEndX = 0, m_nEndY = 0;            // the last ray's end
    int m_nStepX = 0, m_nStepY = 0;          // from one end to the next; 0, 0 at first
    std::vector<std::array<int, 3>> m_runs;  // y, x1, x2
};

}  // namespace orv
