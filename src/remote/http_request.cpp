#include "remote/http_request.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace orv {

namespace {

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string Trim(const std::string& text) {
    const size_t from = text.find_first_not_of(" \t");
    if (from == std::string::npos) return {};
    return text.substr(from, text.find_last_not_of(" \t") + 1 - from);
}

const char* Reason(int status) {
    switch (status) {
        case 101:
            return "Switching Protocols";
        case 200:
            return "OK";
        case 400:
            return "Bad Request";
        case 401:
            return "Unauthorized";
        case 404:
            return "Not Found";
        case 405:
            return "Method Not Allowed";
        case 409:
            return "Conflict";
        case 413:
            return "Content Too Large";
        case 431:
            return "Request Header Fields Too Large";
        case 503:
            return "Service Unavailable";
        default:
            return "Error";
    }
}

bool ReadRequestLine(const std::string& line, UstHttpRequest& out) {
    const size_t a = line.find(' ');
    const size_t b = a == std::string::npos ? a : line.find(' ', a + 1);
    if (b == std::string::npos || line.find(' ', b + 1) != std::string::npos) return false;
    const std::string version = line.substr(b + 1);
    if (version != "HTTP/1.1" && version != "HTTP/1.0") return false;
    out.bKeepAlive = version == "HTTP/1.1";
    out.strMethod = line.substr(0, a);
    const std::string target = line.substr(a + 1, b - a - 1);
    if (target.empty() || target[0] != '/') return false;
    const size_t q = target.find('?');
    out.strPath = target.substr(0, q);
    out.strQuery = q == std::string::npos ? "" : target.substr(q + 1);
    return !out.strMethod.empty();
}

bool ReadHeaders(const std::string& head, size_t from, UstHttpRequest& out) {
    while (from < head.size()) {
        size_t end = head.find("\r\n", from);
        if (end == std::string::npos) end = head.size();
        const std::string line = head.substr(from, end - from);
        from = end + 2;
        const size_t colon = line.find(':');
        if (colon == std::string::npos || colon == 0) return false;
        out.headers[Lower(line.substr(0, colon))] = Trim(line.substr(colon + 1));
    }
    return true;
}

}  // namespace

int TakeHttpRequest(std::string& buffer, UstHttpRequest& out, std::string& error) {
    const size_t headEnd = buffer.find("\r\n\r\n");
    if (headEnd == std::string::npos) {
        if (buffer.size() > HTTP_HEAD_MAX) {
            error = "the request head is too long";
            return HTTP_TOO_LARGE;
        }
        return HTTP_NEED_MORE;
    }
    if (headEnd > HTTP_HEAD_MAX) {
        error = "the request head is too long";
        return HTTP_TOO_LARGE;
    }
    out = UstHttpRequest{};
    const std::string head = buffer.substr(0, headEnd);
    const size_t lineEnd = std::min(head.find("\r\n"), head.size());
    if (!ReadRequestLine(head.substr(0, lineEnd), out) || !ReadHeaders(head, lineEnd + 2, out)) {
        error = "not an HTTP/1.1 request";
        return HTTP_BAD;
    }
    if (!out.Header("transfer-encoding").empty()) {
        error = "chunked bodies are not taken; send Content-Length";
        return HTTP_BAD;
    }
    size_t length = 0;
    const std::string text = out.Header("content-length");
    if (!text.empty()) {
        const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), length);
        if (ec != std::errc() || end != text.data() + text.size()) {
            error = "a bad Content-Length";
            return HTTP_BAD;
        }
    }
    if (length > HTTP_BODY_MAX) {
        error = "the body is too large";
        return HTTP_TOO_LARGE;
    }
    if (buffer.size() - headEnd - 4 < length) return HTTP_NEED_MORE;
    out.strBody = buffer.substr(headEnd + 4, length);
    const std::string connection = Lower(out.Header("connection"));
    if (connection == "close") out.bKeepAlive = false;
    if (connection == "keep-alive") out.bKeepAlive = true;
    buffer.erase(0, headEnd + 4 + length);
    return HTTP_DONE;
}

std::string HttpResponse(int status, const std::string& body, bool keepAlive,
                         const std::string& contentType, const std::string& extra) {
    std::string out = "HTTP/1.1 " + std::to_string(status) + " " + Reason(status) + "\r\n";
    if (!body.empty()) out += "Content-Type: " + contentType + "\r\n";
    out += "Content-Length: " + std::to_string(body.size()) + "\r\n";
    out += keepAlive ? "Connection: keep-alive\r\n" : "Connection: close\r\n";
    out += extra + "\r\n" + body;
    return out;
}

std::string QueryValue(const std::string& query, const std::string& name) {
    size_t from = 0;
    while (from <= query.size()) {
        const size_t end = std::min(query.find('&', from), query.size());
        const std::string pair = query.substr(from, end - from);
        if (pair.compare(0, name.size() + 1, name + "=") == 0) return pair.substr(name.size() + 1);
        from = end + 1;
    }
    return {};
}

}  // namespace orv
