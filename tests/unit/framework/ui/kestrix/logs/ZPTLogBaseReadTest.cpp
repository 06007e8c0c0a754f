#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/PlainLog.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using Tokens = std::vector<std::wstring_view>;

class ZPTLogBaseReadTest : public ::testing::Test
{
protected:
    Tokens TokensOf(std::wstring_view line, int kind = CZPTLogBase::AnyLine)
    {
        Tokens tokens;
        const std::size_t count = m_log.Token(line, tokens, L'|', kind);
        EXPECT_EQ(count, tokens.size());
        return tokens;
    }

    std::uint32_t SubTypeOf(std::wstring_view name, bool expectSuccess)
    {
        std::uint32_t subType = 99;
        EXPECT_EQ(m_log.ConvertLogExtToQueryValueSubType(name, subType), expectSuccess);
        return subType;
    }

    // Lines with fewer than two tokens are invalid for this log.
    bool ReadW(std::wstring_view text)
    {
        WriteUtf16(m_path, text);
        return m_log.ReadLogW(m_path);
    }

    std::wstring FirstFields() const
    {
        std::wstring fields;
        for (std::size_t i = 0; i < m_log.GetLogCount(); ++i)
        {
            fields += std::wstring(m_log.GetLogText(i, 0)) + L" ";
        }
        return fields;
    }

    const LanguageFile m_language;
    TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(L"20260101.VLG");
    PlainLog m_log{0, 2};
};

// Remembers which tokens the parser hands over.
class ListeningLog : public PlainLog
{
public:
    using PlainLog::PlainLog;

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override
    {
        m_strHeard += std::to_wstring(index) + L"=" + std::wstring(token) + L" ";
        m_bDoneBefore = m_bDoneBefore || (index == 0 && m_bRecordDone);
        PlainLog::MakeRecode(index, token, record);
    }

    void MakeRecodeEOL(LogRec& record) override
    {
        m_strHeard += L"EOL" + std::to_wstring(record.strData.size()) + L" ";
        record.Append(L"end");
    }

    std::wstring m_strHeard;
    bool m_bDoneBefore = false;
};

} // namespace

TEST_F(ZPTLogBaseReadTest, TokenSplitsAtEveryDelimiter)
{
    EXPECT_EQ(TokensOf(L"a|b"), (Tokens{L"a", L"b"}));
    EXPECT_EQ(TokensOf(L"a|"), (Tokens{L"a", L""}));
    EXPECT_EQ(TokensOf(L"|a"), (Tokens{L"", L"a"}));
    EXPECT_EQ(TokensOf(L"a||b"), (Tokens{L"a", L"", L"b"}));
    EXPECT_EQ(TokensOf(L"abc"), (Tokens{L"abc"}));
    EXPECT_EQ(TokensOf(L""), Tokens{});
    EXPECT_EQ(TokensOf(L"|"), (Tokens{L"", L""}));
}

TEST_F(ZPTLogBaseReadTest, TokenCutsTheLineEndFromTheLastToken)
{
    EXPECT_EQ(TokensOf(L"a|b\r\n"), (Tokens{L"a", L"b"}));
    EXPECT_EQ(TokensOf(L"a|\r\n"), (Tokens{L"a", L""}));
    EXPECT_EQ(TokensOf(L"\r\n"), (Tokens{L""}));
    EXPECT_EQ(TokensOf(L"a|b\n"), (Tokens{L"a", L"b\n"})) << "a line feed alone is no line end here";
    EXPECT_EQ(TokensOf(L"a\r\n|b"), (Tokens{L"a\r\n", L"b"}));
}

TEST_F(ZPTLogBaseReadTest, TokenAppendsAndCountsOnlyItsOwn)
{
    Tokens tokens{L"before"};
    EXPECT_EQ(m_log.Token(L"a;b", tokens, L';', CZPTLogBase::AnyLine), 2u);
    EXPECT_EQ(tokens, (Tokens{L"before", L"a", L"b"}));
    EXPECT_EQ(m_log.Token(L"", tokens, L';', CZPTLogBase::AnyLine), 0u);
    EXPECT_EQ(tokens.size(), 3u);
}

