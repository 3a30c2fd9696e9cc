#pragma once
// The control server's line face: a TCP listener on its own thread with its
// own event loop, so that a command never waits on the user interface and
// the user interface never waits on a client. Off until started; on the
// loopback address unless told otherwise, and then only with a token.

#include <QByteArray>
#include <QHostAddress>
#include <QObject>
#include <QString>

#include <atomic>
#include <memory>

#include "remote/control_core.h"

class QThread;
class QTcpServer;
class QTcpSocket;

namespace orv {

struct UstControlOptions {
    QHostAddress address = QHostAddress(QHostAddress::LocalHost);
    quint16 nLinePort = 5250;  // 0: any free port, for the tests
    bool bHttp = true;
    quint16 nHttpPort = 5251;
    // Every connection must say "AUTH <token>" first when one is set; one
    // must be set for any address but loopback.
    QString strToken;
    int nMaxClients = 32;
    // A connection that says nothing for this long is closed: half-open
    // ones would otherwise hold their slot for ever.
    int nIdleMs = 120000;
};

// "PORT", "ADDR:PORT" or "[V6ADDR]:PORT" of --control: the line protocol on
// PORT and HTTP on the one after, loopback unless an address is given. The
// token comes from ORVANTIS_CONTROL_TOKEN, kept out of the process list.
bool ReadControlArgument(const QString& text, UstControlOptions& options, QString& error);
// Whether the options may be used: an address off loopback needs a token.
bool CheckControlOptions(const UstControlOptions& options, QString& error);
// Token comparison in a time that does not tell how much of it was right.
bool SameToken(const QByteArray& given, const QByteArray& token);
// Listens, or says why not.
bool ListenOn(QTcpServer& server, const QHostAddress& address, quint16 port, QString& error);

class CLineListener;
class CHttpListener;

class CControlServer {
public:
    explicit CControlServer(CControlCore& core);
    ~CControlServer();
    CControlServer(const CControlServer&) = delete;
    CControlServer& operator=(const CControlServer&) = delete;

    // Starts listening; false with a message when the options are refused
    // or the port cannot be had.
    bool Start(const UstControlOptions& options, QString& error);
    void Stop();
    bool IsRunning() const { return m_pThread != nullptr; }
    // The port in use, once started.
    quint16 LinePort() const { return m_nPort.load(); }
    quint16 HttpPort() const { return m_nHttpPort.load(); }
    int ClientCount() const;

private:
    CControlCore& m_core;
    QThread* m_pThread = nullptr;
    CLineListener* m_pListener = nullptr;  // these live on m_pThread
    CHttpListener* m_pHttp = nullptr;
    std::atomic<quint16> m_nPort{0}, m_nHttpPort{0};
};

}  // namespace orv
