#pragma once
// The HTTP face on the server's thread: the JSON API over keep-alive
// connections, and the event feed for clients that upgrade /api/events to
// a WebSocket. Same bounds as the line face: client count, idle time,
// request size, unread output.

#include <QObject>

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "remote/api_request.h"
#include "remote/control_server.h"
#include "remote/http_request.h"

class QTcpServer;
class QTcpSocket;
class QTimer;

namespace orv {

constexpr size_t EVENT_BACKLOG_MAX = 4096;

struct UstApiResponse {
    int nStatus = 200;
    std::string strBody;  // JSON
};

// One typed call through the core, answered as JSON.
UstApiResponse ExecuteApiCall(CControlCore& core, const UstApiCall& call);

class CHttpListener : public QObject {
    Q_OBJECT
public:
    CHttpListener(CControlCore& core, const UstControlOptions& options);
    ~CHttpListener() override;
    bool Listen(QString& error);
    quint16 Port() const;
    int ClientCount() const { return m_nClients.load(); }
    // To every event client; on the listener's thread.
    void Broadcast(const std::string& json);
    // From any thread: the event goes out from the listener's own. Past
    // EVENT_BACKLOG_MAX waiting, new ones are dropped.
    void Post(std::string json);

private:
    // A call by name through Qt's queue carries nothing of ours across the
    // threads: the events wait under a lock the thread checker can see.
    Q_INVOKABLE void FlushEvents();

    struct UstClient {
        std::string buffer;
        bool bWebSocket = false;
        bool bDraining = false;
        bool bPingSent = false;
        QTimer* pIdle = nullptr;
    };
    void OnConnection();
    void OnReadyRead(QTcpSocket* socket);
    void OnIdle(QTcpSocket* socket);
    // False when the connection is to close once the answer is out.
    bool Serve(QTcpSocket* socket, UstClient& client, const UstHttpRequest& request);
    bool Authorised(const UstHttpRequest& request) const;
    bool Upgrade(QTcpSocket* socket, UstClient& client, const UstHttpRequest& request);
    // Each false when the connection is closing.
    bool ReadRequests(QTcpSocket* socket, UstClient& client);
    bool ReadWebSocket(QTcpSocket* socket, UstClient& client);
    void Send(QTcpSocket* socket, const std::string& bytes);

    CControlCore& m_core;
    UstControlOptions m_options;
    QTcpServer* m_pServer = nullptr;
    std::map<QTcpSocket*, UstClient> m_clients;
    std::atomic<int> m_nClients{0};
    std::mutex m_eventMutex;
    std::vector<std::string> m_events;
};

}  // namespace orv
