#include "playout/transition_driver.h"

#include <algorithm>

#include "playout/effect_table.h"
#include "project/page_manager.h"

namespace orv {

CTransitionDriver::CTransitionDriver(CGBoard& board)
    : CTransitionDriver(board, board.GetFrameSize(0).cx, board.GetFrameSize(0).cy) {}

CTransitionDriver::CTransitionDriver(CGBoard& board, int width, int height)
    : m_nWidth(std::max(width, 0)),
      m_nHeight(std::max(height, 0)),
      m_bufferA(static_cast<size_t>(m_nWidth) * m_nHeight),
      m_bufferB(static_cast<size_t>(m_nWidth) * m_nHeight),
      m_effect(0, &board, m_bufferA.data(), m_bufferB.data(), m_nWidth, m_nHeight) {}

void CTransitionDriver::SetPicture(const uint32_t* pixels) {
    std::copy_n(pixels, m_bufferA.size(), m_bufferA.data());
}

void CTransitionDriver::RenderPage(CPageManager& page) {
    std::fill_n(m_bufferA.data(), m_bufferA.size(), 0u);
    std::fill_n(m_bufferB.data(), m_bufferB.size(), 0u);
    page.DrawForPlay(m_bufferA.data(), nullptr, m_nWidth, m_nHeight);
}

void CTransitionDriver::TakeIn(int* request) {
    m_effect.Run(request, 0, nullptr);
}

bool CTransitionDriver::TakeOut(int* request) {
    if (!HasOutStage(request)) return false;
    m_effect.Run(request, 2, nullptr);
    return true;
}

bool CTransitionDriver::HasOutStage(int* request) {
    return LoadRequestWord(request, REQ_OUT_EFFECT) != EFFECT_NONE ||
           LoadRequestWord(request, REQ_OUT_FADE) != 0;
}

bool CTransitionDriver::PlayScroll(CPageManager& page) {
    if (!page.IsScrollPage()) return false;
    page.BeginScroll(m_nWidth, m_nHeight);
    RenderPage(page);
    m_effect.Run(RequestWords(page.m_effect), 0, &page);
    page.EndScroll();
    return true;
}

}  // namespace orv
