#include "timer_commands.h"

#include <poll.h>
#include <unistd.h>

#include <charconv>
#include <cstdint>

namespace orv::cli {

namespace {

std::string_view Trim(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t'))
        s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r'))
        s.remove_suffix(1);
    return s;
}

bool Whole(std::string_view text, int64_t& out) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), out);
    return !text.empty() && error == std::errc() && end == text.data() + text.size();
}

// Seconds, or hours, minutes and seconds with colons; a minus in front of
// either. The value must fit the timer's 32 bits.
bool ReadValue(std::string_view text, int64_t& out) {
    const bool negative = text.starts_with('-');
    if (negative) text.remove_prefix(1);
    int64_t total = 0;
    int parts = 0;
    for (;;) {
        const size_t colon = text.find(':');
        int64_t part = 0;
        if (!Whole(text.substr(0, colon), part) || part < 0 || part > INT32_MAX) return false;
        if (parts > 0 && part > 59) return false;
        total = total * 60 + part;
        if (++parts > 3 || total > INT32_MAX) return false;
        if (colon == std::string_view::npos) break;
        text.remove_prefix(colon + 1);
    }
    out = negative ? -total : total;
    return true;
}

}  // namespace

bool ParseTimerCommand(std::string_view line, UstTimerControl& out, bool& none) {
    line = Trim(line);
    none = line.empty() || line.starts_with('#');
    if (none) return true;
    const size_t space = line.find_first_of(" \t");
    const std::string_view word = line.substr(0, space);
    const std::string_view rest =
        space == std::string_view::npos ? std::string_view{} : Trim(line.substr(space));
    if (word == "set") {
        out.nControl = TIMER_SET;
        return ReadValue(rest, out.nValue);
    }
    if (!rest.empty()) return false;
    if (word == "pause")
        out.nControl = TIMER_PAUSE;
    else if (word == "resume")
        out.nControl = TIMER_RESUME;
    else if (word == "restart")
        out.nControl = TIMER_RESTART;
    else
        return false;
    return true;
}

bool CLineReader::Next(std::string& line) {
    for (;;) {
        const size_t end = m_buffer.find('\n');
        if (end != std::string::npos) {
            line = m_buffer.substr(0, end);
            m_buffer.erase(0, end + 1);
            return true;
        }
        if (m_bEnded || m_fd < 0) return false;
        pollfd p{m_fd, POLLIN, 0};
        if (poll(&p, 1, 0) <= 0) return false;
        char chunk[512];
        const ssize_t n = read(m_fd, chunk, sizeof chunk);
        if (n <= 0) {
            // The input ended: a last line without its line feed still counts.
            m_bEnded = true;
            if (m_buffer.empty()) return false;
            m_buffer += '\n';
            continue;
        }
        m_buffer.append(chunk, static_cast<size_t>(n));
    }
}

}  // namespace orv::cli
