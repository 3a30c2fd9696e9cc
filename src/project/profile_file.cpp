#include "project/profile_file.h"

#include <QByteArray>
#include <QFile>
#include <QSaveFile>

#include <cstdint>
#include <cstring>
#include <vector>

namespace orv {

namespace {

std::string Trim(std::string_view s) {
    size_t b = 0, e = s.size();
    while (b < e && (s[b] == ' ' || s[b] == '\t' || s[b] == '\r'))
        ++b;
    while (e > b && (s[e - 1] == ' ' || s[e - 1] == '\t' || s[e - 1] == '\r'))
        --e;
    return std::string(s.substr(b, e - b));
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        auto lower = [](char c) { return (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c; };
        if (lower(a[i]) != lower(b[i])) return false;
    }
    return true;
}

// The section name when line is a section header, else nothing.
std::optional<std::string> SectionOf(const std::string& line) {
    std::string t = Trim(line);
    if (t.size() < 2 || t.front() != '[') return std::nullopt;
    size_t close = t.find(']');
    if (close == std::string::npos) return std::nullopt;
    return Trim(std::string_view(t).substr(1, close - 1));
}

bool KeyOf(const std::string& line, std::string& key, std::string& value) {
    size_t eq = line.find('=');
    if (eq == std::string::npos) return false;
    key = Trim(std::string_view(line).substr(0, eq));
    value = Trim(std::string_view(line).substr(eq + 1));
    return !key.empty() && key[0] != ';';
}

bool ReadLines(const std::filesystem::path& file, std::vector<std::string>& lines) {
    QFile f(QString::fromStdString(file.string()));
    if (!f.open(QIODevice::ReadOnly)) return false;
    const QByteArray all = f.readAll();
    std::string text(all.constData(), static_cast<size_t>(all.size()));
    if (text.size() >= 3 && text.compare(0, 3, "\xEF\xBB\xBF") == 0) text.erase(0, 3);
    size_t start = 0;
    while (start < text.size()) {
        size_t nl = text.find('\n', start);
        if (nl == std::string::npos) nl = text.size();
        std::string line = text.substr(start, nl - start);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(std::move(line));
        start = nl + 1;
    }
    return true;
}

int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

}  // namespace

std::optional<std::string> ReadProfileString(const std::filesystem::path& file,
                                             std::string_view section, std::string_view key) {
    std::vector<std::string> lines;
    if (!ReadLines(file, lines)) return std::nullopt;
    bool inSection = false;
    for (const std::string& line : lines) {
        if (auto s = SectionOf(line)) {
            inSection = EqualNoCase(*s, section);
            continue;
        }
        std::string k, v;
        if (inSection && KeyOf(line, k, v) && EqualNoCase(k, key)) return v;
    }
    return std::nullopt;
}

bool WriteProfileString(const std::filesystem::path& file, std::string_view section,
                        std::string_view key, std::string_view value) {
    std::vector<std::string> lines;
    ReadLines(file, lines);
    const std::string entry = std::string(key) + "=" + std::string(value);
    bool inSection = false, done = false;
    size_t sectionEnd = std::string::npos;
    for (size_t i = 0; i < lines.size() && !done; ++i) {
        if (auto s = SectionOf(lines[i])) {
            if (inSection) break;
            inSection = EqualNoCase(*s, section);
            if (inSection) sectionEnd = i + 1;
            continue;
        }
        if (!inSection) continue;
        std::string k, v;
        if (KeyOf(lines[i], k, v) && EqualNoCase(k, key)) {
            lines[i] = entry;
            done = true;
        } else if (!Trim(lines[i]).empty()) {
            sectionEnd = i + 1;
        }
    }
    if (!done && sectionEnd != std::string::npos) {
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(sectionEnd), entry);
    } else if (!done) {
        lines.push_back("[" + std::string(section) + "]");
        lines.push_back(entry);
    }
    QByteArray out;
    for (const std::string& line : lines) {
        out.append(line.data(), static_cast<qsizetype>(line.size()));
        out.append("\r\n");
    }
    QSaveFile f(QString::fromStdString(file.string()));
    if (!f.open(QIODevice::WriteOnly)) return false;
    if (f.write(out) != out.size()) {
        f.cancelWriting();
        return false;
    }
    return f.commit();
}

std::string EncodeProfileStruct(const void* data, size_t size) {
    static const char DIGITS[] = "0123456789ABCDEF";
    const auto* bytes = static_cast<const uint8_t*>(data);
    std::string text;
    text.reserve(size * 2 + 2);
    uint8_t sum = 0;
    for (size_t i = 0; i < size; ++i) {
        text.push_back(DIGITS[bytes[i] >> 4]);
        text.push_back(DIGITS[bytes[i] & 15]);
        sum = static_cast<uint8_t>(sum + bytes[i]);
    }
    text.push_back(DIGITS[sum >> 4]);
    text.push_back(DIGITS[sum & 15]);
    return text;
}

bool DecodeProfileStruct(std::string_view text, void* data, size_t size) {
    if (text.size() != size * 2 + 2) return false;
    std::vector<uint8_t> bytes(size + 1);
    for (size_t i = 0; i <= size; ++i) {
        int hi = HexValue(text[2 * i]), lo = HexValue(text[2 * i + 1]);
        if (hi < 0 || lo < 0) return false;
        bytes[i] = static_cast<uint8_t>(hi * 16 + lo);
    }
    uint8_t sum = 0;
    for (size_t i = 0; i < size; ++i)
        sum = static_cast<uint8_t>(sum + bytes[i]);
    if (sum != bytes[size]) return false;
    std::memcpy(data, bytes.data(), size);
    return true;
}

bool GetProfileStruct(const std::filesystem::path& file, std::string_view section,
                      std::string_view key, void* data, size_t size) {
    auto value = ReadProfileString(file, section, key);
    return value && DecodeProfileStruct(*value, data, size);
}

bool WriteProfileStruct(const std::filesystem::path& file, std::string_view section,
                        std::string_view key, const void* data, size_t size) {
    return WriteProfileString(file, section, key, EncodeProfileStruct(data, size));
}

}  // namespace orv
