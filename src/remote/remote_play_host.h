#pragma once
// The window's side of the engine with the control core listening in: every
// state goes on to the window as before and to the core, which tells its
// event clients. The core may come and go while the engine runs.

#include <mutex>

#include "playout/play_engine.h"
#include "remote/control_core.h"

namespace orv {

class CRemotePlayHost : public IPlayHost {
public:
    explicit CRemotePlayHost(IPlayHost* inner) : m_pInner(inner) {}
    // Once this returns with null, the old core hears nothing more.
    void SetCore(CControlCore* core) {
        std::lock_guard lock(m_mutex);
        m_pCore = core;
    }
    void PostPlayState(int state, int param) override {
        if (m_pInner) m_pInner->PostPlayState(state, param);
        std::lock_guard lock(m_mutex);
        if (m_pCore) m_pCore->PlayStateChanged(state);
    }
    void SetPlayMode(int mode) override {
        if (m_pInner) m_pInner->SetPlayMode(mode);
    }

private:
    IPlayHost* m_pInner;
    std::mutex m_mutex;
    CControlCore* m_pCore = nullptr;
};

}  // namespace orv
