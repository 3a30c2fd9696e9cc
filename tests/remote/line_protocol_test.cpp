// The line parser and the replies, against lines and bytes written here.
#include <gtest/gtest.h>

#include "remote/control_core.h"
#include "remote/line_protocol.h"

namespace orv {
namespace {

UstLineCommand Parsed(const std::string& line) {
    UstLineCommand c;
    UstReply error;
    EXPECT_TRUE(ParseLine(line, c, error)) << line << ": " << error.strText;
    return c;
}

int Refused(const std::string& line) {
    UstLineCommand c;
    UstReply error;
    EXPECT_FALSE(ParseLine(line, c, error)) << line;
    return error.nCode;
}

TEST(LineProtocol, QuotesAndEscapes) {
    std::vector<std::string> w;
    std::string error;
    ASSERT_TRUE(SplitWords("a  \"b c\" \"q\\\"x\\\\y\\nz\" \"\"\td", w, error));
    EXPECT_EQ(w, (std::vector<std::string>{"a", "b c", "q\"x\\y\nz", "", "d"}));
    EXPECT_FALSE(SplitWords("a \"open", w, error));
    EXPECT_FALSE(SplitWords("\"bad \\t escape\"", w, error));
    EXPECT_FALSE(SplitWords("\"ends in \\", w, error));
}

TEST(LineProtocol, CgCommands) {
    UstLineCommand c = Parsed("CG 1 ADD 10 \"News/3\" 1 \"{\\\"name\\\":\\\"Kim\\\"}\"");
    EXPECT_EQ(c.nVerb, VERB_ADD);
    EXPECT_EQ(c.nLayer, 10);
    EXPECT_EQ(c.strTarget, "News/3");
    EXPECT_TRUE(c.bPlay);
    EXPECT_TRUE(c.bHasData);
    EXPECT_EQ(c.strData, "{\"name\":\"Kim\"}");
    c = Parsed("cg 1-20 add 1 2 0");
    EXPECT_EQ(c.nVerb, VERB_ADD);
    EXPECT_FALSE(c.bPlay);
    EXPECT_FALSE(c.bHasData);
    EXPECT_EQ(Parsed("CG 1 PLAY 1").nVerb, VERB_PLAY);
    EXPECT_EQ(Parsed("CG 1 NEXT").nVerb, VERB_NEXT);
    EXPECT_EQ(Parsed("CG 1 STOP 1").nVerb, VERB_STOP);
    EXPECT_EQ(Parsed("CG 1 CLEAR").nVerb, VERB_CG_CLEAR);
    c = Parsed("CG 1 UPDATE 1 \"{}\"");
    EXPECT_EQ(c.nVerb, VERB_UPDATE);
    EXPECT_EQ(c.strData, "{}");
}

TEST(LineProtocol, ChannelCommandsAndRequestIds) {
    EXPECT_EQ(Parsed("CLEAR 1").nVerb, VERB_CLEAR);
    EXPECT_EQ(Parsed("PLAY 1").nVerb, VERB_LIST_PLAY);
    EXPECT_EQ(Parsed("STOP 1").nVerb, VERB_LIST_STOP);
    EXPECT_EQ(Parsed("info").nVerb, VERB_INFO);
    EXPECT_EQ(Parsed("VERSION").nVerb, VERB_VERSION);
    const UstLineCommand c = Parsed("REQ ab12 CG 1 NEXT");
    EXPECT_EQ(c.strReq, "ab12");
    EXPECT_EQ(c.nVerb, VERB_NEXT);
    EXPECT_EQ(Parsed("AUTH s3cret").strToken, "s3cret");
}

TEST(LineProtocol, ErrorsCarryThePeersCodes) {
    EXPECT_EQ(Refused("FOO"), REPLY_ERROR);
    EXPECT_EQ(Refused(""), REPLY_ERROR);
    EXPECT_EQ(Refused("REQ 7"), REPLY_ERROR);
    EXPECT_EQ(Refused("CG 2 PLAY"), REPLY_BAD_CHANNEL);
    EXPECT_EQ(Refused("CLEAR 3"), REPLY_BAD_CHANNEL);
    EXPECT_EQ(Refused("CG x PLAY"), REPLY_ERROR);
    EXPECT_EQ(Refused("CG 1"), REPLY_MISSING);
    EXPECT_EQ(Refused("CG 1 ADD 1 \"News/1\""), REPLY_MISSING);
    EXPECT_EQ(Refused("CG 1 UPDATE 1"), REPLY_MISSING);
    EXPECT_EQ(Refused("CLEAR"), REPLY_MISSING);
    EXPECT_EQ(Refused("CG 1 ADD 1 \"News/1\" 2"), REPLY_ILLEGAL);
    EXPECT_EQ(Refused("CG 1 ADD -1 \"News/1\" 1"), REPLY_ILLEGAL);
    EXPECT_EQ(Refused("CG 1 PLAY 1 2"), REPLY_ILLEGAL);
    EXPECT_EQ(Refused("CG 1 JUMP"), REPLY_ERROR);
    EXPECT_EQ(Refused("CG 1 ADD 1 \"unclosed 1"), REPLY_ERROR);
}

TEST(LineProtocol, Utf8IsChecked) {
    EXPECT_TRUE(IsValidUtf8("plain \xea\xb9\x80 \xf0\x9f\x98\x80"));
    EXPECT_FALSE(IsValidUtf8("\xff"));
    EXPECT_FALSE(IsValidUtf8("\xc0\x80"));          // overlong NUL
    EXPECT_FALSE(IsValidUtf8("\xed\xa0\x80"));      // a surrogate
    EXPECT_FALSE(IsValidUtf8("\xf4\x90\x80\x80"));  // past U+10FFFF
    EXPECT_FALSE(IsValidUtf8("ab\xe2\x82"));        // cut short at the end
    EXPECT_FALSE(IsValidUtf8("\xe2\x28\xa1"));      // a non-continuation inside
    EXPECT_EQ(Refused("CG 1 ADD 1 \"\xff\" 1"), REPLY_ERROR);
}

TEST(LineProtocol, ReplyBytes) {
    EXPECT_EQ(FormatReply({REPLY_OK, "PLAY OK", {}}, ""), "202 PLAY OK\r\n");
    EXPECT_EQ(FormatReply({REPLY_OK, "PLAY OK", {}}, "9"), "RES 9 202 PLAY OK\r\n");
    EXPECT_EQ(FormatReply({REPLY_DATA, "VERSION OK", {"1.62"}}, ""), "201 VERSION OK\r\n1.62\r\n");
    EXPECT_EQ(FormatReply({REPLY_INFO, "INFO OK", {"a", "b"}}, ""),
              "200 INFO OK\r\na\r\nb\r\n\r\n");
    // A line end smuggled in through an escape never makes a second line.
    EXPECT_EQ(FormatReply({REPLY_ERROR, "ERROR x\r\n202 OK", {}}, "a\nb"),
              "RES a?b 400 ERROR x??202 OK\r\n");
}

TEST(FieldJson, ObjectsOfTextOnly) {
    FieldValues v;
    std::string error;
    ASSERT_TRUE(ParseFieldJson("{\"a\":\"x\",\"n\":42,\"f\":1.5,\"b\":true,\"z\":null}", v, error));
    EXPECT_EQ(v.at("a"), QStringLiteral("x"));
    EXPECT_EQ(v.at("n"), QStringLiteral("42"));
    EXPECT_EQ(v.at("f"), QStringLiteral("1.5"));
    EXPECT_EQ(v.at("b"), QStringLiteral("true"));
    EXPECT_EQ(v.at("z"), QString());
    EXPECT_FALSE(ParseFieldJson("[1]", v, error));
    EXPECT_FALSE(ParseFieldJson("{\"a\":{}}", v, error));
    EXPECT_FALSE(ParseFieldJson("{\"a\":", v, error));
    EXPECT_FALSE(ParseFieldJson(std::string(10000, '[') + std::string(10000, ']'), v, error));
}

}  // namespace
}  // namespace orv
