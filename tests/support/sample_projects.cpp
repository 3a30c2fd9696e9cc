#include "support/sample_projects.h"

#include "support/looks.h"

#include <QColor>
#include <QDir>
#include <QImage>

#include "media/ani32_writer.h"
#include "objects/ani_object.h"
#include "objects/group_object.h"
#include "objects/shape_object.h"
#include "objects/tc_object.h"
#include "objects/text_object.h"
#include "render/fixed_string.h"
#include "render/text_measure.h"
#include "samples/demo_page.h"
#include "samples/sample_pictures.h"

namespace orv::test {

namespace {

std::unique_ptr<CQRDObjectText> Text(const QString& text, int size, float x, float y) {
    std::vector<UstCharAttr> chars;
    for (const char32_t code : text.toUcs4()) {
        UstCharAttr c = NewCharAttr();
        c.nChar = code == U'\n' ? CHAR_LINE_END : code;
        c.font.nSize = size;
        c.font.nCharSet = 1;
        QStringToFixed(QStringLiteral("DejaVu Sans"), &c.font.szFace);
        c.clrFill = 0xFFFFFFFFu;
        MeasureChar(c, true);
        chars.push_back(c);
    }
    auto t = std::make_unique<CQRDObjectText>();
    t->m_attr = MakeDefaultAttr();
    t->m_effect = MakeDefaultEffect();
    t->SetChars(std::move(chars));
    t->SetOrigin(x, y);
    return t;
}

std::unique_ptr<CQRDObjectShape> Box(int left, int top, int right, int bottom) {
    return std::make_unique<CQRDObjectShape>(nullptr, 1, UstRect{left, top, right, bottom},
                                             MakeDefaultAttr(), MakeDefaultEffect());
}

void WriteBackground(const QString& file) {
    QImage image(64, 36, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, QColor::fromHsv(200, 160, 60 + 3 * y).rgba());
    image.save(file, "PNG");
}

void WritePicture(const UstPixelImage& image, const QString& file) {
    QImage(reinterpret_cast<const uchar*>(image.bits.get()), image.width, image.height,
           image.width * 4, QImage::Format_ARGB32)
        .save(file, "PNG");
}

void BuildDemo(CProjectManager& project) {
    CPageManager* page = project.InsertPage(-1);
    for (auto& o : BuildDemoPage())
        page->AddObject(std::move(o));
    // The page's pictures are drawn by code; the project keeps them as files.
    WritePicture(MakeEmblemPicture(440), project.ObjectFolder() + "emblem.png");
    WritePicture(MakeGreenScreenPicture(656, 420), project.ObjectFolder() + "weather.png");
    const UstTCSetting timer{0, 7, 0, 3661, 0, 0};
    page->AddObject(std::make_unique<CQRDObjectTC>(
        page, MakeLook(QStringLiteral("DejaVu Sans"), 48), timer, 1500, 1000));
    QFile ani(project.ObjectFolder() + "spin.ani");
    ani.open(QIODevice::WriteOnly);
    ani.write("ANI32");
    ani.close();
    page->AddObject(
        std::make_unique<CQRDObjectAni>(page, "spin.ani", UstRect{1500, 300, 1800, 500}));
    WriteBackground(project.ObjectFolder() + "sky.png");
    page->m_background.strFile = "sky.png";
    page->m_background.bPresent = 1;
}

void BuildPages(CProjectManager& project) {
    CPageManager* cut = project.InsertPage(-1);
    // A group whose text class is met first inside it, with a group within.
    auto group = std::make_unique<CQRDObjectGroup>(cut);
    group->AddMember(Text("Inside", 40, 1200, 700));
    group->AddMember(Box(1150, 620, 1500, 720));
    auto inner = std::make_unique<CQRDObjectGroup>(cut);
    inner->AddMember(Box(1150, 740, 1300, 800));
    inner->RebuildRect();
    group->AddMember(std::move(inner));
    group->RebuildRect();
    cut->AddObject(std::move(group));
    cut->AddObject(Text("Good evening", 72, 200, 300));
    // An origin that a zoom and back does not give again exactly.
    cut->AddObject(Text("and welcome", 36, 101.5f, 400.0f));
    for (uint32_t type : {1u, 2u}) {
        CPageManager* page = project.InsertPage(project.PageCount() - 1);
        page->ExecCommand(&type, CMD_PAGE_TYPE);
        page->AddObject(Text(type == 1 ? "Credits\nDirector\nProducer" : "Breaking news", 48, 100,
                             200 + 1500.0f * (type == 1)));
    }
    cut->m_effect.nInSpeed = 7;
    cut->m_blink.nSpeed = 2;
}

void BuildSd(CProjectManager& project) {
    CPageManager* page = project.InsertPage(-1);
    UstEffect effect = MakeDefaultEffect();
    page->AddObject(std::make_unique<CQRDObjectShape>(page, 1, UstRect{40, 300, 600, 420},
                                                      MakeDefaultAttr(), effect));
    page->AddObject(Text("SD", 60, 60, 390));
}

// Three SD pages of one colour each, in by a cut, a second on air, out by
// a fade: what a played file must show, page by page.
void BuildPlay(CProjectManager& project) {
    for (uint32_t colour : {0xFFE02020u, 0xFF20C020u, 0xFF2040E0u}) {
        CPageManager* page = project.InsertPage(project.PageCount() - 1);
        UstAttr attr = MakeDefaultAttr();
        attr.fill[UstAttr::BODY].nType = 0;
        attr.fill[UstAttr::BODY].clrSolid = colour;
        page->AddObject(std::make_unique<CQRDObjectShape>(page, 1, UstRect{40, 40, 600, 440}, attr,
                                                          MakeDefaultEffect()));
        page->m_effect = {3, 10, 1, 0, 3, 10, 0, 1, 0, 0, 0};
    }
}

// A logo of a turning colour wheel's spoke, 20 frames.
void WriteLogo(const QString& file, int size) {
    CAni32Writer writer;
    if (!writer.Create(file, 20, size, size)) return;
    std::vector<uint32_t> block(static_cast<size_t>(size) * size);
    for (int f = 0; f < 20; ++f) {
        const QColor c = QColor::fromHsv(f * 18, 220, 240);
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x) {
                const bool band = (x + y + f * size / 10) / (size / 4) % 2 == 0;
                block[static_cast<size_t>(y) * size + x] = band ? c.rgba() : 0xFF202020u;
            }
        writer.WriteFrame(f, block.data());
    }
    writer.Finish();
}

// Two SD pages that keep living on air: a blinking "LIVE" badge over a box
// with a line typed on below, then an animated logo with a typed line.
void BuildLive(CProjectManager& project) {
    for (int i = 0; i < 2; ++i) {
        CPageManager* page = project.InsertPage(project.PageCount() - 1);
        page->m_effect = {3, 10, 2, 0, 3, 10, 0, 1, 0, 0, 0};
        page->AddObject(std::make_unique<CQRDObjectShape>(page, 1, UstRect{30, 330, 610, 440},
                                                          MakeDefaultAttr(), MakeDefaultEffect()));
        auto line = Text(i == 0 ? "Typed on air" : "And a logo", 40, 50, 405);
        line->SetTyping(1);
        page->AddObject(std::move(line));
        if (i == 0) {
            auto badge = Text("LIVE", 48, 40, 90);
            badge->SetBlink(1);
            page->AddObject(std::move(badge));
            page->m_blink.nSpeed = 9;
            continue;
        }
        WriteLogo(project.ObjectFolder() + "logo.ani32", 120);
        auto logo = std::make_unique<CQRDObjectAni>(page, "logo.ani32", UstRect{480, 30, 600, 150});
        logo->m_words.nRepeat = 1;
        page->AddObject(std::move(logo));
    }
}

// A match page: a clock in the corner and a countdown from ten
// seconds, both with edge and shadow, twelve seconds on air.
void BuildTimers(CProjectManager& project) {
    CPageManager* page = project.InsertPage(-1);
    UstAttr attr = MakeDefaultAttr();
    attr.fill[UstAttr::BODY].clrSolid = 0xFF102848u;
    page->AddObject(std::make_unique<CQRDObjectShape>(page, 1, UstRect{90, 630, 1140, 990}, attr,
                                                      MakeDefaultEffect()));
    page->AddObject(Text("Kick-off in", 72, 150, 735));
    UstDefaultAttr look = MakeLook(QStringLiteral("DejaVu Sans"), 180);
    look.effect = MakeDefaultEffect();
    look.effect.nEdge = 4;
    look.effect.nShadowX = 5;
    look.effect.nShadowY = 5;
    look.attr.fill[UstAttr::BODY].clrSolid = 0xFFFFD040u;
    look.attr.fill[UstAttr::EDGE].clrSolid = 0xFF000000u;
    look.attr.fill[UstAttr::SHADOW].clrSolid = 0xC0000000u;
    page->AddObject(
        std::make_unique<CQRDObjectTC>(page, look, UstTCSetting{0, 2, 0, 10, 0, 0}, 150, 945));
    look.font.nSize = 84;
    look.attr.fill[UstAttr::BODY].clrSolid = 0xFFFFFFFFu;
    page->AddObject(
        std::make_unique<CQRDObjectTC>(page, look, UstTCSetting{1, 0, 5, 0, 0, 1}, 1420, 150));
    page->m_effect = {3, 10, 12, 0, 3, 10, 0, 1, 0, 0, 0};
}

}  // namespace

