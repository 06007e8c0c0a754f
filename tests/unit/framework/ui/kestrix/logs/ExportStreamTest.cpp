#include "framework/ui/kestrix/logs/ExportStream.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

class ExportStreamTest : public ::testing::Test
{
protected:
    TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(L"export.csv");
};

} // namespace

TEST_F(ExportStreamTest, TheFileBeginsWithTheMarkAndIsLowByteFirst)
{
    ExportStream stream;
    ASSERT_TRUE(stream.Open(m_path));
    EXPECT_TRUE(stream.Write(L"A\x20AC"));
    EXPECT_TRUE(stream.Flush());
    stream.Close();
    EXPECT_EQ(ReadBytes(m_path), std::string("\xFF\xFE"
                                             "A\0\xAC\x20",
                                             6));
}

TEST_F(ExportStreamTest, EveryLineFeedComesOutAsCarriageReturnAndLineFeed)
{
    ExportStream stream;
    ASSERT_TRUE(stream.Open(m_path));
    EXPECT_TRUE(stream.Write(L"a\nb\r\n\n"));
    EXPECT_TRUE(stream.Flush());
    stream.Close();
    EXPECT_EQ(ReadUtf16(m_path), L"a\r\nb\r\r\n\r\n");
}

TEST_F(ExportStreamTest, ALabelIsQuotedAndFollowedByItsEnd)
{
    ExportStream stream;
    ASSERT_TRUE(stream.Open(m_path));
    EXPECT_TRUE(stream.WriteLabel(L"a \"b\"", L'\t'));
    EXPECT_TRUE(stream.WriteLabel(L"", L'\n'));
    EXPECT_TRUE(stream.Flush());
    stream.Close();
    EXPECT_EQ(ReadUtf16(m_path), L"\"a \"b\"\"\t\"\"\r\n");
}

TEST_F(ExportStreamTest, TextsAroundTheSizeOfTheBlockComeOutWhole)
{
    for (std::size_t length = 64 * 1024 - 6; length <= 64 * 1024 + 3; ++length)
    {
        ExportStream stream;
        ASSERT_TRUE(stream.Open(m_path));
        ASSERT_TRUE(stream.Write(std::wstring(length, L'x')) && stream.Write(L"\n") && stream.Write(L"end\n"));
        ASSERT_TRUE(stream.Flush());
        stream.Close();
        ASSERT_TRUE(ReadUtf16(m_path) == std::wstring(length, L'x') + L"\r\nend\r\n") << length;
    }
}

TEST_F(ExportStreamTest, OpeningReplacesWhatStandsThere)
{
    WriteUtf16(m_path, L"an older and longer file");
    ExportStream stream;
    ASSERT_TRUE(stream.Open(m_path));
    EXPECT_TRUE(stream.Flush());
    stream.Close();
    EXPECT_EQ(ReadUtf16(m_path), L"");
}

TEST_F(ExportStreamTest, ClosingWithoutFlushWritesNothing)
{
    ExportStream stream;
    ASSERT_TRUE(stream.Open(m_path));
    EXPECT_TRUE(stream.Write(L"lost"));
    stream.Close();
    EXPECT_EQ(ReadBytes(m_path), "");
}

TEST_F(ExportStreamTest, AFolderThatIsNotThereDoesNotOpen)
{
    ExportStream stream;
    EXPECT_FALSE(stream.Open(m_folder.File(L"missing\\export.csv")));
}
