#pragma once
// The abstract output board: the table of operations through which
// everything that draws to air reaches the output, most of them empty, so
// that a board implements only what it has. CBoardChannel is the wrapper
// through which a transition engine reaches one output of a board.

#include <cstdint>

#include <QString>

#include "board/video_modes.h"

namespace orv {

class CDecklinkPipeline;
class CCanvasBoard;

class CGBoard {
public:
    virtual ~CGBoard() = default;
    CGBoard(const CGBoard&) = delete;
    CGBoard& operator=(const CGBoard&) = delete;

    virtual void Open() {}
    virtual void Close() {}
    virtual int IsOpen() const { return m_bOpened; }
    virtual int GetBoardType() const { return -1; }
    virtual void Reset() {}
    // 1 when the operator changed something and closed with OK.
    virtual int ShowConfigDialog() { return 0; }
    // The slot the main frame calls as the board's late initialisation.
    virtual void Reserved1() {}
    virtual void Reserved2() {}
    virtual void Reserved3(int) {}
    virtual uint32_t* GetChannelCanvas(int) { return nullptr; }
    virtual int Reserved4() { return 0; }
    virtual int Reserved5() { return 0; }
    virtual void SetKeyLevel(int) {}
    virtual void SetKeyLevel2(int) {}
    virtual void WaitFrame() {}
    virtual void WaitFrame2() {}
    virtual void WaitFrameSync() {
        WaitFrame();
        WaitFrame();
    }
    virtual void WaitFrameSync2() {
        WaitFrame2();
        WaitFrame2();
    }
    virtual void Reserved6() {}
    virtual void Clear() {}
    virtual void Clear2() {}
    virtual UstSize GetCanvasSize() const { return {}; }
    virtual UstSize GetFrameSize(int) const { return {}; }
    virtual QString GetModeName() const;
    virtual void GetPixelAspect(float& x, float& y, int) const { x = 1.0f, y = 1.0f; }
    virtual void SetOrigin(int, int) {}
    virtual void SetOrigin2(int, int) {}
    virtual void GetOrigin(int&, int&) const {}
    virtual void GetOrigin2(int&, int&) const {}
    virtual void Reserved7() {}
    virtual void Reserved8() {}
    virtual void CopyRect(int, int, uint32_t*, int, int, int, int, int, const uint32_t*) {}
    virtual void FillRect(int, int, uint32_t*, int, int, uint32_t) {}
    virtual void CopyLine(int, int, int, int, uint32_t*, int, int, int, const uint32_t*) {}
    virtual void CopySlantLine(int, int, int, int, int, int, uint32_t*, int, const uint32_t*) {}
    virtual void FillLine(int, int, int, int, uint32_t*, uint32_t) {}
    virtual void FillSlantLine(int, int, int, int, int, int, uint32_t*, uint32_t) {}
    virtual void Reserved9() {}
    virtual CDecklinkPipeline* GetPipeline() { return nullptr; }

protected:
    CGBoard() = default;
    int m_bOpened = 0;
};

// One output of a board. The operations with a twin go to the twin for
// channel 1, to the plain one for channel 0, nowhere for any other; the
// drawing operations always go to the plain one, on the channel's canvas.
class CBoardChannel {
public:
    CBoardChannel(int channel, CGBoard* board);

    void SetKeyLevel(int level);
    void WaitFrame();
    void SetOrigin(int x, int y);
    void GetOrigin(int& x, int& y) const;
    void Clear();
    void CopyRect(int dx, int dy, int srcStride, int srcX, int srcY, int w, int h,
                  const uint32_t* src);
    void FillRect(int dx, int dy, int w, int h, uint32_t value);
    void CopyLine(int x1, int y1, int x2, int y2, int srcStride, int srcX, int srcY,
                  const uint32_t* src);
    void CopySlantLine(int x1, int y1, int x2, int y2, int offX, int offY, int srcStride,
                       const uint32_t* src);
    void FillLine(int x1, int y1, int x2, int y2, uint32_t value);
    void FillSlantLine(int x1, int y1, int x2, int y2, int offX, int offY, uint32_t value);
    // Vertical CopyLine and FillLine pieces by the count (see
    // CanvasCopyColumns): on a board that draws on a canvas of its own, one
    // call; on any other, one line each.
    void CopyColumns(int x, int y, int rows, const int* columns, int count, const uint32_t* block,
                     const uint32_t* next);
    void FillColumns(int x, int y, int rows, const int* columns, int count, uint32_t value);

    CGBoard* m_pBoard;
    int m_nChannel;
    uint32_t* m_pCanvas;

private:
    CCanvasBoard* m_pCanvasBoard;  // the board again, if it is one
};

}  // namespace orv
