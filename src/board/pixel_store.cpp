#include "board/pixel_store.h"

#include <sys/mman.h>

#include <cstdlib>
#include <cstring>

namespace orv {

namespace {

constexpr size_t LARGE_PAGE = size_t{2} << 20;

}  // namespace

CPixelStore::CPixelStore(size_t pixels) : m_nPixels(pixels) {
    if (pixels == 0) return;
    const size_t bytes = (pixels * 4 + LARGE_PAGE - 1) / LARGE_PAGE * LARGE_PAGE;
    m_pPixels.reset(static_cast<uint32_t*>(std::aligned_alloc(LARGE_PAGE, bytes)));
    if (!m_pPixels) return;
    madvise(m_pPixels.get(), bytes, MADV_HUGEPAGE);  // a wish: small pages work too
    std::memset(m_pPixels.get(), 0, pixels * 4);
}

void CPixelStore::UstFree::operator()(uint32_t* p) const {
    std::free(p);
}

}  // namespace orv
