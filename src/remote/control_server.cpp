#include "remote/control_server.h"

#include <QTcpServer>
#include <QThread>

#include <future>

#include "remote/http_listener.h"
#include "remote/line_listener.h"

namespace orv {

// The same time for a wrong token of any length or likeness.
bool SameToken(const QByteArray& given, const QByteArray& token) {
    if (token.isEmpty()) return false;
    unsigned diff = static_cast<unsigned>(given.size() != token.size());
    for (qsizetype i = 0; i < given.size(); ++i)
        diff |= static_cast<unsigned char>(given[i]) ^
                static_cast<unsigned char>(token[i % token.size()]);
    return diff == 0;
}

bool ListenOn(QTcpServer& server, const QHostAddress& address, quint16 port, QString& error) {
    if (server.listen(address, port)) return true;
    error = QStringLiteral("cannot listen on %1:%2: %3")
                .arg(address.toString())
                .arg(port)
                .arg(server.errorString());
    return false;
}

bool ReadControlArgument(const QString& text, UstControlOptions& options, QString& error) {
    const qsizetype colon = text.lastIndexOf(':');
    QString host = colon < 0 ? QStringLiteral("127.0.0.1") : text.left(colon);
    if (host.size() > 2 && host.startsWith('[') && host.endsWith(']'))
        host = host.mid(1, host.size() - 2);
    bool ok = false;
    const int port = text.mid(colon + 1).toInt(&ok);
    QHostAddress address;
    if (!ok || port < 1 || port > 65534 || !address.setAddress(host)) {
        error = QStringLiteral("--control takes PORT or ADDR:PORT");
        return false;
    }
    options.address = address;
    options.nLinePort = static_cast<quint16>(port);
    options.nHttpPort = static_cast<quint16>(port + 1);
    options.strToken = qEnvironmentVariable("ORVANTIS_CONTROL_TOKEN");
    if (CheckControlOptions(options, error)) return true;
    error += QStringLiteral(" (set ORVANTIS_CONTROL_TOKEN)");
    return false;
}

bool CheckControlOptions(const UstControlOptions& options, QString& error) {
    if (!options.address.isLoopback() && options.strToken.isEmpty()) {
        error = QStringLiteral("a token is needed to listen on %1").arg(options.address.toString());
        return false;
    }
    if (options.nMaxClients < 1 || options.nIdleMs < 1) {
        error = QStringLiteral("the client limit and the idle time must be positive");
        return false;
    }
    return true;
}

CControlServer::CControlServer(CControlCore& core) : m_core(core) {}

CControlServer::~CControlServer() {
    Stop();
}

bool CControlServer::Start(const UstControlOptions& options, QString& error) {
    if (m_pThread) return true;
    if (!CheckControlOptions(options, error)) return false;
    m_pThread = new QThread;
    m_pThread->setObjectName(QStringLiteral("control server"));
    m_pListener = new CLineListener(m_core, options);
    m_pListener->moveToThread(m_pThread);
    QObject::connect(m_pThread, &QThread::finished, m_pListener, &QObject::deleteLater);
    if (options.bHttp) {
        m_pHttp = new CHttpListener(m_core, options);
        m_pHttp->moveToThread(m_pThread);
        QObject::connect(m_pThread, &QThread::finished, m_pHttp, &QObject::deleteLater);
    }
    // The listeners start listening on their own thread as it starts; the
    // answer comes back through a promise, which the thread checker can
    // follow where it cannot follow Qt's queue.
    std::promise<bool> ready;
    QString message;
    QObject::connect(
        m_pThread, &QThread::started, m_pListener,
        [this, &ready, &message] {
            const bool ok = m_pListener->Listen(message) && (!m_pHttp || m_pHttp->Listen(message));
            m_nPort.store(ok ? m_pListener->Port() : 0);
            m_nHttpPort.store(ok && m_pHttp ? m_pHttp->Port() : 0);
            ready.set_value(ok);
        },
        Qt::SingleShotConnection);
    m_pThread->start();
    if (!ready.get_future().get()) {
        error = message;
        Stop();
        return false;
    }
    // The engine's thread that tells the events never waits for a client.
    CHttpListener* http = m_pHttp;
    if (http) m_core.SetEventSink([http](const std::string& json) { http->Post(json); });
    return true;
}

void CControlServer::Stop() {
    if (!m_pThread) return;
    m_core.SetEventSink(nullptr);
    m_pThread->quit();
    m_pThread->wait();
    delete m_pThread;
    m_pThread = nullptr;
    m_pListener = nullptr;
    m_pHttp = nullptr;
    m_nPort.store(0);
    m_nHttpPort.store(0);
}

int CControlServer::ClientCount() const {
    return (m_pListener ? m_pListener->ClientCount() : 0) + (m_pHttp ? m_pHttp->ClientCount() : 0);
}

}  // namespace orv
