#pragma once
// A fixed ring of equal blocks between one writer thread and one reader
// thread. Each position is written by one side only, so no lock is needed.

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace orv {

class FrameRing {
public:
    // Each block is blockBytes rounded down to a multiple of 4.
    FrameRing(size_t blockBytes, int count);

    uint8_t* NextWriteBlock();  // null when the ring is full
    void CommitWrite();
    uint8_t* NextReadBlock();  // null when the ring is empty
    void CommitRead();

    int Count() const { return m_nCount; }
    size_t BlockBytes() const { return m_nBlockBytes; }
    int WritePosition() const { return m_nWrite.load(); }
    int ReadPosition() const { return m_nRead.load(); }

private:
    int Next(int position) const { return (position + 1) % m_nCount; }

    std::vector<std::unique_ptr<uint8_t[]>> m_blocks;
    std::atomic<int32_t> m_nWrite{-1};
    std::atomic<int32_t> m_nRead{-1};
    int32_t m_nCount;
    size_t m_nBlockBytes;
};

}  // namespace orv
