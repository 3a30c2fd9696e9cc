#pragma once
// The play engine over a test board with pages that carry a text field,
// and the control server in front of it on a free loopback port, with a
// plain blocking client of the test's own.

#include <gtest/gtest.h>

#include <QTcpSocket>

#include <chrono>
#include <memory>
#include <string>
#include <thread>

#include "objects/text_object.h"
#include "playout/play_rig.h"
#include "remote/control_server.h"
#include "remote/remote_play_host.h"
#include "support/rect_object.h"
#include "support/text_host.h"

namespace orv::test {

constexpr uint32_t PAGE = 0xFF203040u;
constexpr const char* TAKE_KIM_LINE = "CG 1 ADD 1 \"News/1\" 1 \"{\\\"name\\\":\\\"Kim\\\"}\"";

struct UstFieldRig : UstPlayRig {
    UstFieldRig() {
        host.defaults.font.nSize = 20;
        host.working = host.defaults;
        context.host = &host;
        context.width = W;
        context.height = H;
        for (const char* text : {"{{name}}", "Page two"}) {
            CPageManager* page =
                AddPage(PAGE, Request(EFFECT_CUT, 10, false, EFFECT_CUT, 10, false));
            AddText(*page, QString::fromUtf8(text));
        }
    }
    void AddText(CPageManager& page, const QString& text) {
        auto object = std::make_unique<CQRDObjectText>(&context);
        object->BeginEdit(10, 6, false);
        object->InsertString(text);
        object->EndEdit();
        page.AddObject(std::move(object));
    }
    // The frame of a page of the same look with `text` typed as it stands.
    std::vector<uint32_t> Typed(const QString& text) {
        auto page = ColourPage(PAGE, {}, W, H);
        if (!text.isEmpty()) AddText(*page, text);
        std::vector<uint32_t> frame(static_cast<size_t>(W) * H, 0u);
        page->DrawForPlay(frame.data(), nullptr, W, H);
        return frame;
    }
    // Until the refreshes have written more than `before` pixels, and the
    // worker rests.
    bool WaitRefresh(int64_t before) {
        for (int i = 0; i < 5000 && engine->RefreshPixelsWritten() == before; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        for (int i = 0; i < 2000 && engine->IsLocked(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return engine->RefreshPixelsWritten() != before;
    }

    CFakeTextHost host;
    CFakeContext context;
};

// The rig with the control core and the server started on a free port.
struct UstServerRig : UstFieldRig {
    explicit UstServerRig(UstControlOptions options = Loopback()) {
        remoteHost.SetCore(&core);
        QString error;
        started = server.Start(options, error);
        EXPECT_TRUE(started) << error.toStdString();
    }
    // The engine goes first: its thread may be telling the host a state.
    ~UstServerRig() {
        server.Stop();
        engine.reset();
    }
    static UstControlOptions Loopback() {
        UstControlOptions o;
        o.nLinePort = 0;
        o.nHttpPort = 0;
        return o;
    }
    // The engine again, telling its states through the host the core hears.
    bool Rebuild() {
        engine =
            std::make_unique<CPlayEngine>(0, &board, UstSize{W, H}, UstSize{30, 17}, &remoteHost);
        engine->SetPlayList(&list);
        return true;
    }

    CRemotePlayHost remoteHost{&log};
    bool rebuilt = Rebuild();

    CControlCore core{*engine, QStringLiteral("News"), {pages[0].get(), pages[1].get()}, &list};
    CControlServer server{core};
    bool started = false;
};

// A client that sends a line and reads one reply line (and the body of a
// 200 or 201 reply).
class CLineClient {
public:
    explicit CLineClient(quint16 port) {
        m_socket.connectToHost(QStringLiteral("127.0.0.1"), port);
        m_bConnected = m_socket.waitForConnected(5000);
    }
    bool Connected() const { return m_bConnected; }
    void Send(const std::string& bytes) {
        m_socket.write(bytes.data(), static_cast<qint64>(bytes.size()));
        m_socket.waitForBytesWritten(5000);
    }
    std::string ReadLine(int ms = 10000) {
        const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
        while (!m_socket.canReadLine() && std::chrono::steady_clock::now() < until)
            if (!m_socket.waitForReadyRead(50) &&
                m_socket.state() != QAbstractSocket::ConnectedState)
                break;
        if (!m_socket.canReadLine()) return {};
        QByteArray line = m_socket.readLine();
        while (line.endsWith('\n') || line.endsWith('\r'))
            line.chop(1);
        return line.toStdString();
    }
    std::string Ask(const std::string& line) {
        Send(line + "\r\n");
        return ReadLine();
    }
    // The server closed the connection within the time.
    bool Closed(int ms = 5000) {
        const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
        while (std::chrono::steady_clock::now() < until) {
            if (m_socket.state() == QAbstractSocket::UnconnectedState) return true;
            m_socket.waitForReadyRead(20);
            m_socket.readAll();
        }
        return m_socket.state() == QAbstractSocket::UnconnectedState;
    }
    QTcpSocket& Socket() { return m_socket; }

private:
    QTcpSocket m_socket;
    bool m_bConnected = false;
};

}  // namespace orv::test
