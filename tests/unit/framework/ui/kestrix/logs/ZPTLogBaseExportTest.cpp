#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include "tests/support/TraceRecorder.h"
#include "tests/unit/framework/ui/kestrix/logs/ExportTest.h"

#include <string>

namespace
{

using ZPTLogBaseExportTest = ExportTest;

} // namespace

TEST_F(ZPTLogBaseExportTest, TheFileIsATitleTheLabelsAndALineForEachRecordOldestFirst)
{
    Put(L"old|1");
    Put(L"new|2|3");
    ASSERT_TRUE(Export());
    EXPECT_EQ(ReadUtf16(m_path), Title(0) + LabelLine + L"\"old\"\t\"1\"\r\n\"new\"\t\"2\"\t\"3\"\r\n");
    EXPECT_EQ(m_nError, Untouched);
}

TEST_F(ZPTLogBaseExportTest, ALogWithoutLabelsOfItsOwnHasNoSecondLine)
{
    PlainLog log;
    ASSERT_TRUE(log.PutRecode(L"a|b", CZPTLogBase::AnyLine));
    EXPECT_TRUE(log.ExportLog(m_path, LogTypeVirus, L"31/12/2008", L"192.0.2.1", &m_nError));
    EXPECT_EQ(ReadUtf16(m_path), Title(0) + L"\"a\"\t\"b\"\r\n");
}

TEST_F(ZPTLogBaseExportTest, AFieldThatHoldsOneDoubleQuoteBetweenTwoLettersComesOutWithThatQuoteDoubled)
{
    Put(L"a\"b|c");
    EXPECT_EQ(RecordLines(), L"\"a\"\"b\"\t\"c\"\r\n");
}

TEST_F(ZPTLogBaseExportTest, AFieldThatHoldsTwoDoubleQuotesComesOutAsSixDoubleQuotesInAll)
{
    Put(L"\"\"|c");
    EXPECT_EQ(RecordLines(), L"\"\"\"\"\"\"\t\"c\"\r\n");
}

TEST_F(ZPTLogBaseExportTest, AnEmptyFieldIsWrittenAsTwoDoubleQuotes)
{
    Put(L"a||c|");
    EXPECT_EQ(RecordLines(), L"\"a\"\t\"\"\t\"c\"\t\"\"\r\n");
}

TEST_F(ZPTLogBaseExportTest, ExportOfAFirewallLogWhoseRecordsHave11FieldsGivesLinesOf10Fields)
{
    Put(L"0|1|2|3|4|5|6|7|8|9|10");
    EXPECT_EQ(RecordLines(LogTypeFirewall),
              L"\"0\"\t\"1\"\t\"2\"\t\"4\"\t\"5\"\t\"6\"\t\"7\"\t\"8\"\t\"9\"\t\"10\"\r\n");
}

TEST_F(ZPTLogBaseExportTest, TheLastFieldOfAFirewallRecordIsWrittenWhateverItsNumber)
{
    Put(L"0|1|2|3");
    Put(L"0|1|2");
    EXPECT_EQ(RecordLines(LogTypeFirewall), L"\"0\"\t\"1\"\t\"2\"\t\"3\"\r\n\"0\"\t\"1\"\t\"2\"\r\n");
}

TEST_F(ZPTLogBaseExportTest, APhishingLineHasFields0And2To5)
{
    Put(L"0|1|2|3|4|5|6|7");
    EXPECT_EQ(RecordLines(LogTypePhishing), L"\"0\"\t\"2\"\t\"3\"\t\"4\"\t\"5\"\r\n");
}

// It once was an exception, and the part that was written stayed behind.
TEST_F(ZPTLogBaseExportTest, APhishingLineOfARecordWithFewerFieldsHasEmptyOnesInTheirPlace)
{
    Put(L"0|1|2");
    EXPECT_EQ(RecordLines(LogTypePhishing), L"\"0\"\t\"2\"\t\"\"\t\"\"\t\"\"\r\n");
}

TEST_F(ZPTLogBaseExportTest, AllOtherTypesWriteAllFields)
{
    Put(L"0|1|2|3|4|5|6");
    for (std::uint32_t type = 0; type <= 15; ++type)
    {
        if (type != LogTypeFirewall && type != LogTypePhishing)
        {
            EXPECT_EQ(RecordLines(type), L"\"0\"\t\"1\"\t\"2\"\t\"3\"\t\"4\"\t\"5\"\t\"6\"\r\n") << type;
        }
    }
}

