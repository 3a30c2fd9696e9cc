#include "remote/websocket.h"

#include <QByteArray>
#include <QCryptographicHash>

#include <cstdint>

namespace orv {

std::string WebSocketAccept(const std::string& key) {
    const QByteArray text = QByteArray::fromStdString(key) + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11";
    return QCryptographicHash::hash(text, QCryptographicHash::Sha1).toBase64().toStdString();
}

std::string WebSocketFrame(int opcode, const std::string& payload) {
    std::string out;
    out += static_cast<char>(0x80 | (opcode & 0x0F));
    const size_t n = payload.size();
    if (n < 126) {
        out += static_cast<char>(n);
    } else if (n <= 0xFFFF) {
        out += static_cast<char>(126);
        out += static_cast<char>(n >> 8);
        out += static_cast<char>(n & 0xFF);
    } else {
        out += static_cast<char>(127);
        for (int shift = 56; shift >= 0; shift -= 8)
            out += static_cast<char>((static_cast<uint64_t>(n) >> shift) & 0xFF);
    }
    return out + payload;
}

int TakeWebSocketFrame(std::string& buffer, int& opcode, std::string& payload) {
    if (buffer.size() < 2) return WS_NEED_MORE;
    const auto b0 = static_cast<unsigned char>(buffer[0]);
    const auto b1 = static_cast<unsigned char>(buffer[1]);
    // Fragments and reserved bits are nothing an event client needs.
    if ((b0 & 0x80) == 0 || (b0 & 0x70) != 0 || (b1 & 0x80) == 0) return WS_BAD;
    size_t length = b1 & 0x7F;
    size_t at = 2;
    if (length == 126) {
        if (buffer.size() < 4) return WS_NEED_MORE;
        length = (static_cast<size_t>(static_cast<unsigned char>(buffer[2])) << 8) |
                 static_cast<unsigned char>(buffer[3]);
        at = 4;
    } else if (length == 127) {
        return WS_BAD;
    }
    if (length > WS_FRAME_MAX) return WS_BAD;
    if (buffer.size() < at + 4 + length) return WS_NEED_MORE;
    const std::string mask = buffer.substr(at, 4);
    payload = buffer.substr(at + 4, length);
    for (size_t i = 0; i < payload.size(); ++i)
        payload[i] = static_cast<char>(payload[i] ^ mask[i % 4]);
    opcode = b0 & 0x0F;
    buffer.erase(0, at + 4 + length);
    return WS_FRAME;
}

}  // namespace orv
