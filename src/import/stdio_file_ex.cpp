#include "import/stdio_file_ex.h"

#include <QFile>

#include <cstring>

#include "objects/archive_fields.h"

namespace orv {

namespace {

// The length a lead byte announces, or 0 for a byte that cannot lead.
int SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

// The allowed range of the second byte, which is where overlong forms,
// surrogates and code points past U+10FFFF show.
bool SecondByteFits(unsigned char lead, unsigned char second) {
    if (lead == 0xE0) return second >= 0xA0 && second <= 0xBF;
    if (lead == 0xED) return second >= 0x80 && second <= 0x9F;
    if (lead == 0xF0) return second >= 0x90 && second <= 0xBF;
    if (lead == 0xF4) return second >= 0x80 && second <= 0x8F;
    return second >= 0x80 && second <= 0xBF;
}

}  // namespace

bool IsValidUtf8(const char* bytes, size_t size) {
    const auto* p = reinterpret_cast<const unsigned char*>(bytes);
    for (size_t i = 0; i < size;) {
        const int n = SequenceLength(p[i]);
        if (n == 0 || i + static_cast<size_t>(n) > size) return false;
        if (n > 1 && !SecondByteFits(p[i], p[i + 1])) return false;
        for (int k = 2; k < n; ++k)
            if ((p[i + static_cast<size_t>(k)] & 0xC0) != 0x80) return false;
        i += static_cast<size_t>(n);
    }
    return true;
}

bool CStdioFileEx::Open(const QString& path, uint32_t flags, QString* error) {
    Close();
    SetFilePath(path);
    m_nOpenFlags = flags;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error) *error = file.errorString();
        return false;
    }
    if (file.size() > MAX_FILE_SIZE) {
        if (error) *error = QStringLiteral("the file is too large for text");
        return false;
    }
    const QByteArray all = file.readAll();
    m_bytes.assign(all.constData(), static_cast<size_t>(all.size()));
    m_bOpen = true;
    const bool writing = (flags & (FILE_MODE_WRITE | FILE_MODE_READ_WRITE | FILE_MODE_CREATE)) != 0;
    if ((flags & FILE_TYPE_TEXT) && !writing) CheckEncoding();
    return true;
}

void CStdioFileEx::Close() {
    m_bytes.clear();
    m_nPos = 0;
    m_bOpen = false;
    m_bIsUnicode = m_bIsUtf8 = 0;
    m_bBigEndian = false;
}

void CStdioFileEx::CheckEncoding() {
    const auto byte = [this](size_t i) { return static_cast<unsigned char>(m_bytes[i]); };
    if (m_bytes.size() >= 2) {
        const unsigned mark = byte(0) | (byte(1) << 8);
        if (mark == 0xFEFF || mark == 0xFFFE) {
            m_bIsUnicode = 1;
            m_bBigEndian = mark == 0xFFFE;
            m_nPos = 2;  // the mark is no part of the text
            m_nOpenFlags = (m_nOpenFlags & ~FILE_TYPE_TEXT) | FILE_TYPE_BINARY;
            return;
        }
    }
    // A UTF-8 mark is read as part of the first line, where it stays as
    // U+FEFF. Without a mark, valid UTF-8 is taken as UTF-8: nearly every
    // text file written here is. Only what is not falls back to CP949.
    m_bIsUtf8 = IsValidUtf8(m_bytes.data(), m_bytes.size()) ? 1 : 0;
}

bool CStdioFileEx::HasZeroBytes() const {
    return !m_bIsUnicode && m_bytes.find('\0') != std::string::npos;
}

bool CStdioFileEx::ReadString(QString& line) {
    if (!m_bOpen) return false;
    return m_bIsUnicode ? ReadWideLine(line) : ReadNarrowLine(line);
}

bool CStdioFileEx::ReadWideLine(QString& line) {
    // A last odd byte is half a unit: it is not read.
    const size_t end = m_bytes.size() & ~static_cast<size_t>(1);
    if (m_nPos >= end) return false;
    std::u16string units;
    while (m_nPos < end) {
        const auto a = static_cast<unsigned char>(m_bytes[m_nPos]);
        const auto b = static_cast<unsigned char>(m_bytes[m_nPos + 1]);
        m_nPos += 2;
        const auto unit = static_cast<char16_t>(m_bBigEndian ? (a << 8) | b : (b << 8) | a);
        units.push_back(unit);
        if (unit == u'\n') break;
    }
    if (units.size() >= 2 && units.ends_with(u"\r\n"))
        units.resize(units.size() - 2);
    else if (!units.empty() && (units.back() == u'\r' || units.back() == u'\n'))
        units.pop_back();
    line = QString::fromStdU16String(units);
    return true;
}

bool CStdioFileEx::ReadNarrowLine(QString& line) {
    if (m_nPos >= m_bytes.size()) return false;
    size_t stop = m_bytes.find('\n', m_nPos);
    stop = stop == std::string::npos ? m_bytes.size() : stop + 1;
    size_t length = stop - m_nPos;
    const char* start = m_bytes.data() + m_nPos;
    m_nPos = stop;
    if (length >= 2 && start[length - 2] == '\r' && start[length - 1] == '\n')
        length -= 2;
    else if (length >= 1 && (start[length - 1] == '\r' || start[length - 1] == '\n'))
        --length;
    if (!m_bIsUtf8) {
        line = DecodeCp949(start, length);
        return true;
    }
    // Qt's decoder drops a leading mark; the reader keeps it as U+FEFF.
    const bool mark = length >= 3 && std::memcmp(start, "\xEF\xBB\xBF", 3) == 0;
    line =
        QString::fromUtf8(start + (mark ? 3 : 0), static_cast<qsizetype>(length - (mark ? 3 : 0)));
    if (mark) line.prepend(QChar(0xFEFF));
    return true;
}

}  // namespace orv
