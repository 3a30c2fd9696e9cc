#include "objects/tc_object.h"

#include <array>
#include <ctime>

#include "objects/archive_fields.h"
#include "objects/text_object.h"
#include "render/fixed_string.h"
#include "render/text_measure.h"

namespace orv {

namespace {

struct UstClockFormat {
    const char* twelve;
    const char* twentyFour;
    bool trimZero;  // leading zeros go in the 12-hour form
};

constexpr std::array<UstClockFormat, 7> CLOCK_FORMATS = {{
    {"%I:%M", "%H:%M", true},
    {"%I:%M %p", "%H:%M %p", true},
    {"%I:%M %p", "%H:%M %p", false},
    {"%I:%M:%S %p", "%H:%M:%S %p", true},
    {"%I:%M:%S %p", "%H:%M:%S %p", false},
    {"%I:%M:%S", "%H:%M:%S", true},
    {"%m.%d(%A", "%m.%d(%A", false},
}};
constexpr int DATE_FORMAT = 6;

QString ClockValue(const UstTCSetting& setting) {
    if (setting.nClockFormat < 0 || setting.nClockFormat >= int(CLOCK_FORMATS.size())) return {};
    const UstClockFormat& f = CLOCK_FORMATS[static_cast<size_t>(setting.nClockFormat)];
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char buffer[128];
    const size_t n =
        std::strftime(buffer, sizeof buffer, setting.b24Hour ? f.twentyFour : f.twelve, &local);
    QString text = QString::fromLocal8Bit(buffer, static_cast<qsizetype>(n));
    if (f.trimZero && !setting.b24Hour)
        while (text.startsWith(u'0'))
            text.remove(0, 1);
    if (setting.nClockFormat == DATE_FORMAT) {
        // A Korean weekday keeps its first syllable: 토요일 reads 토.
        for (const char16_t tail : {u'\uC77C', u'\uC694'})
            while (text.endsWith(QChar(tail)))
                text.chop(1);
        text += u')';
    }
    return text;
}

QString CounterValue(int format, int seconds, int minutes, int hours) {
    switch (format) {
        case 0:
            return QString::asprintf("%d", seconds);
        case 1:
            return QString::asprintf("%02d", seconds);
        case 2:
            return QString::asprintf("%d:%02d", minutes, seconds);
        case 3:
            return QString::asprintf("%02d:%02d", minutes, seconds);
        case 4:
            return QString::asprintf("%d:%02d", hours, minutes);
        case 5:
            return QString::asprintf("%02d:%02d", hours, minutes);
        case 6:
            return QString::asprintf("%d:%02d:%02d", hours, minutes, seconds);
        case 7:
            return QString::asprintf("%02d:%02d:%02d", hours, minutes, seconds);
        default:
            return {};
    }
}

}  // namespace

QString FormatValue(const UstTCSetting& setting, int seconds, int minutes, int hours) {
    if (setting.nKind != 0) return ClockValue(setting);
    return CounterValue(setting.nCountFormat, seconds, minutes, hours);
}

CQRDObjectTC::CQRDObjectTC(CPageContext* page, const UstDefaultAttr& attr,
                           const UstTCSetting& setting, float storeX, float storeY)
    : CQRDObject(page), m_fStoreX(storeX), m_fStoreY(storeY), m_attr(attr), m_setting(setting) {
    Build();
}

QString CQRDObjectTC::CurrentString() const {
    if (m_setting.nKind != 0) return FormatValue(m_setting, 0, 0, 0);
    const int start = m_setting.nStart;
    return FormatValue(m_setting, start % 60, start / 60 % 60, start / 3600);
}

void CQRDObjectTC::Build() {
    LayOut();
    UpdateStored(false);
    RecalcHandles();
}

void CQRDObjectTC::LayOut() {
    m_fScale = Zoom() / 100.0f;
    m_fViewX = m_fStoreX * m_fScale;
    m_fViewY = m_fStoreY * m_fScale;
    const QString text = CurrentString();
    m_arrChar.clear();
    for (const char32_t code : text.toUcs4()) {
        UstCharAttr c = NewCharAttr();
        c.nChar = code;
        c.font = m_attr.font;
        c.metric = m_attr.metric;
        c.clrFill = m_attr.attr.fill[UstAttr::BODY].clrSolid;
        MeasureChar(c, false);
        m_arrChar.push_back(c);
    }
    if (m_arrChar.empty()) {
        m_layout = {};
        m_rcView = {};
    } else {
        LayoutText(m_layout, m_fViewX, m_fViewY, m_rcView, m_arrChar.data(),
                   static_cast<int>(m_arrChar.size()), m_fScale, m_fScale);
    }
}

void CQRDObjectTC::Attach(CPageContext* page) {
    CQRDObject::Attach(page);
    Build();
}

bool CQRDObjectTC::Execute(const void* args, uint32_t code) {
    if (args && code == CMD_TEXT_STYLE) return ApplyStyle(*static_cast<const UstText*>(args));
    if (!args || code < CMD_SET_RECT || code > CMD_NUDGE_DOWN) return false;
    // The origin is what the file keeps; the rectangle follows from it.
    int dx = 0, dy = 0;
    if (code == CMD_SET_RECT) {
        const auto* r = static_cast<const UstRect*>(args);
        dx = r->left - m_rcView.left;
        dy = r->top - m_rcView.top;
    } else {
        // One unit in the command's direction, whatever the argument says.
        dx = code == CMD_NUDGE_RIGHT ? 1 : code == CMD_NUDGE_LEFT ? -1 : 0;
        dy = code == CMD_NUDGE_DOWN ? 1 : code == CMD_NUDGE_UP ? -1 : 0;
    }
    if (m_fScale > 0) {
        m_fStoreX += static_cast<float>(dx) / m_fScale;
        m_fStoreY += static_cast<float>(dy) / m_fScale;
    }
    Build();
    return true;
}

bool CQRDObjectTC::ApplyStyle(const UstText& style) {
    m_attr.attr = style.attr;
    m_attr.effect = style.effect;
    // A face this machine lacks would draw nothing: only the size is taken.
    if (IsFaceInstalled(style.character.font))
        m_attr.font = style.character.font;
    else
        m_attr.font.nSize = style.character.font.nSize;
    m_attr.attr.fill[UstAttr::BODY].clrSolid = style.character.clrFill;
    Build();
    return true;
}

void CQRDObjectTC::ReplaceMissingFace() {
    if (!IsFaceInstalled(m_attr.font))
        TakeFallbackFace(m_attr.font, FallbackFontBlock(m_pPage ? m_pPage->EditHost() : nullptr));
}

void CQRDObjectTC::Serialize(CByteWriter& out) const {
    WriteArchiveHead(out);
    out.Put(m_fStoreX);
    out.Put(m_fStoreY);
    out.Put(m_attr);
    out.Put(m_setting);
}

bool CQRDObjectTC::Deserialize(CByteReader& in) {
    const bool hasOldRect = ReadArchiveHead(in);
    m_fStoreX = in.Get<float>();
    m_fStoreY = in.Get<float>();
    m_attr = in.Get<UstDefaultAttr>();
    m_setting = in.Get<UstTCSetting>();
    if (hasOldRect) m_rcOld = in.Get<UstRect>();
    CheckArchivedPoint(m_fStoreX, m_fStoreY, "a timer's origin");
    CheckArchivedEffect(m_attr.effect, "a timer");
    CheckArchivedFont(m_attr.font, m_attr.metric, "a timer");
    ReplaceMissingFace();
    LayOut();
    CheckArchivedRect(m_rcView, "a timer");
    UpdateStored(false);
    RecalcHandles();
    return true;
}

void CQRDObjectTC::SaveState(CByteWriter& out) const {
    out.Put<int32_t>(OBJ_TIMER);
    out.Put(m_nWord1);
    out.Put(m_nWord2);
    out.Put(m_bLocked);
    out.Put(m_fStoreX);
    out.Put(m_fStoreY);
    out.Put(m_rcOld);
    out.Put(m_attr);
    out.Put(m_setting);
}

bool CQRDObjectTC::LoadState(CByteReader& in, int) {
    if (in.Get<int32_t>() != OBJ_TIMER) return false;
    m_nWord1 = in.Get<int32_t>();
    m_nWord2 = in.Get<int32_t>();
    m_bLocked = in.Get<int32_t>();
    m_fStoreX = in.Get<float>();
    m_fStoreY = in.Get<float>();
    m_rcOld = in.Get<UstRect>();
    m_attr = in.Get<UstDefaultAttr>();
    m_setting = in.Get<UstTCSetting>();
    Build();
    return true;
}

}  // namespace orv
