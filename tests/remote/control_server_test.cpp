// The control server over real loopback sockets, driving the engine on the
// test board: takes with data, updates on air, next, stop, erase, several
// clients, and what a careless or hostile client sends.
#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include "remote_rig.h"

namespace orv {
namespace {

// What a one-shot client gets: its bytes sent and its side closed at once
// (as `printf ... | nc -N` does), then everything read until the server
// closes.
std::string SendAndHalfClose(quint16 port, const std::string& bytes) {
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        ::close(fd);
        return "no connection";
    }
    ::send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    ::shutdown(fd, SHUT_WR);
    const timeval wait{5, 0};
    ::setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &wait, sizeof wait);
    std::string got;
    char chunk[4096];
    ssize_t n = 0;
    while ((n = ::recv(fd, chunk, sizeof chunk, 0)) > 0)
        got.append(chunk, static_cast<size_t>(n));
    ::close(fd);
    return got;
}

using test::CLineClient;
using test::UstServerRig;

constexpr const char* TAKE_KIM = test::TAKE_KIM_LINE;

TEST(ControlServer, TakeWithDataThenUpdateOnAir) {
    UstServerRig rig;
    CLineClient client(rig.server.LinePort());
    ASSERT_TRUE(client.Connected());
    EXPECT_EQ(client.Ask(TAKE_KIM), "202 ADD OK");
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    EXPECT_EQ(rig.Air(), rig.Typed(QStringLiteral("Kim")));

    EXPECT_EQ(client.Ask("CG 1 UPDATE 1 \"{\\\"name\\\":\\\"Lee\\\"}\""), "202 UPDATE OK");
    ASSERT_TRUE(rig.WaitRefresh(0));
    EXPECT_EQ(rig.Air(), rig.Typed(QStringLiteral("Lee")));
    EXPECT_EQ(rig.log.Count(PLAY_IN), 1);
    EXPECT_EQ(rig.pages[0]->m_data.Values().at(QStringLiteral("name")), QStringLiteral("Lee"));
}

TEST(ControlServer, UpdateRetakesWhenThePageAsksForIt) {
    UstServerRig rig;
    rig.pages[0]->m_data.SetUpdateMode(DATA_UPDATE_RETAKE);
    CLineClient client(rig.server.LinePort());
    EXPECT_EQ(client.Ask(TAKE_KIM), "202 ADD OK");
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    EXPECT_EQ(client.Ask("CG 1 UPDATE 1 \"{\\\"name\\\":\\\"Lee\\\"}\""), "202 UPDATE OK");
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}, 2));
    EXPECT_EQ(rig.log.Count(PLAY_IN), 2);
    EXPECT_EQ(rig.engine->RefreshPixelsWritten(), 0);
    EXPECT_EQ(rig.Air(), rig.Typed(QStringLiteral("Lee")));
}

TEST(ControlServer, AddThenPlayStopAndClear) {
    UstServerRig rig;
    CLineClient client(rig.server.LinePort());
    EXPECT_EQ(client.Ask("CG 1 ADD 1 \"2\" 0"), "202 ADD OK");
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(rig.log.Count(PLAY_IN), 0);  // added, not played
    EXPECT_EQ(client.Ask("CG 1 PLAY"), "202 PLAY OK");
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    EXPECT_EQ(rig.Air(), rig.Typed(QStringLiteral("Page two")));
    // The page has an out effect: STOP plays it, and the page has gone.
    EXPECT_EQ(client.Ask("CG 1 STOP"), "202 STOP OK");
    ASSERT_TRUE(rig.Settle({PLAY_GONE, 1}));
    EXPECT_EQ(rig.engine->PageOnAir(), nullptr);
    EXPECT_EQ(rig.engine->State(), PLAY_IDLE);
    EXPECT_EQ(client.Ask("CG 1 NEXT"), "202 NEXT OK");
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}, 2));
    EXPECT_FALSE(rig.AirIs(0u));
    EXPECT_EQ(client.Ask("CLEAR 1"), "202 CLEAR OK");
    EXPECT_TRUE(rig.AirIs(0u));
    EXPECT_EQ(rig.engine->PageOnAir(), nullptr);
}

TEST(ControlServer, InfoVersionAndRequestIds) {
    UstServerRig rig;
    CLineClient client(rig.server.LinePort());
    EXPECT_EQ(client.Ask("REQ v1 VERSION"), "RES v1 201 VERSION OK");
    EXPECT_EQ(client.ReadLine(), CControlCore::VERSION);
    EXPECT_EQ(client.Ask("INFO"), "200 INFO OK");
    EXPECT_EQ(client.ReadLine(), "project News");
    EXPECT_EQ(client.ReadLine(), "pages 2");
    EXPECT_EQ(client.ReadLine(), "state idle");
    EXPECT_EQ(client.ReadLine(), "loaded 0");
    EXPECT_EQ(client.ReadLine(), "on air 0");
    EXPECT_EQ(client.ReadLine(), "");
}

