#include "shell/instance_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>

namespace orv {

CInstanceLock::~CInstanceLock() {
    if (m_nFd >= 0) ::close(m_nFd);
}

bool CInstanceLock::Acquire(const std::filesystem::path& file) {
    m_bOtherHolds = false;
    int fd = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd < 0) return false;
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        m_bOtherHolds = (errno == EWOULDBLOCK);
        ::close(fd);
        return false;
    }
    if (m_nFd >= 0) ::close(m_nFd);
    m_nFd = fd;
    return true;
}

std::filesystem::path CInstanceLock::DefaultPath() {
    const char* home = std::getenv("ORVANTIS_HOME");
    if (home && *home) return std::filesystem::path(home) / ".Orvantis-HD.lock";
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime && *runtime) return std::filesystem::path(runtime) / "Orvantis-HD.lock";
    return std::filesystem::path("/tmp") / ("Orvantis-HD-" + std::to_string(::getuid()) + ".lock");
}

}  // namespace orv
