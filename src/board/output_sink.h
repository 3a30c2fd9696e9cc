#pragma once
// Where the playout thread's frames go. A sink lends a frame to fill, then
// takes it back; one of its two calls blocks for as long as the output needs
// to show the frames before it, and that wait is what paces the system.

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "board/video_modes.h"

namespace orv {

enum class EOutputKind {
    CARD,     // the output card when one answers, else the clock
    CLOCK,    // frames paced by the clock and shown nowhere
    MONITOR,  // the clock, with the program monitor of the editor open
    FILE,     // lossless file: FFV1, BGRA, Matroska
    SRT,      // H.264 in MPEG-TS to a remote switcher
};

struct UstOutputChoice {
    EOutputKind kind = EOutputKind::CARD;
    std::string target;  // the file path or the srt:// address
    bool operator==(const UstOutputChoice&) const = default;
};

// "card", "null" (or "clock"), "monitor", "file:PATH", "srt://HOST:PORT".
bool ParseOutputChoice(std::string_view text, UstOutputChoice& out);
std::string FormatOutputChoice(const UstOutputChoice& choice);

class COutputSink {
public:
    virtual ~COutputSink() = default;

    // Prepares the output for the mode; false with a reason when it cannot.
    virtual bool Start(const CfgVideo& mode, std::string& error) = 0;
    // A frame of width x height pixels to fill, or null once the sink has
    // failed or was interrupted.
    virtual uint32_t* Acquire() = 0;
    // Takes the filled frame; false once the sink has failed.
    virtual bool Deliver(uint32_t* frame) = 0;
    // From any thread: Acquire and Deliver return at once from now on.
    virtual void Interrupt() = 0;
    // Why the last call failed.
    virtual std::string Error() const { return {}; }
    // Gives the whole-frame key gain to the output's keyer. False when there
    // is none, and the frames must carry the gain themselves.
    virtual bool SetKeyLevel(int level) = 0;
};

// Frames shown nowhere, released on a steady clock at the mode's frame
// duration. The stand-in for a card that is missing or failed.
class CClockSink : public COutputSink {
public:
    bool Start(const CfgVideo& mode, std::string& error) override;
    uint32_t* Acquire() override;
    bool Deliver(uint32_t* frame) override;
    void Interrupt() override;
    bool SetKeyLevel(int) override { return true; }

private:
    std::vector<uint32_t> m_frame;
    std::chrono::nanoseconds m_period{0};
    std::chrono::steady_clock::time_point m_next;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_bInterrupted = false;
};

// Frames kept in memory, released at once: for boards whose clock is driven
// by hand. The key level is left to whoever reads the frames.
class CMemorySink : public COutputSink {
public:
    bool Start(const CfgVideo& mode, std::string& error) override;
    uint32_t* Acquire() override { return m_frame.data(); }
    bool Deliver(uint32_t*) override { return true; }
    void Interrupt() override {}
    bool SetKeyLevel(int) override { return true; }

private:
    std::vector<uint32_t> m_frame;
};

}  // namespace orv
