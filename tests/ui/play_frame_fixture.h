#pragma once
// A main frame on a test board with its play engine, and one project
// window of three pages, each a full-frame rectangle of its own colour
// taken by a cut.

#include <QApplication>
#include <QElapsedTimer>

#include <functional>
#include <memory>

#include "board/test_board.h"
#include "frame_fixture.h"
#include "playout/effect_table.h"
#include "project/project_manager.h"
#include "support/rect_object.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv::test {

constexpr uint32_t PAGE_COLOURS[] = {0xFFFF0000u, 0xFF00FF00u, 0xFF0000FFu};

class CPlayFrameFixture : public CFrameFixture {
protected:
    void SetUp() override {
        CFrameFixture::SetUp();
        ModeByShortName("1080i5994", mode);
        board = std::make_unique<CTestBoard>(mode, EPlayoutClock::FREE);
        frame = std::make_unique<CMainFrame>(m_folders, 9, board.get());
        BeforeCreate();
        ASSERT_TRUE(frame->OnCreate());
        frame->CreatePlayEngine();
        doc = new CZevrantDoc(frame.get());
        view = frame->AddProjectWindow(doc);
        frame->resize(900, 700);
        frame->show();
        QApplication::processEvents();
        CProjectManager& project = doc->Project();
        while (project.PageCount() < 3)
            project.InsertPage(project.PageCount() - 1);
        for (int i = 0; i < 3; ++i) {
            CPageManager* page = project.GetPage(i);
            page->AddObject(
                std::make_unique<CRectObject>(UstRect{0, 0, 1920, 1080}, PAGE_COLOURS[i]));
            page->m_effect = {EFFECT_CUT, 10, 0, 0, EFFECT_CUT, 10, 0, 1, 0, 0, 0};
        }
    }
    void TearDown() override {
        frame->hide();
        frame.reset();
    }
    // What the frame needs before its window work, by each suite.
    virtual void BeforeCreate() {}
    // Until the condition holds, letting the engine's states arrive.
    bool Until(const std::function<bool()>& done) {
        QElapsedTimer timer;
        timer.start();
        while (!done() && timer.elapsed() < 10000)
            QApplication::processEvents(QEventLoop::AllEvents, 5);
        return done();
    }
    uint32_t AirCentre() { return board->View()[540 * 1920 + 960]; }

    CfgVideo mode;
    std::unique_ptr<CTestBoard> board;
    std::unique_ptr<CMainFrame> frame;
    CZevrantDoc* doc = nullptr;
    CZevrantView* view = nullptr;
};

}  // namespace orv::test
