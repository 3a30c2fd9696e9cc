// The timer commands of orvantis-cli play's standard input: what is read as
// a command, and lines that come in pieces through a pipe.
#include <gtest/gtest.h>

#include <unistd.h>

#include "timer_commands.h"

namespace orv::cli {
namespace {

TEST(TimerCommands, WordsAndValuesAndWhatIsRefused) {
    UstTimerControl c;
    bool none = false;
    ASSERT_TRUE(ParseTimerCommand("  pause\r", c, none));
    EXPECT_FALSE(none);
    EXPECT_EQ(c.nControl, TIMER_PAUSE);
    ASSERT_TRUE(ParseTimerCommand("set 1:01:01", c, none));
    EXPECT_EQ(c.nControl, TIMER_SET);
    EXPECT_EQ(c.nValue, 3661);
    ASSERT_TRUE(ParseTimerCommand("set -90", c, none));
    EXPECT_EQ(c.nValue, -90);
    ASSERT_TRUE(ParseTimerCommand("set 2147483647", c, none));
    EXPECT_EQ(c.nValue, 2147483647);
    ASSERT_TRUE(ParseTimerCommand("# a note", c, none));
    EXPECT_TRUE(none);
    for (const char* bad : {"set", "set 2147483648", "set 1:60", "set 1:2:3:4", "set x",
                            "pause now", "stop", "set 596524:00:00", "set 1::2"})
        EXPECT_FALSE(ParseTimerCommand(bad, c, none)) << bad;
}

TEST(TimerCommands, LinesComeWholeAndTheLastNeedsNoLineFeed) {
    int fds[2];
    ASSERT_EQ(pipe(fds), 0);
    CLineReader reader(fds[0]);
    std::string line;
    EXPECT_FALSE(reader.Next(line));  // nothing yet, and no wait for it
    ASSERT_EQ(write(fds[1], "res", 3), 3);
    EXPECT_FALSE(reader.Next(line));
    ASSERT_EQ(write(fds[1], "ume\nset 5\nrest", 14), 14);
    ASSERT_TRUE(reader.Next(line));
    EXPECT_EQ(line, "resume");
    ASSERT_TRUE(reader.Next(line));
    EXPECT_EQ(line, "set 5");
    EXPECT_FALSE(reader.Next(line));
    close(fds[1]);
    ASSERT_TRUE(reader.Next(line));
    EXPECT_EQ(line, "rest");
    EXPECT_FALSE(reader.Next(line));
    close(fds[0]);
}

}  // namespace
}  // namespace orv::cli
