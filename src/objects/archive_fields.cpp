#include "objects/archive_fields.h"

namespace orv {

namespace {

constexpr uint8_t LENGTH_ESCAPE = 0xFF;
constexpr uint16_t WIDE_TAG = 0xFFFE;
constexpr uint16_t LONG_ESCAPE = 0xFFFF;

QString ReadWide(CByteReader& in, uint32_t length) {
    if (static_cast<uint64_t>(length) * 2 > in.Remaining()) throw std::out_of_range("string");
    QString text(static_cast<qsizetype>(length), Qt::Uninitialized);
    in.GetBytes(text.data(), static_cast<size_t>(length) * 2);
    return text;
}

// Single-byte text from older files. Bytes above 127 are taken one for one;
// a reader that knows the file's code page converts them properly.
QString ReadNarrow(CByteReader& in, uint32_t length) {
    if (length > in.Remaining()) throw std::out_of_range("string");
    QByteArray bytes(static_cast<qsizetype>(length), Qt::Uninitialized);
    in.GetBytes(bytes.data(), length);
    return QString::fromLatin1(bytes);
}

}  // namespace

void WriteArchiveCount(CByteWriter& out, uint32_t count) {
    if (count < LONG_ESCAPE) {
        out.Put(static_cast<uint16_t>(count));
        return;
    }
    out.Put(LONG_ESCAPE);
    out.Put(count);
}

uint32_t ReadArchiveCount(CByteReader& in) {
    const uint16_t count = in.Get<uint16_t>();
    return count == LONG_ESCAPE ? in.Get<uint32_t>() : count;
}

void WriteArchiveString(CByteWriter& out, const QString& text) {
    const auto length = static_cast<uint32_t>(text.size());
    out.Put(LENGTH_ESCAPE);
    out.Put(WIDE_TAG);
    if (length < LENGTH_ESCAPE) {
        out.Put(static_cast<uint8_t>(length));
    } else {
        out.Put(LENGTH_ESCAPE);
        if (length < WIDE_TAG) {
            out.Put(static_cast<uint16_t>(length));
        } else {
            out.Put(LONG_ESCAPE);
            out.Put(length);
        }
    }
    out.PutBytes(text.constData(), static_cast<size_t>(length) * 2);
}

QString ReadArchiveString(CByteReader& in) {
    bool wide = false;
    uint32_t length = in.Get<uint8_t>();
    for (;;) {
        if (length < LENGTH_ESCAPE) break;
        const uint16_t word = in.Get<uint16_t>();
        if (word == WIDE_TAG && !wide) {
            wide = true;
            length = in.Get<uint8_t>();
            continue;
        }
        length = word == LONG_ESCAPE ? in.Get<uint32_t>() : word;
        break;
    }
    return wide ? ReadWide(in, length) : ReadNarrow(in, length);
}

}  // namespace orv
