#pragma once
// The line protocol of the control server: one command a line, UTF-8,
// words separated by blanks, parameters in double quotes with \", \\ and
// \n escapes, an optional "REQ id" in front that the reply echoes as
// "RES id". Parsing is pure: it makes a typed command or a reply that says
// what was wrong, and never touches the engine.

#include <string>
#include <string_view>
#include <vector>

namespace orv {

enum ERemoteVerb : int {
    VERB_NONE = 0,
    VERB_ADD,        // CG 1 ADD layer "project/page" play ["json"]
    VERB_PLAY,       // CG 1 PLAY
    VERB_NEXT,       // CG 1 NEXT: the Run key
    VERB_STOP,       // CG 1 STOP: the out effect
    VERB_UPDATE,     // CG 1 UPDATE layer "json"
    VERB_CG_CLEAR,   // CG 1 CLEAR
    VERB_CLEAR,      // CLEAR 1: erase
    VERB_LIST_PLAY,  // PLAY 1
    VERB_LIST_STOP,  // STOP 1
    VERB_INFO,
    VERB_VERSION,
    VERB_AUTH,  // AUTH token
    VERB_BYE
};

enum EReplyCode : int {
    REPLY_INFO = 200,
    REPLY_DATA = 201,
    REPLY_OK = 202,
    REPLY_ERROR = 400,
    REPLY_BAD_CHANNEL = 401,
    REPLY_MISSING = 402,
    REPLY_ILLEGAL = 403,
    REPLY_NOT_FOUND = 404,
    REPLY_FAILED = 500
};

struct UstLineCommand {
    int nVerb = VERB_NONE;
    std::string strReq;  // the REQ id, empty without one
    int nLayer = 0;
    std::string strTarget;  // ADD: "project/page"
    bool bPlay = false;
    bool bHasData = false;
    std::string strData;  // ADD, UPDATE: a JSON object
    std::string strToken;
};

struct UstReply {
    int nCode = REPLY_OK;
    std::string strText;             // after the code: "ADD OK", "ERROR ..."
    std::vector<std::string> lines;  // the body of a 200 or 201 reply
};

// Longest line the server reads; a longer one is refused and its
// connection closed, so a client cannot make the server hold much.
constexpr size_t LINE_MAX_BYTES = 64 * 1024;

bool IsValidUtf8(std::string_view text);
// The words of a line, quotes and escapes resolved; false with a message
// on an open quote or an unknown escape.
bool SplitWords(std::string_view line, std::vector<std::string>& words, std::string& error);
// A line without its end into a command. Answers true, or false with the
// error reply in `error` (its code one of the 40x).
bool ParseLine(std::string_view line, UstLineCommand& out, UstReply& error);
// The reply's bytes: "RES id " when the command had a REQ id, CR LF after
// every line, and a blank line after the body of a 200 reply.
std::string FormatReply(const UstReply& reply, const std::string& req);

}  // namespace orv
