#include "render/frame_ring.h"

namespace orv {

FrameRing::FrameRing(size_t blockBytes, int count)
    : m_nCount(count > 0 ? count : 1), m_nBlockBytes(blockBytes & ~size_t{3}) {
    for (int i = 0; i < m_nCount; ++i)
        m_blocks.push_back(std::make_unique<uint8_t[]>(m_nBlockBytes > 0 ? m_nBlockBytes : 1));
}

// Fullness compares with the read position, so before the first read the
// ring never reports full: a writer that runs ahead wraps to block 0.
uint8_t* FrameRing::NextWriteBlock() {
    const int next = Next(m_nWrite.load(std::memory_order_relaxed));
    if (next == m_nRead.load(std::memory_order_acquire)) return nullptr;
    return m_blocks[static_cast<size_t>(next)].get();
}

void FrameRing::CommitWrite() {
    const int next = Next(m_nWrite.load(std::memory_order_relaxed));
    if (next != m_nRead.load(std::memory_order_acquire))
        m_nWrite.store(next, std::memory_order_release);
}

uint8_t* FrameRing::NextReadBlock() {
    const int read = m_nRead.load(std::memory_order_relaxed);
    if (m_nWrite.load(std::memory_order_acquire) == read) return nullptr;
    return m_blocks[static_cast<size_t>(Next(read))].get();
}

void FrameRing::CommitRead() {
    const int read = m_nRead.load(std::memory_order_relaxed);
    if (m_nWrite.load(std::memory_order_acquire) == read) return;
    m_nRead.store(Next(read), std::memory_order_release);
}

}  // namespace orv
