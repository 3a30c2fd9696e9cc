#include "remote/line_protocol.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdint>

namespace orv {

namespace {

std::string Upper(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

bool ReadInt(const std::string& text, int low, int high, int& out) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) return false;
    if (value < low || value > high) return false;
    out = value;
    return true;
}

// A quoted word may hold a line end; echoed, it would forge a reply line.
std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, '?');
    return text;
}

UstReply Reply(int code, std::string text) {
    return {code, std::move(text), {}};
}

// "1" or "1-10": the channel, with the layer the peers put beside it.
bool ChannelIsOne(const std::string& word, UstReply& error) {
    const std::string channel = word.substr(0, word.find('-'));
    int n = 0;
    if (!ReadInt(channel, 1, 9999, n)) {
        error = Reply(REPLY_ERROR, "ERROR channel expected, not '" + word + "'");
        return false;
    }
    if (n != 1) {
        error = Reply(REPLY_BAD_CHANNEL, "ERROR only channel 1 plays");
        return false;
    }
    return true;
}

bool ParseCg(const std::vector<std::string>& w, UstLineCommand& out, UstReply& error) {
    if (w.size() < 3) {
        error = Reply(REPLY_MISSING, "CG FAILED channel and command expected");
        return false;
    }
    if (!ChannelIsOne(w[1], error)) return false;
    const std::string verb = Upper(w[2]);
    const auto layer = [&](size_t i) {
        return i >= w.size() || ReadInt(w[i], 0, 9999, out.nLayer);
    };
    if (verb == "ADD") {
        out.nVerb = VERB_ADD;
        if (w.size() < 6) {
            error = Reply(REPLY_MISSING, "CG FAILED ADD needs layer, page and play");
            return false;
        }
        int play = 0;
        if (!layer(3) || !ReadInt(w[5], 0, 1, play) || w.size() > 7) {
            error = Reply(REPLY_ILLEGAL, "CG FAILED ADD layer \"project/page\" 0|1 [\"json\"]");
            return false;
        }
        out.strTarget = w[4];
        out.bPlay = play == 1;
        out.bHasData = w.size() == 7;
        if (out.bHasData) out.strData = w[6];
        return true;
    }
    if (verb == "UPDATE") {
        out.nVerb = VERB_UPDATE;
        if (w.size() < 5) {
            error = Reply(REPLY_MISSING, "CG FAILED UPDATE needs layer and data");
            return false;
        }
        if (!layer(3) || w.size() > 5) {
            error = Reply(REPLY_ILLEGAL, "CG FAILED UPDATE layer \"json\"");
            return false;
        }
        out.bHasData = true;
        out.strData = w[4];
        return true;
    }
    static const std::pair<const char*, int> PLAIN[] = {
        {"PLAY", VERB_PLAY}, {"NEXT", VERB_NEXT}, {"STOP", VERB_STOP}, {"CLEAR", VERB_CG_CLEAR}};
    for (const auto& [name, code] : PLAIN)
        if (verb == name) {
            out.nVerb = code;
            if (!layer(3) || w.size() > 4) {
                error = Reply(REPLY_ILLEGAL, "CG FAILED " + verb + " takes a layer at most");
                return false;
            }
            return true;
        }
    error = Reply(REPLY_ERROR, "ERROR unknown CG command '" + w[2] + "'");
    return false;
}

bool ParseWords(const std::vector<std::string>& w, UstLineCommand& out, UstReply& error) {
    const std::string verb = Upper(w[0]);
    if (verb == "CG") return ParseCg(w, out, error);
    static const std::pair<const char*, int> CHANNEL[] = {
        {"CLEAR", VERB_CLEAR}, {"PLAY", VERB_LIST_PLAY}, {"STOP", VERB_LIST_STOP}};
    for (const auto& [name, code] : CHANNEL)
        if (verb == name) {
            out.nVerb = code;
            if (w.size() != 2) {
                error = Reply(REPLY_MISSING, verb + " FAILED channel expected");
                return false;
            }
            return ChannelIsOne(w[1], error);
        }
    static const std::pair<const char*, int> ALONE[] = {
        {"INFO", VERB_INFO}, {"VERSION", VERB_VERSION}, {"BYE", VERB_BYE}};
    for (const auto& [name, code] : ALONE)
        if (verb == name) {
            out.nVerb = code;
            return true;
        }
    if (verb == "AUTH" && w.size() == 2) {
        out.nVerb = VERB_AUTH;
        out.strToken = w[1];
        return true;
    }
    error = Reply(REPLY_ERROR, "ERROR unknown command '" + w[0].substr(0, 64) + "'");
    return false;
}

}  // namespace

