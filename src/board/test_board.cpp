#include "board/test_board.h"

#include "board/canvas.h"

namespace orv {

CTestBoard::CTestBoard(const CfgVideo& mode, EPlayoutClock clock) : m_eClock(clock) {
    ApplyVideoMode(m_Record, mode);
    Open();
}

CTestBoard::~CTestBoard() {
    Close();
}

void CTestBoard::Open() {
    if (!AllocateCanvas()) return;
    m_bOpened = 1;
    m_nObserver = m_Pipeline.AddFrameObserver(
        [this](const uint32_t* frame, const CfgVideo& format, int level) {
            std::lock_guard lock(m_mutex);
            m_LastFrame.resize(static_cast<size_t>(format.nWidth) * format.nHeight);
            CopyWholeFrame(m_LastFrame.data(), frame, format.nWidth, format.nHeight);
            if (m_hook) m_hook(frame, format, level);
        });
    m_Pipeline.OpenWith(m_pCanvas, &m_Record, m_eClock);
}

void CTestBoard::Close() {
    if (m_bOpened) {
        m_Pipeline.Close();
        m_Pipeline.RemoveFrameObserver(m_nObserver);
        m_bOpened = 0;
    }
    FreeCanvas();
}

void CTestBoard::SetKeyLevel(int level) {
    CCanvasBoard::SetKeyLevel(level);
    std::lock_guard lock(m_mutex);
    m_KeyLevels.push_back(level);
}

bool CTestBoard::AdvanceFrame(std::chrono::milliseconds timeout) {
    if (!WaitForWaiter(timeout)) return false;
    m_Pipeline.Tick();
    return true;
}

bool CTestBoard::WaitForWaiter(std::chrono::milliseconds timeout) {
    return m_Pipeline.SyncEvent().WaitForWaiter(timeout);
}

std::vector<uint32_t> CTestBoard::LastFrame() const {
    std::lock_guard lock(m_mutex);
    return m_LastFrame;
}

std::vector<int> CTestBoard::KeyLevels() const {
    std::lock_guard lock(m_mutex);
    return m_KeyLevels;
}

std::vector<uint32_t> CTestBoard::View() {
    int x = 0, y = 0;
    GetOrigin(x, y);
    std::vector<uint32_t> view(static_cast<size_t>(m_Record.nWidth) * m_Record.nHeight);
    auto lock = m_Pipeline.LockCanvas();
    CopyFrame(view.data(), {m_pCanvas, x, y, m_Record.nWidth, m_Record.nHeight});
    return view;
}

void CTestBoard::SetFrameHook(FrameHook hook) {
    std::lock_guard lock(m_mutex);
    m_hook = std::move(hook);
}

}  // namespace orv
