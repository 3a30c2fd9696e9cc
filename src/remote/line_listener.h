#pragma once
// The connections of the line face, on the server's thread: lines read
// within bounds, parsed, run through the core, answered in order.

#include <QObject>

#include <atomic>
#include <string>

#include "remote/control_server.h"

class QTcpServer;
class QTcpSocket;
class QTimer;

namespace orv {

// Output a client leaves unread beyond this closes its connection.
constexpr qint64 REPLY_BACKLOG_MAX = 1 << 20;
// How long a refused client's further bytes are read and dropped.
constexpr int DRAIN_MS = 500;

class CLineListener : public QObject {
    Q_OBJECT
public:
    CLineListener(CControlCore& core, const UstControlOptions& options);
    // On the server's thread.
    bool Listen(QString& error);
    quint16 Port() const;
    int ClientCount() const { return m_nClients.load(); }

private:
    void OnConnection();
    void OnReadyRead(QTcpSocket* socket);
    // One line; false when the connection is to close after the reply.
    bool HandleLine(QTcpSocket* socket, const std::string& line);
    void Refuse(QTcpSocket* socket, const UstReply& reply, const std::string& req = {});
    void RefuseLine(QTcpSocket* socket);

    CControlCore& m_core;
    UstControlOptions m_options;
    QTcpServer* m_pServer = nullptr;
    std::atomic<int> m_nClients{0};
};

}  // namespace orv