TEST(ControlServer, TwoClientsAtOnce) {
    UstServerRig rig;
    CLineClient a(rig.server.LinePort()), b(rig.server.LinePort());
    ASSERT_TRUE(a.Connected() && b.Connected());
    // Both send before either reads: each gets its own answers in order.
    a.Send("REQ a1 CG 1 ADD 1 \"News/1\" 0 \"{\\\"name\\\":\\\"A\\\"}\"\r\nREQ a2 CG 1 PLAY\r\n");
    b.Send("REQ b1 VERSION\r\nREQ b2 CG 2 PLAY\r\n");
    EXPECT_EQ(a.ReadLine(), "RES a1 202 ADD OK");
    EXPECT_EQ(a.ReadLine(), "RES a2 202 PLAY OK");
    EXPECT_EQ(b.ReadLine(), "RES b1 201 VERSION OK");
    EXPECT_EQ(b.ReadLine(), CControlCore::VERSION);
    EXPECT_EQ(b.ReadLine(), "RES b2 401 ERROR only channel 1 plays");
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    EXPECT_EQ(rig.Air(), rig.Typed(QStringLiteral("A")));
}

TEST(ControlServer, BadPagesAndPathsAreRefusedWithoutPlaying) {
    UstServerRig rig;
    CLineClient client(rig.server.LinePort());
    EXPECT_EQ(client.Ask("CG 1 ADD 1 \"News/3\" 1").substr(0, 4), "404 ");
    EXPECT_EQ(client.Ask("CG 1 ADD 1 \"News/0\" 1").substr(0, 4), "404 ");
    EXPECT_EQ(client.Ask("CG 1 ADD 1 \"Other/1\" 1").substr(0, 4), "404 ");
    EXPECT_EQ(client.Ask("CG 1 ADD 1 \"../News/1\" 1").substr(0, 4), "403 ");
    EXPECT_EQ(client.Ask("CG 1 ADD 1 \"..\\\\x/1\" 1").substr(0, 4), "403 ");
    EXPECT_EQ(client.Ask("CG 1 ADD 1 \"News/1\" 1 \"not json\"").substr(0, 4), "403 ");
    EXPECT_EQ(client.Ask("CG 1 UPDATE 1 \"" + std::string(10000, '[') + "\"").substr(0, 4), "403 ");
    EXPECT_EQ(client.Ask("CG 1 PLAY").substr(0, 4), "500 ");  // nothing added
    EXPECT_EQ(client.Ask("CG 1 ADD 1 \"\xc3\x28\" 1"), "400 ERROR the line is not UTF-8");
    // The connection is still good after all of that.
    EXPECT_EQ(client.Ask("VERSION"), "201 VERSION OK");
    EXPECT_EQ(rig.log.Count(PLAY_IN), 0);
}

// The editor hands the core the pages of play mode and takes them back when
// it leaves: a command after that finds none, and one loaded before is
// forgotten rather than played from a page that may be deleted.
TEST(ControlServer, PagesHandedOverAndTakenBack) {
    UstServerRig rig;
    CLineClient client(rig.server.LinePort());
    EXPECT_EQ(client.Ask("CG 1 ADD 1 \"News/2\" 0"), "202 ADD OK");
    rig.core.SetPages(QStringLiteral("Show"), {});
    EXPECT_EQ(client.Ask("CG 1 PLAY").substr(0, 4), "500 ");
    EXPECT_EQ(client.Ask("CG 1 ADD 1 \"Show/1\" 1").substr(0, 4), "404 ");
    EXPECT_EQ(rig.core.PageCount(), 0);
    rig.core.SetPages(QStringLiteral("Show"), {rig.pages[1].get()});
    EXPECT_EQ(client.Ask("CG 1 ADD 1 \"News/1\" 1").substr(0, 4), "404 ");
    EXPECT_EQ(client.Ask("CG 1 ADD 1 \"Show/1\" 1"), "202 ADD OK");
    ASSERT_TRUE(rig.Settle({PLAY_ON, 0}));
    EXPECT_EQ(rig.Air(), rig.Typed(QStringLiteral("Page two")));
    EXPECT_EQ(rig.core.ProjectName(), QStringLiteral("Show"));
}

