#include "import/text_import.h"

#include <algorithm>
#include <memory>

#include "import/stdio_file_ex.h"
#include "objects/text_object.h"
#include "project/project_manager.h"
#include "render/attr_records.h"
#include "render/fixed_string.h"
#include "render/font_service.h"
#include "render/pixels.h"
#include "render/text_measure.h"

namespace orv {

namespace {

// Every "a" replaced by "b" until none is left.
void ReplaceAll(QString& text, const QString& a, const QString& b) {
    while (text.contains(a))
        text.replace(a, b);
}

// How far the pen moves over a character at scale 1, as the layout moves it.
float Advance(const UstCharAttr& c) {
    return static_cast<float>(c.metric.nSpacing) * (static_cast<float>(c.metric.nWidth) / 100.0f) +
           static_cast<float>(c.nAdvance);
}

bool IsBreak(const UstCharAttr& c) {
    return c.nChar == CHAR_LINE_END;
}

bool IsSpace(const UstCharAttr& c) {
    return c.nChar == CHAR_SPACE;
}

std::unique_ptr<CPageManager> MakeTextPage(CProjectManager& project, const UstDefaultAttr& look,
                                           const UstTextImport& values, UstCharPiece chars) {
    auto page = std::make_unique<CPageManager>(&project, project.m_pView);
    // An empty part of an explicit text is a page without a text.
    if (!chars.empty()) {
        auto text = std::make_unique<CQRDObjectText>(page.get());
        text->m_attr = look.attr;
        text->m_effect = look.effect;
        text->SetChars(std::move(chars));
        text->SetOrigin(values.fLeft, values.fTop);
        page->AddObject(std::move(text));
    }
    // The characters were measured when they were made.
    page->RebuildPageText(false);
    page->UpdateThumbnail();
    for (const auto& o : page->Objects())
        o->ReleaseCache();
    page->SetModified(true);
    return page;
}

}  // namespace

UstTextImport DefaultTextImport(int frameWidth, int frameHeight) {
    UstTextImport values;
    values.fLeft = static_cast<float>(frameWidth) * 0.1f;
    values.nRight = RoundToInt(static_cast<float>(frameWidth) * 0.9f);
    values.fTop = static_cast<float>(frameHeight) * 0.92f;
    return values;
}

bool ReadTextFile(const QString& path, QString& text, QString* error) {
    CStdioFileEx file;
    if (!file.Open(path, FILE_MODE_READ | FILE_TYPE_TEXT, error)) return false;
    if (file.HasZeroBytes()) {
        if (error) *error = QStringLiteral("not a text file");
        return false;
    }
    QString all, line;
    while (file.ReadString(line)) {
        all += line;
        all += QStringLiteral("\r\n");
    }
    text = all.trimmed();
    return true;
}

QString CleanImportText(const QString& input) {
    QString text = input.trimmed();
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\r"));
    // Text typed into the dialog ends its lines with a line feed alone.
    text.replace(QChar(u'\n'), QChar(u'\r'));
    text.removeIf([](QChar c) { return c.unicode() < 32 && c != u'\r' && c != u'\t'; });
    ReplaceAll(text, QStringLiteral("\r\r"), QStringLiteral("\r"));
    ReplaceAll(text, QStringLiteral("  "), QStringLiteral(" "));
    text.replace(QChar(u'\t'), QChar(u' '));
    return text;
}

bool IsExplicitText(const QString& cleaned) {
    return cleaned.contains(QStringLiteral("//\r"));
}

CImportChars::CImportChars(const UstDefaultAttr& look) : m_look(look) {}

const UstCharAttr& CImportChars::Get(char32_t code) {
    const auto found = m_cache.find(code);
    if (found != m_cache.end()) return found->second;
    UstCharAttr c = NewCharAttr();
    c.nChar = code;
    c.font = m_look.font;
    c.metric = m_look.metric;
    c.metric.nWidth = 100;
    c.clrFill = m_look.attr.fill[UstAttr::BODY].clrSolid;
    if (!IsBlankChar(code)) {
        // Hangul in a Latin face would show boxes: a face that has it draws it.
        const QString face = FixedToQString(&c.font.szFace);
        const QString covering = CoveringFamily(face, code);
        if (!covering.isEmpty() && covering != face) QStringToFixed(covering, &c.font.szFace);
    }
    MeasureChar(c, true);
    return m_cache.emplace(code, c).first->second;
}

std::vector<UstCharAttr> CImportChars::Convert(const QString& text) {
    std::vector<UstCharAttr> chars;
    const QList<uint> codes = text.toUcs4();
    chars.reserve(static_cast<size_t>(codes.size()));
    for (uint code : codes)
        chars.push_back(Get(code));
    return chars;
}

UstCharPiece WordWrap(const UstCharPiece& chars, float width, const UstCharAttr& lineEnd) {
    UstCharPiece out;
    out.reserve(chars.size() + chars.size() / 8);
    size_t lineStart = 0;
    size_t lastBlank = SIZE_MAX;
    float pen = 0;
    for (const UstCharAttr& c : chars) {
        if (IsBreak(c)) {
            out.push_back(c);
            lineStart = out.size(), lastBlank = SIZE_MAX, pen = 0;
            continue;
        }
        const float right = pen + static_cast<float>(c.nOriginX + c.nBoxWidth);
        if (!IsSpace(c) && right > width && out.size() > lineStart) {
            if (lastBlank != SIZE_MAX) {
                out[lastBlank] = lineEnd;
                lineStart = lastBlank + 1;
            } else {
                out.push_back(lineEnd);
                lineStart = out.size();
            }
            lastBlank = SIZE_MAX;
            pen = 0;
            for (size_t i = lineStart; i < out.size(); ++i)
                pen += Advance(out[i]);
        }
        if (IsSpace(c)) lastBlank = out.size();
        out.push_back(c);
        pen += Advance(c);
    }
    return out;
}

std::vector<UstCharPiece> CutByLines(const UstCharPiece& chars, int linesPerPage) {
    linesPerPage = std::max(linesPerPage, 1);
    std::vector<UstCharPiece> pieces;
    size_t from = 0;
    while (from < chars.size()) {
        size_t to = from;
        int breaks = 0;
        while (to < chars.size() && breaks < linesPerPage)
            if (IsBreak(chars[to++])) ++breaks;
        UstCharPiece piece(chars.begin() + static_cast<std::ptrdiff_t>(from),
                           chars.begin() + static_cast<std::ptrdiff_t>(to));
        from = to;
        if (!piece.empty() && IsBreak(piece.back())) piece.pop_back();
        if (!piece.empty() && IsSpace(piece.back())) piece.pop_back();
        const bool blank = std::all_of(piece.begin(), piece.end(),
                                       [](const UstCharAttr& c) { return IsBlankChar(c.nChar); });
        if (!blank) pieces.push_back(std::move(piece));
    }
    return pieces;
}

std::vector<UstCharPiece> SplitAtMarks(const QString& cleaned, CImportChars& maker) {
    const QList<uint> codes = cleaned.toUcs4();
    std::vector<UstCharPiece> pieces(1);
    for (qsizetype i = 0; i < codes.size();) {
        if (codes[i] == u'/' && i + 1 < codes.size() && codes[i + 1] == u'/') {
            // The mark and the character behind it (the line end) go.
            pieces.emplace_back();
            i += 3;
            continue;
        }
        pieces.back().push_back(maker.Get(codes[i]));
        ++i;
    }
    return pieces;
}

std::vector<UstCharPiece> TextImportPieces(const UstTextImport& values,
                                           const UstDefaultAttr& look) {
    const QString cleaned = CleanImportText(values.text);
    if (cleaned.isEmpty()) return {};
    CImportChars maker(look);
    if (IsExplicitText(cleaned)) return SplitAtMarks(cleaned, maker);
    const float width = static_cast<float>(values.nRight) - values.fLeft;
    const UstCharAttr lineEnd = maker.Get(CHAR_LINE_END);
    return CutByLines(WordWrap(maker.Convert(cleaned), width, lineEnd), values.nLinesPerPage);
}

int InsertTextPages(CProjectManager& project, const UstDefaultAttr& look,
                    const UstTextImport& values) {
    std::vector<std::unique_ptr<CPageManager>> pages;
    for (UstCharPiece& piece : TextImportPieces(values, look))
        pages.push_back(MakeTextPage(project, look, values, std::move(piece)));
    const int made = static_cast<int>(pages.size());
    project.AdoptPages(std::move(pages), values.bAppend != 0, std::max(project.m_nCurPage, 0));
    return made;
}

}  // namespace orv