// The length that is kept is that of the line without three, counted from the start of the last token.
TEST_F(ZPTLogBaseReadTest, TokenOfAStreamLineUsuallyCutsNothing)
{
    EXPECT_EQ(TokensOf(L"abcd|ef\r\n", CZPTLogBase::StreamLine), (Tokens{L"abcd", L"ef\r\n"}));
    EXPECT_EQ(TokensOf(L"a|bc\r\n", CZPTLogBase::StreamLine), (Tokens{L"a", L"bc\r"}));
    EXPECT_EQ(TokensOf(L"abc\r\n", CZPTLogBase::StreamLine), (Tokens{L"ab"}));
    EXPECT_EQ(TokensOf(L"\r\n", CZPTLogBase::StreamLine), (Tokens{L""}));
    EXPECT_EQ(TokensOf(L"ab|c", CZPTLogBase::StreamLine), (Tokens{L"ab", L"c"}));
}

TEST_F(ZPTLogBaseReadTest, ConvertLogExtTakesTheLastThreeLettersInUpperCase)
{
    EXPECT_EQ(SubTypeOf(L"20081231.VLG", true), 2u);
    EXPECT_EQ(SubTypeOf(L"VLG", true), 2u);
    EXPECT_EQ(SubTypeOf(L".vlg", false), 0u);
    EXPECT_EQ(SubTypeOf(L"LG", false), 0u);
    EXPECT_EQ(SubTypeOf(L"", false), 0u);
    EXPECT_EQ(SubTypeOf(L"VLG ", false), 0u);
}

TEST_F(ZPTLogBaseReadTest, ConvertLogExtKnowsTheExtensionOfEveryKind)
{
    for (const LogKind& kind : LogKinds())
    {
        EXPECT_EQ(SubTypeOf(kind.extension, true), kind.querySubType) << kind.type;
    }
}

TEST_F(ZPTLogBaseReadTest, PutRecodeHandsOverAllTokensAlsoBehindTheOneThatMadeTheRecordValid)
{
    ListeningLog log(0, 2);
    EXPECT_TRUE(log.PutRecode(L"a|b|c|d", CZPTLogBase::AnyLine));
    EXPECT_EQ(log.m_strHeard, L"0=a 1=b 2=c 3=d EOL4 ");
    EXPECT_FALSE(log.m_bDoneBefore) << "the mark of a valid record is taken away before the first token";
    EXPECT_EQ(log.GetLogText(0, 4), L"end");
    EXPECT_EQ(log.GetLogRecord(0)->nImage, 0u);
}

