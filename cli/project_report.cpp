#include "project_report.h"

#include <charconv>
#include <cstdio>
#include <cstring>

#include "objects/ani_object.h"
#include "objects/group_object.h"
#include "objects/picture_object.h"
#include "objects/tc_object.h"

namespace orv::cli {

namespace {

const char* const PAGE_TYPES[] = {"Cut", "Roll", "Crawl"};

std::string Utf8(const QString& text) {
    return text.toUtf8().toStdString();
}

std::string RectList(const UstRect& r) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "[%d, %d, %d, %d]", r.left, r.top, r.right, r.bottom);
    return buffer;
}

template <typename Record>
std::string IntList(const Record& record) {
    static_assert(sizeof(Record) % 4 == 0);
    std::string out = "[";
    for (size_t i = 0; i < sizeof(Record) / 4; ++i) {
        int32_t v;
        std::memcpy(&v, reinterpret_cast<const char*>(&record) + 4 * i, 4);
        out += (i ? ", " : "") + std::to_string(v);
    }
    return out + "]";
}

// Line ends of a text as the escape that shows them, on one line.
std::string OneLine(const QString& text) {
    QString shown = text;
    shown.replace(QChar(13), QStringLiteral("\\r"));
    return Utf8(shown);
}

// The kind numbers of the loaded objects are their classes' own.
const QString* FileOf(const CQRDObject& o) {
    if (o.GetType() == OBJ_ANIMATION) return &static_cast<const CQRDObjectAni&>(o).m_strFile;
    if (o.GetType() == OBJ_PICTURE) return &static_cast<const CQRDObjectPicture&>(o).m_strFile;
    return nullptr;
}

const std::vector<std::unique_ptr<CQRDObject>>* MembersOf(const CQRDObject& o) {
    if (o.GetType() == OBJ_GROUP) return &static_cast<const CQRDObjectGroup&>(o).Members();
    return nullptr;
}

void DescribeObject(const CQRDObject& o, int depth, std::string& out) {
    out += std::string(2 * depth, ' ') + o.ArchiveClassName() + ' ' + RectList(o.m_rcStored);
    if (o.GetType() == OBJ_TEXT) out += " \"" + OneLine(o.GetPlainText()) + '"';
    if (o.GetType() == OBJ_SHAPE) out += ' ' + Utf8(o.GetName());
    if (const QString* file = FileOf(o)) out += " file \"" + Utf8(*file) + '"';
    if (o.GetType() == OBJ_TIMER)
        out += " setting " + IntList(static_cast<const CQRDObjectTC&>(o).m_setting) + " \"" +
               Utf8(o.GetName()) + '"';
    out += '\n';
    if (const auto* members = MembersOf(o))
        for (const auto& m : *members)
            DescribeObject(*m, depth + 1, out);
}

std::string DescribeObjectJson(const CQRDObject& o) {
    std::string out = "{\"class\": \"" + std::string(o.ArchiveClassName()) +
                      "\", \"rect\": " + RectList(o.m_rcStored);
    if (o.GetType() == OBJ_TEXT) out += ", \"text\": " + JsonString(o.GetPlainText());
    if (const QString* file = FileOf(o)) out += ", \"file\": " + JsonString(*file);
    if (o.GetType() == OBJ_TIMER)
        out += ", \"setting\": " + IntList(static_cast<const CQRDObjectTC&>(o).m_setting);
    if (const auto* members = MembersOf(o)) {
        out += ", \"members\": [";
        for (size_t i = 0; i < members->size(); ++i)
            out += (i ? ", " : "") + DescribeObjectJson(*(*members)[i]);
        out += ']';
    }
    return out + '}';
}

}  // namespace

std::string ShortFloat(float value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

std::string JsonString(const QString& text) {
    std::string out = "\"";
    for (const char c : Utf8(text)) {
        const auto u = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (u < 0x20) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", u);
            out += escape;
        } else {
            out += c;
        }
    }
    return out + '"';
}

std::string DescribeProject(const CProjectManager& project, const UstProjectHeader& header) {
    std::string out = "Version " + ShortFloat(header.fVersion) + ", frame " +
                      std::to_string(header.nWidth) + " x " + std::to_string(header.nHeight) +
                      ", " + std::to_string(project.PageCount()) + " pages\n";
    int index = 0;
    for (const auto& page : project.Pages()) {
        const UstPageEffect& e = page->m_effect;
        char line[256];
        std::snprintf(line, sizeof line,
                      "Page %d: %s, in %d speed %d delay %d fade %d, out %d speed %d delay %d "
                      "fade %d, repeat %d, scroll delay %d, discard %d\n",
                      ++index, PAGE_TYPES[page->m_nPageType % 3], int(e.nInEffect), int(e.nInSpeed),
                      int(e.nInDelay), int(e.bInFade), int(e.nOutEffect), int(e.nOutSpeed),
                      int(e.nOutDelay), int(e.bOutFade), int(e.nRepeat), int(e.nScrollDelay),
                      int(e.bDiscard));
        out += line;
        if (page->m_background.bPresent)
            out += "  background \"" + Utf8(page->m_background.strFile) + "\"\n";
        for (const auto& o : page->Objects())
            DescribeObject(*o, 1, out);
    }
    return out;
}

std::string DescribeProjectJson(const CProjectManager& project, const UstProjectHeader& header) {
    std::string out = "{\"version\": " + ShortFloat(header.fVersion) +
                      ", \"width\": " + std::to_string(header.nWidth) +
                      ", \"height\": " + std::to_string(header.nHeight) + ", \"pages\": [";
    bool firstPage = true;
    for (const auto& page : project.Pages()) {
        out += firstPage ? "" : ", ";
        firstPage = false;
        out += "{\"type\": " + std::to_string(page->m_nPageType) +
               ", \"effect\": " + IntList(page->m_effect) + ", \"background\": " +
               JsonString(page->m_background.bPresent ? page->m_background.strFile : QString()) +
               ", \"objects\": [";
        const auto& objects = page->Objects();
        for (size_t i = 0; i < objects.size(); ++i)
            out += (i ? ", " : "") + DescribeObjectJson(*objects[i]);
        out += "]}";
    }
    return out + "]}\n";
}

}  // namespace orv::cli
