// Live data and remote control in the editor: the Data pane writing the
// page's values and its data file, its CSV rows; the Options page of the
// control server and its settings; and automation over a real loopback
// connection reaching the play mode's pages, and none outside play mode.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QTableWidget>
#include <QTcpSocket>

#include "board/test_board.h"
#include "objects/text_object.h"
#include "play_frame_fixture.h"
#include "playout/effect_table.h"
#include "project/page_manager.h"
#include "project/project_manager.h"
#include "project/project_store.h"
#include "shell/key_routing.h"
#include "support/rect_object.h"
#include "ui/control_tab.h"
#include "ui/data_pane.h"
#include "ui/editor_control.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {
namespace {

using test::PAGE_COLOURS;

class RemoteControlTest : public test::CPlayFrameFixture {
protected:
    // The server on any free port, whatever Options say.
    void BeforeCreate() override {
        UstControlOptions options;
        options.nLinePort = 0;
        options.bHttp = false;
        frame->SetControlOverride(options);
    }
    // One command over the line protocol and the whole of its reply.
    QString Say(QTcpSocket& socket, const QByteArray& line) {
        socket.write(line + "\r\n");
        QByteArray reply;
        Until([&] {
            socket.waitForReadyRead(5);
            reply += socket.readAll();
            // INFO ends with an empty line, the others with their first.
            return reply.startsWith("200") ? reply.endsWith("\r\n\r\n") : reply.endsWith("\r\n");
        });
        return QString::fromUtf8(reply);
    }
    // A project saved in a folder, opened in a window of its own.
    void OpenSaved(const QString& name) {
        ASSERT_TRUE(CreateProjectFolder(m_home.filePath(name), 1920, 1080, nullptr));
        view = frame->OpenProjectPath(m_home.filePath(name));
        ASSERT_NE(view, nullptr);
        QApplication::processEvents();
        ASSERT_EQ(frame->ActiveView(), view);
    }
    // A text holding "{{name}} / {{title}}" on the current page.
    void AddFieldText() {
        CQRDObjectText* text = view->StartNewText({60, 80});
        text->InsertString(QStringLiteral("{{name}} / {{title}}"));
        view->EndTextEdit();
    }
};

TEST_F(RemoteControlTest, AutomationReachesThePagesOfPlayModeOnly) {
    CEditorControl* control = frame->Control();
    ASSERT_TRUE(control && control->IsRunning());
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, control->LinePort());
    ASSERT_TRUE(socket.waitForConnected(5000));
    // Edit mode: pages may be deleted at any time, so none are served.
    EXPECT_TRUE(Say(socket, "INFO").contains("pages 0\r\n"));
    EXPECT_TRUE(Say(socket, "CG 1 ADD 1 \"2\" 1").startsWith("404 "));

    ASSERT_TRUE(frame->EnterPlayMode());
    EXPECT_TRUE(Say(socket, "INFO").contains("pages 3\r\n"));
    const QString project = QDir(doc->Project().Folder()).dirName();
    const QByteArray target = project.isEmpty() ? "2" : (project + "/2").toUtf8();
    EXPECT_EQ(Say(socket, "CG 1 ADD 1 \"" + target + "\" 1"), "202 ADD OK\r\n");
    ASSERT_TRUE(Until([&] { return AirCentre() == PAGE_COLOURS[1]; }));
    EXPECT_EQ(Say(socket, "CLEAR 1"), "202 CLEAR OK\r\n");
    ASSERT_TRUE(Until([&] { return frame->PlayEngine()->PageOnAir() == nullptr; }));

    ASSERT_TRUE(frame->LeavePlayMode());
    EXPECT_TRUE(Say(socket, "INFO").contains("pages 0\r\n"));
}

