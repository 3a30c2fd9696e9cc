#include "remote/http_listener.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <algorithm>

#include "project/page_manager.h"
#include "remote/line_listener.h"
#include "remote/websocket.h"

namespace orv {

namespace {

std::string Json(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

std::string Json(const QJsonArray& array) {
    return QJsonDocument(array).toJson(QJsonDocument::Compact).toStdString();
}

std::string ErrorJson(const std::string& message) {
    return Json(QJsonObject{{QStringLiteral("ok"), false},
                            {QStringLiteral("message"), QString::fromStdString(message)}});
}

UstApiResponse FromReply(const UstReply& reply) {
    const int status = reply.nCode < 400    ? 200
                       : reply.nCode == 404 ? 404
                       : reply.nCode == 500 ? 409
                                            : 400;
    return {status,
            Json(QJsonObject{{QStringLiteral("ok"), reply.nCode < 400},
                             {QStringLiteral("code"), reply.nCode},
                             {QStringLiteral("message"), QString::fromStdString(reply.strText)}})};
}

QJsonObject PageJson(int number, const CPageManager& page) {
    QJsonArray fields;
    for (const QString& name : page.FieldNames())
        fields.append(name);
    QJsonObject data;
    for (const auto& [name, value] : page.m_data.Values())
        data.insert(name, value);
    return {{QStringLiteral("page"), number},
            {QStringLiteral("fields"), fields},
            {QStringLiteral("data"), data},
            {QStringLiteral("update"), page.m_data.UpdateMode() == DATA_UPDATE_RETAKE
                                           ? QStringLiteral("retake")
                                           : QStringLiteral("rect")}};
}

}  // namespace

UstApiResponse ExecuteApiCall(CControlCore& core, const UstApiCall& call) {
    switch (call.nCall) {
        case API_STATUS:
            return {200, Json(QJsonObject{{QStringLiteral("project"), core.ProjectName()},
                                          {QStringLiteral("pages"), core.PageCount()},
                                          {QStringLiteral("state"),
                                           QString::fromLatin1(RemoteStateName(core.StateNow()))},
                                          {QStringLiteral("loaded"), core.LoadedNumber()},
                                          {QStringLiteral("onAir"), core.OnAirNumber()},
                                          {QStringLiteral("version"),
                                           QString::fromLatin1(CControlCore::VERSION)}})};
        case API_PAGES: {
            QJsonArray pages;
            core.ForEachPage([&pages](int number, const CPageManager& page) {
                pages.append(PageJson(number, page));
            });
            return {200, Json(pages)};
        }
        case API_TAKE:
            return FromReply(core.Take(std::to_string(call.nPage),
                                       call.bHasData ? &call.data : nullptr, call.bPlay));
        case API_NEXT:
            return FromReply(core.Next());
        case API_STOP:
            return FromReply(core.Stop());
        case API_ERASE:
            return FromReply(core.Erase());
        case API_PAGE_DATA:
            return FromReply(core.SetPageData(call.nPage, call.data, true));
        case API_TIMERS:
            return FromReply(core.Timers(call.timer));
        default:
            return {404, ErrorJson("no such resource")};
    }
}

CHttpListener::CHttpListener(CControlCore& core, const UstControlOptions& options)
    : m_core(core), m_options(options) {}

bool CHttpListener::Listen(QString& error) {
    m_pServer = new QTcpServer(this);
    if (!ListenOn(*m_pServer, m_options.address, m_options.nHttpPort, error)) return false;
    connect(m_pServer, &QTcpServer::newConnection, this, &CHttpListener::OnConnection);
    return true;
}

quint16 CHttpListener::Port() const {
    return m_pServer ? m_pServer->serverPort() : 0;
}

void CHttpListener::OnConnection() {
    while (QTcpSocket* socket = m_pServer->nextPendingConnection()) {
        if (m_nClients.load() >= m_options.nMaxClients) {
            socket->write(QByteArray::fromStdString(
                HttpResponse(503, ErrorJson("too many connections"), false)));
            socket->disconnectFromHost();
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            continue;
        }
        m_nClients.fetch_add(1);
        UstClient& client = m_clients[socket];
        client.pIdle = new QTimer(socket);
        client.pIdle->setSingleShot(true);
        client.pIdle->start(m_options.nIdleMs);
        connect(client.pIdle, &QTimer::timeout, socket, [this, socket] { OnIdle(socket); });
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { OnReadyRead(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            m_clients.erase(socket);
            m_nClients.fetch_sub(1);
            socket->deleteLater();
        });
    }
}

// An event client is quiet by nature: it is asked for a pong instead, and
// only one that stays silent through a whole idle time after it goes, so a
// half-open one does not hold its place for ever.
void CHttpListener::OnIdle(QTcpSocket* socket) {
    const auto it = m_clients.find(socket);
    if (it == m_clients.end() || !it->second.bWebSocket || it->second.bPingSent) {
        socket->abort();
        return;
    }
    it->second.bPingSent = true;
    it->second.pIdle->start(m_options.nIdleMs);
    Send(socket, WebSocketFrame(WS_PING, "idle"));
}

// A client that does not read its answers is dropped, later: dropping it
// now would take its state from under the caller.
void CHttpListener::Send(QTcpSocket* socket, const std::string& bytes) {
    socket->write(bytes.data(), static_cast<qint64>(bytes.size()));
    if (socket->bytesToWrite() > REPLY_BACKLOG_MAX)
        QTimer::singleShot(0, socket, [socket] { socket->abort(); });
}

void CHttpListener::OnReadyRead(QTcpSocket* socket) {
    const auto it = m_clients.find(socket);
    if (it == m_clients.end()) return;
    UstClient& client = it->second;
    client.pIdle->start(m_options.nIdleMs);
    // Never more than one request's bound is held for a client; what waits
    // beyond it is read once the requests before it are answered.
    while (socket->bytesAvailable() > 0) {
        if (client.bDraining) {
            socket->readAll();
            return;
        }
        const qint64 room = static_cast<qint64>(HTTP_HEAD_MAX + HTTP_BODY_MAX + 4) -
                            static_cast<qint64>(client.buffer.size());
        client.buffer += socket->read(std::max<qint64>(room, 0)).toStdString();
        if (!(client.bWebSocket ? ReadWebSocket(socket, client) : ReadRequests(socket, client)))
            return;
    }
    // Out now, not at the next turn of the loop: a client that sent its
    // request and closed its side would otherwise lose the answer, as Qt
    // drops what waits to be written once it reads the end.
    socket->flush();
}

// False when the connection is closing and the client's state may be gone.
bool CHttpListener::ReadRequests(QTcpSocket* socket, UstClient& client) {
    for (;;) {
        UstHttpRequest request;
        std::string error;
        const int result = TakeHttpRequest(client.buffer, request, error);
        if (result == HTTP_NEED_MORE) return true;
        if (result != HTTP_DONE) {
            // Read and dropped for a moment, so that the close does not
            // reset the connection and take the answer with it.
            Send(socket,
                 HttpResponse(result == HTTP_TOO_LARGE ? 413 : 400, ErrorJson(error), false));
            client.bDraining = true;
            client.buffer.clear();
            socket->readAll();
            QTimer::singleShot(DRAIN_MS, socket, [socket] { socket->disconnectFromHost(); });
            return false;
        }
        if (!Serve(socket, client, request)) {
            socket->disconnectFromHost();
            return false;
        }
        if (client.bWebSocket) return ReadWebSocket(socket, client);
    }
}

bool CHttpListener::Authorised(const UstHttpRequest& request) const {
    if (m_options.strToken.isEmpty()) return true;
    std::string given = request.Header("authorization");
    if (given.rfind("Bearer ", 0) == 0)
        given = given.substr(7);
    else
        given =
            QueryValue(request.strQuery, "token");  // browsers cannot set headers on a WebSocket
    return SameToken(QByteArray::fromStdString(given), m_options.strToken.toUtf8());
}

bool CHttpListener::Serve(QTcpSocket* socket, UstClient& client, const UstHttpRequest& request) {
    if (!Authorised(request)) {
        Send(socket, HttpResponse(401, ErrorJson("a valid token is required"), false,
                                  "application/json", "WWW-Authenticate: Bearer\r\n"));
        return false;
    }
    UstApiCall call;
    UstApiError error;
    if (!ParseApiRequest(request.strMethod, request.strPath, request.strBody, call, error)) {
        Send(socket, HttpResponse(error.nStatus, ErrorJson(error.strMessage), request.bKeepAlive));
        return request.bKeepAlive;
    }
    if (call.nCall == API_EVENTS) return Upgrade(socket, client, request);
    const UstApiResponse response = ExecuteApiCall(m_core, call);
    Send(socket, HttpResponse(response.nStatus, response.strBody, request.bKeepAlive));
    return request.bKeepAlive;
}

bool CHttpListener::Upgrade(QTcpSocket* socket, UstClient& client, const UstHttpRequest& request) {
    const std::string key = request.Header("sec-websocket-key");
    if (key.empty() || request.Header("upgrade").find("ebsocket") == std::string::npos) {
        Send(socket, HttpResponse(400, ErrorJson("/api/events is a WebSocket"), false));
        return false;
    }
    Send(socket,
         "HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\n"
         "Connection: Upgrade\r\nSec-WebSocket-Accept: " +
             WebSocketAccept(key) + "\r\n\r\n");
    client.bWebSocket = true;
    return true;
}

bool CHttpListener::ReadWebSocket(QTcpSocket* socket, UstClient& client) {
    for (;;) {
        int opcode = 0;
        std::string payload;
        const int result = TakeWebSocketFrame(client.buffer, opcode, payload);
        if (result == WS_NEED_MORE) return true;
        if (result == WS_BAD || opcode == WS_CLOSE) {
            Send(socket, WebSocketFrame(WS_CLOSE, ""));
            socket->disconnectFromHost();
            return false;
        }
        client.bPingSent = false;
        if (opcode == WS_PING) Send(socket, WebSocketFrame(WS_PONG, payload));
    }
}

// The call is queued under the lock, and the destructor takes it too: an
// event told as the server stops reaches a listener that still stands.
void CHttpListener::Post(std::string json) {
    std::lock_guard lock(m_eventMutex);
    if (m_events.size() >= EVENT_BACKLOG_MAX) return;
    m_events.push_back(std::move(json));
    if (m_events.size() == 1) QMetaObject::invokeMethod(this, "FlushEvents", Qt::QueuedConnection);
}

CHttpListener::~CHttpListener() {
    std::lock_guard lock(m_eventMutex);
}

void CHttpListener::FlushEvents() {
    std::vector<std::string> events;
    {
        std::lock_guard lock(m_eventMutex);
        events.swap(m_events);
    }
    for (const std::string& json : events)
        Broadcast(json);
}

void CHttpListener::Broadcast(const std::string& json) {
    const std::string frame = WebSocketFrame(WS_TEXT, json);
    for (auto& [socket, client] : m_clients)
        if (client.bWebSocket && socket->state() == QAbstractSocket::ConnectedState)
            Send(socket, frame);
}

}  // namespace orv
