#include "objects/text_fields.h"

#include <algorithm>

#include "objects/text_object.h"
#include "render/fixed_string.h"
#include "render/font_service.h"

namespace orv {

namespace {

bool IsBrace(const std::vector<UstCharAttr>& chars, size_t i, uint32_t brace) {
    return i + 1 < chars.size() && chars[i].nChar == brace && chars[i + 1].nChar == brace;
}

// The name between i (after "{{") and the closing "}}", or an empty name
// when there is no well-formed end before a line end or another brace.
bool ReadName(const std::vector<UstCharAttr>& chars, size_t from, size_t& end, QString& name) {
    std::vector<char32_t> codes;
    for (size_t i = from; i < chars.size(); ++i) {
        const uint32_t c = chars[i].nChar;
        if (IsBrace(chars, i, '}')) {
            end = i + 2;
            name = QString::fromUcs4(codes.data(), static_cast<qsizetype>(codes.size())).trimmed();
            return !name.isEmpty();
        }
        if (c == '{' || c == '}' || c == CHAR_LINE_END ||
            codes.size() >= static_cast<size_t>(FIELD_NAME_MAX))
            return false;
        codes.push_back(static_cast<char32_t>(c));
    }
    return false;
}

}  // namespace

std::vector<UstFieldSpan> FindFields(const std::vector<UstCharAttr>& chars) {
    std::vector<UstFieldSpan> spans;
    size_t i = 0;
    while (i < chars.size()) {
        size_t end = 0;
        QString name;
        if (IsBrace(chars, i, '{') && ReadName(chars, i + 2, end, name)) {
            spans.push_back({static_cast<int>(i), static_cast<int>(end), name});
            i = end;
        } else {
            ++i;
        }
    }
    return spans;
}

std::vector<QString> FieldNames(const std::vector<UstCharAttr>& chars) {
    std::vector<QString> names;
    for (const UstFieldSpan& s : FindFields(chars))
        if (std::find(names.begin(), names.end(), s.strName) == names.end())
            names.push_back(s.strName);
    return names;
}

std::vector<UstCharAttr> FillFields(const std::vector<UstCharAttr>& chars,
                                    const FieldValues& values) {
    std::vector<UstCharAttr> out;
    out.reserve(chars.size());
    size_t next = 0;
    for (const UstFieldSpan& s : FindFields(chars)) {
        out.insert(out.end(), chars.begin() + static_cast<ptrdiff_t>(next),
                   chars.begin() + s.nFrom);
        next = static_cast<size_t>(s.nTo);
        const auto found = values.find(s.strName);
        if (found == values.end()) continue;
        const UstCharAttr look = chars[static_cast<size_t>(s.nFrom)];
        for (const char32_t code : found->second.toUcs4()) {
            if (code == '\r') continue;
            UstCharAttr c = look;
            c.nChar = code == '\n' ? CHAR_LINE_END : static_cast<uint32_t>(code);
            if (c.nChar < 32 && c.nChar != CHAR_LINE_END) continue;
            // As typing does: a face without the character gives way to the
            // nearest family that has it, so a Korean name in a Latin look
            // shows its syllables and not boxes.
            if (!IsBlankChar(c.nChar)) {
                const QString face = FixedToQString(&c.font.szFace);
                const QString covering = CoveringFamily(face, code);
                if (!covering.isEmpty() && covering != face)
                    QStringToFixed(covering, &c.font.szFace);
            }
            out.push_back(c);
        }
    }
    out.insert(out.end(), chars.begin() + static_cast<ptrdiff_t>(next), chars.end());
    return out;
}

// Made the way a loaded text joins its page, so that it draws exactly as a
// text typed with the values would.
std::unique_ptr<CQRDObjectText> CQRDObjectText::FilledCopy(const FieldValues& values) const {
    auto copy = std::make_unique<CQRDObjectText>();
    copy->m_nAngle = m_nAngle;
    copy->m_effect = m_effect;
    copy->m_attr = m_attr;
    copy->m_strName = m_strName;
    copy->m_arrChar = FillFields(m_arrChar, values);
    copy->MeasureAll();
    copy->Attach(m_pPage);
    // After the page: the view's position is made from the stored one.
    copy->SetOrigin(m_fStoreX, m_fStoreY);
    return copy;
}

}  // namespace orv
