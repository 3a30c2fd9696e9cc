#pragma once
// One running editor per user: a lock file held for the life of the process.

#include <filesystem>

namespace orv {

class CInstanceLock {
public:
    CInstanceLock() = default;
    ~CInstanceLock();
    CInstanceLock(const CInstanceLock&) = delete;
    CInstanceLock& operator=(const CInstanceLock&) = delete;

    // True when this process now holds the lock; false when another holds it
    // or the lock file cannot be opened.
    bool Acquire(const std::filesystem::path& file);
    bool AlreadyRunning() const { return m_bOtherHolds; }

    // $XDG_RUNTIME_DIR, else /tmp with the user id in the name. A separate
    // ORVANTIS_HOME is a separate installation with a lock of its own.
    static std::filesystem::path DefaultPath();

private:
    int m_nFd = -1;
    bool m_bOtherHolds = false;
};

}  // namespace orv
