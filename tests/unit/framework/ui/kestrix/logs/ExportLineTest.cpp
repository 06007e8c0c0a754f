// A record as it is copied: the line that an export writes of it, of every kind.

#include "framework/ui/kestrix/app/LogFactory.h"
#include "tests/support/CategoryService.h"
#include "tests/support/GoldenDayFile.h"
#include "tests/support/TraceRecorder.h"
#include "tests/unit/framework/ui/kestrix/logs/ExportTest.h"

#include <algorithm>
#include <memory>

namespace
{

class ExportLineTest : private WithCategoryService, public ExportTest
{
protected:
    // What stands after the title in the file that the log exports by its own type.
    std::wstring ExportedLines(CZPTLogBase& log, std::uint32_t logType)
    {
        EXPECT_TRUE(log.ExportLog(m_path, logType, L"31/12/2008", L"192.0.2.1", &m_nError));
        return ReadUtf16(m_path).substr(Title(logType).size());
    }
};

} // namespace

TEST_F(ExportLineTest, TheLinesOfAllRecordsOfAGoldenDayAreItsExport)
{
    for (const std::string& name : GoldenDayFile::Names())
    {
        SCOPED_TRACE(name);
        const GoldenDayFile day(name);
        const std::wstring extension(day.extension.begin(), day.extension.end());
        const auto kind = std::ranges::find(LogKinds(), extension, &LogKind::extension);
        ASSERT_NE(kind, LogKinds().end());
        const std::unique_ptr<CZPTLogBase> log = CreateLog(kind->type);
        for (const std::wstring& line : day.Lines())
        {
            log->PutRecode(line, CZPTLogBase::AnyLine);
        }
        ASSERT_GT(log->GetLogCount(), 0u);
        const std::wstring labels = ExportedLines(*CreateLog(kind->type), kind->type);
        std::wstring lines = labels;
        for (std::size_t i = 0; i < log->GetLogCount(); ++i)
        {
            const std::wstring line = log->ExportLine(*log->GetLogRecord(i), false);
            EXPECT_EQ(log->ExportLine(*log->GetLogRecord(i), true), labels + line);
            lines += line;
        }
        EXPECT_EQ(lines, ExportedLines(*log, kind->type));
    }
}

TEST_F(ExportLineTest, ALineLongerThanABlockIsWhole)
{
    const std::wstring field(200'000, L'x');
    Put(field + L"|" + field);
    EXPECT_EQ(m_log.ExportLine(*m_log.GetLogRecord(0), false), L"\"" + field + L"\"\t\"" + field + L"\"\r\n");
}

TEST_F(ExportLineTest, QuotesTabsAndLineEndsAreThoseOfTheFile)
{
    Put(L"a\"b|a\tb\nc");
    EXPECT_EQ(m_log.ExportLine(*m_log.GetLogRecord(0), false), RecordLines(LogTypeScan));
    EXPECT_EQ(m_log.ExportLine(*m_log.GetLogRecord(0), false), L"\"a\"\"b\"\t\"a\tb\r\nc\"\r\n");
}

TEST_F(ExportLineTest, NothingIsTracedOrWritten)
{
    Put(L"a|b");
    const TraceRecorder trace;
    m_log.ExportLine(*m_log.GetLogRecord(0), true);
    EXPECT_EQ(trace.Texts(), std::vector<std::wstring>());
    EXPECT_FALSE(FileExists());
}
