#pragma once
// A text file reader that finds out how the file is encoded before the first
// line is read: UTF-16 with a byte-order mark, UTF-8 (with a mark, or bytes
// that are valid UTF-8), else the Korean code page CP949, the system code
// page of the machines such files come from. Plain ASCII reads the same in
// every case.

#include <QString>

#include <cstddef>
#include <cstdint>
#include <string>

namespace orv {

// Open flags, with the values the rest of the program passes around.
enum EFileOpenFlag : uint32_t {
    FILE_MODE_READ = 0x0000,
    FILE_MODE_WRITE = 0x0001,
    FILE_MODE_READ_WRITE = 0x0002,
    FILE_MODE_CREATE = 0x1000,
    FILE_TYPE_TEXT = 0x4000,
    FILE_TYPE_BINARY = 0x8000
};

// Whether the bytes are well-formed UTF-8: no overlong forms, no surrogates,
// nothing above U+10FFFF, no sequence cut short.
bool IsValidUtf8(const char* bytes, size_t size);

class CStdioFileEx {
public:
    // Files larger than this are not taken: no text meant for pages is.
    static constexpr qint64 MAX_FILE_SIZE = 32 * 1024 * 1024;

    CStdioFileEx() = default;
    virtual ~CStdioFileEx() = default;
    CStdioFileEx(const CStdioFileEx&) = delete;
    CStdioFileEx& operator=(const CStdioFileEx&) = delete;

    // Only a text-mode open for reading is checked for its encoding; the
    // file is read whole. False, with the reason, when it cannot be read.
    virtual bool Open(const QString& path, uint32_t flags, QString* error = nullptr);
    // The next line without its line end; false at the end of the file.
    virtual bool ReadString(QString& line);
    virtual void SetFilePath(const QString& path) { m_strPath = path; }
    QString GetFilePath() const { return m_strPath; }
    void Close();

    bool IsUnicode() const { return m_bIsUnicode != 0; }
    bool IsUtf8() const { return m_bIsUtf8 != 0; }
    // A narrow file holding a zero byte: what was chosen is not text.
    bool HasZeroBytes() const;

    uint8_t m_bIsUnicode = 0;  // UTF-16
    uint8_t m_bIsUtf8 = 0;
    uint32_t m_nOpenFlags = 0;  // the flags after the check

private:
    void CheckEncoding();
    bool ReadWideLine(QString& line);
    bool ReadNarrowLine(QString& line);

    QString m_strPath;
    std::string m_bytes;
    size_t m_nPos = 0;
    bool m_bOpen = false;
    bool m_bBigEndian = false;
};

}  // namespace orv
