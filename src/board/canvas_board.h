#pragma once
// What every board over the wrapping canvas does alike, whatever drives its
// clock: the canvas, the origin, the key level, the waits, Clear and the
// drawing primitives, all through the pipeline held by value.

#include <cstdint>
#include <memory>

#include "board/board_record.h"
#include "board/decklink_pipeline.h"
#include "board/gboard.h"
#include "board/pixel_store.h"

namespace orv {

class CCanvasBoard : public CGBoard {
public:
    ~CCanvasBoard() override;

    uint32_t* GetChannelCanvas(int channel) override;
    void SetKeyLevel(int level) override;
    void WaitFrame() override;
    void WaitFrameSync() override;
    void Clear() override;
    UstSize GetCanvasSize() const override;
    UstSize GetFrameSize(int format) const override;
    void GetPixelAspect(float& x, float& y, int format) const override;
    void SetOrigin(int x, int y) override;
    void GetOrigin(int& x, int& y) const override;
    void CopyRect(int dx, int dy, uint32_t* canvas, int srcStride, int srcX, int srcY, int w, int h,
                  const uint32_t* src) override;
    void FillRect(int dx, int dy, uint32_t* canvas, int w, int h, uint32_t value) override;
    void CopyLine(int x1, int y1, int x2, int y2, uint32_t* canvas, int srcStride, int srcX,
                  int srcY, const uint32_t* src) final;
    void CopySlantLine(int x1, int y1, int x2, int y2, int offX, int offY, uint32_t* canvas,
                       int srcStride, const uint32_t* src) override;
    void FillLine(int x1, int y1, int x2, int y2, uint32_t* canvas, uint32_t value) final;
    void FillSlantLine(int x1, int y1, int x2, int y2, int offX, int offY, uint32_t* canvas,
                       uint32_t value) override;
    CDecklinkPipeline* GetPipeline() override { return &m_Pipeline; }
    // The vertical lines of CopyLine and FillLine, many short ones under one
    // lock and without a call each (see CanvasCopyColumns); the two are
    // final, so these draw exactly what they would.
    void CopyColumns(uint32_t* canvas, int x, int y, int rows, const int* columns, int count,
                     const uint32_t* block, const uint32_t* next);
    void FillColumns(uint32_t* canvas, int x, int y, int rows, const int* columns, int count,
                     uint32_t value);

    const UstBoardRecord& Record() const { return m_Record; }
    UstBoardRecord& Record() { return m_Record; }

protected:
    CCanvasBoard();
    // Allocates and zeroes the canvas; false leaves the board closed.
    bool AllocateCanvas();
    void FreeCanvas();

    CPixelStore m_CanvasStore;
    uint32_t* m_pCanvas = nullptr;  // the store's pixels while the board is open
    CDecklinkPipeline m_Pipeline;
    UstBoardRecord m_Record;
};

}  // namespace orv
