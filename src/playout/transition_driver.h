#pragma once
// A page on and off air through the transition engine, the way the play
// engine takes a plain page: drawn into page buffer A, the in effect, and
// later the out effect, which a "No transition" out without fade skips
// altogether. For the tests and the command line.

#include <cstdint>
#include "board/pixel_store.h"
#include "playout/effect_decklink.h"

namespace orv {

class CPageManager;

class CTransitionDriver {
public:
    // Page buffers of the board's frame size.
    explicit CTransitionDriver(CGBoard& board);
    // Page buffers of another size than the board's frame.
    CTransitionDriver(CGBoard& board, int width, int height);

    int Width() const { return m_nWidth; }
    int Height() const { return m_nHeight; }
    uint32_t* BufferA() { return m_bufferA.data(); }
    // The picture to play, width x height premultiplied pixels.
    void SetPicture(const uint32_t* pixels);
    // Clears both buffers and has the page draw itself for play.
    void RenderPage(CPageManager& page);

    void TakeIn(int* request);
    // False when the request has no out stage and nothing ran.
    bool TakeOut(int* request);
    static bool HasOutStage(int* request);
    // A Roll or Crawl page as the play engine runs it: its live state begun
    // and made, its passes run with the page's own request (which Faster
    // and Slower change meanwhile), the state freed. False, with nothing
    // run, for any other page.
    bool PlayScroll(CPageManager& page);

    EffectDecklink& Engine() { return m_effect; }

private:
    int m_nWidth, m_nHeight;
    CPixelStore m_bufferA, m_bufferB;
    EffectDecklink m_effect;
};

}  // namespace orv