TEST_F(ZPTLogBaseExportTest, ARecordWithOneFieldIsJustThatField)
{
    class OneFieldLog : public PlainLog
    {
    public:
        void MakeRecodeEOL(LogRec& record) override { record.strData.resize(1); }
    };

    OneFieldLog log;
    ASSERT_TRUE(log.PutRecode(L"alone", CZPTLogBase::AnyLine));
    ASSERT_TRUE(log.ExportLog(m_path, LogTypeVirus, L"31/12/2008", L"192.0.2.1", &m_nError));
    EXPECT_EQ(ReadUtf16(m_path), Title(0) + L"\"alone\"\r\n");
}

TEST_F(ZPTLogBaseExportTest, EveryTypeHasItsTitleAndTheOthersTheGeneralOne)
{
    constexpr UINT titles[] = {143, 158, 161, 159, 65, 162, 163, 160, 168, 177, 65, 65, 215, 90, 230, 65};
    for (std::uint32_t type = 0; type < std::size(titles); ++type)
    {
        ASSERT_TRUE(Export(type));
        EXPECT_TRUE(ReadUtf16(m_path).starts_with(L"\"" + Text(titles[type]) + L"\"\t")) << type;
    }
}

TEST_F(ZPTLogBaseExportTest, TheTextsOfTheTitleLineStandUnchanged)
{
    EXPECT_TRUE(m_log.ExportLog(m_path, LogTypeVirus, L"a\"b", L"", &m_nError));
    EXPECT_EQ(ReadUtf16(m_path), L"\"" + Text(143) + L"\"\t\"a\"b\"\t\"\"\r\n" + LabelLine);
}

TEST_F(ZPTLogBaseExportTest, ExportOfAnEmptyLogGivesAFileOfTwoLinesAndSucceeds)
{
    EXPECT_EQ(RecordLines(), L"");
}

TEST_F(ZPTLogBaseExportTest, TheLineEndInTheFileIsCarriageReturnAndLineFeed)
{
    Put(L"a");
    ASSERT_TRUE(Export());
    const std::wstring text = ReadUtf16(m_path);
    ASSERT_NE(text.find(L'\n'), text.npos);
    for (std::size_t feed = text.find(L'\n'); feed != text.npos; feed = text.find(L'\n', feed + 1))
    {
        EXPECT_EQ(text[feed - 1], L'\r') << feed;
    }
    EXPECT_EQ(ReadBytes(m_path).substr(0, 2), "\xFF\xFE");
}

TEST_F(ZPTLogBaseExportTest, ASuccessTracesNothing)
{
    Put(L"a");
    const TraceRecorder trace;
    EXPECT_TRUE(Export());
    EXPECT_TRUE(trace.Texts().empty());
}

TEST_F(ZPTLogBaseExportTest, AHundredThousandRecordsComeOutWholeAndInOrder)
{
    constexpr int count = 100'000;
    std::wstring expected;
    for (int i = 0; i < count; ++i)
    {
        const std::wstring number = std::to_wstring(i);
        Put(number + L"|a \"quoted\" text|" + std::wstring(static_cast<std::size_t>(i % 50), L'x'));
        expected += L"\"" + number + L"\"\t\"a \"\"quoted\"\" text\"\t\"" +
                    std::wstring(static_cast<std::size_t>(i % 50), L'x') + L"\"\r\n";
    }
    EXPECT_TRUE(RecordLines() == expected);
}

TEST_F(ZPTLogBaseExportTest, OneRecordIsOneLine)
{
    Put(L"a|b");
    EXPECT_EQ(RecordLines(), L"\"a\"\t\"b\"\r\n");
}

TEST_F(ZPTLogBaseExportTest, AnExportReplacesTheFileThatStandsThere)
{
    WriteUtf16(m_path, std::wstring(1000, L'x'));
    EXPECT_EQ(RecordLines(), L"");
}

TEST_F(ZPTLogBaseExportTest, EscapeQuoteDoublesEveryDoubleQuote)
{
    for (const auto& [text, escaped] : {std::pair(L"", L""), std::pair(L"ab", L"ab"), std::pair(L"\"", L"\"\""),
                                        std::pair(L"a\"\"b\"", L"a\"\"\"\"b\"\"")})
    {
        std::wstring changed = text;
        m_log.EscapeQuote(changed);
        EXPECT_EQ(changed, escaped);
    }
}
