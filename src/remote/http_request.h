#pragma once
// Just enough HTTP/1.1 for a JSON API on a studio network: a request head
// of bounded size, a body of Content-Length bytes (no chunks), keep-alive.
// Pure: bytes in, a request or a refusal out.

#include <map>
#include <string>

namespace orv {

constexpr size_t HTTP_HEAD_MAX = 16 * 1024;
constexpr size_t HTTP_BODY_MAX = 64 * 1024;

struct UstHttpRequest {
    std::string strMethod;
    std::string strPath;                         // without the query
    std::string strQuery;                        // after '?', undecoded
    std::map<std::string, std::string> headers;  // names in lower case
    std::string strBody;
    bool bKeepAlive = true;
    std::string Header(const std::string& name) const {
        const auto it = headers.find(name);
        return it == headers.end() ? std::string() : it->second;
    }
};

enum EHttpParse : int { HTTP_NEED_MORE = 0, HTTP_DONE, HTTP_BAD, HTTP_TOO_LARGE };

// Takes one whole request off the front of `buffer`; the rest stays for the
// next. HTTP_NEED_MORE leaves the buffer as it is.
int TakeHttpRequest(std::string& buffer, UstHttpRequest& out, std::string& error);
// A response with its length; `extra` holds whole header lines.
std::string HttpResponse(int status, const std::string& body, bool keepAlive,
                         const std::string& contentType = "application/json",
                         const std::string& extra = {});
// The value of `name` in a query such as "a=1&token=x", undecoded.
std::string QueryValue(const std::string& query, const std::string& name);

}  // namespace orv
