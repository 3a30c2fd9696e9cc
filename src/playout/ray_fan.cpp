#include "playout/ray_fan.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

#include "board/canvas.h"

namespace orv {

CRayFan::CRayFan(int height)
    : m_lo(static_cast<size_t>(std::max(height, 0)), INT_MAX),
      m_hi(static_cast<size_t>(std::max(height, 0)), INT_MIN) {}

// A ray joins the open group when it drives along the same axis and its end
// is the next border pixel in the group's direction (or the same pixel, as
// the corners stand twice).
bool CRayFan::Continues(int x, int y, bool yDrives) const {
    if (!m_bOpen || yDrives != m_bYDrives) return false;
    const int dx = x - m_nEndX, dy = y - m_nEndY;
    if (std::abs(dx) + std::abs(dy) > 1) return false;
    if (dx == 0 && dy == 0) return true;
    return (m_nStepX == 0 && m_nStepY == 0) || (dx == m_nStepX && dy == m_nStepY);
}

void CRayFan::AddRay(int cx, int cy, int x, int y) {
    const bool yDrives = std::abs(x - cx) < std::abs(y - cy);
    if (cx != m_nCentreX || cy != m_nCentreY || !Continues(x, y, yDrives)) {
        EndGroup();
        m_bOpen = true;
        m_bYDrives = yDrives;
        m_nCentreX = cx;
        m_nCentreY = cy;
        m_nFirstX = x;
        m_nFirstY = y;
        m_nStepX = m_nStepY = 0;
    } else if (x != m_nEndX || y != m_nEndY) {
        m_nStepX = x - m_nEndX;
        m_nStepY = y - m_nEndY;
    }
    m_nEndX = x;
    m_nEndY = y;
    Extend(x, x, y);
    m_nTop = std::min({m_nTop, cy, y});
    m_nBottom = std::max({m_nBottom, cy, y});
}

void CRayFan::Extend(int from, int to, int y) {
    if (y < 0 || static_cast<size_t>(y) >= m_lo.size()) return;
    int& lo = m_lo[static_cast<size_t>(y)];
    int& hi = m_hi[static_cast<size_t>(y)];
    lo = std::min(lo, from);
    hi = std::max(hi, to);
}

void CRayFan::EndGroup() {
    if (m_bOpen) {
        auto extend = [this](int from, int to, int y) { Extend(from, to, y); };
        ForSlantRows(m_nCentreX, m_nCentreY, m_nFirstX, m_nFirstY, extend);
        ForSlantRows(m_nCentreX, m_nCentreY, m_nEndX, m_nEndY, extend);
    }
    const int last = std::min(m_nBottom, static_cast<int>(m_lo.size()) - 1);
    for (int y = std::max(m_nTop, 0); y <= last; ++y) {
        int& lo = m_lo[static_cast<size_t>(y)];
        int& hi = m_hi[static_cast<size_t>(y)];
        if (lo <= hi) m_runs.push_back({y, lo, hi});
        lo = INT_MAX;
        hi = INT_MIN;
    }
    m_nTop = INT_MAX;
    m_nBottom = INT_MIN;
    m_bOpen = false;
}

}  // namespace orv
