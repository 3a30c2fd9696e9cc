#include "samples/demo_credits.h"

#include <QString>
#include <QStringList>

#include <algorithm>

#include "objects/text_object.h"
#include "render/fixed_string.h"

namespace orv {

namespace {

// Short enough that four blocks of 48-point lines fit across a 1920 frame.
const char* const ROLES[] = {"Camera", "Sound",  "Editor", "Lights", "Vision",
                             "Script", "Grip",   "Floor",  "Design", "Music",
                             "Props",  "Runner", "Stunts", "Wigs",   "Titles"};
const char* const NAMES[] = {"J. Kim", "R. Silva", "M. Nov",  "S. Park", "L. Chen",
                             "D. Rey", "K. Osei",  "T. Berg", "H. Lee",  "A. Mor"};

UstAttr CreditPaints() {
    UstAttr a = MakeDefaultAttr();
    a.fill[UstAttr::BODY].nType = 0;
    a.fill[UstAttr::BODY].clrSolid = 0xFFFFFFFFu;
    a.fill[UstAttr::EDGE].nType = 0;
    a.fill[UstAttr::EDGE].clrSolid = 0xFF000000u;
    a.fill[UstAttr::SHADOW].nType = 0;
    a.fill[UstAttr::SHADOW].clrSolid = 0xA0000000u;
    return a;
}

UstEffect CreditEffect() {
    UstEffect e{};
    e.nEdge = 2;
    e.nShadowX = e.nShadowY = 4;
    e.nShadowSoft = 6;
    return e;
}

QString BlockText(int screen, int column, int lines) {
    QStringList out;
    for (int i = 0; i < lines; ++i) {
        const int n = (screen * 7 + column * 3 + i) % 150;
        out << QString("%1 %2  %3").arg(ROLES[n % 15]).arg(screen + 1).arg(NAMES[n % 10]);
    }
    return out.join('\n');
}

std::unique_ptr<CQRDObjectText> MakeBlock(const QString& text, int size, float x, float baseline) {
    std::vector<UstCharAttr> chars;
    for (const char32_t code : text.toUcs4()) {
        UstCharAttr c = NewCharAttr();
        c.nChar = code == U'\n' ? CHAR_LINE_END : code;
        c.font.nSize = size;
        QStringToFixed(QStringLiteral("DejaVu Sans"), &c.font.szFace);
        c.clrFill = 0xFFFFFFFFu;
        chars.push_back(c);
    }
    auto t = std::make_unique<CQRDObjectText>();
    t->m_attr = CreditPaints();
    t->m_effect = CreditEffect();
    t->SetChars(chars);
    t->MeasureAll();
    t->SetOrigin(x, baseline);
    return t;
}

}  // namespace

// The blocks of a screen spread so that the widest still ends inside the
// screen's margin: nothing of one screen reaches into the next.
std::vector<std::unique_ptr<CQRDObject>> BuildCredits(const UstCreditsPlan& plan, int w, int h) {
    std::vector<std::unique_ptr<CQRDObjectText>> blocks;
    int widest = 0;
    const int columns = std::max(1, plan.nColumns);
    for (int s = 0; s < plan.nScreens; ++s)
        for (int c = 0; c < columns; ++c) {
            blocks.push_back(MakeBlock(BlockText(s, c, plan.nLines), plan.nSize, 0, 0));
            widest = std::max(widest, blocks.back()->GetBoundRect().Width());
        }
    const float margin = w * 0.05f;
    const float spacing = columns > 1 ? (w - 2 * margin - widest) / (columns - 1) : 0.0f;
    std::vector<std::unique_ptr<CQRDObject>> page;
    for (size_t i = 0; i < blocks.size(); ++i) {
        const int s = static_cast<int>(i) / columns, c = static_cast<int>(i) % columns;
        const float left = plan.bCrawl ? static_cast<float>(s) * w : 0.0f;
        const float top = plan.bCrawl ? 0.0f : static_cast<float>(s) * h;
        blocks[i]->SetOrigin(left + margin + c * spacing, top + h * 0.04f + plan.nSize);
        page.push_back(std::move(blocks[i]));
    }
    return page;
}

}  // namespace orv
