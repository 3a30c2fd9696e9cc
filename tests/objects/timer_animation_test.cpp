#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "objects/ani_object.h"
#include "objects/tc_object.h"
#include "objects/text_object.h"
#include "render/fixed_string.h"
#include "support/byte_builder.h"
#include "support/looks.h"
#include "support/rect_object.h"
#include "test_util.h"

namespace orv {
namespace {

using test::CBytes;
using test::CFakeContext;

UstTCSetting Counter(int format, int start) {
    return {0, format, 0, start, 0, 0};
}

TEST(TimerValue, CounterFormatsSplitTheStart) {
    const auto value = [](int format, int start) {
        const int s = start % 60, m = start / 60 % 60, h = start / 3600;
        return FormatValue(Counter(format, start), s, m, h);
    };
    EXPECT_EQ(value(6, 3661), "1:01:01");
    EXPECT_EQ(value(7, 3661), "01:01:01");
    EXPECT_EQ(value(0, 90), "30");  // the seconds part only
    EXPECT_EQ(value(8, 1), "");
}

// The timer tests' look: 40 points, an edge of 3.
UstDefaultAttr Look(const char* face) {
    UstDefaultAttr a = test::MakeLook(QString::fromLatin1(face), 40);
    a.effect = UstEffect{};
    a.effect.nEdge = 3;
    return a;
}

CBytes TimerBytes(const UstDefaultAttr& look, uint32_t hasOldRect) {
    CBytes b;
    b.Version(hasOldRect).I32(5).I32(6).I32(1);  // words and lock
    b.F32(120.5f).F32(300.0f).Record(look).Record(Counter(6, 3661));
    if (hasOldRect) b.I32(1).I32(2).I32(3).I32(4);
    return b;
}

TEST(TimerArchive, FieldsInOrderWithoutAngleOrRectangleAndNoOldRectangleWritten) {
    const UstDefaultAttr look = Look("DejaVu Sans");
    const CBytes file = TimerBytes(look, 0);
    ASSERT_EQ(file.Size(), 24u + 8 + 4162 + 24);
    for (const uint32_t hasOldRect : {0u, 1u}) {
        CQRDObjectTC timer;
        const CBytes read = TimerBytes(look, hasOldRect);
        CByteReader in(read.data);
        ASSERT_TRUE(timer.Deserialize(in));
        EXPECT_EQ(in.Remaining(), 0u);
        EXPECT_EQ(timer.m_rcOld, (hasOldRect ? UstRect{1, 2, 3, 4} : UstRect{}));
        EXPECT_EQ(timer.m_nWord1, 5);
        EXPECT_EQ(timer.m_nWord2, 6);
        EXPECT_EQ(timer.m_bLocked, 1);
        EXPECT_EQ(timer.m_fStoreX, 120.5f);
        EXPECT_EQ(int32_t{timer.m_setting.nStart}, 3661);  // packed: read by value
        EXPECT_EQ(timer.GetName(), "1:01:01");
        EXPECT_EQ(timer.Chars().size(), 7u);
        // Laid out from its origin: right of it, around the baseline.
        EXPECT_GE(timer.m_rcStored.left, 118);
        EXPECT_LT(timer.m_rcStored.top, 300);
        EXPECT_GT(timer.m_rcStored.bottom, timer.m_rcStored.top + 20);
        CByteWriter out;
        timer.Serialize(out);
        EXPECT_EQ(out.Bytes(), file.data);
    }
}

TEST(TimerArchive, MissingFaceGivesWayAndAbsurdOriginsFail) {
    const UstDefaultAttr look = Look("No Such Face Anywhere");
    CQRDObjectTC timer;
    const CBytes b = TimerBytes(look, 0);
    CByteReader in(b.data);
    ASSERT_TRUE(timer.Deserialize(in));
    EXPECT_NE(FixedToQString(&timer.m_attr.font.szFace), "No Such Face Anywhere");
    EXPECT_EQ(int32_t{timer.m_attr.font.nSize}, 40);

    CBytes far;
    far.Version().I32(0).I32(1).I32(0).F32(3e9f).F32(0).Record(Look("DejaVu Sans"));
    far.Record(Counter(0, 1));
    CByteReader farIn(far.data);
    EXPECT_THROW(CQRDObjectTC().Deserialize(farIn), std::runtime_error);
}

TEST(TimerObject, MovesByItsOriginAndANudgeIsOneUnit) {
    CFakeContext page;
    CQRDObjectTC timer(&page, Look("DejaVu Sans"), Counter(7, 0), 100, 200);
    const UstRect before = timer.m_rcView;
    const UstPoint tenRight{10, 0};
    ASSERT_TRUE(timer.Execute(&tenRight, CMD_NUDGE_RIGHT));
    EXPECT_EQ(timer.m_fStoreX, 101.0f);
    EXPECT_EQ(timer.m_rcView.left, before.left + 1);
    const UstRect to = Offset(timer.m_rcView, -50, 30);
    ASSERT_TRUE(timer.Execute(&to, CMD_SET_RECT));
    EXPECT_EQ(timer.m_fStoreX, 51.0f);
    EXPECT_EQ(timer.m_fStoreY, 230.0f);
    EXPECT_FALSE(timer.Execute(&to, 999));
}

TEST(TimerObject, TakesATextStyleAndKeepsAFaceItCanShow) {
    CFakeContext page;
    CQRDObjectTC timer(&page, Look("DejaVu Sans"), Counter(7, 0), 100, 200);
    UstText style{};
    style.attr = MakeDefaultAttr();
    style.effect.nEdge = 9;
    style.character.clrFill = 0xFF00FF00;
    style.character.font.nSize = 90;
    QStringToFixed("UnDotum", &style.character.font.szFace);
    ASSERT_TRUE(timer.Execute(&style, CMD_TEXT_STYLE));
    EXPECT_EQ(+timer.m_attr.effect.nEdge, 9);
    EXPECT_EQ(FixedToQString(&timer.m_attr.font.szFace), "UnDotum");
    ASSERT_FALSE(timer.Chars().empty());
    EXPECT_EQ(uint32_t{timer.Chars().front().clrFill}, 0xFF00FF00u);
    EXPECT_EQ(test::At<int32_t>(timer.Chars().front(), 6), 90);
    // A face this machine lacks: the size comes, the face stays.
    QStringToFixed("No Such Face 123", &style.character.font.szFace);
    style.character.font.nSize = 30;
    ASSERT_TRUE(timer.Execute(&style, CMD_TEXT_STYLE));
    EXPECT_EQ(FixedToQString(&timer.m_attr.font.szFace), "UnDotum");
    EXPECT_EQ(+timer.m_attr.font.nSize, 30);
}

CBytes AnimationBytes(const QString& file) {
    CBytes b;
    b.Version().I32(0).I32(1).I32(0).I32(10).I32(20).I32(330).I32(260).Wide(file);
    b.I32(30).I32(3).I32(0).U32(0xFF000000u).I32(255);
    return b;
}

TEST(AnimationArchive, BoxNameAndWordBlockRoundTrip) {
    const CBytes file = AnimationBytes("clip.ani");
    CQRDObjectAni ani;
    CByteReader in(file.data);
    ASSERT_TRUE(ani.Deserialize(in));
    EXPECT_EQ(in.Remaining(), 0u);
    EXPECT_EQ(ani.m_rcStored, (UstRect{10, 20, 330, 260}));
    EXPECT_EQ(ani.m_strFile, "clip.ani");
    EXPECT_EQ(int32_t{ani.m_words.nRepeat}, 3);
    EXPECT_EQ(ani.GetAngle(), 0);
    EXPECT_FALSE(ani.HasSizeHandles());
    CByteWriter out;
    ani.Serialize(out);
    EXPECT_EQ(out.Bytes(), file.data);

    CBytes far;
    far.Version().I32(0).I32(1).I32(0).I32(0).I32(0).I32(1 << 25).I32(10).Wide("x");
    far.Zeros(20);
    CByteReader farIn(far.data);
    EXPECT_THROW(CQRDObjectAni().Deserialize(farIn), std::runtime_error);
}

TEST(AnimationObject, LeavesItsPageAfterLoadingOnlyWhenItsFileIsGone) {
    QTemporaryDir dir;
    CFakeContext page;
    page.folder = dir.path() + '/';
    QFile present(page.folder + "here.ani");
    ASSERT_TRUE(present.open(QIODevice::WriteOnly));
    present.close();
    CQRDObjectAni here(&page, "here.ani", {0, 0, 10, 10});
    CQRDObjectAni gone(&page, "gone.ani", {0, 0, 10, 10});
    CQRDObjectAni unnamed(&page, "", {0, 0, 10, 10});
    here.AfterLoad();
    gone.AfterLoad();
    unnamed.AfterLoad();
    EXPECT_EQ(page.removed, (std::vector<CQRDObject*>{&gone, &unnamed}));
    // A file removed while the project is open leaves the object as it was.
    CByteWriter before, after;
    here.Serialize(before);
    ASSERT_TRUE(QFile::remove(page.folder + "here.ani"));
    here.Draw();
    here.Serialize(after);
    EXPECT_EQ(after.Bytes(), before.Bytes());
    EXPECT_EQ(here.m_rcStored, (UstRect{0, 0, 10, 10}));
}

}  // namespace
}  // namespace orv
