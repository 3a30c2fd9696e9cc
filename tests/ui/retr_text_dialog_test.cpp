// "Import Text File": its values at opening, the preview following the text
// and the sliders, and files opened into it.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QSlider>
#include <QTemporaryDir>

#include <tuple>

#include "support/looks.h"
#include "test_util.h"
#include "ui/retr_text_dialog.h"

namespace orv {
namespace {

// The rows of the preview that hold anything drawn: first and last.
std::pair<int, int> InkRows(const QImage& image) {
    int first = -1, last = -1;
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(row[x]) > 128) {
                if (first < 0) first = y;
                last = y;
                break;
            }
    }
    return {first, last};
}

class RetrTextDialog : public testing::Test {
protected:
    RetrTextDialog() : look(test::MakeLook("DejaVu Sans", 60)), dialog(look, 1920, 1080) {}
    QSlider* Slider(int id) { return dialog.findChild<QSlider*>(QString("slider%1").arg(id)); }
    UstDefaultAttr look;
    CDlgRetrText dialog;
};

TEST_F(RetrTextDialog, OpensWithTheDefaultValues) {
    EXPECT_EQ(dialog.windowTitle(), "Import Text File");
    const UstTextImport v = dialog.Values();
    EXPECT_FLOAT_EQ(v.fLeft, 192.0f);
    EXPECT_FLOAT_EQ(v.fTop, 993.6f);
    EXPECT_EQ(v.nRight, 1728);
    EXPECT_EQ(v.nLinesPerPage, 2);
    EXPECT_EQ(dialog.findChild<QComboBox*>()->currentIndex(), 1);
    EXPECT_EQ(v.bAppend, 0);
    ASSERT_TRUE(Slider(1049) && Slider(1050) && Slider(1053));
    EXPECT_EQ(Slider(1049)->maximum(), 1080);
    EXPECT_EQ(Slider(1053)->maximum(), 1920);
    EXPECT_EQ(InkRows(dialog.PreviewImage()).first, -1);  // no text, nothing drawn
}

TEST_F(RetrTextDialog, PreviewFollowsTextAndBaseline) {
    dialog.SetText("Amazing grace\nhow sweet the sound\nthird line");
    auto [top, bottom] = InkRows(dialog.PreviewImage());
    EXPECT_GT(top, 900);  // the first page's first line sits on the baseline
    Slider(1049)->setValue(300);
    dialog.UpdatePreview();
    std::tie(top, bottom) = InkRows(dialog.PreviewImage());
    EXPECT_GT(top, 200);
    EXPECT_LT(top, 300);
    // Two lines a page: the third line is not on the first page.
    EXPECT_LT(bottom, 300 + 2 * 100);
    EXPECT_FLOAT_EQ(dialog.Values().fTop, 300.0f);
    if (const QByteArray shots = qgetenv("ORV_SHOT_DIR"); !shots.isEmpty()) {
        dialog.resize(760, 640);
        dialog.show();
        dialog.grab().save(QDir(QString::fromLocal8Bit(shots)).filePath("import_text.png"));
    }
}

TEST_F(RetrTextDialog, OpeningFiles) {
    QTemporaryDir dir;
    const auto wide = test::TempPath(dir, "wide.txt");
    test::WriteFile(wide, std::string("\xFF\xFE"
                                      "H\0i\0\r\0\n\0",
                                      10));
    ASSERT_TRUE(dialog.OpenFile(QString::fromStdString(wide.string())));
    EXPECT_EQ(dialog.Values().text, "Hi");
    EXPECT_FALSE(dialog.OpenFile(dir.path() + "/missing.txt"));
    EXPECT_EQ(dialog.Values().text, "Hi");
}

}  // namespace
}  // namespace orv
