// Pictures: scaling, keying at the hard threshold, alpha, turning, the kept
// image through changes that are and are not changes, the file form byte by
// byte, and files that are missing or absurd.
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include "objects/archive_fields.h"
#include "objects/picture_object.h"
#include "render/picture_image.h"
#include "support/rect_object.h"
#include "test_util.h"

namespace orv {
namespace {

using test::CFakeContext;

UstPixelImage Block(int w, int h, std::initializer_list<uint32_t> pixels) {
    UstPixelImage image;
    image.width = w;
    image.height = h;
    image.bits.reset(new uint32_t[static_cast<size_t>(w) * h]);
    std::copy(pixels.begin(), pixels.end(), image.bits.get());
    return image;
}

TEST(RenderPicture, FullAlphaAndNoKeyKeepTheFilesAlphaBytes) {
    const UstPixelImage src = Block(2, 2, {0x00FF0000u, 0x01123456u, 0x7F808080u, 0xFFFFFFFFu});
    ObjectImage out;
    EXPECT_TRUE(RenderPicture(out, 10, 20, 12, 22, src.bits.get(), 2, 2, 0, false, 0, 255));
    ASSERT_TRUE(out.Made());
    EXPECT_TRUE(out.bStraight);
    EXPECT_EQ(out.x, 10);
    EXPECT_EQ(out.y, 20);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(out.pBlock[i], src.bits[i]) << i;
}

TEST(RenderPicture, KeyingIsAHardDistanceOfOneHundred) {
    // Distances from black: 100 exactly, 100.99 (truncated to 100), 101,
    // and the key itself.
    const UstPixelImage src = Block(4, 1, {0xFF3C5000u, 0xFF640E02u, 0xC8000065u, 0xFF000000u});
    ObjectImage out;
    RenderPicture(out, 0, 0, 4, 1, src.bits.get(), 4, 1, 0, true, 0xFF000000u, 128);
    EXPECT_EQ(out.pBlock[0], 0x003C5000u);
    EXPECT_EQ(out.pBlock[1], 0x00640E02u);
    EXPECT_EQ(out.pBlock[2], 0x64000065u);  // 200 * 128 / 255 = 100: kept, faded
    EXPECT_EQ(out.pBlock[3], 0x00000000u);
}

TEST(RenderPicture, AlphaScalesTruncatingAndTurningMakesItPremultiplied) {
    const UstPixelImage src = Block(3, 1, {0xFFFFFFFFu, 0xC8FFFFFFu, 0x01FFFFFFu});
    ObjectImage out;
    RenderPicture(out, 0, 0, 3, 1, src.bits.get(), 3, 1, 0, false, 0, 128);
    EXPECT_EQ(out.pBlock[0] >> 24, 128u);
    EXPECT_EQ(out.pBlock[1] >> 24, 100u);
    EXPECT_EQ(out.pBlock[2] >> 24, 0u);

    const UstPixelImage wide = Block(4, 2,
                                     {0xFFFF0000u, 0xFFFF0000u, 0xFFFF0000u, 0xFFFF0000u,
                                      0xFFFF0000u, 0xFFFF0000u, 0xFFFF0000u, 0xFFFF0000u});
    EXPECT_FALSE(RenderPicture(out, 100, 50, 104, 52, wide.bits.get(), 4, 2, 450, false, 0, 255));
    EXPECT_FALSE(out.bStraight);
    // A quarter turn about (2, 1): the bound of a 4 x 2 block stands 2 x 4.
    EXPECT_EQ(out.width, 2);
    EXPECT_EQ(out.height, 4);
    EXPECT_EQ(out.x, 101);
    EXPECT_EQ(out.y, 49);
}

TEST(RenderPicture, BoxesWithoutAreaOrTooLargeMakeNothing) {
    const UstPixelImage src = Block(1, 1, {0xFFFFFFFFu});
    ObjectImage out;
    RenderPicture(out, 5, 5, 5, 9, src.bits.get(), 1, 1, 0, false, 0, 255);
    EXPECT_FALSE(out.Made());
    RenderPicture(out, 5, 9, 9, 5, src.bits.get(), 1, 1, 0, false, 0, 255);
    EXPECT_FALSE(out.Made());
    RenderPicture(out, 0, 0, 20000, 20000, src.bits.get(), 1, 1, 0, false, 0, 255);
    EXPECT_FALSE(out.Made());
}

struct PictureOnPage : testing::Test {
    PictureOnPage() {
        page.width = 40, page.height = 30;
        page.MakeCanvas(0xFF000000u);
    }
    CQRDObjectPicture& Make(int w, int h) {
        picture = std::make_unique<CQRDObjectPicture>(&page, "p.png", w, h, UstAttr{}, UstEffect{});
        return *picture;
    }
    CFakeContext page;
    std::unique_ptr<CQRDObjectPicture> picture;
};

TEST_F(PictureOnPage, TheBoxStartsAtTheOriginScaledByTheZoomTruncated) {
    page.fZoom = 50.0f;
    const CQRDObjectPicture& p = Make(101, 51);
    EXPECT_EQ(p.m_rcStored, (UstRect{0, 0, 101, 51}));
    EXPECT_EQ(p.m_rcView, (UstRect{0, 0, 50, 25}));
    EXPECT_EQ(p.GetName(), "Picture");
    EXPECT_TRUE(p.CanRotate());
}

TEST_F(PictureOnPage, TheKeptImageGoesOnlyWhenSomethingChanged) {
    CQRDObjectPicture& p = Make(2, 2);
    p.SetSource(Block(2, 2, {0xFF00FF00u, 0xFFFF0000u, 0xFF00FF00u, 0xFFFF0000u}));
    const uint32_t* kept = p.CanvasImage().pBlock.get();
    ASSERT_NE(kept, nullptr);
    const int32_t same = 255;
    EXPECT_FALSE(p.Execute(&same, CMD_PICTURE_ALPHA));
    EXPECT_EQ(p.CanvasImage().pBlock.get(), kept);
    EXPECT_FALSE(p.ResetKey());  // nothing was keyed
    EXPECT_EQ(p.CanvasImage().pBlock.get(), kept);

    p.StartKeying();
    EXPECT_TRUE(p.IsPicking());
    const uint32_t green = 0xFF00FF00u;
    EXPECT_TRUE(p.Execute(&green, CMD_KEY_COLOUR));
    EXPECT_FALSE(p.IsPicking());
    EXPECT_EQ(p.m_bKeying, 1);
    const ObjectImage& keyed = p.CanvasImage();
    EXPECT_EQ(keyed.pBlock[0] >> 24, 0u);
    EXPECT_EQ(keyed.pBlock[1], 0xFFFF0000u);
    kept = keyed.pBlock.get();
    // Picking the same colour again changes and frees nothing.
    p.StartKeying();
    EXPECT_FALSE(p.Execute(&green, CMD_KEY_COLOUR));
    EXPECT_FALSE(p.IsPicking());
    EXPECT_EQ(p.CanvasImage().pBlock.get(), kept);

    EXPECT_TRUE(p.ResetKey());
    EXPECT_EQ(p.m_bKeying, 0);
    EXPECT_EQ(p.m_crKey, 0u);
    EXPECT_EQ(p.CanvasImage().pBlock[0], 0xFF00FF00u);
    const int32_t half = 400;  // clamped
    EXPECT_FALSE(p.Execute(&half, CMD_PICTURE_ALPHA));
}

TEST_F(PictureOnPage, AMissingFileDrawsNothingAndKeepsTheBox) {
    QTemporaryDir dir;
    page.folder = dir.path();
    CQRDObjectPicture& p = Make(10, 8);
    const std::vector<uint32_t> before = page.canvas;
    p.Draw();
    EXPECT_EQ(page.canvas, before);
    EXPECT_EQ(p.m_rcView, (UstRect{0, 0, 10, 8}));
    EXPECT_TRUE(p.HitTest(5, 5));
    // The file arrives later: the next activation finds it.
    QImage red(10, 8, QImage::Format_ARGB32);
    red.fill(0xFFFF0000u);
    ASSERT_TRUE(red.save(QDir(dir.path()).filePath("p.png")));
    p.Draw();
    EXPECT_EQ(page.canvas, before);  // not looked for on every draw
    p.ReleaseCache();
    p.Draw();
    EXPECT_EQ(page.At(9, 7), 0xFFFF0000u);
    EXPECT_EQ(page.At(10, 7), 0xFF000000u);
}

TEST_F(PictureOnPage, DrawsAtTheZoomAndAtFullScaleForTheFrame) {
    page.fZoom = 50.0f;
    CQRDObjectPicture& p = Make(20, 10);
    p.SetSource(Block(1, 1, {0xFF0000FFu}));
    const UstRect moved{4, 6, 14, 11};
    p.Execute(&moved, CMD_SET_RECT);
    p.Draw();
    EXPECT_EQ(page.At(4, 6), 0xFF0000FFu);
    EXPECT_EQ(page.At(13, 10), 0xFF0000FFu);
    EXPECT_EQ(page.At(14, 10), 0xFF000000u);
    EXPECT_EQ(page.At(3, 6), 0xFF000000u);
    std::vector<uint32_t> frame(60 * 40, 0);
    p.DrawTo(frame.data(), 60, 40);
    EXPECT_EQ(frame[12 * 60 + 8], 0xFF0000FFu);   // stored (8, 12)
    EXPECT_EQ(frame[21 * 60 + 27], 0xFF0000FFu);  // to (28, 22)
    EXPECT_EQ(frame[22 * 60 + 27], 0u);
}

// Head: version 1.3, reserved, old-rectangle flag, words; then rotation,
// box, the name in the wide form, keying, key colour, alpha, the records.
TEST_F(PictureOnPage, TheFileFormByteByByte) {
    CQRDObjectPicture& p = Make(30, 20);
    p.m_nAngle = 15;
    p.m_bKeying = 1;
    p.m_crKey = 0xFF112233u;
    p.m_nAlpha = 200;
    p.m_effect.nEdge = 7;
    p.m_attr.fill[0].clrSolid = 0xFFABCDEFu;
    CByteWriter out;
    p.Serialize(out);
    const std::vector<uint8_t>& b = out.Bytes();
    ASSERT_EQ(b.size(), 24u + 4 + 16 + (4 + 10) + 12 + 68 + 4008);
    EXPECT_EQ(test::At<float>(b[0], 0), 1.3f);
    EXPECT_EQ(test::At<uint32_t>(b[0], 8), 0u);
    EXPECT_EQ(test::At<int32_t>(b[0], 16), 1);   // m_nWord2
    EXPECT_EQ(test::At<int32_t>(b[0], 24), 15);  // rotation
    EXPECT_EQ(test::At<int32_t>(b[0], 36), 30);  // box right
    const uint8_t name[] = {0xFF, 0xFE, 0xFF, 5, 'p', 0, '.', 0, 'p', 0, 'n', 0, 'g', 0};
    EXPECT_TRUE(std::equal(std::begin(name), std::end(name), b.begin() + 44));
    EXPECT_EQ(test::At<int32_t>(b[0], 58), 1);
    EXPECT_EQ(test::At<uint32_t>(b[0], 62), 0xFF112233u);
    EXPECT_EQ(test::At<int32_t>(b[0], 66), 200);
    EXPECT_EQ(test::At<int32_t>(b[0], 70 + 12), 7);             // nEdge
    EXPECT_EQ(test::At<uint32_t>(b[0], 138 + 4), 0xFFABCDEFu);  // body colour

    CQRDObjectPicture back;
    CByteReader in(b);
    ASSERT_TRUE(back.Deserialize(in));
    EXPECT_EQ(in.Remaining(), 0u);
    CByteWriter again;
    back.Serialize(again);
    EXPECT_EQ(again.Bytes(), b);
}

TEST_F(PictureOnPage, AnOldRectangleIsReadAndTheNextRecordStartsAfterIt) {
    CQRDObjectPicture& p = Make(30, 20);
    CByteWriter out;
    p.Serialize(out);
    std::vector<uint8_t> b = out.Bytes();
    const int32_t flag = 1;
    std::memcpy(&b[8], &flag, 4);
    const UstRect old{1, 2, 3, 4};
    const auto* o = reinterpret_cast<const uint8_t*>(&old);
    b.insert(b.end(), o, o + sizeof old);
    const size_t first = b.size();
    p.m_nAlpha = 77;
    CByteWriter second;
    p.Serialize(second);
    b.insert(b.end(), second.Bytes().begin(), second.Bytes().end());

    CByteReader in(b);
    CQRDObjectPicture a, c;
    ASSERT_TRUE(a.Deserialize(in));
    EXPECT_EQ(a.m_rcOld, old);
    EXPECT_EQ(in.Remaining(), b.size() - first);
    ASSERT_TRUE(c.Deserialize(in));
    EXPECT_EQ(c.m_nAlpha, 77);
    EXPECT_EQ(c.m_rcOld, UstRect{});
}

}  // namespace
}  // namespace orv
