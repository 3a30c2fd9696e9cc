// libFuzzer target for the control server's line parser: any bytes, cut
// into lines as the server cuts them, must parse or be refused with a 40x
// code, and the reply must stay one line plus its body, whatever the
// client smuggled into a quoted word.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "remote/line_protocol.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    size_t start = 0;
    while (start <= bytes.size()) {
        const size_t end = std::min(bytes.find('\n', start), bytes.size());
        const std::string_view line = bytes.substr(start, end - start);
        orv::UstLineCommand command;
        orv::UstReply reply;
        const bool parsed = orv::ParseLine(line, command, reply);
        if (!parsed && (reply.nCode < 400 || reply.nCode > 403)) __builtin_trap();
        if (parsed && command.nVerb == orv::VERB_NONE) __builtin_trap();
        const std::string out = orv::FormatReply(reply, command.strReq);
        const size_t lines = static_cast<size_t>(std::count(out.begin(), out.end(), '\n'));
        if (lines != 1 + reply.lines.size() + (reply.nCode == orv::REPLY_INFO ? 1 : 0))
            __builtin_trap();
        start = end + 1;
    }
    return 0;
}
