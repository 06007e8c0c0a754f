#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include "framework/ui/kestrix/logs/ExportStream.h"
#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/PlainLog.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

extern "C" decltype(&::WriteFile) __imp_WriteFile;

namespace
{

constexpr std::uint32_t Untouched = 77;

// A log with a line of labels, or one that cannot write it.
class LabelledLog : public PlainLog
{
public:
    using PlainLog::PlainLog;

    bool WriteExportHeader(ExportStream& stream) override { return m_bHeaderWorks && stream.Write(L"labels\n"); }

    bool m_bHeaderWorks = true;
};

class ZPTLogBaseExportTest : public ::testing::Test
{
protected:
    bool Export(std::uint32_t logType = LogTypeVirus)
    {
        m_nError = Untouched;
        return m_log.ExportLog(m_path, logType, L"31/12/2008", L"192.0.2.1", &m_nError);
    }

    void Put(std::wstring_view line) { ASSERT_TRUE(m_log.PutRecode(line, CZPTLogBase::AnyLine)); }

    // The record lines of the file, behind the title and the labels.
    std::wstring RecordLines(std::uint32_t logType = LogTypeVirus)
    {
        EXPECT_TRUE(Export(logType));
        const std::wstring head = Title(logType) + L"labels\r\n";
        const std::wstring text = ReadUtf16(m_path);
        EXPECT_TRUE(text.starts_with(head));
        return text.substr(head.size());
    }

    static std::wstring Title(std::uint32_t logType)
    {
        return L"\"" + Text(ExportTitle(logType)) + L"\"\t\"31/12/2008\"\t\"192.0.2.1\"\r\n";
    }

    bool FileExists() const { return std::filesystem::exists(m_path); }

    const LanguageFile m_language;
    TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(L"export.csv");
    LabelledLog m_log;
    std::uint32_t m_nError = Untouched;
};

BOOL WINAPI FailAsOnAFullDisk(HANDLE, const void*, DWORD, DWORD* written, OVERLAPPED*)
{
    *written = 0;
    SetLastError(ERROR_DISK_FULL);
    return FALSE;
}

BOOL WINAPI WriteLess(HANDLE, const void*, DWORD bytes, DWORD* written, OVERLAPPED*)
{
    *written = bytes - 1;
    return TRUE;
}

} // namespace

TEST_F(ZPTLogBaseExportTest, TheFileIsATitleTheLabelsAndALineForEachRecordOldestFirst)
{
    Put(L"old|1");
    Put(L"new|2|3");
    ASSERT_TRUE(Export());
    EXPECT_EQ(ReadUtf16(m_path), Title(0) + L"labels\r\n\"old\"\t\"1\"\r\n\"new\"\t\"2\"\t\"3\"\r\n");
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
    EXPECT_EQ(ReadUtf16(m_path), L"\"" + Text(143) + L"\"\t\"a\"b\"\t\"\"\r\nlabels\r\n");
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

TEST_F(ZPTLogBaseExportTest, WritingToAFullDiskGivesErrorCode10000AndTheFileIsGone)
{
    Put(L"a");
    const ImportPatch<decltype(&::WriteFile)> full(__imp_WriteFile, &FailAsOnAFullDisk);
    EXPECT_FALSE(Export());
    EXPECT_EQ(m_nError, 10000u);
    EXPECT_FALSE(FileExists());
}

TEST_F(ZPTLogBaseExportTest, ADiskThatIsFullInTheMiddleOfTheRecordsGivesTheSame)
{
    for (int i = 0; i < 100; ++i)
    {
        Put(std::wstring(2000, L'x'));
    }
    const ImportPatch<decltype(&::WriteFile)> full(__imp_WriteFile, &WriteLess);
    EXPECT_FALSE(Export());
    EXPECT_EQ(m_nError, 10000u);
    EXPECT_FALSE(FileExists());
}

TEST_F(ZPTLogBaseExportTest, AFullDiskIsToldByTheResultAloneWhenNobodyTakesTheCode)
{
    const ImportPatch<decltype(&::WriteFile)> full(__imp_WriteFile, &FailAsOnAFullDisk);
    EXPECT_FALSE(m_log.ExportLog(m_path, LogTypeVirus, L"", L"", nullptr));
    EXPECT_FALSE(FileExists());
}

TEST_F(ZPTLogBaseExportTest, AnUnwritablePathFailsLeavesTheErrorCodeAndDeletesNothing)
{
    WriteBytes(m_path, "precious");
    const UniqueFile user(
        CreateFileW(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_FALSE(Export()) << "somebody reads the file and lets nobody write";
    EXPECT_EQ(m_nError, Untouched);
    EXPECT_EQ(ReadBytes(m_path), "precious");

    for (const std::wstring& path : {m_folder.File(L"missing\\export.csv"), m_folder.Path().wstring()})
    {
        EXPECT_FALSE(m_log.ExportLog(path, LogTypeVirus, L"", L"", &m_nError));
        EXPECT_EQ(m_nError, Untouched);
    }
    EXPECT_TRUE(std::filesystem::is_directory(m_folder.Path()));
}

TEST_F(ZPTLogBaseExportTest, LabelsThatCannotBeWrittenLeaveNoFileAndNoErrorCode)
{
    Put(L"a");
    m_log.m_bHeaderWorks = false;
    EXPECT_FALSE(Export());
    EXPECT_EQ(m_nError, Untouched);
    EXPECT_FALSE(FileExists());
}

TEST_F(ZPTLogBaseExportTest, WithoutADateTextOrAnAddressNothingIsTouched)
{
    WriteBytes(m_path, "precious");
    EXPECT_FALSE(m_log.ExportLog(m_path, LogTypeVirus, nullptr, L"", &m_nError));
    EXPECT_FALSE(m_log.ExportLog(m_path, LogTypeVirus, L"", nullptr, &m_nError));
    EXPECT_EQ(m_nError, Untouched);
    EXPECT_EQ(ReadBytes(m_path), "precious");
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
