#include "suite/framework/TextFile.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Framework;

TEST(TextFileTest, LinesEndEitherWayAndTheLastNeedsNoEnd)
{
    std::string_view text = "one\r\n\n\rtwo\rtwo\nthree";
    std::vector<std::string_view> lines;
    while (!text.empty())
    {
        lines.push_back(TakeLine(text));
    }
    EXPECT_EQ(lines, (std::vector<std::string_view>{"one", "", "\rtwo\rtwo", "three"}));
}

TEST(TextFileTest, AByteOrderMarkIsTakenOffOnce)
{
    EXPECT_EQ(WithoutByteOrderMark("\xEF\xBB\xBF\xEF\xBB\xBFz"), "\xEF\xBB\xBFz");
    EXPECT_EQ(WithoutByteOrderMark("\xEF\xBB"), "\xEF\xBB");
    EXPECT_EQ(WithoutByteOrderMark(""), "");
}

TEST(TextFileTest, TheBytesOfAFileComeBackAndAMissingFileOrAFolderIsNone)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"text.txt"), std::string("a\r\n\0\x1A\xFF", 6));
    EXPECT_EQ(ReadTextFile(folder.File(L"text.txt")), std::string("a\r\n\0\x1A\xFF", 6));
    EXPECT_EQ(ReadTextFile(folder.File(L"other.txt")), std::nullopt);
    EXPECT_EQ(ReadTextFile(folder.Path()), std::nullopt);
}
