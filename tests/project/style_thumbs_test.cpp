// Style thumbnails as files, and the picture libraries: which files are
// thumbnails, the names of new entries, and what a failed add leaves.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "project/picture_library.h"
#include "render/fixed_string.h"
#include "render/tga_file.h"
#include "support/byte_builder.h"
#include "support/folder_test.h"
#include "test_util.h"

namespace orv {
namespace {

using test::At;
using test::CBytes;

// A BMP of one colour, uncompressed, bottom row first.
std::string BmpBytes(int width, int height, int bits, uint32_t bgr = 0x00336699) {
    const int stride = (width * bits / 8 + 3) & ~3;
    CBytes b;
    b.Ascii("BM").U32(54 + static_cast<uint32_t>(stride * height)).U32(0).U32(54);
    b.U32(40).I32(width).I32(height).U16(1).U16(static_cast<uint16_t>(bits)).U32(0);
    b.U32(static_cast<uint32_t>(stride * height)).I32(2835).I32(2835).U32(0).U32(0);
    for (int y = 0; y < height; ++y) {
        const size_t start = b.Size();
        for (int x = 0; x < width; ++x) {
            b.U8(bgr & 255).U8((bgr >> 8) & 255).U8((bgr >> 16) & 255);
            if (bits == 32) b.U8(255);
        }
        b.PadTo(start + static_cast<size_t>(stride));
    }
    return b.Str();
}

class PictureFolder : public test::CFolderTest {
protected:
    // A 40 x 20 picture: left half red, right half blue.
    QString Source(const QString& name) {
        QImage image(40, 20, QImage::Format_RGB32);
        image.fill(Qt::blue);
        for (int y = 0; y < 20; ++y)
            for (int x = 0; x < 20; ++x)
                image.setPixel(x, y, 0xFFFF0000);
        const QString path = QDir(source.path()).filePath(name);
        image.save(path);
        return path;
    }
    QTemporaryDir source;
};

TEST_F(PictureFolder, ThumbnailFilesAre24BitBmpWithTheirSizeAsResolution) {
    UstColor style{};
    style.fill.clrSolid = 0xFF20A040;
    ASSERT_TRUE(MakeColorThumbnail(style, dir.path()));
    const QString name = FixedToQString(&style.szThumb);
    EXPECT_TRUE(QRegularExpression("^\\d{17}\\.BMP$").match(name).hasMatch()) << name.toStdString();
    const std::string bmp = test::ReadFile(Path(name).toStdString());
    ASSERT_EQ(bmp.size(), 54u + 272 * 48);
    EXPECT_EQ(bmp.substr(0, 2), "BM");
    EXPECT_EQ(At<int32_t>(bmp[0], 18), 90);
    EXPECT_EQ(At<int32_t>(bmp[0], 22), 48);
    EXPECT_EQ(At<uint16_t>(bmp[0], 28), 24);
    // 90 and 48 dots per inch, in dots per metre.
    EXPECT_EQ(At<int32_t>(bmp[0], 38), 3543);
    EXPECT_EQ(At<int32_t>(bmp[0], 42), 1890);
    // Every pixel is the fill, blue green red.
    EXPECT_EQ(static_cast<uint8_t>(bmp[54]), 0x40);
    EXPECT_EQ(static_cast<uint8_t>(bmp[55]), 0xA0);
    EXPECT_EQ(static_cast<uint8_t>(bmp[56]), 0x20);
    EXPECT_EQ(static_cast<uint8_t>(bmp[54 + 272 * 47 + 269]), 0x20);
    EXPECT_TRUE(IsStyleThumbnail(Path(name)));
}

TEST_F(PictureFolder, TextAndShapeThumbnailsShowTheStyleOverAHatch) {
    UstText text{};
    text.character.metric.nWidth = 100;
    text.character.font.nSize = 200;  // the sample is drawn at 26 whatever the style says
    QStringToFixed("DejaVu Sans", &text.character.font.szFace);
    text.character.clrFill = 0xFFFF0000;
    text.attr = MakeBlankAttr();
    text.attr.fill[0].clrSolid = 0xFFFF0000;
    auto redColumns = [](const QImage& image) {
        int first = -1, last = -1;
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixel(x, y) == 0xFFFF0000) {
                    if (first < 0) first = x;
                    last = x;
                }
        return std::pair(first, last);
    };
    const QImage english = DrawTextThumbnail(text, false);
    const QImage korean = DrawTextThumbnail(text, true);
    ASSERT_EQ(english.size(), QSize(90, 48));
    // The hatch: grey and blue only, in a corner the letter never reaches.
    for (QRgb corner :
         {english.pixel(0, 0), english.pixel(1, 0), english.pixel(2, 0), english.pixel(3, 0)})
        EXPECT_TRUE(corner == 0xFF808080 || corner == 0xFF0000FF);
    EXPECT_NE(english.pixel(0, 0), english.pixel(4, 0));
    const auto [eFirst, eLast] = redColumns(english);
    const auto [kFirst, kLast] = redColumns(korean);
    ASSERT_GE(eFirst, 0);
    ASSERT_GE(kFirst, 0);
    // One letter of 26 points, centred; two letters spread further both ways.
    EXPECT_LT(eLast - eFirst, 30);
    EXPECT_NEAR((eFirst + eLast) / 2, 45, 3);
    EXPECT_LT(kFirst, eFirst);
    EXPECT_GT(kLast - kFirst, 45);

