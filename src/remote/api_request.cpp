#include "remote/api_request.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

#include "remote/field_json.h"

namespace orv {

namespace {

bool Refuse(UstApiError& error, int status, std::string message) {
    error = {status, std::move(message)};
    return false;
}

// The body as a JSON object; an empty body is an empty object.
bool BodyObject(const std::string& body, QJsonObject& out, UstApiError& error) {
    if (body.find_first_not_of(" \t\r\n") == std::string::npos) {
        out = {};
        return true;
    }
    QJsonParseError status{};
    const QJsonDocument doc = QJsonDocument::fromJson(
        QByteArray(body.data(), static_cast<qsizetype>(body.size())), &status);
    if (status.error != QJsonParseError::NoError || !doc.isObject())
        return Refuse(error, 400, "the body must be a JSON object");
    out = doc.object();
    return true;
}

// A whole number in a JSON value, within [low, high].
bool WholeNumber(const QJsonValue& v, double low, double high, int64_t& out) {
    if (!v.isDouble()) return false;
    const double d = v.toDouble();
    if (!std::isfinite(d) || d != std::floor(d) || d < low || d > high) return false;
    out = static_cast<int64_t>(d);
    return true;
}

bool ParseTake(const std::string& body, UstApiCall& out, UstApiError& error) {
    QJsonObject object;
    if (!BodyObject(body, object, error)) return false;
    int64_t page = 0;
    if (!WholeNumber(object.value(QStringLiteral("page")), 1, 1 << 20, page))
        return Refuse(error, 400, "\"page\" must be a page number counted from 1");
    out.nPage = static_cast<int>(page);
    const QJsonValue play = object.value(QStringLiteral("play"));
    if (!play.isUndefined() && !play.isBool())
        return Refuse(error, 400, "\"play\" must be true or false");
    out.bPlay = play.isUndefined() || play.toBool();
    const QJsonValue data = object.value(QStringLiteral("data"));
    if (data.isUndefined()) return true;
    std::string message;
    if (!data.isObject() || !FieldsFromJson(data.toObject(), out.data, message))
        return Refuse(error, 400, message.empty() ? "\"data\" must be an object" : message);
    out.bHasData = true;
    return true;
}

bool ParseTimers(const std::string& action, const std::string& body, UstApiCall& out,
                 UstApiError& error) {
    static const std::pair<const char*, int> ACTIONS[] = {{"pause", TIMER_PAUSE},
                                                          {"resume", TIMER_RESUME},
                                                          {"restart", TIMER_RESTART},
                                                          {"set", TIMER_SET}};
    out.nCall = API_TIMERS;
    const auto* found = std::find_if(std::begin(ACTIONS), std::end(ACTIONS),
                                     [&](const auto& a) { return action == a.first; });
    if (found == std::end(ACTIONS))
        return Refuse(error, 404, "timers take pause, resume, restart or set");
    out.timer.nControl = found->second;
    if (out.timer.nControl != TIMER_SET) return true;
    QJsonObject object;
    if (!BodyObject(body, object, error)) return false;
    int64_t seconds = 0;
    if (!WholeNumber(object.value(QStringLiteral("seconds")), -1e12, 1e12, seconds))
        return Refuse(error, 400, "set needs {\"seconds\": n}");
    out.timer.nValue = seconds;
    return true;
}

// "/api/pages/{n}/data"
bool ParsePageData(const std::string& path, const std::string& body, UstApiCall& out,
                   UstApiError& error) {
    const std::string prefix = "/api/pages/", suffix = "/data";
    const std::string number =
        path.substr(prefix.size(), path.size() - prefix.size() - suffix.size());
    int page = 0;
    const auto [end, ec] = std::from_chars(number.data(), number.data() + number.size(), page);
    if (number.empty() || ec != std::errc() || end != number.data() + number.size() || page < 1)
        return Refuse(error, 404, "no such page");
    out.nCall = API_PAGE_DATA;
    out.nPage = page;
    std::string message;
    if (!ParseFieldJson(body, out.data, message)) return Refuse(error, 400, message);
    out.bHasData = true;
    return true;
}

bool EndsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

bool ParseApiRequest(const std::string& method, const std::string& path, const std::string& body,
                     UstApiCall& out, UstApiError& error) {
    out = UstApiCall{};
    const bool get = method == "GET", post = method == "POST", put = method == "PUT";
    if (path == "/api/status" || path == "/api/pages" || path == "/api/events") {
        if (!get) return Refuse(error, 405, "use GET");
        out.nCall = path == "/api/status"  ? API_STATUS
                    : path == "/api/pages" ? API_PAGES
                                           : API_EVENTS;
        return true;
    }
    if (path.rfind("/api/pages/", 0) == 0 && EndsWith(path, "/data") &&
        path.size() > std::string("/api/pages//data").size() - 1) {
        if (!put) return Refuse(error, 405, "use PUT");
        return ParsePageData(path, body, out, error);
    }
    if (path.rfind("/api/timers/", 0) == 0) {
        if (!post) return Refuse(error, 405, "use POST");
        return ParseTimers(path.substr(std::string("/api/timers/").size()), body, out, error);
    }
    static const std::pair<const char*, int> PLAIN[] = {
        {"/api/next", API_NEXT}, {"/api/stop", API_STOP}, {"/api/erase", API_ERASE}};
    for (const auto& [name, code] : PLAIN)
        if (path == name) {
            if (!post) return Refuse(error, 405, "use POST");
            out.nCall = code;
            return true;
        }
    if (path == "/api/take") {
        if (!post) return Refuse(error, 405, "use POST");
        out.nCall = API_TAKE;
        return ParseTake(body, out, error);
    }
    return Refuse(error, 404, "no such resource");
}

}  // namespace orv