TEST_F(ZPTLogBaseReadTest, PutRecodeRefusesALineThatNoTokenCompletes)
{
    ListeningLog log(0, 3);
    EXPECT_FALSE(log.PutRecode(L"a|b", CZPTLogBase::AnyLine));
    EXPECT_TRUE(log.m_bRecordDone) << "set again for the next line";
    EXPECT_EQ(log.m_strHeard, L"0=a 1=b ") << "an invalid record is not completed";
    EXPECT_FALSE(log.PutRecode(L"", CZPTLogBase::AnyLine));
    EXPECT_EQ(log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseReadTest, PutRecodeTellsTokenTheKindOfTheLine)
{
    EXPECT_TRUE(m_log.PutRecode(L"a|bc\r\n", CZPTLogBase::StreamLine));
    EXPECT_EQ(m_log.GetLogText(0, 1), L"bc\r");
    EXPECT_TRUE(m_log.PutRecode(L"a|bc\r\n", CZPTLogBase::AnyLine));
    EXPECT_EQ(m_log.GetLogText(1, 1), L"bc");
}

// With three columns, n tokens get 4 - n + 1 empty fields when n is at most 4, and none otherwise.
TEST_F(ZPTLogBaseReadTest, PutRecodePadsAShortRecordByTheNumberOfItsTokens)
{
    for (std::size_t tokens = 1; tokens <= 7; ++tokens)
    {
        ListeningLog log(3);
        std::wstring line = L"t";
        for (std::size_t i = 1; i < tokens; ++i)
        {
            line += L"|t";
        }
        ASSERT_TRUE(log.PutRecode(line, CZPTLogBase::AnyLine));
        const std::size_t empty = tokens <= 4 ? 4 - tokens + 1 : 0;
        const LogRec& record = *log.GetLogRecord(0);
        ASSERT_EQ(record.strData.size(), tokens + empty + 1) << tokens << " tokens; the last field is that of the end";
        for (std::size_t i = 0; i < tokens + empty; ++i)
        {
            EXPECT_EQ(record.Field(i), i < tokens ? L"t" : L"") << tokens << " tokens, field " << i;
        }
        EXPECT_EQ(record.strData.back(), L"end") << "padded before the record is completed";
    }
}

TEST_F(ZPTLogBaseReadTest, ARecordDoesNotDependOnTheLineThatItCameFrom)
{
    std::wstring line = L"aaa|bbb";
    ASSERT_TRUE(m_log.PutRecode(line, CZPTLogBase::AnyLine));
    line.assign(L"xxx|yyy");
    EXPECT_EQ(m_log.GetLogText(0, 1), L"bbb");
}

TEST_F(ZPTLogBaseReadTest, ReadLogWReadsARecordFromEachLine)
{
    EXPECT_TRUE(ReadW(L"a|1\r\nb|2\r\n"));
    EXPECT_EQ(FirstFields(), L"a b ");
    EXPECT_EQ(m_log.GetLogText(1, 1), L"2");
}

TEST_F(ZPTLogBaseReadTest, ReadLogWOfAFileOfOnlyAByteOrderMarkGivesNoRecordsAndSucceeds)
{
    EXPECT_TRUE(ReadW(L""));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseReadTest, ReadLogWGivesNothingOfALineOf3000CharactersAndBothItsNeighbours)
{
    EXPECT_TRUE(ReadW(L"first|1\r\nsecond|" + std::wstring(3000, L'2') + L"\r\nthird|3\r\n"));
    EXPECT_EQ(FirstFields(), L"first third ");
}

TEST_F(ZPTLogBaseReadTest, ReadLogWDoesNotReadTheLastLineWithoutALineFeed)
{
    EXPECT_TRUE(ReadW(L"a|1\r\nb|2"));
    EXPECT_EQ(FirstFields(), L"a ");
}

TEST_F(ZPTLogBaseReadTest, ReadLogWEndsAtTheFirstInvalidLineAndSucceeds)
{
    EXPECT_TRUE(ReadW(L"a|1\r\nb|2\r\ninvalid\r\nd|4\r\ne|5\r\n"));
    EXPECT_EQ(FirstFields(), L"a b ");
}

TEST_F(ZPTLogBaseReadTest, ReadLogWDoesNotTakeALineOfItsEndAloneForAnInvalidOne)
{
    EXPECT_TRUE(ReadW(L"a|1\r\n\r\nb|2\r\n"));
    EXPECT_EQ(FirstFields(), L"a b ");
}

TEST_F(ZPTLogBaseReadTest, ReadLogWAddsToTheRecordsThatAreThere)
{
    EXPECT_TRUE(ReadW(L"a|1\r\n"));
    EXPECT_TRUE(m_log.ReadLogW(m_path));
    EXPECT_EQ(FirstFields(), L"a a ");
}

TEST_F(ZPTLogBaseReadTest, ReadLogWWithAReadLimitStartsNearTheEnd)
{
    class LimitedLog : public PlainLog
    {
    public:
        using PlainLog::PlainLog;

        std::uint32_t GetReadLimit() const override { return 14; }
    };

    LimitedLog log(0, 2);
    WriteUtf16(m_path, L"a|1\r\nb|2\r\nc|3\r\n");
    EXPECT_TRUE(log.ReadLogW(m_path));
    ASSERT_EQ(log.GetLogCount(), 1u);
    EXPECT_EQ(log.GetLogText(0, 0), L"c");
}

TEST_F(ZPTLogBaseReadTest, ReadLogFileReadsEveryLineAlsoTheLastWithoutALineFeed)
{
    WriteUtf16(m_path, L"a|1\r\nb|" + std::wstring(3000, L'2') + L"\r\nc|3");
    EXPECT_TRUE(m_log.ReadLogFile(m_path, CZPTLogBase::StreamLine));
    EXPECT_EQ(FirstFields(), L"a b c ");
    EXPECT_EQ(m_log.GetLogText(1, 1).size(), 3000u);
}

TEST_F(ZPTLogBaseReadTest, ReadLogFileStopsAtTheFirstLineThatIsRefusedAnEmptyOneToo)
{
    WriteUtf16(m_path, L"a|1\r\n\r\nb|2\r\n");
    EXPECT_TRUE(m_log.ReadLogFile(m_path, CZPTLogBase::StreamLine));
    EXPECT_EQ(FirstFields(), L"a ");
}

TEST_F(ZPTLogBaseReadTest, ReadLogFileFailsForAFileThatIsNotThere)
{
    EXPECT_FALSE(m_log.ReadLogFile(m_path, CZPTLogBase::StreamLine));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}
