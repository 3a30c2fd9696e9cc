#pragma once
// Read-only bytes of an animation file, on disk or in memory. Reads name
// their position, so a player never depends on a shared file pointer and
// each player can be read on a thread of its own. No Qt here: the fuzzers
// build the readers on their own.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orv {

class CMediaFile {
public:
    CMediaFile() = default;
    explicit CMediaFile(const std::string& path);
    explicit CMediaFile(std::vector<uint8_t> bytes);
    ~CMediaFile();
    CMediaFile(const CMediaFile&) = delete;
    CMediaFile& operator=(const CMediaFile&) = delete;

    bool IsOpen() const { return m_nFd >= 0 || m_bMemory; }
    uint64_t Size() const { return m_nSize; }
    // The bytes at the position, fewer where the file ends; 0 when the
    // position lies at or past the end.
    size_t ReadAt(uint64_t position, void* dst, size_t count) const;
    // Exactly count bytes, or false.
    bool ReadExact(uint64_t position, void* dst, size_t count) const {
        return ReadAt(position, dst, count) == count;
    }

private:
    int m_nFd = -1;
    bool m_bMemory = false;
    std::vector<uint8_t> m_bytes;
    uint64_t m_nSize = 0;
};

}  // namespace orv