QString MakeProjectFolder(const QString& folder, CProjectManager& project) {
    const QDir dir(folder);
    if (!QDir().mkpath(folder) || !dir.mkpath("Data") || !dir.mkpath("Object")) return {};
    const QString file = dir.filePath("project.qrdprj");
    if (!CreateProjectFile(file, project.m_nWidth, project.m_nHeight)) return {};
    project.SetFolder(dir.absolutePath() + '/');
    return file;
}

bool SaveWithThumbnails(CProjectManager& project, const QString& file) {
    for (const auto& page : project.Pages()) {
        page->UpdateThumbnail();
        page->SetModified(true);
    }
    return project.SaveProject(file) == 1;
}

std::vector<QString> WriteSampleProjects(const QString& root) {
    struct UstSample {
        const char* name;
        int width, height;
        void (*build)(CProjectManager&);
    };
    static const UstSample SAMPLES[] = {
        {"empty", 1920, 1080, nullptr},    {"demo", 1920, 1080, BuildDemo},
        {"pages", 1920, 1080, BuildPages}, {"sd", 640, 480, BuildSd},
        {"play", 640, 480, BuildPlay},     {"live", 640, 480, BuildLive},
        {"timers", 1920, 1080, BuildTimers},
    };
    std::vector<QString> files;
    for (const UstSample& s : SAMPLES) {
        CProjectManager project(s.width, s.height);
        const QString file = MakeProjectFolder(QDir(root).filePath(s.name), project);
        if (file.isEmpty()) return {};
        if (s.build) s.build(project);
        if (!SaveWithThumbnails(project, file)) return {};
        files.push_back(file);
    }
    return files;
}

}  // namespace orv::test
