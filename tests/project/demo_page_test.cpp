// The sample page: nothing paints outside its object, the lower third and
// every shape kind are where the page puts them, and the file written keeps
// the transparency.
#include <gtest/gtest.h>

#include <QImageReader>
#include <QTemporaryDir>

#include <algorithm>

#include "render/shape_path.h"
#include "samples/demo_page.h"

namespace orv {
namespace {

class DemoPage : public testing::Test {
protected:
    static void SetUpTestSuite() { s_image = new QImage(RenderDemoPage()); }
    static void TearDownTestSuite() { delete s_image; }
    static int Alpha(int x, int y) { return qAlpha(s_image->pixel(x, y)); }
    static QImage* s_image;
};
QImage* DemoPage::s_image = nullptr;

UstRect Grown(const UstRect& r, int by) {
    return {r.left - by, r.top - by, r.right + by, r.bottom + by};
}

TEST_F(DemoPage, NothingPaintsOutsideItsObject) {
    ASSERT_EQ(s_image->size(), QSize(DEMO_WIDTH, DEMO_HEIGHT));
    EXPECT_EQ(s_image->format(), QImage::Format_ARGB32_Premultiplied);
    // Bands, soft edges and shadows reach a little past an object's box.
    std::vector<UstRect> reach;
    for (const auto& object : BuildDemoPage())
        reach.push_back(Grown(object->GetBoundRect(), 32));
    int empty = 0;
    for (int y = 0; y < DEMO_HEIGHT; y += 8)
        for (int x = 0; x < DEMO_WIDTH; x += 8) {
            if (std::any_of(reach.begin(), reach.end(),
                            [&](const UstRect& r) { return Contains(r, x, y); }))
                continue;
            ++empty;
            ASSERT_EQ(Alpha(x, y), 0) << "at " << x << ", " << y;
        }
    EXPECT_GT(empty, 10000);  // most of the frame is left to the video under it
    EXPECT_EQ(Alpha(0, 0), 0);
    EXPECT_EQ(Alpha(DEMO_WIDTH - 1, DEMO_HEIGHT - 1), 0);
}

TEST_F(DemoPage, TheLowerThirdBarIsOpaqueWithTheNameOnIt) {
    const UstRect bar = DemoLowerThirdBar();
    // The right end is slanted; the rest of the bar is solid.
    int gold = 0;
    for (int y = bar.top + 2; y < bar.bottom - 2; y += 4)
        for (int x = bar.left + 2; x < bar.right - 48; x += 4) {
            const QRgb p = s_image->pixel(x, y);
            ASSERT_EQ(qAlpha(p), 255) << "at " << x << ", " << y;
            gold += qRed(p) > 200 && qBlue(p) < 140;
        }
    EXPECT_GT(gold, 100);  // the name's face, drawn over the navy bar
}

TEST_F(DemoPage, EveryShapeKindPaintsItsOwnBox) {
    for (int kind = 0; kind < SHAPE_KIND_COUNT; ++kind) {
        const UstRect box = DemoShapeBox(kind);
        EXPECT_GE(box.left, 0);
        EXPECT_LE(box.right, DEMO_WIDTH);
        for (int other = 0; other < kind; ++other)
            EXPECT_FALSE(Meets(Grown(box, 4), Grown(DemoShapeBox(other), 4))) << kind << other;
        EXPECT_EQ(Alpha((box.left + box.right) / 2, (box.top + box.bottom) / 2), 255)
            << "kind " << kind;
    }
}

TEST_F(DemoPage, ThePngKeepsTransparencyAndColours) {
    QTemporaryDir dir;
    const QString path = dir.filePath("demo.png");
    QString error;
    ASSERT_TRUE(SavePngFile(*s_image, path, &error)) << error.toStdString();
    QImageReader reader(path);
    EXPECT_EQ(reader.format(), "png");
    const QImage back = reader.read();
    ASSERT_EQ(back.size(), s_image->size());
    ASSERT_TRUE(back.hasAlphaChannel());
    // Every pixel comes back as it was, soft shadows included: the file holds
    // straight alpha, not the premultiplied block.
    int partial = 0;
    for (int y = 0; y < DEMO_HEIGHT; y += 3)
        for (int x = 0; x < DEMO_WIDTH; x += 3) {
            // pixel() answers a premultiplied block's raw value.
            const QRgb a = qUnpremultiply(s_image->pixel(x, y)), b = back.pixel(x, y);
            ASSERT_EQ(qAlpha(a), qAlpha(b)) << "at " << x << ", " << y;
            if (qAlpha(a) == 0) continue;
            partial += qAlpha(a) < 255;
            ASSERT_NEAR(qRed(a), qRed(b), 1) << "at " << x << ", " << y;
            ASSERT_NEAR(qGreen(a), qGreen(b), 1);
            ASSERT_NEAR(qBlue(a), qBlue(b), 1);
        }
    EXPECT_GT(partial, 100);
}

TEST_F(DemoPage, AFileThatCannotBeWrittenIsReported) {
    QTemporaryDir dir;
    const QString missing = dir.filePath("no-such-folder/demo.png");
    QString error;
    EXPECT_FALSE(SavePngFile(*s_image, missing, &error));
    EXPECT_TRUE(error.contains(missing)) << error.toStdString();
    EXPECT_TRUE(error.contains("folder does not exist")) << error.toStdString();
    EXPECT_FALSE(SavePngFile(*s_image, dir.path(), &error));  // a folder, not a file
    EXPECT_TRUE(error.contains(dir.path())) << error.toStdString();
    EXPECT_FALSE(SavePngFile(*s_image, missing, nullptr));
}

TEST_F(DemoPage, TheEmblemBringsItsOwnAlphaAndTheGreenScreenIsKeyedOut) {
    const UstRect emblem = DemoEmblemBox();
    const int cx = (emblem.left + emblem.right) / 2, cy = (emblem.top + emblem.bottom) / 2;
    EXPECT_EQ(Alpha(cx, cy), 255);
    // Between the solid middle and the transparent rim, the picture's own
    // alpha falls off through partial values.
    int partial = 0;
    for (int x = cx; x < emblem.right; ++x)
        partial += Alpha(x, cy) > 0 && Alpha(x, cy) < 255;
    EXPECT_GT(partial, 10);
    EXPECT_EQ(Alpha(emblem.right - 1, emblem.top), 0);  // outside the round emblem

    // The keyed picture: no green survives anywhere in its box, the screen
    // is transparent and the sun is there, faded to 230.
    const UstRect w = DemoWeatherBox();
    int clear = 0;
    for (int y = w.top; y < w.bottom; y += 3)
        for (int x = w.left; x < w.right; x += 3) {
            const QRgb p = s_image->pixel(x, y);
            ASSERT_FALSE(qGreen(p) > 200 && qRed(p) < 60 && qBlue(p) < 60) << x << ", " << y;
            clear += qAlpha(p) == 0;
        }
    EXPECT_GT(clear, 2000);
    const int sunX = w.left + (w.right - w.left) * 38 / 100,
              sunY = w.top + (w.bottom - w.top) * 42 / 100;
    EXPECT_EQ(Alpha(sunX, sunY), 230);
}

}  // namespace
}  // namespace orv