TEST(ControlServer, ControlArgumentsOfTheCommandLine) {
    UstControlOptions o;
    QString error;
    ASSERT_TRUE(ReadControlArgument(QStringLiteral("6000"), o, error));
    EXPECT_EQ(o.address, QHostAddress(QHostAddress::LocalHost));
    EXPECT_EQ(o.nLinePort, 6000);
    EXPECT_EQ(o.nHttpPort, 6001);
    ASSERT_TRUE(ReadControlArgument(QStringLiteral("[::1]:65534"), o, error));
    EXPECT_EQ(o.address, QHostAddress(QHostAddress::LocalHostIPv6));
    EXPECT_EQ(o.nHttpPort, 65535);
    // The HTTP face needs the next port; 0 would be any port at all.
    for (const char* bad : {"65535", "0", "-1", "x", "127.0.0.1:", "nowhere:5250", ""})
        EXPECT_FALSE(ReadControlArgument(QString::fromLatin1(bad), o, error)) << bad;
    qunsetenv("ORVANTIS_CONTROL_TOKEN");
    EXPECT_FALSE(ReadControlArgument(QStringLiteral("0.0.0.0:5250"), o, error));
    EXPECT_TRUE(error.contains(QStringLiteral("ORVANTIS_CONTROL_TOKEN")));
    qputenv("ORVANTIS_CONTROL_TOKEN", "s3cret");
    EXPECT_TRUE(ReadControlArgument(QStringLiteral("0.0.0.0:5250"), o, error));
    EXPECT_EQ(o.strToken, QStringLiteral("s3cret"));
    qunsetenv("ORVANTIS_CONTROL_TOKEN");
}

TEST(ControlServer, AClientThatClosesItsSideStillGetsItsReplies) {
    UstServerRig rig;
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(SendAndHalfClose(rig.server.LinePort(), "VERSION\r\nCG 1 PLAY\r\n"),
                  std::string("201 VERSION OK\r\n") + CControlCore::VERSION +
                      "\r\n500 CG FAILED no page added\r\n");
    const std::string http =
        SendAndHalfClose(rig.server.HttpPort(), "GET /api/status HTTP/1.1\r\n\r\n");
    EXPECT_EQ(http.substr(0, 15), "HTTP/1.1 200 OK");
    EXPECT_NE(http.find("\"pages\":2"), std::string::npos);
}

TEST(ControlServer, LongLineIsRefusedAndItsConnectionClosed) {
    UstServerRig rig;
    CLineClient client(rig.server.LinePort());
    client.Send(std::string(1 << 20, 'A'));
    EXPECT_EQ(client.ReadLine(), "400 ERROR line too long");
    EXPECT_TRUE(client.Closed());
    // Others are served as before.
    CLineClient next(rig.server.LinePort());
    EXPECT_EQ(next.Ask("VERSION"), "201 VERSION OK");
}

TEST(ControlServer, TokenIsAskedFirst) {
    UstControlOptions options = UstServerRig::Loopback();
    options.strToken = QStringLiteral("s3cret");
    UstServerRig rig(options);
    CLineClient none(rig.server.LinePort());
    EXPECT_EQ(none.Ask("CG 1 NEXT"), "403 AUTH FAILED token required");
    EXPECT_TRUE(none.Closed());
    CLineClient wrong(rig.server.LinePort());
    EXPECT_EQ(wrong.Ask("AUTH s3creT"), "403 AUTH FAILED wrong token");
    EXPECT_TRUE(wrong.Closed());
    CLineClient right(rig.server.LinePort());
    EXPECT_EQ(right.Ask("AUTH s3cret"), "202 AUTH OK");
    EXPECT_EQ(right.Ask("VERSION"), "201 VERSION OK");
    EXPECT_EQ(rig.log.Count(PLAY_LOAD), 0);

    // Off loopback a server will not start without one.
    UstControlOptions open = UstServerRig::Loopback();
    open.address = QHostAddress(QHostAddress::AnyIPv4);
    QString error;
    EXPECT_FALSE(CheckControlOptions(open, error));
    open.strToken = QStringLiteral("x");
    EXPECT_TRUE(CheckControlOptions(open, error));
}

TEST(ControlServer, FloodAndSilentClientsAreBounded) {
    UstControlOptions options = UstServerRig::Loopback();
    options.nMaxClients = 2;
    options.nIdleMs = 300;
    UstServerRig rig(options);
    CLineClient a(rig.server.LinePort()), b(rig.server.LinePort());
    EXPECT_EQ(a.Ask("VERSION"), "201 VERSION OK");
    EXPECT_EQ(b.Ask("VERSION"), "201 VERSION OK");
    CLineClient c(rig.server.LinePort());
    EXPECT_EQ(c.ReadLine(), "500 FAILED too many connections");
    EXPECT_TRUE(c.Closed());
    // Clients that say nothing are let go, and their places come free.
    EXPECT_TRUE(a.Closed(3000));
    EXPECT_TRUE(b.Closed(3000));
    for (int i = 0; i < 200 && rig.server.ClientCount() > 0; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(rig.server.ClientCount(), 0);
    CLineClient d(rig.server.LinePort());
    EXPECT_EQ(d.Ask("VERSION"), "201 VERSION OK");
}

}  // namespace
}  // namespace orv