bool IsValidUtf8(std::string_view text) {
    // The count of continuation bytes after a lead byte, and the bits the
    // lead byte gives; a byte that cannot lead gives -1.
    struct UstLead {
        unsigned mask, value, bits;
        int extra;
    };
    static const UstLead LEADS[] = {
        {0x80, 0x00, 0x7F, 0}, {0xE0, 0xC0, 0x1F, 1}, {0xF0, 0xE0, 0x0F, 2}, {0xF8, 0xF0, 0x07, 3}};
    const auto lead = [](unsigned char c, uint32_t& code) {
        for (const UstLead& l : LEADS)
            if ((c & l.mask) == l.value) {
                code = c & l.bits;
                return l.extra;
            }
        return -1;
    };
    static const uint32_t LEAST[] = {0, 0x80, 0x800, 0x10000};
    size_t i = 0;
    while (i < text.size()) {
        uint32_t code = 0;
        const int extra = lead(static_cast<unsigned char>(text[i]), code);
        if (extra < 0 || i + static_cast<size_t>(extra) >= text.size()) return false;
        for (int k = 1; k <= extra; ++k) {
            const auto d = static_cast<unsigned char>(text[i + static_cast<size_t>(k)]);
            if ((d & 0xC0) != 0x80) return false;
            code = (code << 6) | (d & 0x3Fu);
        }
        // Overlong forms, surrogates and codes past the last plane.
        if (code < LEAST[extra] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
            return false;
        i += static_cast<size_t>(extra) + 1;
    }
    return true;
}

bool SplitWords(std::string_view line, std::vector<std::string>& words, std::string& error) {
    words.clear();
    size_t i = 0;
    while (i < line.size()) {
        if (line[i] == ' ' || line[i] == '\t') {
            ++i;
            continue;
        }
        std::string word;
        if (line[i] != '"') {
            while (i < line.size() && line[i] != ' ' && line[i] != '\t')
                word += line[i++];
            words.push_back(std::move(word));
            continue;
        }
        ++i;
        bool closed = false;
        while (i < line.size()) {
            const char c = line[i++];
            if (c == '"') {
                closed = true;
                break;
            }
            if (c != '\\') {
                word += c;
                continue;
            }
            const char e = i < line.size() ? line[i++] : '\0';
            if (e == '"' || e == '\\') {
                word += e;
            } else if (e == 'n') {
                word += '\n';
            } else {
                error = "unknown escape in a quoted parameter";
                return false;
            }
        }
        if (!closed) {
            error = "a quoted parameter is not closed";
            return false;
        }
        words.push_back(std::move(word));
    }
    return true;
}

bool ParseLine(std::string_view line, UstLineCommand& out, UstReply& error) {
    out = UstLineCommand{};
    if (!IsValidUtf8(line)) {
        error = Reply(REPLY_ERROR, "ERROR the line is not UTF-8");
        return false;
    }
    std::vector<std::string> words;
    std::string message;
    if (!SplitWords(line, words, message)) {
        error = Reply(REPLY_ERROR, "ERROR " + message);
        return false;
    }
    if (words.size() >= 2 && Upper(words[0]) == "REQ") {
        out.strReq = words[1].substr(0, 64);
        words.erase(words.begin(), words.begin() + 2);
    }
    if (words.empty()) {
        error = Reply(REPLY_ERROR, "ERROR empty command");
        return false;
    }
    return ParseWords(words, out, error);
}

std::string FormatReply(const UstReply& reply, const std::string& req) {
    std::string out = req.empty() ? "" : "RES " + OneLine(req) + " ";
    out += std::to_string(reply.nCode) + " " + OneLine(reply.strText) + "\r\n";
    for (const std::string& line : reply.lines)
        out += OneLine(line) + "\r\n";
    if (reply.nCode == REPLY_INFO) out += "\r\n";
    return out;
}

}  // namespace orv
