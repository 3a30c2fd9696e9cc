#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>

#include <cstring>
#include <fstream>
#include <vector>

#include "render/image_file.h"
#include "test_util.h"

namespace orv {
namespace {

std::vector<uint8_t> Tga(uint8_t type, uint8_t bits, uint16_t w, uint16_t h, uint8_t descriptor,
                         const std::vector<uint8_t>& body, uint8_t idLength = 0,
                         uint8_t mapType = 0, uint16_t mapLength = 0) {
    UstTgaHeader head{};
    head.idLength = idLength;
    head.colourMapType = mapType;
    head.imageType = type;
    head.colourMapLength = mapLength;
    head.width = w;
    head.height = h;
    head.bitsPerPixel = bits;
    head.descriptor = descriptor;
    std::vector<uint8_t> out(sizeof head);
    std::memcpy(out.data(), &head, sizeof head);
    out.insert(out.end(), static_cast<size_t>(idLength) + static_cast<size_t>(mapType) * mapLength,
               0xEE);
    out.insert(out.end(), body.begin(), body.end());
    return out;
}

std::vector<uint32_t> Pixels(const UstPixelImage& image) {
    return {image.bits.get(), image.bits.get() + static_cast<size_t>(image.width) * image.height};
}

TEST(Tga, RunCrossingARowEndIsReadOnAndMapIsSkipped) {
    // 3 x 2, top-left: a run of five red, then one raw blue; 2 id bytes and a
    // 3-entry colour map before the data.
    const auto file = Tga(10, 24, 3, 2, 32, {0x84, 0, 0, 255, 0x00, 255, 0, 0}, 2, 1, 3);
    const UstPixelImage image = ReadTgaMemory(file.data(), file.size());
    ASSERT_TRUE(image);
    const uint32_t R = 0xFFFF0000u, B = 0xFF0000FFu;
    EXPECT_EQ(Pixels(image), (std::vector<uint32_t>{R, R, R, R, R, B}));
}

TEST(Tga, OrientationByTheDescriptor) {
    const std::vector<uint8_t> body = {1, 0, 0, 255, 2, 0, 0, 255, 3, 0, 0, 255, 4, 0, 0, 255};
    auto read = [&](uint8_t descriptor) {
        const auto file = Tga(2, 32, 2, 2, descriptor, body);
        std::vector<uint32_t> blue;
        for (uint32_t p : Pixels(ReadTgaMemory(file.data(), file.size())))
            blue.push_back(p & 255);
        return blue;
    };
    EXPECT_EQ(read(32), (std::vector<uint32_t>{1, 2, 3, 4}));  // top-left: as stored
    EXPECT_EQ(read(0), (std::vector<uint32_t>{3, 4, 1, 2}));   // bottom-left comes out top-down
    EXPECT_EQ(read(48), (std::vector<uint32_t>{2, 1, 4, 3}));  // top-right
    EXPECT_EQ(read(16), (std::vector<uint32_t>{4, 3, 2, 1}));  // bottom-right
}

TEST(Tga, SixteenBitWhiteAndItsChannels) {
    const auto file = Tga(2, 16, 2, 1, 32, {0xFF, 0xFF, 0x1F, 0x00});
    const UstPixelImage image = ReadTgaMemory(file.data(), file.size());
    ASSERT_TRUE(image);
    EXPECT_EQ(image.bits[0], 0xFFF8F8F8u);
    EXPECT_EQ(image.bits[1], 0xFF0000F8u);  // low five bits: blue only
}

TEST(Tga, ARunEndingExactlyAtThePictureEndIsRead) {
    // 2 x 2 in one run of four: the smallest data a run-length file can have.
    const auto one = Tga(10, 24, 2, 2, 32, {0x83, 1, 2, 3});
    const UstPixelImage whole = ReadTgaMemory(one.data(), one.size());
    ASSERT_TRUE(whole);
    EXPECT_EQ(Pixels(whole), std::vector<uint32_t>(4, 0xFF030201u));
}

TEST(Tga, DamagedFilesGiveNothing) {
    const std::vector<std::vector<uint8_t>> bad = {
        Tga(2, 32, 4, 4, 32, std::vector<uint8_t>(10)),  // fewer pixels than promised
        Tga(10, 24, 2, 2, 32, {0x85, 1, 2, 3}),          // a run past the picture
        // One pixel past the picture: a run alone, a run after a raw pixel,
        // a raw packet of five.
        Tga(10, 24, 2, 2, 32, {0x84, 1, 2, 3}),
        Tga(10, 24, 2, 2, 32, {0x00, 9, 9, 9, 0x83, 1, 2, 3}),
        Tga(10, 24, 2, 2, 32,
            std::vector<uint8_t>{0x04, 1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4, 5, 5, 5}),
        Tga(2, 24, 2, 2, 32, std::vector<uint8_t>(12), 0, 2, 0),  // a colour map of type 2
        Tga(10, 24, 2, 2, 32, {0x01, 1, 2, 3}),                   // raw packet cut short
        Tga(2, 32, 65535, 65535, 32, {}),                         // absurd size
        Tga(1, 8, 2, 2, 32, std::vector<uint8_t>(4)),             // colour-mapped
        Tga(2, 8, 2, 2, 32, std::vector<uint8_t>(4)),             // eight bits
        Tga(2, 32, 0, 2, 32, {}),                                 // no width
        {0, 0, 2},                                                // header cut short
    };
    for (size_t i = 0; i < bad.size(); ++i)
        EXPECT_FALSE(ReadTgaMemory(bad[i].data(), bad[i].size())) << i;
    auto longId = Tga(2, 24, 1, 1, 32, {1, 2, 3});
    longId[0] = 200;  // an id field longer than the file
    EXPECT_FALSE(ReadTgaMemory(longId.data(), longId.size()));
}

class ImageFiles : public testing::Test {
protected:
    QString Path(const char* name) const { return m_dir.filePath(name); }
    QTemporaryDir m_dir;
};

TEST_F(ImageFiles, WrittenTgaReadsBackByteIdentical) {
    const std::vector<uint32_t> px = {0x00112233u, 0x80FF0000u, 0xFF00FF00u,
                                      0x7F0000FFu, 0x01020304u, 0xFFFFFFFFu};
    ASSERT_EQ(WriteTga32(px.data(), 3, 2, Path("out.tga").toStdString()), 1);
    const std::string bytes = test::ReadFile(Path("out.tga").toStdString());
    ASSERT_EQ(bytes.size(), 18u + 24u);
    EXPECT_EQ(bytes[2], 2);
    EXPECT_EQ(bytes[12], 3);
    EXPECT_EQ(bytes[14], 2);
    EXPECT_EQ(bytes[16], 32);
    EXPECT_EQ(bytes[17], 32);
    EXPECT_EQ(std::memcmp(bytes.data() + 18, px.data(), 24), 0);
    const UstPixelImage back = LoadImageFile(Path("out.tga"));
    ASSERT_TRUE(back);
    EXPECT_EQ(Pixels(back), px);
    int w = 0, h = 0;
    GetImageSize(Path("out.tga"), w, h);
    EXPECT_EQ(w, 3);
    EXPECT_EQ(h, 2);
    EXPECT_EQ(WriteTga32(px.data(), 3, 2, Path("no/such/dir/out.tga").toStdString()), 0);
}

TEST_F(ImageFiles, IntoABlockOnlyAtTheExactSize) {
    const std::vector<uint32_t> px(6, 0xFF123456u);
    WriteTga32(px.data(), 3, 2, Path("a.tga").toStdString());
    std::vector<uint32_t> block(6, 7);
    EXPECT_EQ(LoadImageFileInto(Path("a.tga"), 2, 3, block.data()), 0);
    EXPECT_EQ(block, std::vector<uint32_t>(6, 7));
    EXPECT_EQ(LoadImageFileInto(Path("a.tga"), 3, 2, block.data()), 1);
    EXPECT_EQ(block, px);
    EXPECT_EQ(LoadImageFileInto(Path("missing.tga"), 3, 2, block.data()), 0);
}

TEST_F(ImageFiles, OtherFormatsByTheLibraryRouteWhateverTheExtension) {
    QImage png(2, 1, QImage::Format_ARGB32);
    png.setPixel(0, 0, 0x80FF0000u);
    png.setPixel(1, 0, 0xFF00FF00u);
    ASSERT_TRUE(png.save(Path("p.png")));
    ASSERT_TRUE(png.save(Path("p.dat"), "PNG"));
    for (const char* name : {"p.png", "p.dat"}) {
        const UstPixelImage image = LoadImageFile(Path(name));
        ASSERT_TRUE(image) << name;
        EXPECT_EQ(Pixels(image), (std::vector<uint32_t>{0x80FF0000u, 0xFF00FF00u})) << name;
    }
    int w = 0, h = 0;
    GetImageSize(Path("nothing.png"), w, h);
    EXPECT_EQ(w, 0);
    test::WriteFile(Path("junk.png").toStdString(), "not a picture");
    EXPECT_FALSE(LoadImageFile(Path("junk.png")));
}

TEST(ImageExtensions, TheAcceptedList) {
    for (const char* ok :
         {"a.bmp", "a.JPEG", "a.jpg", "x/y.Png", "a.tga", "a.tif", "a.TIFF", "a.gif"})
        EXPECT_TRUE(IsImageExtension(ok)) << ok;
    for (const char* no : {"a.webp", "a", "a.ani32", "tga"})
        EXPECT_FALSE(IsImageExtension(no)) << no;
}

TEST_F(ImageFiles, BmpThumbnailsAndTheirHeaders) {
    const std::vector<uint32_t> thumb(300 * 170, 0x11223344u);
    ASSERT_TRUE(SaveBmp32BottomUp(thumb.data(), 300, 170, Path("t.bmp")));
    const std::string t = test::ReadFile(Path("t.bmp").toStdString());
    ASSERT_EQ(t.size(), 54u + 300u * 170u * 4u);
    EXPECT_EQ(t.substr(0, 2), "BM");
    EXPECT_EQ(test::At<uint32_t>(t[0], 10), 54u);
    EXPECT_EQ(test::At<int32_t>(t[0], 18), 300);
    EXPECT_EQ(test::At<int32_t>(t[0], 22), 170);
    EXPECT_EQ(test::At<uint16_t>(t[0], 28), 32);
    EXPECT_EQ(test::At<uint32_t>(t[0], 30), 0u);
    EXPECT_EQ(test::At<uint32_t>(t[0], 54), 0x11223344u);
    std::vector<uint32_t> style(90 * 48, 0xFF0000FFu);
    style[0] = 0xFFFF0000u;  // top left
    ASSERT_TRUE(SaveBmp24(style.data(), 90, 48, 90.0, 48.0, Path("s.bmp")));
    const std::string s = test::ReadFile(Path("s.bmp").toStdString());
    const size_t stride = 272;  // 90 * 3 rounded up to four bytes
    ASSERT_EQ(s.size(), 54u + stride * 48u);
    EXPECT_EQ(test::At<uint16_t>(s[0], 28), 24);
    EXPECT_EQ(test::At<int32_t>(s[0], 38), 3543);  // 90 dots per inch in pixels per metre
    EXPECT_EQ(test::At<int32_t>(s[0], 42), 1890);  // 48 dots per inch
    const size_t topRow = 54 + stride * 47;        // rows are stored bottom first
    EXPECT_EQ(static_cast<uint8_t>(s[topRow + 2]), 0xFF);
    EXPECT_EQ(static_cast<uint8_t>(s[topRow]), 0x00);
}

}  // namespace
}  // namespace orv
