#pragma once
// The little of WebSocket the event feed needs: the handshake's answer,
// text frames from the server, and reading what a client sends back (pings,
// a close, text it has no business sending) within a small bound.

#include <string>

namespace orv {

// Client frames larger than this close the connection.
constexpr size_t WS_FRAME_MAX = 4096;

enum EWsOpcode : int { WS_TEXT = 1, WS_BINARY = 2, WS_CLOSE = 8, WS_PING = 9, WS_PONG = 10 };
enum EWsRead : int { WS_NEED_MORE = 0, WS_FRAME, WS_BAD };

// Sec-WebSocket-Accept for the client's Sec-WebSocket-Key.
std::string WebSocketAccept(const std::string& key);
// An unmasked frame from the server, FIN set.
std::string WebSocketFrame(int opcode, const std::string& payload);
// One whole client frame off the front of `buffer`: clients must mask.
int TakeWebSocketFrame(std::string& buffer, int& opcode, std::string& payload);

}  // namespace orv
