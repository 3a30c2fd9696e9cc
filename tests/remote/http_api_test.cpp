// The HTTP face: request heads and bodies cut by hand, the API's routes,
// the WebSocket bytes of the RFC's own examples, and the JSON API and the
// event feed over real loopback sockets driving the test board.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "remote/api_request.h"
#include "remote/http_request.h"
#include "remote/websocket.h"
#include "remote_rig.h"

namespace orv {
namespace {

TEST(HttpRequest, WholeRequestsOnlyAndPipelinedOnesKept) {
    std::string buffer = "POST /api/take?x=1 HTTP/1.1\r\nHost: a\r\nContent-Length: 4\r\n\r\n{}";
    UstHttpRequest r;
    std::string error;
    EXPECT_EQ(TakeHttpRequest(buffer, r, error), HTTP_NEED_MORE);
    buffer += "  GET /api/status HTTP/1.0\r\n\r\n";
    ASSERT_EQ(TakeHttpRequest(buffer, r, error), HTTP_DONE);
    EXPECT_EQ(r.strMethod, "POST");
    EXPECT_EQ(r.strPath, "/api/take");
    EXPECT_EQ(r.strQuery, "x=1");
    EXPECT_EQ(r.Header("host"), "a");
    EXPECT_EQ(r.strBody, "{}  ");
    EXPECT_TRUE(r.bKeepAlive);
    ASSERT_EQ(TakeHttpRequest(buffer, r, error), HTTP_DONE);
    EXPECT_EQ(r.strPath, "/api/status");
    EXPECT_FALSE(r.bKeepAlive);  // 1.0 without keep-alive
    EXPECT_TRUE(buffer.empty());
}

TEST(HttpRequest, BoundsAndNonsense) {
    UstHttpRequest r;
    std::string error;
    std::string head(HTTP_HEAD_MAX + 1, 'a');
    EXPECT_EQ(TakeHttpRequest(head, r, error), HTTP_TOO_LARGE);
    std::string big =
        "PUT /api/pages/1/data HTTP/1.1\r\nContent-Length: " + std::to_string(HTTP_BODY_MAX + 1) +
        "\r\n\r\n";
    EXPECT_EQ(TakeHttpRequest(big, r, error), HTTP_TOO_LARGE);
    for (std::string bad :
         {"GET /x\r\n\r\n", "GET x HTTP/1.1\r\n\r\n", "GET /x HTTP/2\r\n\r\n",
          "GET /x HTTP/1.1\r\nno colon\r\n\r\n", "POST /x HTTP/1.1\r\nContent-Length: -1\r\n\r\n",
          "POST /x HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n"})
        EXPECT_EQ(TakeHttpRequest(bad, r, error), HTTP_BAD) << bad;
    EXPECT_EQ(QueryValue("a=1&token=x%20y&b", "token"), "x%20y");
    EXPECT_EQ(QueryValue("tokens=1", "token"), "");
}

TEST(ApiRequest, RoutesAndBodies) {
    UstApiCall c;
    UstApiError e;
    ASSERT_TRUE(ParseApiRequest("POST", "/api/take", "{\"page\":2,\"data\":{\"n\":\"A\"}}", c, e));
    EXPECT_EQ(c.nCall, API_TAKE);
    EXPECT_EQ(c.nPage, 2);
    EXPECT_TRUE(c.bPlay);
    EXPECT_EQ(c.data.at(QStringLiteral("n")), QStringLiteral("A"));
    ASSERT_TRUE(ParseApiRequest("POST", "/api/take", "{\"page\":1,\"play\":false}", c, e));
    EXPECT_FALSE(c.bPlay);
    EXPECT_FALSE(c.bHasData);
    ASSERT_TRUE(ParseApiRequest("PUT", "/api/pages/12/data", "{\"a\":\"b\"}", c, e));
    EXPECT_EQ(c.nCall, API_PAGE_DATA);
    EXPECT_EQ(c.nPage, 12);
    ASSERT_TRUE(ParseApiRequest("POST", "/api/timers/set", "{\"seconds\":90}", c, e));
    EXPECT_EQ(c.timer.nControl, TIMER_SET);
    EXPECT_EQ(c.timer.nValue, 90);
    ASSERT_TRUE(ParseApiRequest("POST", "/api/timers/pause", "", c, e));
    EXPECT_EQ(c.timer.nControl, TIMER_PAUSE);
    ASSERT_TRUE(ParseApiRequest("GET", "/api/events", "", c, e));
    EXPECT_EQ(c.nCall, API_EVENTS);

    const auto status = [&](const char* m, const char* p, const char* b) {
        EXPECT_FALSE(ParseApiRequest(m, p, b, c, e)) << p << " " << b;
        return e.nStatus;
    };
    EXPECT_EQ(status("GET", "/api/take", ""), 405);
    EXPECT_EQ(status("POST", "/api/status", ""), 405);
    EXPECT_EQ(status("GET", "/api/nothing", ""), 404);
    EXPECT_EQ(status("PUT", "/api/pages/0/data", "{}"), 404);
    EXPECT_EQ(status("PUT", "/api/pages/x/data", "{}"), 404);
    EXPECT_EQ(status("PUT", "/api/pages//data", "{}"), 404);
    EXPECT_EQ(status("POST", "/api/timers/explode", ""), 404);
    EXPECT_EQ(status("POST", "/api/take", "{\"page\":1.5}"), 400);
    EXPECT_EQ(status("POST", "/api/take", "{\"page\":0}"), 400);
    EXPECT_EQ(status("POST", "/api/take", "{\"page\":1,\"play\":1}"), 400);
    EXPECT_EQ(status("POST", "/api/take", "{\"page\":1,\"data\":[1]}"), 400);
    EXPECT_EQ(status("POST", "/api/take", "[]"), 400);
    EXPECT_EQ(status("POST", "/api/timers/set", "{\"seconds\":\"9\"}"), 400);
    const std::string deep = "{\"page\":" + std::string(10000, '[') + std::string(10000, ']') + "}";
    EXPECT_FALSE(ParseApiRequest("POST", "/api/take", deep, c, e));
}

TEST(WebSocket, TheRfcExamples) {
    EXPECT_EQ(WebSocketAccept("dGhlIHNhbXBsZSBub25jZQ=="), "s3pPLMBiTxaQ9kYGzzhZRbK+xOo=");
    EXPECT_EQ(WebSocketFrame(WS_TEXT, "Hello"), std::string("\x81\x05Hello"));
    const std::string long126 = WebSocketFrame(WS_TEXT, std::string(256, 'x'));
    EXPECT_EQ(long126.substr(0, 4), std::string("\x81\x7e\x01\x00", 4));
    std::string masked("\x81\x85\x37\xfa\x21\x3d\x7f\x9f\x4d\x51\x58", 11);
    std::string partial = masked.substr(0, 6);
    int opcode = 0;
    std::string payload;
    EXPECT_EQ(TakeWebSocketFrame(partial, opcode, payload), WS_NEED_MORE);
    ASSERT_EQ(TakeWebSocketFrame(masked, opcode, payload), WS_FRAME);
    EXPECT_EQ(opcode, WS_TEXT);
    EXPECT_EQ(payload, "Hello");
    EXPECT_TRUE(masked.empty());
    std::string unmasked("\x81\x05Hello", 7);
    EXPECT_EQ(TakeWebSocketFrame(unmasked, opcode, payload), WS_BAD);
    std::string huge("\x81\xff\0\0\0\0\0\0\0\x10", 10);
    EXPECT_EQ(TakeWebSocketFrame(huge, opcode, payload), WS_BAD);
}

// A plain HTTP client: one request, the status and body of the answer.
struct UstHttpAnswer {
    int nStatus = 0;
    QJsonDocument body;
    std::string strRaw;
};

UstHttpAnswer Request(test::CLineClient& c, const std::string& method, const std::string& path,
                      const std::string& body = {}, const std::string& headers = {}) {
    c.Send(method + " " + path + " HTTP/1.1\r\nHost: test\r\n" + headers +
           "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body);
    UstHttpAnswer a;
    const std::string status = c.ReadLine();
    if (status.size() < 12) return a;
    a.nStatus = std::stoi(status.substr(9, 3));
    size_t length = 0;
    for (std::string line = c.ReadLine(); !line.empty(); line = c.ReadLine())
        if (line.rfind("Content-Length: ", 0) == 0) length = std::stoul(line.substr(16));
    QTcpSocket& s = c.Socket();
    while (static_cast<size_t>(s.bytesAvailable()) < length && s.waitForReadyRead(5000)) {
    }
    a.strRaw = s.read(static_cast<qint64>(length)).toStdString();
    a.body = QJsonDocument::fromJson(QByteArray::fromStdString(a.strRaw));
    return a;
}

TEST(HttpApi, TakeUpdateStatusAndPages) {
    test::UstServerRig rig;
    test::CLineClient http(rig.server.HttpPort());
    ASSERT_TRUE(http.Connected());
    UstHttpAnswer a =
        Request(http, "POST", "/api/take", "{\"page\":1,\"data\":{\"name\":\"Kim\"}}");
    EXPECT_EQ(a.nStatus, 200);
    EXPECT_TRUE(a.body.object().value("ok").toBool()) << a.strRaw;
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    EXPECT_EQ(rig.Air(), rig.Typed(QStringLiteral("Kim")));

    a = Request(http, "PUT", "/api/pages/1/data", "{\"name\":\"Lee\"}");
    EXPECT_EQ(a.nStatus, 200);
    ASSERT_TRUE(rig.WaitRefresh(0));
    EXPECT_EQ(rig.Air(), rig.Typed(QStringLiteral("Lee")));

    a = Request(http, "GET", "/api/status");
    EXPECT_EQ(a.nStatus, 200);
    EXPECT_EQ(a.body.object().value("project").toString(), QStringLiteral("News"));
    EXPECT_EQ(a.body.object().value("onAir").toInt(), 1);
    EXPECT_EQ(a.body.object().value("pages").toInt(), 2);

    a = Request(http, "GET", "/api/pages");
    const QJsonArray pages = a.body.array();
    ASSERT_EQ(pages.size(), 2);
    EXPECT_EQ(pages[0].toObject().value("fields").toArray(), QJsonArray{QStringLiteral("name")});
    EXPECT_EQ(pages[0].toObject().value("data").toObject().value("name").toString(),
              QStringLiteral("Lee"));
    EXPECT_TRUE(pages[1].toObject().value("fields").toArray().isEmpty());

    EXPECT_EQ(Request(http, "POST", "/api/take", "{\"page\":3}").nStatus, 404);
    EXPECT_EQ(Request(http, "POST", "/api/erase").nStatus, 200);
    EXPECT_TRUE(rig.AirIs(0u));
    EXPECT_EQ(Request(http, "GET", "/nothing").nStatus, 404);
}

TEST(HttpApi, TokenIsRequiredWhenSet) {
    UstControlOptions options = test::UstServerRig::Loopback();
    options.strToken = QStringLiteral("s3cret");
    test::UstServerRig rig(options);
    test::CLineClient none(rig.server.HttpPort());
    EXPECT_EQ(Request(none, "GET", "/api/status").nStatus, 401);
    test::CLineClient wrong(rig.server.HttpPort());
    EXPECT_EQ(Request(wrong, "GET", "/api/status", {}, "Authorization: Bearer nope\r\n").nStatus,
              401);
    test::CLineClient right(rig.server.HttpPort());
    EXPECT_EQ(Request(right, "GET", "/api/status", {}, "Authorization: Bearer s3cret\r\n").nStatus,
              200);
}

TEST(HttpApi, OversizedRequestsAreRefusedAndClosed) {
    test::UstServerRig rig;
    test::CLineClient client(rig.server.HttpPort());
    client.Send(std::string(HTTP_HEAD_MAX + 100, 'G'));
    EXPECT_EQ(client.ReadLine().substr(0, 12), "HTTP/1.1 413");
    EXPECT_TRUE(client.Closed());
}

// Reads one server frame from the socket: the events are small text frames.
std::string ReadFrame(QTcpSocket& s) {
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (s.bytesAvailable() < 2 && std::chrono::steady_clock::now() < until)
        s.waitForReadyRead(50);
    const QByteArray head = s.peek(4);
    if (head.size() < 2) return {};
    size_t length = static_cast<unsigned char>(head[1]) & 0x7F;
    size_t at = 2;
    if (length == 126) {
        while (s.bytesAvailable() < 4 && s.waitForReadyRead(50)) {
        }
        const QByteArray h = s.peek(4);
        length = (static_cast<size_t>(static_cast<unsigned char>(h[2])) << 8) |
                 static_cast<unsigned char>(h[3]);
        at = 4;
    }
    while (static_cast<size_t>(s.bytesAvailable()) < at + length &&
           std::chrono::steady_clock::now() < until)
        s.waitForReadyRead(50);
    s.read(static_cast<qint64>(at));
    return s.read(static_cast<qint64>(length)).toStdString();
}

TEST(HttpApi, EventsReachAWebSocketClient) {
    test::UstServerRig rig;
    test::CLineClient events(rig.server.HttpPort());
    events.Send(
        "GET /api/events HTTP/1.1\r\nHost: t\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
        "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n\r\n");
    EXPECT_EQ(events.ReadLine(), "HTTP/1.1 101 Switching Protocols");
    bool accepted = false;
    for (std::string line = events.ReadLine(); !line.empty(); line = events.ReadLine())
        accepted = accepted || line == "Sec-WebSocket-Accept: s3pPLMBiTxaQ9kYGzzhZRbK+xOo=";
    EXPECT_TRUE(accepted);

    test::CLineClient control(rig.server.LinePort());
    EXPECT_EQ(control.Ask(test::TAKE_KIM_LINE), "202 ADD OK");
    // The data first, then the machine's states up to on air.
    std::vector<QJsonObject> seen;
    while (seen.size() < 8) {
        const std::string frame = ReadFrame(events.Socket());
        if (frame.empty()) break;
        seen.push_back(QJsonDocument::fromJson(QByteArray::fromStdString(frame)).object());
        if (seen.back().value("state").toString() == QStringLiteral("on air")) break;
    }
    ASSERT_GE(seen.size(), 2u);
    EXPECT_EQ(seen[0].value("event").toString(), QStringLiteral("data"));
    EXPECT_EQ(seen[0].value("data").toObject().value("name").toString(), QStringLiteral("Kim"));
    EXPECT_EQ(seen.back().value("event").toString(), QStringLiteral("state"));
    EXPECT_EQ(seen.back().value("state").toString(), QStringLiteral("on air"));
    EXPECT_EQ(seen.back().value("page").toInt(), 1);
}

}  // namespace
}  // namespace orv
