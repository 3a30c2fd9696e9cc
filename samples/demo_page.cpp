#include "samples/demo_page.h"

#include <QColor>
#include <QDir>
#include <QFileInfo>
#include <QImageWriter>

#include <initializer_list>

#include "objects/picture_object.h"
#include "objects/shape_object.h"
#include "objects/text_object.h"
#include "render/fixed_string.h"
#include "render/layers.h"
#include "render/pixels.h"
#include "render/shape_path.h"
#include "samples/sample_pictures.h"

namespace orv {

namespace {

// Hangul faces are asked for with the Hangul character set, so that the
// font service prefers faces that cover Korean.
constexpr uint8_t CHARSET_LATIN = 1, CHARSET_HANGUL = 129;

// Everything readable keeps inside the title-safe area.
constexpr int SAFE_LEFT = 192;

// The shape kinds the page's pieces are made of.
constexpr int KIND_ROUNDED = 1, KIND_SLANTED_BAR = 23;

constexpr UstRect MAIN_BAR = {120, 790, 1260, 890};
constexpr UstRect ACCENT_BAR = {120, 890, 860, 936};
constexpr UstRect BADGE = {1450, 150, 1720, 250};
constexpr UstRect EMBLEM = {1490, 320, 1710, 540};
constexpr UstRect WEATHER = {1400, 700, 1728, 910};
constexpr int32_t WEATHER_ALPHA = 230;

constexpr int SHAPE_W = 60, SHAPE_H = 45, SHAPE_STEP_X = 84, SHAPE_STEP_Y = 75;
constexpr int SHAPE_TOP = 450, SHAPES_PER_ROW = 14;

constexpr uint32_t WHITE = 0xFFFFFFFFu, BLACK = 0xFF000000u, NAVY = 0xFF0B1B3Fu;
constexpr uint32_t SOFT_BLACK = 0xA0000000u;

UstFill Solid(uint32_t argb) {
    UstFill f = MakeBlankAttr().fill[UstAttr::EDGE];
    f.clrSolid = argb;
    return f;
}

// Top to bottom through the colours, evenly spaced.
UstFill Vertical(std::initializer_list<uint32_t> colours) {
    UstFill f = Solid(colours.size() > 0 ? *colours.begin() : BLACK);
    f.nType = 1;
    f.nGradientKind = 0;
    f.nAngle = 90;
    f.nStops = static_cast<int16_t>(colours.size());
    const float last = static_cast<float>(colours.size() > 1 ? colours.size() - 1 : 1);
    int i = 0;
    for (uint32_t c : colours) {
        f.fPos[i] = static_cast<float>(i) / last;
        f.clrStop[i++] = c;
    }
    return f;
}

UstAttr Paints(const UstFill& face, uint32_t edge, uint32_t outline, uint32_t shadow) {
    UstAttr a = MakeDefaultAttr();
    a.fill[UstAttr::BODY] = face;
    a.fill[UstAttr::EDGE] = Solid(edge);
    a.fill[UstAttr::OUTLINE] = Solid(outline);
    a.fill[UstAttr::SHADOW] = Solid(shadow);
    return a;
}

UstEffect Effect(int edge, int outline, int shadowType, int shadowOffset, int shadowSoft) {
    UstEffect e{};
    e.nEdge = edge;
    e.nOutline = outline;
    e.nShadowType = shadowType;
    e.nShadowX = e.nShadowY = shadowOffset;
    e.nShadowSoft = shadowSoft;
    return e;
}

struct Font {
    const char* face;
    int size;  // points
    uint32_t colour;
    uint8_t charSet = CHARSET_LATIN;
};

std::vector<UstCharAttr> MakeChars(const QString& text, const Font& font) {
    std::vector<UstCharAttr> chars;
    for (const char32_t code : text.toUcs4()) {
        UstCharAttr c = NewCharAttr();
        c.nChar = code == U'\n' ? CHAR_LINE_END : code;
        c.font.nSize = font.size;
        c.font.nCharSet = font.charSet;
        QStringToFixed(QString::fromUtf8(font.face), &c.font.szFace);
        c.clrFill = font.colour;
        chars.push_back(c);
    }
    return chars;
}

// A text whose first baseline starts at (x, baseline).
std::unique_ptr<CQRDObjectText> MakeText(const QString& text, const Font& font, float x,
                                         float baseline, const UstAttr& attr,
                                         const UstEffect& effect) {
    auto t = std::make_unique<CQRDObjectText>();
    t->m_attr = attr;
    t->m_effect = effect;
    t->SetChars(MakeChars(text, font));
    t->MeasureAll();
    t->SetOrigin(x, baseline);
    return t;
}

// Moves the text so that the box hugging its glyphs is centred in the rectangle.
void CentreIn(CQRDObjectText& text, const UstRect& r) {
    const UstRect now = text.GetBoundRect();
    const float dx = (r.left + r.right - now.left - now.right) / 2.0f;
    const float dy = (r.top + r.bottom - now.top - now.bottom) / 2.0f;
    text.SetOrigin(text.m_fStoreX + dx, text.m_fStoreY + dy);
}

void Turn(CQRDObject& object, int32_t degrees) {
    object.Execute(&degrees, CMD_ROTATION);
}

using Objects = std::vector<std::unique_ptr<CQRDObject>>;

void AddLowerThird(Objects& page) {
    const UstEffect barShadow = Effect(0, 0, SHADOW_DROP, 6, 10);
    page.push_back(std::make_unique<CQRDObjectShape>(
        nullptr, KIND_SLANTED_BAR, MAIN_BAR,
        Paints(Vertical({0xFF23478Cu, NAVY}), BLACK, BLACK, SOFT_BLACK), barShadow));
    page.push_back(std::make_unique<CQRDObjectShape>(
        nullptr, KIND_SLANTED_BAR, ACCENT_BAR,
        Paints(Vertical({0xFFFFD46Au, 0xFFE0A020u}), BLACK, BLACK, SOFT_BLACK), barShadow));
    const UstFill gold = Vertical({0xFFFFF6D0u, 0xFFFFCF4Au, 0xFFD08A10u});
    page.push_back(MakeText("Alex Morgan", {"DejaVu Sans", 52, WHITE}, SAFE_LEFT, 860,
                            Paints(gold, BLACK, WHITE, SOFT_BLACK),
                            Effect(3, 2, SHADOW_DROP, 5, 8)));
    page.push_back(MakeText("Chief Correspondent, Seoul Bureau", {"DejaVu Sans", 24, NAVY},
                            SAFE_LEFT, 922, Paints(Solid(NAVY), BLACK, BLACK, BLACK),
                            Effect(0, 0, SHADOW_DROP, 0, 0)));
}

void AddHeading(Objects& page) {
    page.push_back(MakeText("ORVANTIS-HD", {"DejaVu Sans", 64, WHITE}, SAFE_LEFT, 236,
                            Paints(Solid(WHITE), NAVY, BLACK, 0xFF1E5AB4u),
                            Effect(2, 0, SHADOW_DRAG, 6, 0)));
    page.push_back(MakeText(QString::fromUtf8("SAMPLE PAGE  \u00b7  1920 \u00d7 1080"),
                            {"DejaVu Sans", 22, 0xFFE8EEF8u}, SAFE_LEFT + 4, 290,
                            Paints(Solid(WHITE), NAVY, BLACK, SOFT_BLACK),
                            Effect(2, 0, SHADOW_DROP, 2, 2)));
}

void AddBadge(Objects& page) {
    constexpr int32_t ANGLE = -12;
    auto badge = std::make_unique<CQRDObjectShape>(
        nullptr, KIND_ROUNDED, BADGE,
        Paints(Vertical({0xFFF04040u, 0xFFA00808u}), WHITE, BLACK, SOFT_BLACK),
        Effect(4, 0, SHADOW_DROP, 5, 8));
    Turn(*badge, ANGLE);
    auto text =
        MakeText("LIVE", {"DejaVu Sans", 54, WHITE}, 0, 0,
                 Paints(Solid(WHITE), 0xFF600000u, BLACK, BLACK), Effect(2, 0, SHADOW_DROP, 0, 0));
    CentreIn(*text, BADGE);
    Turn(*text, ANGLE);
    page.push_back(std::move(badge));
    page.push_back(std::move(text));
}

void AddKorean(Objects& page) {
    page.push_back(MakeText(QString::fromUtf8("안녕하세요 방송입니다"),
                            {"UnDotum", 44, WHITE, CHARSET_HANGUL}, SAFE_LEFT, 390,
                            Paints(Solid(WHITE), NAVY, BLACK, SOFT_BLACK),
                            Effect(3, 0, SHADOW_DROP, 4, 6)));
}

// A colour wheel across the kinds; every third kind has a gradient face,
// every other one an outline as well as its edge.
void AddShapes(Objects& page) {
    for (int kind = 0; kind < SHAPE_KIND_COUNT; ++kind) {
        const QColor hue = QColor::fromHsv(kind * 360 / SHAPE_KIND_COUNT, 190, 245);
        const UstFill face = kind % 3 == 0
                                 ? Vertical({hue.lighter(150).rgba(), hue.darker(160).rgba()})
                                 : Solid(hue.rgba());
        page.push_back(std::make_unique<CQRDObjectShape>(
            nullptr, kind, DemoShapeBox(kind), Paints(face, WHITE, NAVY, SOFT_BLACK),
            Effect(2, kind % 2 == 1 ? 2 : 0, SHADOW_DROP, 3, 2)));
    }
}

std::unique_ptr<CQRDObjectPicture> MakePicture(const QString& label, UstPixelImage source,
                                               const UstRect& box) {
    auto picture = std::make_unique<CQRDObjectPicture>(nullptr, label, source.width, source.height,
                                                       MakeDefaultAttr(), MakeDefaultEffect());
    picture->SetSource(std::move(source));
    picture->m_rcStored = box;
    picture->UpdateView();
    picture->RecalcHandles();
    return picture;
}

// A picture with its own alpha, drawn at a smaller size than it was made,
// and a green-screen shot keyed out and faded a little.
void AddPictures(Objects& page) {
    page.push_back(MakePicture("emblem.png", MakeEmblemPicture(440), EMBLEM));
    auto weather = MakePicture("weather.png", MakeGreenScreenPicture(656, 420), WEATHER);
    const uint32_t key = SAMPLE_SCREEN_GREEN;
    weather->Execute(&key, CMD_KEY_COLOUR);
    weather->Execute(&WEATHER_ALPHA, CMD_PICTURE_ALPHA);
    page.push_back(std::move(weather));
}

}  // namespace

UstRect DemoEmblemBox() {
    return EMBLEM;
}

UstRect DemoWeatherBox() {
    return WEATHER;
}

UstRect DemoLowerThirdBar() {
    return MAIN_BAR;
}

UstRect DemoShapeBox(int kind) {
    const int left = SAFE_LEFT + (kind % SHAPES_PER_ROW) * SHAPE_STEP_X;
    const int top = SHAPE_TOP + (kind / SHAPES_PER_ROW) * SHAPE_STEP_Y;
    if (kind == SHAPE_CIRCLE) {
        const int inset = (SHAPE_W - SHAPE_H) / 2;
        return {left + inset, top, left + inset + SHAPE_H, top + SHAPE_H};
    }
    return {left, top, left + SHAPE_W, top + SHAPE_H};
}

std::vector<std::unique_ptr<CQRDObject>> BuildDemoPage() {
    Objects page;
    AddHeading(page);
    AddBadge(page);
    AddKorean(page);
    AddShapes(page);
    AddPictures(page);
    AddLowerThird(page);
    return page;
}

QImage RenderDemoPage() {
    QImage image(DEMO_WIDTH, DEMO_HEIGHT, QImage::Format_ARGB32_Premultiplied);
    auto* bits = reinterpret_cast<uint32_t*>(image.bits());
    ClearPixels(bits, DEMO_WIDTH, DEMO_HEIGHT);
    for (const auto& object : BuildDemoPage())
        object->DrawTo(bits, DEMO_WIDTH, DEMO_HEIGHT);
    return image;
}

bool SavePngFile(const QImage& image, const QString& path, QString* error) {
    auto fail = [&](const QString& why) {
        if (error) *error = QStringLiteral("cannot write '%1': %2").arg(path, why);
        return false;
    };
    const QFileInfo info(path);
    if (!info.absoluteDir().exists()) return fail(QStringLiteral("the folder does not exist"));
    if (info.isDir()) return fail(QStringLiteral("it is a folder"));
    QImageWriter writer(path, "png");
    if (!writer.write(image)) return fail(writer.errorString());
    return true;
}

}  // namespace orv
