#include "framework/ui/kestrix/logs/TextLineStream.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using StreamLines = std::vector<std::wstring>;

class TextLineStreamTest : public ::testing::Test
{
protected:
    StreamLines ReadText(std::wstring_view text, std::uint32_t limit = 0)
    {
        WriteUtf16(m_path, text);
        TextLineStream stream;
        StreamLines lines;
        std::wstring line;
        EXPECT_TRUE(stream.Open(m_path, limit));
        while (stream.ReadLine(line))
        {
            lines.push_back(line);
        }
        EXPECT_FALSE(stream.Failed());
        return lines;
    }

    TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(L"lines.txt");
};

} // namespace

TEST_F(TextLineStreamTest, GivesLinesOfAnyLengthWithoutTheirEndsAndTheEmptyOnesToo)
{
    const std::wstring longLine(5000, L'x');
    EXPECT_EQ(ReadText(L"a\r\n\r\n" + longLine + L"\r\nb\n"), (StreamLines{L"a", L"", longLine, L"b"}));
}

TEST_F(TextLineStreamTest, TheLastLineNeedsNoEnd)
{
    EXPECT_EQ(ReadText(L"a\r\nb"), (StreamLines{L"a", L"b"}));
}

TEST_F(TextLineStreamTest, ALineMayEndWhereAPieceOfTheBufferDoes)
{
    for (std::size_t length = 1018; length <= 1028; ++length)
    {
        const std::wstring line(length, L'x');
        EXPECT_EQ(ReadText(line + L"\r\nb\r\n"), (StreamLines{line, L"b"})) << length;
    }
}

TEST_F(TextLineStreamTest, ALimitStartsSoManyBytesBeforeTheEndBehindOneDiscardedLine)
{
    EXPECT_EQ(ReadText(L"one\r\ntwo\r\nthree\r\n", 22), (StreamLines{L"three"}));
    EXPECT_EQ(ReadText(L"one\r\ntwo\r\n", 4000), (StreamLines{L"one", L"two"})) << "a limit beyond the file";
    EXPECT_EQ(ReadText(L"one\r\ntwo\r\n", 22), (StreamLines{L"one", L"two"})) << "a limit of the whole file";
}

TEST_F(TextLineStreamTest, AnEmptyFileHasNoLines)
{
    EXPECT_EQ(ReadText(L""), StreamLines{});
}

TEST_F(TextLineStreamTest, AFileThatIsNotThereDoesNotOpen)
{
    TextLineStream stream;
    EXPECT_FALSE(stream.Open(m_path));
}
