#include "remote/line_listener.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

namespace orv {

namespace {

// Per-connection state kept on the socket itself, so that it goes with it.
constexpr const char* PROP_AUTHED = "orvAuthed";
constexpr const char* PROP_DRAINING = "orvDraining";

}  // namespace

CLineListener::CLineListener(CControlCore& core, const UstControlOptions& options)
    : m_core(core), m_options(options) {}

bool CLineListener::Listen(QString& error) {
    m_pServer = new QTcpServer(this);
    if (!ListenOn(*m_pServer, m_options.address, m_options.nLinePort, error)) return false;
    connect(m_pServer, &QTcpServer::newConnection, this, &CLineListener::OnConnection);
    return true;
}

quint16 CLineListener::Port() const {
    return m_pServer ? m_pServer->serverPort() : 0;
}

void CLineListener::OnConnection() {
    while (QTcpSocket* socket = m_pServer->nextPendingConnection()) {
        if (m_nClients.load() >= m_options.nMaxClients) {
            Refuse(socket, {REPLY_FAILED, "FAILED too many connections", {}});
            continue;
        }
        m_nClients.fetch_add(1);
        socket->setProperty(PROP_AUTHED, m_options.strToken.isEmpty());
        auto* idle = new QTimer(socket);
        idle->setSingleShot(true);
        idle->start(m_options.nIdleMs);
        connect(idle, &QTimer::timeout, socket, [socket] { socket->abort(); });
        connect(socket, &QTcpSocket::readyRead, this, [this, socket, idle] {
            idle->start(m_options.nIdleMs);
            OnReadyRead(socket);
        });
        connect(socket, &QTcpSocket::bytesWritten, this,
                [this, idle] { idle->start(m_options.nIdleMs); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            m_nClients.fetch_sub(1);
            socket->deleteLater();
        });
    }
}

void CLineListener::Refuse(QTcpSocket* socket, const UstReply& reply, const std::string& req) {
    const std::string bytes = FormatReply(reply, req);
    socket->write(bytes.data(), static_cast<qint64>(bytes.size()));
    socket->disconnectFromHost();
    // A socket refused before it was counted has no disconnected handler.
    if (!socket->property(PROP_AUTHED).isValid())
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
}

// The rest of what the client sends is read and dropped for a moment
// before the close, so that the close does not reset the connection and
// take the reply with it.
void CLineListener::RefuseLine(QTcpSocket* socket) {
    socket->readAll();
    const std::string bytes = FormatReply({REPLY_ERROR, "ERROR line too long", {}}, {});
    socket->write(bytes.data(), static_cast<qint64>(bytes.size()));
    socket->setProperty(PROP_DRAINING, true);
    QTimer::singleShot(DRAIN_MS, socket, [socket] { socket->disconnectFromHost(); });
}

void CLineListener::OnReadyRead(QTcpSocket* socket) {
    if (socket->property(PROP_DRAINING).toBool()) {
        socket->readAll();
        return;
    }
    while (socket->state() == QAbstractSocket::ConnectedState) {
        if (!socket->canReadLine()) {
            // No line end within the limit: nothing a client may send.
            if (socket->bytesAvailable() > static_cast<qint64>(LINE_MAX_BYTES)) RefuseLine(socket);
            // The replies go out now, not at the next turn of the loop: a
            // client that sent its lines and closed its side (nc -N) would
            // lose them, as Qt drops what waits to be written once it reads
            // the end.
            socket->flush();
            return;
        }
        QByteArray raw = socket->readLine(static_cast<qint64>(LINE_MAX_BYTES) + 2);
        if (!raw.endsWith('\n')) {
            RefuseLine(socket);
            return;
        }
        raw.chop(raw.endsWith("\r\n") ? 2 : 1);
        if (!HandleLine(socket, raw.toStdString())) {
            socket->disconnectFromHost();
            return;
        }
        if (socket->bytesToWrite() > REPLY_BACKLOG_MAX) {
            socket->abort();
            return;
        }
    }
}

bool CLineListener::HandleLine(QTcpSocket* socket, const std::string& line) {
    if (line.empty()) return true;
    UstLineCommand command;
    UstReply reply;
    const bool parsed = ParseLine(line, command, reply);
    const bool authed = socket->property(PROP_AUTHED).toBool();
    bool keep = true;
    if (parsed && command.nVerb == VERB_AUTH) {
        const bool ok =
            SameToken(QByteArray::fromStdString(command.strToken), m_options.strToken.toUtf8());
        socket->setProperty(PROP_AUTHED, ok || authed);
        reply = ok ? UstReply{REPLY_OK, "AUTH OK", {}}
                   : UstReply{REPLY_ILLEGAL, "AUTH FAILED wrong token", {}};
        keep = ok;
    } else if (!authed) {
        // Nothing but the token is heard before it.
        reply = {REPLY_ILLEGAL, "AUTH FAILED token required", {}};
        keep = false;
    } else if (parsed && command.nVerb == VERB_BYE) {
        return false;
    } else if (parsed) {
        reply = m_core.Execute(command);
    }
    const std::string bytes = FormatReply(reply, command.strReq);
    socket->write(bytes.data(), static_cast<qint64>(bytes.size()));
    return keep;
}

}  // namespace orv