    UstShape shape{};
    shape.attr = MakeBlankAttr();
    shape.attr.fill[0].clrSolid = 0xFF00FF00;
    const QImage box = DrawShapeThumbnail(shape);
    EXPECT_EQ(box.pixel(45, 24), 0xFF00FF00);
    EXPECT_EQ(box.pixel(20, 12), 0xFF00FF00);
    EXPECT_NE(box.pixel(19, 11), 0xFF00FF00);
    EXPECT_NE(box.pixel(70, 36), 0xFF00FF00);
}

TEST_F(PictureFolder, ScanPairsImagesWithTheirUsableThumbnails) {
    Write("20240101000000001.png", test::ReadFile(Source("a.png").toStdString()));
    Write("20240101000000001_TB.BMP", BmpBytes(90, 48, 24));
    Write("20240101000000002.JPG", test::ReadFile(Source("b.jpg").toStdString()));
    Write("20240101000000002_TB.BMP", BmpBytes(90, 48, 32));  // 32-bit: refused
    Write("20240101000000003.tga", "not really");             // listed by its type
    Write("20240101000000003_TB.BMP", BmpBytes(90, 47, 24));  // a line short: refused
    Write("orphan_TB.BMP", BmpBytes(90, 48, 24));             // no image beside it
    Write(".hidden.png", "x");
    Write("notes.txt", "x");
    ASSERT_TRUE(QDir(dir.path()).mkdir("sub.png"));
    QStringList thumbs, images;
    ScanPictureFolder(dir.path(), thumbs, images);
    EXPECT_EQ(images, QStringList({"20240101000000001.png", "20240101000000002.JPG",
                                   "20240101000000003.tga"}));
    EXPECT_EQ(thumbs, QStringList({"20240101000000001_TB.BMP", "", ""}));
}

TEST_F(PictureFolder, AForeignThumbnailCountsOnlyAt24Bits) {
    QImage opaque(90, 48, QImage::Format_RGB888);
    opaque.fill(Qt::red);
    opaque.save(Path("opaque_TB.png"));
    QImage alpha(90, 48, QImage::Format_ARGB32);
    alpha.fill(0x80FF0000);
    alpha.save(Path("alpha_TB.png"));
    EXPECT_TRUE(IsStyleThumbnail(Path("opaque_TB.png")));
    EXPECT_FALSE(IsStyleThumbnail(Path("alpha_TB.png")));
    Write("short_TB.BMP", BmpBytes(90, 48, 24).substr(0, 20));
    EXPECT_FALSE(IsStyleThumbnail(Path("short_TB.BMP")));
    EXPECT_FALSE(IsStyleThumbnail(Path("none_TB.BMP")));
}

TEST_F(PictureFolder, AFolderOfTenThousandFiles) {
    for (int i = 0; i < 5000; ++i) {
        Write(QString("%1.png").arg(i, 5, 10, QChar('0')), "");
        Write(QString("%1_TB.BMP").arg(i, 5, 10, QChar('0')), "BM");
    }
    QStringList thumbs, images;
    ScanPictureFolder(dir.path(), thumbs, images);
    ASSERT_EQ(images.size(), 5000);
    EXPECT_EQ(images.front(), "00000.png");
    EXPECT_EQ(thumbs.count(QString()), 5000);
}

TEST_F(PictureFolder, AddCopiesTheSourceAndMakesItsThumbnail) {
    CPictureLibrary lib(dir.path());
    const int at = lib.Add(Source("in.png"));
    ASSERT_EQ(at, 0);
    EXPECT_TRUE(lib.ImagePath(0).endsWith(".png"));
    EXPECT_EQ(QFileInfo(lib.ThumbPath(0)).fileName(),
              QFileInfo(lib.ImagePath(0)).completeBaseName() + "_TB.BMP");
    const QImage thumb(lib.ThumbPath(0));
    ASSERT_EQ(thumb.size(), QSize(90, 48));
    // The whole source over the whole thumbnail: red on the left, blue on the right.
    EXPECT_EQ(thumb.pixel(10, 24), 0xFFFF0000);
    EXPECT_EQ(thumb.pixel(80, 24), 0xFF0000FF);
    CPictureLibrary again(dir.path());
    again.Scan();
    EXPECT_EQ(again.Count(), 1);
    EXPECT_EQ(again.ThumbPath(0), lib.ThumbPath(0));

    ASSERT_TRUE(lib.Delete(0));
    EXPECT_TRUE(Files().isEmpty());
}

TEST_F(PictureFolder, TwoAddsInOneMillisecondGetTwoNames) {
    const QDateTime t0 = QDateTime(QDate(2025, 3, 4), QTime(5, 6, 7, 8));
    int calls = 0;
    // The first two readings fall in the same millisecond.
    auto clock = [&] { return calls++ < 2 ? t0 : t0.addMSecs(1); };
    QString image1, thumb1, image2, thumb2;
    const QString src = Source("in.png");
    ASSERT_TRUE(AddPictureStyle(dir.path(), src, image1, thumb1, clock));
    ASSERT_TRUE(AddPictureStyle(dir.path(), src, image2, thumb2, clock));
    EXPECT_EQ(image1, "20250304050607008.png");
    EXPECT_EQ(thumb1, "20250304050607008_TB.BMP");
    EXPECT_EQ(image2, "20250304050607009.png");
    EXPECT_EQ(calls, 3);
    // A clock that never moves: five tries, then the add fails cleanly.
    calls = 0;
    auto stuck = [&] {
        ++calls;
        return t0;
    };
    EXPECT_FALSE(AddPictureStyle(dir.path(), src, image2, thumb2, stuck));
    EXPECT_EQ(calls, 5);
    EXPECT_EQ(Files().size(), 4);
    // Only the thumbnail's name taken is enough to move on.
    QFile::remove(Path(image1));
    EXPECT_FALSE(AddPictureStyle(dir.path(), src, image2, thumb2, stuck));
}

TEST_F(PictureFolder, AFailedAddLeavesNothing) {
    QString image, thumb;
    const QString bad = QDir(source.path()).filePath("bad.png");
    test::WriteFile(bad.toStdString(), "not a picture at all");
    EXPECT_FALSE(AddPictureStyle(dir.path(), bad, image, thumb));
    EXPECT_FALSE(AddPictureStyle(dir.path(), Source("in.png") + ".txt", image, thumb));
    EXPECT_FALSE(AddPictureStyle(dir.path(), QDir(source.path()).filePath("no.png"), image, thumb));
    EXPECT_TRUE(image.isEmpty());
    EXPECT_TRUE(Files().isEmpty());
    // A TGA goes through the system's own reader.
    const uint32_t px[4] = {0xFF00FF00, 0xFF00FF00, 0xFF00FF00, 0xFF00FF00};
    const QString tga = QDir(source.path()).filePath("in.tga");
    ASSERT_EQ(WriteTga32(px, 2, 2, tga.toStdString()), 1);
    ASSERT_TRUE(AddPictureStyle(dir.path(), tga, image, thumb));
    EXPECT_EQ(QImage(Path(thumb)).pixel(45, 24), 0xFF00FF00);
}

}  // namespace
}  // namespace orv
