#include <gtest/gtest.h>

#include "project/profile_file.h"
#include "project/settings_records.h"
#include "test_util.h"

namespace orv {
namespace {

using test::At;

TEST(EnvDefaults, ByteByByteAtTheirOffsets) {
    const UstEnv e = MakeDefaultEnv(18);
    EXPECT_EQ(At<uint32_t>(e, 0), 0u);
    EXPECT_EQ(At<uint32_t>(e, 4), 1u);
    EXPECT_EQ(At<uint32_t>(e, 8), 5u);
    EXPECT_EQ(At<uint16_t>(e, 12), 18u);
    EXPECT_EQ(At<uint32_t>(e, 14), 1u);
    EXPECT_EQ(At<uint32_t>(e, 18), 0xFFFFFFFFu);
    EXPECT_EQ(At<uint32_t>(e, 22), 15u);
    for (size_t i = 26; i < 546; ++i)
        EXPECT_EQ(At<uint8_t>(e, i), 0u) << i;
    EXPECT_EQ(At<uint32_t>(e, 546), 0u);
    EXPECT_EQ(At<uint32_t>(e, 550), 10u);
    EXPECT_EQ(At<uint32_t>(e, 554), 0xFF000000u);
    EXPECT_EQ(At<uint32_t>(e, 558), 1u);
    EXPECT_EQ(At<uint32_t>(e, 562), 6u);
    EXPECT_EQ(At<uint32_t>(e, 566), 11u);
    EXPECT_EQ(At<uint32_t>(e, 570), 0u);
    for (size_t i = 574; i < 590; ++i)
        EXPECT_EQ(At<uint8_t>(e, i), 0u) << i;
}

TEST(DefaultAttrDefaults, BlocksInFileOrder) {
    const UstDefaultAttr d = MakeDefaultDefaultAttr(u"DejaVu Sans");
    EXPECT_EQ(At<uint32_t>(d, 4), 0xFFFFFFFFu);  // body colour of the paints
    EXPECT_EQ(At<int32_t>(d, 4008 + 12), 2);     // edge width
    EXPECT_EQ(At<int32_t>(d, 4008 + 36), 2);     // shadow x
    EXPECT_EQ(At<uint8_t>(d, 4076), 1u);         // character set
    EXPECT_EQ(At<uint8_t>(d, 4077), 0x22u);      // pitch and family
    EXPECT_EQ(At<int32_t>(d, 4078), 72);         // size
    EXPECT_EQ(At<char16_t>(d, 4082), u'D');
    EXPECT_EQ(At<char16_t>(d, 4082 + 2 * 11), u'\0');
    EXPECT_EQ(At<int32_t>(d, 4146), 100);  // width
    for (size_t i = 4150; i < 4162; ++i)
        EXPECT_EQ(At<uint8_t>(d, i), 0u) << i;
}

TEST(SettingsLines, HaveTheirFixedLengths) {
    const UstEnv e = MakeDefaultEnv(9);
    EXPECT_EQ(EncodeProfileStruct(&e, sizeof e).size(), 1182u);
    const UstDefaultAttr d = MakeDefaultDefaultAttr(u"X");
    EXPECT_EQ(EncodeProfileStruct(&d, sizeof d).size(), 8326u);
}

TEST(FixedStrings, CutToFitAndAlwaysTerminated) {
    char16_t field[4];
    QStringToFixed(QString("abcdef"), &field);
    EXPECT_EQ(FixedToQString(field, 4), "abc");
    EXPECT_EQ(field[3], u'\0');
    QStringToFixed(QString::fromUtf16(u"ab\U0001F600"), &field);  // no half a surrogate pair
    EXPECT_EQ(FixedToQString(field, 4), "ab");
    const char16_t full[3] = {u'x', u'y', u'z'};  // unterminated: stops at capacity
    EXPECT_EQ(FixedToQString(&full), "xyz");
}

}  // namespace
}  // namespace orv
