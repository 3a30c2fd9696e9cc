#pragma once
// The running timers' controls for automation: `orvantis-cli play` reads
// one command a line on its standard input while it plays.
//   pause | resume | restart | set SECONDS | set H:MM:SS

#include <string>
#include <string_view>

#include "playout/play_timers.h"

namespace orv::cli {

// False for a line that is no command; blank lines and "#" comments are
// read as nothing (true, with `none` set).
bool ParseTimerCommand(std::string_view line, UstTimerControl& out, bool& none);

// Lines from a descriptor read without blocking; the partial last line waits
// for the rest of it.
class CLineReader {
public:
    explicit CLineReader(int fd) : m_fd(fd) {}
    // The next whole line, if one has come.
    bool Next(std::string& line);

private:
    int m_fd;
    bool m_bEnded = false;
    std::string m_buffer;
};

}  // namespace orv::cli
