// The style lists as files: records laid out by hand, damaged lists, the
// list written at once on every add and delete, and the thumbnails.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "project/style_library.h"
#include "render/fixed_string.h"
#include "support/byte_builder.h"
#include "support/folder_test.h"
#include "test_util.h"

namespace orv {
namespace {

using test::CBytes;

// A text style record built field by field at the offsets the file holds.
std::vector<uint8_t> TextRecord(const QString& face, int32_t size, uint32_t colour, int32_t edge,
                                uint32_t bodyPaint, const QString& thumb) {
    CBytes b;
    b.U32('A').U8(1).U8(0).I32(size);  // nChar, charset, pitch, size
    b.Raw(face.utf16(), static_cast<size_t>(face.size()) * 2).PadTo(74);
    b.I32(100).PadTo(90).U32(colour).PadTo(118);  // width ratio, clrFill
    b.PadTo(118 + 12).I32(edge).PadTo(186);       // effect: edge size
    b.U32(0).U32(bodyPaint).PadTo(4194);          // body paint: solid colour
    b.Raw(thumb.utf16(), static_cast<size_t>(thumb.size()) * 2).PadTo(4714);
    return b.data;
}

std::vector<uint8_t> ColorRecord(uint32_t colour, const QString& thumb) {
    CBytes b;
    b.U32(0).U32(colour).PadTo(668);
    b.Raw(thumb.utf16(), static_cast<size_t>(thumb.size()) * 2).PadTo(1188);
    return b.data;
}

std::string ListBytes(uint32_t count, const std::vector<std::vector<uint8_t>>& records) {
    CBytes b;
    b.U32(count);
    for (const auto& r : records)
        b.Raw(r.data(), r.size());
    return b.Str();
}

using StyleLists = test::CFolderTest;

TEST_F(StyleLists, HandBuiltListsLoadAndSaveToTheSameBytes) {
    const std::string text =
        ListBytes(2, {TextRecord("DejaVu Sans", 48, 0xFFFF0000, 3, 0xFF00FF00, "1.BMP"),
                      TextRecord("UnDotum", 72, 0x800000FF, 0, 0xFF123456, "2.BMP")});
    const std::string colour = ListBytes(1, {ColorRecord(0xFF336699, "3.BMP")});
    ASSERT_EQ(text.size(), 4u + 2 * 4714);
    Write("style.sttxt", text);
    Write("style.stcolor", colour);

    std::vector<UstText> styles;
    ASSERT_EQ(LoadTextStyles(Path("style.sttxt"), styles), 2);
    EXPECT_EQ(FixedToQString(&styles[0].character.font.szFace), "DejaVu Sans");
    EXPECT_EQ(FixedToQString(&styles[1].character.font.szFace), "UnDotum");
    EXPECT_EQ(test::At<int32_t>(styles[0], 6), 48);
    EXPECT_EQ(test::At<int32_t>(styles[1], 6), 72);
    EXPECT_EQ(uint32_t{styles[0].character.clrFill}, 0xFFFF0000u);
    EXPECT_EQ(uint32_t{styles[1].character.clrFill}, 0x800000FFu);
    EXPECT_EQ(+styles[0].effect.nEdge, 3);
    EXPECT_EQ(+styles[1].attr.fill[0].clrSolid, 0xFF123456u);
    EXPECT_EQ(ThumbNameOf(&styles[1].szThumb), "2.BMP");

    std::vector<UstColor> colours;
    ASSERT_EQ(LoadColorStyles(Path("style.stcolor"), colours), 1);
    EXPECT_EQ(+colours[0].fill.clrSolid, 0xFF336699u);

    ASSERT_TRUE(SaveTextStyles(Path("copy.sttxt"), styles));
    ASSERT_TRUE(SaveColorStyles(Path("copy.stcolor"), colours));
    EXPECT_EQ(Read("copy.sttxt"), text);
    EXPECT_EQ(Read("copy.stcolor"), colour);
}

TEST_F(StyleLists, DamagedListsGiveTheReadableRecords) {
    const auto good = ColorRecord(0xFF010203, "g.BMP");
    std::vector<UstColor> out;
    UstStyleListRead info;

    // More claimed than held.
    Write("a", ListBytes(3, {good}));
    EXPECT_EQ(LoadStyleList(Path("a"), out, &info), 1);
    EXPECT_EQ(info.nClaimed, 3u);
    EXPECT_FALSE(info.Clean());

    // Fewer claimed than held: the count rules.
    Write("b", ListBytes(1, {good, good}));
    EXPECT_EQ(LoadColorStyles(Path("b"), out), 1);

    // A length that is not a whole number of records.
    std::string cut = ListBytes(2, {good, good});
    cut.resize(cut.size() - 5);
    Write("c", cut);
    EXPECT_EQ(LoadStyleList(Path("c"), out, &info), 1);
    EXPECT_FALSE(info.Clean());

    // A thumbnail name with no terminator in its 260 units.
    auto open = good;
    for (size_t i = 668; i < 1188; i += 2)
        open[i] = 'x', open[i + 1] = 0;
    Write("d", ListBytes(3, {good, open, good}));
    EXPECT_EQ(LoadStyleList(Path("d"), out, &info), 2);
    EXPECT_EQ(info.nSkipped, 1);
    // Terminated in the very last unit is still a name.
    open[1186] = open[1187] = 0;
    Write("e", ListBytes(1, {open}));
    EXPECT_EQ(LoadColorStyles(Path("e"), out), 1);

    // Too short for a count, empty, missing.
    Write("f", std::string("\x01\x00", 2));
    EXPECT_EQ(LoadColorStyles(Path("f"), out), 0);
    Write("g", "");
    EXPECT_EQ(LoadColorStyles(Path("g"), out), 0);
    EXPECT_EQ(LoadStyleList(Path("missing"), out, &info), 0);
    EXPECT_FALSE(info.bFound);
}

TEST_F(StyleLists, ThumbnailNamesNeverLeaveTheFolder) {
    UstColor c{};
    QStringToFixed("C:\\Styles\\COLOR\\20240101000000000.BMP", &c.szThumb);
    EXPECT_EQ(ThumbNameOf(&c.szThumb), "20240101000000000.BMP");
    QStringToFixed("../../etc/passwd", &c.szThumb);
    EXPECT_EQ(ThumbNameOf(&c.szThumb), "passwd");
    QStringToFixed("..", &c.szThumb);
    EXPECT_EQ(ThumbNameOf(&c.szThumb), "");
}

// A library whose thumbnails are plain colour pictures, counted.
class ColorLibrary : public StyleLists {
protected:
    CStyleList<UstColor> Library() {
        return CStyleList<UstColor>(dir.path(), "style.stcolor",
                                    [this](UstColor& s, const QString& f) {
                                        ++made;
                                        return MakeColorThumbnail(s, f);
                                    });
    }
    static UstColor Solid(uint32_t colour) {
        UstColor c{};
        c.fill.clrSolid = colour;
        return c;
    }
    int made = 0;
};

TEST_F(ColorLibrary, AnAddIsOnDiskAtOnceWithNoTemporaryLeft) {
    {
        auto lib = Library();
        ASSERT_TRUE(lib.Add(Solid(0xFFFF0000)));
        ASSERT_TRUE(lib.Add(Solid(0xFF0000FF)));
        // No orderly end: the next run finds both from what is on disk now.
    }
    auto next = Library();
    EXPECT_TRUE(next.Load().Clean());
    ASSERT_EQ(next.Count(), 2);
    EXPECT_EQ(+next.Items()[1].fill.clrSolid, 0xFF0000FFu);
    EXPECT_TRUE(QFileInfo(next.ThumbPath(0)).isFile());
    EXPECT_EQ(Files().size(), 3);  // the list and two thumbnails, nothing else
    EXPECT_EQ(made, 2);
}

TEST_F(ColorLibrary, DeleteRemovesRecordAndThumbnail) {
    auto lib = Library();
    ASSERT_TRUE(lib.Add(Solid(0xFF111111)));
    ASSERT_TRUE(lib.Add(Solid(0xFF222222)));
    const QString first = lib.ThumbPath(0);
    ASSERT_TRUE(lib.Delete(0));
    EXPECT_FALSE(QFileInfo::exists(first));
    EXPECT_FALSE(lib.Delete(1));
    EXPECT_FALSE(lib.Delete(-1));
    auto next = Library();
    next.Load();
    ASSERT_EQ(next.Count(), 1);
    EXPECT_EQ(+next.Items()[0].fill.clrSolid, 0xFF222222u);
}

TEST_F(ColorLibrary, AListThatCannotBeWrittenChangesNothing) {
    auto lib = Library();
    ASSERT_TRUE(lib.Add(Solid(0xFF111111)));
    // A list that cannot be replaced, as in a folder the user may not write.
    QFile::remove(Path("style.stcolor"));
    ASSERT_TRUE(QDir(dir.path()).mkdir("style.stcolor"));
    EXPECT_FALSE(lib.Add(Solid(0xFF222222)));
    EXPECT_EQ(lib.Count(), 1);
    EXPECT_FALSE(lib.Delete(0));
    EXPECT_EQ(lib.Count(), 1);
    EXPECT_TRUE(QFileInfo(lib.ThumbPath(0)).isFile());
    EXPECT_EQ(Files().size(), 1);  // the first thumbnail only: the second was taken back
}

TEST_F(ColorLibrary, AMissingThumbnailIsMadeAgainAtLoad) {
    Write("style.stcolor", ListBytes(1, {ColorRecord(0xFF00FF00, "gone.BMP")}));
    auto lib = Library();
    lib.Load();
    ASSERT_EQ(lib.Count(), 1);
    EXPECT_EQ(made, 1);
    EXPECT_NE(QFileInfo(lib.ThumbPath(0)).fileName(), "gone.BMP");
    EXPECT_TRUE(QFileInfo(lib.ThumbPath(0)).isFile());
    // The new name is in the list: the next start makes none.
    auto next = Library();
    next.Load();
    EXPECT_EQ(made, 1);
    EXPECT_EQ(next.ThumbPath(0), lib.ThumbPath(0));
}

TEST_F(ColorLibrary, ADamagedListIsNotRewrittenAtLoad) {
    const std::string damaged = ListBytes(2, {ColorRecord(0xFF00FF00, "gone.BMP")});
    Write("style.stcolor", damaged);
    auto lib = Library();
    lib.Load();
    EXPECT_EQ(lib.Count(), 1);
    EXPECT_EQ(Read("style.stcolor"), damaged);
}

}  // namespace
}  // namespace orv
