// A project of 100 pages, each with a 200-character styled text (two faces,
// three sizes, colours by the character, edge, outline and a soft shadow),
// a shape, and a group holding a text and a shape. Prints the time to save
// it and to load it (thumbnails read, no page rendered), per page, divided
// by one frame at 29.97 frames per second. Targets: at most 0.05 each. The
// process exits with status 1 if either is missed.
#include <benchmark/benchmark.h>

#include <QDir>
#include <QTemporaryDir>

#include <cstdio>

#include "best_time.h"
#include "objects/group_object.h"
#include "objects/shape_object.h"
#include "objects/text_object.h"
#include "project/project_manager.h"
#include "render/fixed_string.h"
#include "render/text_measure.h"

namespace {

using namespace orv;

constexpr double FRAME_SECONDS = 1001.0 / 30000.0;
constexpr double SAVE_TARGET = 0.05, LOAD_TARGET = 0.05;
constexpr int PAGES = 100;

std::unique_ptr<CQRDObjectText> StyledText(int seed) {
    static const QString LINE = "The quick brown fox jumps over the lazy dog 0123456789 ";
    std::vector<UstCharAttr> chars;
    for (int i = 0; i < 200; ++i) {
        UstCharAttr c = NewCharAttr();
        c.nChar = i % 50 == 49 ? CHAR_LINE_END : LINE[(i + seed) % LINE.size()].unicode();
        c.font.nCharSet = 1;
        c.font.nSize = 36 + 12 * (i / 70);
        QStringToFixed(i % 3 ? QStringLiteral("DejaVu Sans") : QStringLiteral("DejaVu Serif"),
                       &c.font.szFace);
        c.clrFill = 0xFF000000u | static_cast<uint32_t>(i * 40503 + seed);
        MeasureChar(c, true);
        chars.push_back(c);
    }
    auto text = std::make_unique<CQRDObjectText>();
    text->m_effect.nEdge = 3;
    text->m_effect.nOutline = 2;
    text->m_effect.nShadowX = text->m_effect.nShadowY = 6;
    text->m_effect.nShadowSoft = 8;
    text->m_attr = MakeDefaultAttr();
    text->SetChars(std::move(chars));
    text->SetOrigin(100, 200);
    return text;
}

std::unique_ptr<CQRDObject> Shape(int kind, const UstRect& r) {
    return std::make_unique<CQRDObjectShape>(nullptr, kind, r, MakeDefaultAttr(),
                                             MakeDefaultEffect());
}

void AddGroup(CPageManager& page, int seed) {
    auto group = std::make_unique<CQRDObjectGroup>(&page);
    group->AddMember(StyledText(seed + 7));
    group->AddMember(Shape(5, {1200, 600, 1500, 800}));
    group->RebuildRect();
    page.AddObject(std::move(group));
}

bool g_missed = false;

void BM_ProjectFile(benchmark::State& state) {
    QTemporaryDir dir;
    const QDir folder(dir.path());
    folder.mkpath("Data");
    folder.mkpath("Object");
    const QString file = folder.filePath("project.qrdprj");
    CProjectManager project;
    project.SetFolder(dir.path() + '/');
    CreateProjectFile(file, 1920, 1080);
    for (int i = 0; i < PAGES; ++i) {
        CPageManager* page = project.InsertPage(i - 1);
        page->AddObject(StyledText(i));
        page->AddObject(Shape(i % 28, {200, 700, 900, 900}));
        AddGroup(*page, i);
    }
    double save = 0, load = 0;
    bool failed = false;
    for (auto _ : state) {
        save =
            BestSeconds([&] { failed |= !project.SaveProject(file); }, 10) / PAGES / FRAME_SECONDS;
        load = BestSeconds(
                   [&] {
                       CProjectManager loaded;
                       failed |= !loaded.LoadProject(file) || loaded.PageCount() != PAGES;
                   },
                   10) /
               PAGES / FRAME_SECONDS;
    }
    if (failed) {
        state.SkipWithError("the project did not save or load whole");
        g_missed = true;
    }
    state.counters["save_frames_per_page"] = save;
    state.counters["load_frames_per_page"] = load;
    if (save > SAVE_TARGET || load > LOAD_TARGET) g_missed = true;
}
BENCHMARK(BM_ProjectFile)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    if (g_missed) std::printf("MISSED TARGET: saving or loading a page (0.05 frames each)\n");
    return g_missed ? 1 : 0;
}