TEST_F(RemoteControlTest, TheDataPaneWritesThePageAndItsDataFile) {
    AddFieldText();
    CDataPane* pane = frame->DataPane();
    ASSERT_NE(pane, nullptr);
    pane->Refresh();
    QTableWidget* table = pane->Table();
    ASSERT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->item(0, 0)->text(), "name");
    EXPECT_EQ(table->item(1, 0)->text(), "title");

    // Before the first save there is no folder for rows.
    QString error;
    EXPECT_FALSE(pane->UseCsv("/nowhere.csv", error));
    EXPECT_FALSE(error.isEmpty());

    OpenSaved("Saved");
    const QString folder = m_home.filePath("Saved");
    AddFieldText();
    view->Page()->m_data.SetValues({{"title", "Anchor"}});
    pane->Refresh();
    ASSERT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->item(1, 1)->text(), "Anchor");
    table->item(0, 1)->setText(QStringLiteral("김연아"));
    const FieldValues values = view->Page()->m_data.Values();
    EXPECT_EQ(values.at("name"), QStringLiteral("김연아"));
    EXPECT_EQ(values.at("title"), "Anchor");
    QFile data(QDir(folder).filePath("data.json"));
    ASSERT_TRUE(data.open(QIODevice::ReadOnly));
    EXPECT_TRUE(QString::fromUtf8(data.readAll()).contains(QStringLiteral("김연아")));

    pane->UpdateChoice()->setCurrentIndex(1);
    Q_EMIT pane->UpdateChoice()->activated(1);
    EXPECT_EQ(view->Page()->m_data.UpdateMode(), DATA_UPDATE_RETAKE);

    // New values from elsewhere show at the next look; a cell being typed
    // into would keep its text.
    view->Page()->m_data.MergeValues({{"title", "Skater"}});
    pane->Refresh();
    EXPECT_EQ(table->item(1, 1)->text(), "Skater");
}

// Typing a value for the page on air redraws it in place, where the page
// asks for that, and leaves the air alone where it asks for a retake.
TEST_F(RemoteControlTest, TheDataPaneRedrawsThePageOnAirInPlace) {
    AddFieldText();
    CPageManager* page = view->Page();
    ASSERT_TRUE(frame->EnterPlayMode());
    CPlayEngine* engine = frame->PlayEngine();
    UstKeyInfo enter;
    enter.nVk = vk::RETURN;
    enter.bExtended = true;
    frame->DispatchKey(enter);
    ASSERT_TRUE(Until([&] { return engine->PageOnAir() == page && frame->m_nPlayState == 1; }));
    const std::vector<uint32_t> empty = board->View();

    CDataPane* pane = frame->DataPane();
    pane->Refresh();
    QTableWidget* table = pane->Table();
    ASSERT_EQ(table->rowCount(), 2);
    table->item(0, 1)->setText(QStringLiteral("Kim"));
    ASSERT_TRUE(Until([&] { return engine->RefreshPixelsWritten() > 0; }));
    ASSERT_TRUE(Until([&] { return board->View() != empty; }));
    EXPECT_EQ(AirCentre(), PAGE_COLOURS[0]);  // the rest of the page stays
    EXPECT_EQ(engine->PageOnAir(), page);

    pane->UpdateChoice()->setCurrentIndex(1);
    Q_EMIT pane->UpdateChoice()->activated(1);
    const int64_t written = engine->RefreshPixelsWritten();
    const std::vector<uint32_t> withName = board->View();
    table->item(1, 1)->setText(QStringLiteral("Anchor"));
    EXPECT_EQ(page->m_data.Values().at("title"), "Anchor");
    QElapsedTimer settle;  // the engine has every chance to draw
    settle.start();
    while (settle.elapsed() < 300)
        QApplication::processEvents(QEventLoop::AllEvents, 5);
    EXPECT_EQ(engine->RefreshPixelsWritten(), written);
    EXPECT_EQ(board->View(), withName);
}

