// The "Slide" pane over a project of 1,000 pages, each with a thumbnail of
// its own: one full repaint of the pane, and a scroll by one page's row,
// each as a fraction of a frame at 29.97 frames per second. Targets: the
// repaint at most 0.25, the scroll at most 0.1. The process exits with
// status 1 if either is missed.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QCoreApplication>
#include <QScrollBar>

#include <cstdio>
#include <memory>

#include "bench_editor.h"
#include "best_time.h"
#include "objects/shape_object.h"
#include "project/project_manager.h"
#include "ui/main_frame.h"
#include "ui/preview_dlg.h"
#include "ui/zevrant_view.h"

namespace {

using namespace orv;

constexpr double FRAME_SECONDS = 1001.0 / 30000.0;
constexpr double REPAINT_TARGET = 0.25, SCROLL_TARGET = 0.1;
constexpr int PAGES = 1000;

bool g_missed = false;

// Each page gets a shape of its own, so that no two thumbnails are alike.
void FillProject(CZevrantView& view) {
    CProjectManager& project = view.Document()->Project();
    std::vector<std::unique_ptr<CPageManager>> pages;
    for (int i = project.PageCount(); i < PAGES; ++i)
        pages.push_back(std::make_unique<CPageManager>(&project, &view));
    project.AdoptPages(std::move(pages), true, -1);
    for (int i = 0; i < PAGES; ++i) {
        CPageManager* page = project.GetPage(i);
        page->AddObject(std::make_unique<CQRDObjectShape>(
            page, i % 28, UstRect{100 + i % 900, 100, 900 + i % 900, 900}, MakeDefaultAttr(),
            MakeDefaultEffect()));
        page->UpdateThumbnail();
    }
}

void BM_PreviewPane(benchmark::State& state) {
    CBenchEditor editor(1280, 900);
    CMainFrame& frame = editor.Frame();
    CZevrantView* view = editor.view;
    FillProject(*view);
    CPreviewDlg* pane = frame.PreviewPane();
    pane->resize(260, 800);
    pane->Refresh();
    pane->SelectPage(PAGES / 2, true, false);
    QApplication::processEvents();
    const double repaint = BestSeconds([&] { pane->repaint(); }, 30);
    QScrollBar* bar = pane->ScrollBar();
    const int pitch = pane->Geometry().nPitch;
    int direction = 1;
    const double scroll = BestSeconds(
        [&] {
            if (bar->value() + pitch > bar->maximum() || bar->value() - pitch < 0)
                direction = -direction;
            bar->setValue(bar->value() + direction * pitch);
            QApplication::processEvents();
        },
        60);
    for (auto _ : state) {
    }
    state.counters["repaint_of_frame"] = repaint / FRAME_SECONDS;
    state.counters["scroll_of_frame"] = scroll / FRAME_SECONDS;
    state.counters["rows_shown"] = static_cast<double>(800 / pitch + 1);
    if (repaint / FRAME_SECONDS > REPAINT_TARGET || scroll / FRAME_SECONDS > SCROLL_TARGET)
        g_missed = true;
}
BENCHMARK(BM_PreviewPane)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setOrganizationName("Tavrix");
    QCoreApplication::setApplicationName("Orvantis-HD");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    if (g_missed) std::printf("MISSED TARGET: pane repaint 0.25 or scroll 0.1 of a frame\n");
    return g_missed ? 1 : 0;
}
