#include "media/media_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace orv {

CMediaFile::CMediaFile(const std::string& path) {
    m_nFd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (m_nFd < 0) return;
    struct stat st {};
    if (::fstat(m_nFd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(m_nFd);
        m_nFd = -1;
        return;
    }
    m_nSize = static_cast<uint64_t>(st.st_size);
}

CMediaFile::CMediaFile(std::vector<uint8_t> bytes)
    : m_bMemory(true), m_bytes(std::move(bytes)), m_nSize(m_bytes.size()) {}

CMediaFile::~CMediaFile() {
    if (m_nFd >= 0) ::close(m_nFd);
}

size_t CMediaFile::ReadAt(uint64_t position, void* dst, size_t count) const {
    if (!IsOpen() || position >= m_nSize) return 0;
    const uint64_t left = m_nSize - position;
    if (count > left) count = static_cast<size_t>(left);
    if (m_bMemory) {
        std::memcpy(dst, m_bytes.data() + position, count);
        return count;
    }
    size_t done = 0;
    auto* out = static_cast<uint8_t*>(dst);
    while (done < count) {
        const ssize_t got =
            ::pread(m_nFd, out + done, count - done, static_cast<off_t>(position + done));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        done += static_cast<size_t>(got);
    }
    return done;
}

}  // namespace orv
