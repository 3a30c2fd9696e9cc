#include "board/gboard.h"

#include "board/canvas_board.h"

namespace orv {

QString CGBoard::GetModeName() const {
    const UstSize size = GetFrameSize(0);
    return ModeNameFor(size.cx, size.cy);
}

CBoardChannel::CBoardChannel(int channel, CGBoard* board)
    : m_pBoard(board),
      m_nChannel(channel),
      m_pCanvas(board ? board->GetChannelCanvas(channel) : nullptr),
      m_pCanvasBoard(dynamic_cast<CCanvasBoard*>(board)) {}

void CBoardChannel::SetKeyLevel(int level) {
    if (m_nChannel == 0) m_pBoard->SetKeyLevel(level);
    if (m_nChannel == 1) m_pBoard->SetKeyLevel2(level);
}

void CBoardChannel::WaitFrame() {
    if (m_nChannel == 0) m_pBoard->WaitFrame();
    if (m_nChannel == 1) m_pBoard->WaitFrame2();
}

void CBoardChannel::SetOrigin(int x, int y) {
    if (m_nChannel == 0) m_pBoard->SetOrigin(x, y);
    if (m_nChannel == 1) m_pBoard->SetOrigin2(x, y);
}

void CBoardChannel::GetOrigin(int& x, int& y) const {
    if (m_nChannel == 0) m_pBoard->GetOrigin(x, y);
    if (m_nChannel == 1) m_pBoard->GetOrigin2(x, y);
}

void CBoardChannel::Clear() {
    if (m_nChannel == 0) m_pBoard->Clear();
    if (m_nChannel == 1) m_pBoard->Clear2();
}

void CBoardChannel::CopyRect(int dx, int dy, int srcStride, int srcX, int srcY, int w, int h,
                             const uint32_t* src) {
    m_pBoard->CopyRect(dx, dy, m_pCanvas, srcStride, srcX, srcY, w, h, src);
}

void CBoardChannel::FillRect(int dx, int dy, int w, int h, uint32_t value) {
    m_pBoard->FillRect(dx, dy, m_pCanvas, w, h, value);
}

void CBoardChannel::CopyLine(int x1, int y1, int x2, int y2, int srcStride, int srcX, int srcY,
                             const uint32_t* src) {
    m_pBoard->CopyLine(x1, y1, x2, y2, m_pCanvas, srcStride, srcX, srcY, src);
}

void CBoardChannel::CopySlantLine(int x1, int y1, int x2, int y2, int offX, int offY, int srcStride,
                                  const uint32_t* src) {
    m_pBoard->CopySlantLine(x1, y1, x2, y2, offX, offY, m_pCanvas, srcStride, src);
}

void CBoardChannel::FillLine(int x1, int y1, int x2, int y2, uint32_t value) {
    m_pBoard->FillLine(x1, y1, x2, y2, m_pCanvas, value);
}

void CBoardChannel::FillSlantLine(int x1, int y1, int x2, int y2, int offX, int offY,
                                  uint32_t value) {
    m_pBoard->FillSlantLine(x1, y1, x2, y2, offX, offY, m_pCanvas, value);
}

void CBoardChannel::CopyColumns(int x, int y, int rows, const int* columns, int count,
                                const uint32_t* block, const uint32_t* next) {
    if (m_pCanvasBoard)
        return m_pCanvasBoard->CopyColumns(m_pCanvas, x, y, rows, columns, count, block, next);
    for (int i = 0; i < count; ++i)
        m_pBoard->CopyLine(x + columns[i], y, x + columns[i], y + rows - 1, m_pCanvas, 1, 0,
                           columns[i] * rows, block);
}

void CBoardChannel::FillColumns(int x, int y, int rows, const int* columns, int count,
                                uint32_t value) {
    if (m_pCanvasBoard)
        return m_pCanvasBoard->FillColumns(m_pCanvas, x, y, rows, columns, count, value);
    for (int i = 0; i < count; ++i)
        m_pBoard->FillLine(x + columns[i], y, x + columns[i], y + rows - 1, m_pCanvas, value);
}

}  // namespace orv
