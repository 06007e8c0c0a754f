// Whole export files, compared byte for byte with those kept in golden/.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "tests/support/KeptText.h"
#include "tests/unit/framework/ui/kestrix/logs/ExportTest.h"

#include <filesystem>
#include <initializer_list>
#include <string>

namespace
{

using namespace std::string_literals;

class OneFieldLog : public LabelledLog
{
public:
    void MakeRecodeEOL(LogRec& record) override { record.strData.resize(1); }
};

class ExportGoldenTest : public ExportTest
{
protected:
    static void Put(CZPTLogBase& log, std::initializer_list<std::wstring_view> lines)
    {
        for (const std::wstring_view line : lines)
        {
            ASSERT_TRUE(log.PutRecode(line, CZPTLogBase::AnyLine));
        }
    }

    // Exports the log and compares what came out with what is kept.
    void ExpectGolden(CZPTLogBase& log, std::uint32_t logType, const std::string& name)
    {
        ASSERT_TRUE(log.ExportLog(m_path, logType, L"31/12/2008", L"192.0.2.1", &m_nError));
        EXPECT_EQ(m_nError, Untouched);
        const std::string file = name + ".utf16";
        EXPECT_TRUE(IsKeptText(ReadBytes(m_path), std::filesystem::path(KESTRIX_GOLDEN_EXPORTS) / file,
                               std::filesystem::path(KESTRIX_EXPORT_OUTPUT) / file))
            << "copy it there if it is right";
    }
};

constexpr std::wstring_view VirusRecord = L"x|0900|1048576|x|0|0|beta|C:\\Users\\a user\\beta.exe|4|1|0|0|";

} // namespace

TEST_F(ExportGoldenTest, AVirusLogWithoutRecordsIsTitleAndLabels)
{
    CZPTLogVir log;
    ExpectGolden(log, LogTypeVirus, "virus-log-without-records");
}

TEST_F(ExportGoldenTest, AVirusLogOfOneRecordHasThreeLines)
{
    CZPTLogVir log;
    Put(log, {VirusRecord});
    ExpectGolden(log, LogTypeVirus, "virus-log-of-one-record");
}

TEST_F(ExportGoldenTest, AVirusLogHasItsRecordsOldestFirst)
{
    CZPTLogVir log;
    Put(log, {VirusRecord, L"x|1030|1048576|x|0|0|\"alpha\"|\\\\server\\share\\\x00E4\x65E5.doc|2|0|1|1|a detail",
              L"x|0930|1048576|x|0|0||C:\\c|4|1|0|0|"});
    ExpectGolden(log, LogTypeVirus, "virus-log-oldest-first");
}

TEST_F(ExportGoldenTest, AFirewallLogHasNoDirection)
{
    LabelledLog log;
    Put(log, {L"0|1|2|3|4|5|6|7|8|9|10", L"a|b|c|direction|e", L"a|b|c|last", L"a|b"});
    ExpectGolden(log, LogTypeFirewall, "firewall-log-without-direction");
}

TEST_F(ExportGoldenTest, APhishingLogHasFiveFieldsWhateverTheRecordHas)
{
    LabelledLog log;
    Put(log, {L"0|1|2|3|4|5", L"0|1|2|3|4|5|6|7", L"0|1|2|3", L"0|1", L"0"});
    ExpectGolden(log, LogTypePhishing, "phishing-log-of-five-fields");
}

TEST_F(ExportGoldenTest, ARecordWithOneFieldIsJustThatField)
{
    OneFieldLog log;
    Put(log, {L"alone", L"a \"quoted\" one"});
    ExpectGolden(log, LogTypeUpdate, "records-of-one-field");
}

TEST_F(ExportGoldenTest, QuotesAreDoubledAndTabsLineEndsAndZerosStayInTheField)
{
    LabelledLog log;
    Put(log, {L"a\"b|\"\"|\"", L"a\tb|\t", L"a\nb|a\r\nb|\n\n|\r"});
    Put(log, {L"a\0b|\0"s});
    Put(log, {L"\x65E5\x672C\xD83D\xDE00|\xFEFF|"});
    ExpectGolden(log, LogTypeScan, "quotes-tabs-line-ends-and-zeros");
}