TEST_F(RemoteControlTest, CsvRowsAreCopiedBesideTheProjectAndCounted) {
    OpenSaved("WithRows");
    const QString folder = m_home.filePath("WithRows");
    AddFieldText();
    CDataPane* pane = frame->DataPane();
    pane->Refresh();
    const QString csv = m_home.filePath("names.csv");
    QFile file(csv);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("name,title\r\nKim,Skater\r\nLee,\"Singer, songwriter\"\r\nPark,Coach\r\n");
    file.close();
    QString error;
    ASSERT_TRUE(pane->UseCsv(csv, error)) << error.toStdString();
    EXPECT_TRUE(QFile::exists(QDir(folder).filePath("names.csv")));
    EXPECT_EQ(view->Page()->m_data.RowCount(), 3);
    EXPECT_EQ(pane->RowsLabel()->text(), "names.csv: next row 1 of 3");
    view->Page()->m_data.TakeRow();
    view->Page()->m_data.TakeRow();
    view->Page()->m_data.TakeRow();
    pane->Refresh();
    EXPECT_EQ(pane->RowsLabel()->text(),
              "names.csv: next row 1 of 3");  // after the last, the first

    // A hidden file would be refused by the data file's reader.
    QFile::copy(csv, m_home.filePath(".hidden.csv"));
    EXPECT_FALSE(pane->UseCsv(m_home.filePath(".hidden.csv"), error));
    QFile broken(m_home.filePath("broken.csv"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("name\r\n\"Kim\r\n");
    broken.close();
    EXPECT_FALSE(pane->UseCsv(broken.fileName(), error));
    EXPECT_EQ(view->Page()->m_data.RowCount(), 3);  // the rows in use stay

    pane->DropCsv();
    EXPECT_EQ(view->Page()->m_data.RowCount(), 0);
    EXPECT_EQ(pane->RowsLabel()->text(), "No rows");
}

TEST_F(RemoteControlTest, TheOptionsPageAndItsSettings) {
    UstControlSetting setting;
    setting.bOn = true;
    setting.nLinePort = 6000;
    setting.nHttpPort = 6001;
    CTabControl tab(setting);
    EXPECT_TRUE(tab.Problem().isEmpty());
    tab.findChildren<QRadioButton*>().at(1)->setChecked(true);  // any address
    EXPECT_FALSE(tab.Problem().isEmpty());                      // needs a token
    tab.findChild<QLineEdit*>()->setText("  s3cret ");
    EXPECT_TRUE(tab.Problem().isEmpty());
    tab.findChildren<QSpinBox*>().at(1)->setValue(6000);
    EXPECT_FALSE(tab.Problem().isEmpty());  // the two ports the same
    tab.findChildren<QSpinBox*>().at(1)->setValue(6002);
    const UstControlSetting copy = tab.Copy();
    EXPECT_TRUE(copy.bOn && copy.bAnyAddress);
    EXPECT_EQ(copy.strToken, "s3cret");
    EXPECT_EQ(copy.nHttpPort, 6002);

    SaveControlSetting(copy);
    const UstControlSetting back = LoadControlSetting();
    EXPECT_TRUE(back.bOn && back.bAnyAddress);
    EXPECT_EQ(back.nLinePort, 6000);
    EXPECT_EQ(back.nHttpPort, 6002);
    EXPECT_EQ(back.strToken, "s3cret");
    // A damaged port gives the default, never "any port".
    QSettings().setValue("Control/LinePort", 0);
    QSettings().setValue("Control/HttpPort", 70000);
    EXPECT_EQ(LoadControlSetting().nLinePort, 5250);
    EXPECT_EQ(LoadControlSetting().nHttpPort, 5251);
    // Off by default.
    QSettings().remove("Control");
    EXPECT_FALSE(LoadControlSetting().bOn);
    EXPECT_EQ(ControlOptionsOf(LoadControlSetting()).address,
              QHostAddress(QHostAddress::LocalHost));
}

}  // namespace
}  // namespace orv
