#pragma once
// Zeroed memory for whole frames and for the canvas, asked for in large
// pages. A column of the canvas steps 16 KiB a pixel and a column of a page
// buffer several KiB: in small pages each of those steps is a new page and
// a new address translation, and the transitions that write columns and
// rays would spend their time there. In large pages a column crosses a page
// boundary once every hundred rows or more.

#include <cstddef>
#include <cstdint>
#include <memory>

namespace orv {

class CPixelStore {
public:
    CPixelStore() = default;
    // `pixels` zeroed pixels; an empty store if the memory is not there.
    explicit CPixelStore(size_t pixels);

    uint32_t* data() { return m_pPixels.get(); }
    const uint32_t* data() const { return m_pPixels.get(); }
    size_t size() const { return m_pPixels ? m_nPixels : 0; }
    bool empty() const { return size() == 0; }

private:
    struct UstFree {
        void operator()(uint32_t* p) const;
    };
    std::unique_ptr<uint32_t, UstFree> m_pPixels;
    size_t m_nPixels = 0;
};

}  // namespace orv
