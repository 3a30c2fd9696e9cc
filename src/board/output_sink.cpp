#include "board/output_sink.h"

namespace orv {

namespace {

constexpr std::string_view FILE_PREFIX = "file:";
constexpr std::string_view SRT_PREFIX = "srt://";
// A clock that fell further behind than this (a stopped process, a machine
// that slept) starts counting again instead of racing to catch up.
constexpr int MAX_FRAMES_BEHIND = 4;

size_t FramePixels(const CfgVideo& mode) {
    return static_cast<size_t>(mode.nWidth) * static_cast<size_t>(mode.nHeight);
}

}  // namespace

bool ParseOutputChoice(std::string_view text, UstOutputChoice& out) {
    if (text == "card") {
        out = {EOutputKind::CARD, {}};
    } else if (text == "null" || text == "clock") {
        out = {EOutputKind::CLOCK, {}};
    } else if (text == "monitor") {
        out = {EOutputKind::MONITOR, {}};
    } else if (text.starts_with(FILE_PREFIX) && text.size() > FILE_PREFIX.size()) {
        out = {EOutputKind::FILE, std::string(text.substr(FILE_PREFIX.size()))};
    } else if (text.starts_with(SRT_PREFIX) && text.size() > SRT_PREFIX.size()) {
        out = {EOutputKind::SRT, std::string(text)};
    } else {
        return false;
    }
    return true;
}

std::string FormatOutputChoice(const UstOutputChoice& choice) {
    switch (choice.kind) {
        case EOutputKind::CARD:
            return "card";
        case EOutputKind::CLOCK:
            return "null";
        case EOutputKind::MONITOR:
            return "monitor";
        case EOutputKind::FILE:
            return std::string(FILE_PREFIX) + choice.target;
        case EOutputKind::SRT:
            return choice.target;
    }
    return "null";
}

bool CClockSink::Start(const CfgVideo& mode, std::string&) {
    m_frame.assign(FramePixels(mode), 0);
    m_period = std::chrono::nanoseconds(mode.Duration() * 100);
    m_next = std::chrono::steady_clock::now();
    return true;
}

uint32_t* CClockSink::Acquire() {
    std::lock_guard lock(m_mutex);
    return m_bInterrupted ? nullptr : m_frame.data();
}

bool CClockSink::Deliver(uint32_t*) {
    std::unique_lock lock(m_mutex);
    m_next += m_period;
    const auto now = std::chrono::steady_clock::now();
    if (now - m_next > m_period * MAX_FRAMES_BEHIND) m_next = now;
    m_wake.wait_until(lock, m_next, [&] { return m_bInterrupted; });
    return !m_bInterrupted;
}

void CClockSink::Interrupt() {
    {
        std::lock_guard lock(m_mutex);
        m_bInterrupted = true;
    }
    m_wake.notify_all();
}

bool CMemorySink::Start(const CfgVideo& mode, std::string&) {
    m_frame.assign(FramePixels(mode), 0);
    return true;
}

}  // namespace orv
