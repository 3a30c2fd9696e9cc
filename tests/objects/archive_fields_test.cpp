#include <gtest/gtest.h>

#include <stdexcept>

#include "objects/archive_fields.h"
#include "support/byte_builder.h"

namespace orv {
namespace {

using test::CBytes;

std::vector<uint8_t> Written(const QString& s) {
    CByteWriter w;
    WriteArchiveString(w, s);
    return w.Bytes();
}

QString Read(const CBytes& b, size_t* left = nullptr) {
    CByteReader r(b.data);
    QString s = ReadArchiveString(r);
    if (left) *left = r.Remaining();
    return s;
}

TEST(ArchiveCount, SixteenBitsUpToTheEscape) {
    CByteWriter out;
    for (const uint32_t n : {0u, 0xFFFEu, 0xFFFFu, 70000u})
        WriteArchiveCount(out, n);
    EXPECT_EQ(out.Bytes(), (std::vector<uint8_t>{0, 0, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0,
                                                 0xFF, 0xFF, 0x70, 0x11, 0x01, 0x00}));
    CByteReader in(out.Bytes());
    for (const uint32_t n : {0u, 0xFFFEu, 0xFFFFu, 70000u})
        EXPECT_EQ(ReadArchiveCount(in), n);
    const std::vector<uint8_t> cut{0xFF, 0xFF, 1, 0};
    CByteReader short32(cut);
    EXPECT_THROW(ReadArchiveCount(short32), std::out_of_range);
}

TEST(ArchiveString, LengthFormsAtTheirLimits) {
    EXPECT_EQ(Written(""), (std::vector<uint8_t>{0xFF, 0xFE, 0xFF, 0x00}));
    // 254 characters still fit the byte; 255 take the escape and 16 bits.
    const auto s254 = Written(QString(254, u'a'));
    ASSERT_EQ(s254.size(), 4u + 508u);
    EXPECT_EQ(s254[3], 0xFE);
    const auto s255 = Written(QString(255, u'b'));
    ASSERT_EQ(s255.size(), 6u + 510u);
    EXPECT_EQ(std::vector<uint8_t>(s255.begin(), s255.begin() + 6),
              (std::vector<uint8_t>{0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0x00}));
    EXPECT_EQ(s255[6], 'b');
    EXPECT_EQ(s255[7], 0);
    // 0xFFFD is the last 16-bit length; 0xFFFE goes to 32 bits.
    const auto s65533 = Written(QString(0xFFFD, u'c'));
    EXPECT_EQ(s65533[4], 0xFD);
    EXPECT_EQ(s65533[5], 0xFF);
    const auto s65534 = Written(QString(0xFFFE, u'd'));
    EXPECT_EQ(std::vector<uint8_t>(s65534.begin(), s65534.begin() + 10),
              (std::vector<uint8_t>{0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0, 0}));
    for (const int n : {0, 1, 254, 255, 0xFFFD, 0xFFFE}) {
        const QString s(n, QChar(0xAC00 + n % 100));
        CBytes b;
        b.data = Written(s);
        size_t left = 1;
        EXPECT_EQ(Read(b, &left), s) << n;
        EXPECT_EQ(left, 0u) << n;
    }
}

TEST(ArchiveString, NarrowFormsReadAsKoreanCodePage) {
    // 한글 in code page 949, with a one-byte length.
    CBytes hangul;
    hangul.U8(4).U8(0xC7).U8(0xD1).U8(0xB1).U8(0xDB);
    EXPECT_EQ(Read(hangul), QString::fromUtf8("한글"));
    // 0xFF then a 16-bit length that is not the wide tag: 300 narrow bytes.
    CBytes longer;
    longer.U8(0xFF).U16(300).Ascii(std::string(300, 'x'));
    EXPECT_EQ(Read(longer), QString(300, u'x'));
    // 0xFF, 0xFFFF, then 32 bits.
    CBytes longest;
    longest.U8(0xFF).U16(0xFFFF).U32(3).Ascii("abc");
    EXPECT_EQ(Read(longest), "abc");
    // A lead byte with nothing behind it, and one the code page lacks.
    CBytes broken;
    broken.U8(3).U8('A').U8(0x80).U8(0xC7);
    const QString s = Read(broken);
    EXPECT_EQ(s.left(1), "A");
    EXPECT_TRUE(s.contains(QChar(0xFFFD)));
}

TEST(ArchiveString, WideTagThenAWordAtOrAboveTheTagReadsThirtyTwoBits) {
    // After the tag a 16-bit 0xFFFE is no length of its own: 32 bits follow.
    CBytes b;
    b.U8(0xFF).U16(0xFFFE).U8(0xFF).U16(0xFFFE).U32(2).U16(u'o').U16(u'k');
    EXPECT_EQ(Read(b), "ok");
}

TEST(ArchiveString, LengthsBeyondTheDataThrowBeforeAllocating) {
    const auto throws = [](const CBytes& b) {
        CByteReader r(b.data);
        EXPECT_ANY_THROW(ReadArchiveString(r));
    };
    CBytes wide;
    wide.U8(0xFF).U16(0xFFFE).U8(3).U16('a').U16('b');  // one character short
    throws(wide);
    CBytes narrow;
    narrow.U8(10).Ascii("short");
    throws(narrow);
    // 64-bit lengths: far more than any memory, and 2^63 whose byte count wraps.
    CBytes huge;
    huge.U8(0xFF).U16(0xFFFE).U8(0xFF).U16(0xFFFF).U32(0xFFFFFFFFu).U32(0).U32(1);
    throws(huge);
    CBytes wraps;
    wraps.U8(0xFF).U16(0xFFFE).U8(0xFF).U16(0xFFFF).U32(0xFFFFFFFFu).U32(0).U32(0x80000000u);
    throws(wraps);
    CBytes cut;
    cut.U8(0xFF).U16(0xFFFE);
    throws(cut);
}

TEST(ArchiveChecks, RectanglesPointsAndEffectsOutOfBounds) {
    EXPECT_NO_THROW(CheckArchivedRect({-ARCHIVE_COORD_LIMIT, 0, ARCHIVE_COORD_LIMIT, 1}, "x"));
    EXPECT_THROW(CheckArchivedRect({0, 0, ARCHIVE_COORD_LIMIT + 1, 1}, "x"), std::runtime_error);
    EXPECT_THROW(CheckArchivedRect({0, INT32_MIN, 1, 1}, "x"), std::runtime_error);
    EXPECT_NO_THROW(CheckArchivedPoint(-1.5f, 16777216.0f, "p"));
    EXPECT_THROW(CheckArchivedPoint(std::nanf(""), 0, "p"), std::runtime_error);
    EXPECT_THROW(CheckArchivedPoint(0, INFINITY, "p"), std::runtime_error);
    EXPECT_THROW(CheckArchivedPoint(0, -2e7f, "p"), std::runtime_error);
    UstEffect e{};
    e.nRes0 = INT32_MIN;  // reserved words are only carried
    e.nShadowX = -1000;
    EXPECT_NO_THROW(CheckArchivedEffect(e, "e"));
    UstCharAttr c = NewCharAttr();
    c.font.nSize = 4096;
    c.metric.nShear = -1000;
    c.nAdvance = -ARCHIVE_COORD_LIMIT;
    EXPECT_NO_THROW(CheckArchivedChar(c, "c"));
    for (auto change :
         {+[](UstCharAttr& x) { x.font.nSize = 4097; }, +[](UstCharAttr& x) { x.font.nSize = -1; },
          +[](UstCharAttr& x) { x.metric.nWidth = 10001; },
          +[](UstCharAttr& x) { x.metric.nShear = 1001; },
          +[](UstCharAttr& x) { x.metric.nLeading = -100001; },
          +[](UstCharAttr& x) { x.nOriginY = ARCHIVE_COORD_LIMIT + 1; }}) {
        UstCharAttr bad = c;
        change(bad);
        EXPECT_THROW(CheckArchivedChar(bad, "c"), std::runtime_error);
    }
    e.nEdge = 1001;
    try {
        CheckArchivedEffect(e, "a shape");
        FAIL();
    } catch (const std::runtime_error& err) {
        EXPECT_STREQ(err.what(), "a shape has effect sizes out of all bounds");
    }
}

}  // namespace
}  // namespace orv
