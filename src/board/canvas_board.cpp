#include "board/canvas_board.h"

#include "board/canvas.h"

namespace orv {

CCanvasBoard::CCanvasBoard() : m_Record(DefaultBoardRecord()) {}

CCanvasBoard::~CCanvasBoard() {
    // The pipeline's thread reads the canvas: it ends before the canvas goes.
    m_Pipeline.Close();
    FreeCanvas();
}

bool CCanvasBoard::AllocateCanvas() {
    if (m_CanvasStore.empty()) m_CanvasStore = CPixelStore(CANVAS_PIXELS);
    m_pCanvas = m_CanvasStore.data();
    return m_pCanvas != nullptr;
}

void CCanvasBoard::FreeCanvas() {
    m_CanvasStore = CPixelStore();
    m_pCanvas = nullptr;
}

uint32_t* CCanvasBoard::GetChannelCanvas(int channel) {
    return channel == 0 ? m_pCanvas : nullptr;
}

void CCanvasBoard::SetKeyLevel(int level) {
    m_Pipeline.SetKeyLevel(level);
}

void CCanvasBoard::WaitFrame() {
    m_Pipeline.WaitFrame();
}

void CCanvasBoard::WaitFrameSync() {
    m_Pipeline.WaitFrame();
}

// The one place where the board paces itself: the erase waits for a frame
// before it, and for four after it, so that the empty view has reached the
// output before the caller goes on.
void CCanvasBoard::Clear() {
    m_Pipeline.WaitFrame();
    m_Pipeline.ClearView();
    m_Pipeline.WaitFrames();
}

UstSize CCanvasBoard::GetCanvasSize() const {
    return {CANVAS_SIZE, CANVAS_SIZE};
}

UstSize CCanvasBoard::GetFrameSize(int) const {
    return {m_Record.nWidth, m_Record.nHeight};
}

void CCanvasBoard::GetPixelAspect(float& x, float& y, int) const {
    PixelAspectFor(m_Record.nHeight, x, y);
}

void CCanvasBoard::SetOrigin(int x, int y) {
    m_Pipeline.SetOrigin(x, y);
}

void CCanvasBoard::GetOrigin(int& x, int& y) const {
    m_Pipeline.GetOrigin(x, y);
}

void CCanvasBoard::CopyRect(int dx, int dy, uint32_t* canvas, int srcStride, int srcX, int srcY,
                            int w, int h, const uint32_t* src) {
    auto lock = m_Pipeline.LockCanvas();
    CanvasCopyRect(canvas, dx, dy, srcStride, srcX, srcY, w, h, src);
}

void CCanvasBoard::FillRect(int dx, int dy, uint32_t* canvas, int w, int h, uint32_t value) {
    auto lock = m_Pipeline.LockCanvas();
    CanvasFillRect(canvas, dx, dy, w, h, value);
}

void CCanvasBoard::CopyLine(int x1, int y1, int x2, int y2, uint32_t* canvas, int srcStride,
                            int srcX, int srcY, const uint32_t* src) {
    auto lock = m_Pipeline.LockCanvas();
    CanvasCopyLine(canvas, x1, y1, x2, y2, srcStride, srcX, srcY, src);
}

void CCanvasBoard::CopyColumns(uint32_t* canvas, int x, int y, int rows, const int* columns,
                               int count, const uint32_t* block, const uint32_t* next) {
    auto lock = m_Pipeline.LockCanvas();
    CanvasCopyColumns(canvas, x, y, rows, columns, count, block, next);
}

void CCanvasBoard::FillColumns(uint32_t* canvas, int x, int y, int rows, const int* columns,
                               int count, uint32_t value) {
    auto lock = m_Pipeline.LockCanvas();
    CanvasFillColumns(canvas, x, y, rows, columns, count, value);
}

void CCanvasBoard::CopySlantLine(int x1, int y1, int x2, int y2, int offX, int offY,
                                 uint32_t* canvas, int srcStride, const uint32_t* src) {
    auto lock = m_Pipeline.LockCanvas();
    CanvasCopySlantLine(canvas, x1, y1, x2, y2, offX, offY, srcStride, src);
}

void CCanvasBoard::FillLine(int x1, int y1, int x2, int y2, uint32_t* canvas, uint32_t value) {
    auto lock = m_Pipeline.LockCanvas();
    CanvasFillLine(canvas, x1, y1, x2, y2, value);
}

void CCanvasBoard::FillSlantLine(int x1, int y1, int x2, int y2, int offX, int offY,
                                 uint32_t* canvas, uint32_t value) {
    auto lock = m_Pipeline.LockCanvas();
    CanvasFillSlantLine(canvas, x1, y1, x2, y2, offX, offY, value);
}

}  // namespace orv
