#include "framework/ui/kestrix/report/ReportCollector.h"

#include "platform/dialog/Exceptions.h"
#include "tests/support/StandingClock.h"
#include "tests/support/TraceRecorder.h"
#include "tests/unit/framework/ui/kestrix/report/ReportFilesDouble.h"

#include <gtest/gtest.h>

namespace
{

using Names = std::vector<std::wstring>;

// Counts a folder in memory on 21 November 2026.
class ReportCollectorTest : public ::testing::Test
{
protected:
    void AddFile(const std::wstring& name, const std::wstring& text = L"x\r\n")
    {
        m_files.m_arrEntry.push_back({name, text});
    }

    ReportCounts Collect(std::uint32_t span = 7, std::uint32_t intervals = 3)
    {
        return CReportCollector(m_files, span, intervals).Collect();
    }

    // The events of a virus file of today with this text.
    std::uint32_t VirusEvents(const std::wstring& text)
    {
        m_files.m_arrEntry = {{L"20261121.VLG", text}};
        return Collect().m_nVirusTotal;
    }

    // What becomes of one line of a log.
    ReportInterval SortsOf(const std::wstring& line, std::uint32_t logType)
    {
        CReportCollector collector(m_files, 7, 3);
        std::uint32_t count = 0;
        EXPECT_TRUE(collector.PutRecode(line, logType, count));
        EXPECT_EQ(count, 0u);
        return collector.Interval();
    }

    // A line of 13 fields or, with an empty outcome field left out, of 12.
    static std::wstring Line(const std::wstring& field2, const wchar_t* field12)
    {
        const std::wstring line = L"0|1|" + field2 + L"|3|4|5|6|7|8|9|10|11";
        return field12 == nullptr ? line : line + L"|" + field12;
    }

    const StandingClock m_clock;
    ReportFilesDouble m_files;
};

} // namespace

TEST_F(ReportCollectorTest, WithoutIntervalsThereAreNoSeriesAndNoEvents)
{
    AddFile(L"20261121.VLG");
    const ReportCounts counts = Collect(7, 0);
    for (const ReportLineCounts& line : ReportLines())
    {
        EXPECT_TRUE((counts.*line.series).empty());
        EXPECT_EQ(counts.*line.total, 0u);
        EXPECT_EQ(counts.*line.max, 0u);
    }
    EXPECT_EQ(counts.m_vecSeriesMax, ReportSeries(5, 0));
    EXPECT_EQ(counts.m_nMaxCount, 0u);
    EXPECT_EQ(counts.m_nGrandTotal, 0u);
}

TEST_F(ReportCollectorTest, OfSevenDaysInThreeIntervalsTodayIsInTheFirstTheSixthDayBackInTheLastAndTheSeventhInNone)
{
    const std::vector<std::pair<std::wstring, ReportSeries>> days{
        {L"20261122", {0, 0, 0}}, {L"20261121", {1, 0, 0}}, {L"20261120", {1, 0, 0}}, {L"20261119", {0, 1, 0}},
        {L"20261118", {0, 1, 0}}, {L"20261117", {0, 0, 1}}, {L"20261115", {0, 0, 1}}, {L"20261114", {0, 0, 0}}};
    for (const auto& [day, series] : days)
    {
        m_files.m_arrEntry = {{day + L".VLG", L"x\r\n"}};
        EXPECT_EQ(Collect(7, 3).m_vecVirus, series) << Names{day}[0].c_str();
    }
}

TEST_F(ReportCollectorTest, OfThreeDaysInFiveIntervalsTheFirstAndTheThirdAreEmpty)
{
    AddFile(L"20261121.VLG", L"1\r\n");
    AddFile(L"20261120.VLG", L"1\r\n2\r\n");
    AddFile(L"20261119.VLG", L"1\r\n2\r\n3\r\n");
    EXPECT_EQ(Collect(3, 5).m_vecVirus, (ReportSeries{0, 1, 0, 2, 3}));
}

TEST_F(ReportCollectorTest, NamesThatAreNoDayOrOfAnotherLengthAndDirectoriesAreSkipped)
{
    for (const wchar_t* const name : {L"20250230.VLG", L"20251301.VLG", L"00001121.VLG", L"2025011.VLG",
                                      L"202501011.VLG", L"readme-1.VLG", L"20261121.UPG"})
    {
        AddFile(name);
    }
    m_files.m_arrEntry.push_back({.name = L"20261121.VLG", .text = L"x\r\n", .isDirectory = true});
    EXPECT_EQ(Collect(30'000, 1).m_vecVirus, ReportSeries{0});
}

TEST_F(ReportCollectorTest, TheNameThatIsOpenedIsPutTogetherFromTheDayAndTheExtensionAskedFor)
{
    AddFile(L"20261121.vlg");
    AddFile(L"2026 1 9.VLG");
    CReportCollector collector(m_files, 7, 3);
    Names names;
    collector.GetLogDate(L".VLG", names, 0, 1000);
    EXPECT_EQ(names, (Names{L"20261121.VLG", L"20260109.VLG"}));
}

TEST_F(ReportCollectorTest, AnEmptyExtensionNamesNoFiles)
{
    AddFile(L"20261121.VLG");
    CReportCollector collector(m_files, 7, 3);
    Names names;
    collector.GetLogDate({}, names, 0, 1000);
    collector.GetLogDate(L".VLG", names, 1, 0);
    EXPECT_EQ(names, Names{});
}

TEST_F(ReportCollectorTest, LinesCountAsTheReaderOfDailyFilesHasThem)
{
    const std::wstring full(2044, L'x');
    const std::vector<std::pair<std::wstring, std::uint32_t>> files{
        {L"a\r\nb\r\n\r\n", 2},            // an empty line is nothing
        {L"a", 0},                         // no line feed
        {L"a\r\nb", 1},                    // the last one has none
        {full + L"\r\n", 1},               // as long as a line can be
        {full + L"x\r\nnext\r\n", 1},      // a character more is too long, and the next line counts
        {full + full + full + L"\r\n", 0}, // by much
        {L"\n", 1},                        // a line feed alone is text that remains
        {L"a\nb\n", 2},                    // as it is at the end of any line
        {L"a\rb\r\n", 1},                  // cut at the last carriage return
        {L"\r\r\n", 1},                    // one carriage return remains
        {L"\r\n\r\n", 0},
        {L"", 0},
    };
    for (const auto& [text, events] : files)
    {
        EXPECT_EQ(VirusEvents(text), events) << testing::PrintToString(text.substr(0, 20));
    }
}

TEST_F(ReportCollectorTest, ASpywareRecordCountsByItsKindAndByItsOutcomeIndependently)
{
    struct Case
    {
        std::wstring kind;
        const wchar_t* outcome;
        std::uint32_t detect;
        std::uint32_t other;
    };

    const std::vector<Case> cases{
        {L"0x1", nullptr, 0, 1},      {L"1", nullptr, 0, 1}, {L"2", nullptr, 0, 1},
        {L"03", nullptr, 0, 1},       {L"4", nullptr, 0, 0}, {L"0", nullptr, 0, 0},
        {L"x", nullptr, 0, 0},        {L"", nullptr, 0, 0},  {L"1", L"1", 1, 1},
        {L"1", L"0", 0, 2},           {L"3", L"", 0, 2},     {L"9", L"1", 1, 0},
        {L"9", L"0x1", 0, 1},         {L"9", L"1x", 1, 0},   {L"9", L"text", 0, 1},
        {L"0x2", L" 1", 1, 1},        {L"08", L"2", 0, 1},   {L"9", L"+1", 1, 0},
        {L"-4294967294", L"1", 1, 1},
    };
    for (const Case& one : cases)
    {
        const ReportInterval sorts = SortsOf(Line(one.kind, one.outcome), LogTypeSpyware);
        const auto what = testing::PrintToString(Line(one.kind, one.outcome));
        EXPECT_EQ(sorts.m_nSpywareDetect, one.detect) << what;
        EXPECT_EQ(sorts.m_nSpywareOther, one.other) << what;
    }
}

TEST_F(ReportCollectorTest, TheSpywareSumRisesByTwoForARecordThatBothRulesCount)
{
    AddFile(L"20261121.SPG", Line(L"1", L"1") + L"\r\n");
    const ReportCounts counts = Collect();
    EXPECT_EQ(counts.m_vecSpyware, (ReportSeries{2, 0, 0}));
    EXPECT_EQ(counts.m_vecSpywareDetect, (ReportSeries{1, 0, 0}));
    EXPECT_EQ(counts.m_vecSpywareOther, (ReportSeries{1, 0, 0}));
    EXPECT_EQ(counts.m_nSpywareTotal, 2u);
    EXPECT_EQ(counts.m_nSpywareDetectTotal, 1u);
    EXPECT_EQ(counts.m_nSpywareOtherTotal, 1u);
    EXPECT_EQ(counts.m_nSpywareMax, 2u);
}

TEST_F(ReportCollectorTest, ASuspiciousChangeCountsWhenItWasBlockedOrAllowedAndOtherwiseInNeitherNorInTheSum)
{
    struct Case
    {
        const wchar_t* outcome;
        std::uint32_t blocked;
        std::uint32_t allowed;
    };

    for (const Case& one : {Case{L"2", 1, 0},
                            {L"0", 0, 1},
                            {L"3", 0, 0},
                            {L"1", 0, 0},
                            {L"", 0, 1},
                            {L"text", 0, 1},
                            {L"0x2", 0, 1},
                            {L"02", 1, 0},
                            {nullptr, 0, 0},
                            {L"4294967298", 0, 0}})
    {
        const ReportInterval sorts = SortsOf(Line(L"1", one.outcome), LogTypeVst);
        const auto what = testing::PrintToString(Line(L"1", one.outcome));
        EXPECT_EQ(sorts.m_nSuspiciousCode2, one.blocked) << what;
        EXPECT_EQ(sorts.m_nSuspiciousCode0, one.allowed) << what;
    }
    AddFile(L"20261121.SCG", Line(L"1", L"3") + L"\r\n" + Line(L"1", L"2") + L"\r\n" + Line(L"1", L"0") + L"\r\n");
    const ReportCounts counts = Collect();
    EXPECT_EQ(counts.m_vecSuspicious, (ReportSeries{2, 0, 0}));
    EXPECT_EQ(counts.m_nSuspiciousCode2Total, 1u);
    EXPECT_EQ(counts.m_nSuspiciousCode0Total, 1u);
}

TEST_F(ReportCollectorTest, FieldsAreCountedWithTheEmptyOnesAndALineThatBeginsWithABarHasAnEmptyFirstOne)
{
    EXPECT_EQ(SortsOf(L"||1", LogTypeSpyware).m_nSpywareOther, 1u);
    EXPECT_EQ(SortsOf(L"|||||||||||||", LogTypeSpyware).m_nSpywareOther, 1u) << "field 12 is there and empty";
    EXPECT_EQ(SortsOf(L"||||||||||||2|2|2", LogTypeVst).m_nSuspiciousCode2, 1u) << "no field after it counts";
}

TEST_F(ReportCollectorTest, TheOtherLogsCountEveryRecordAndLookAtNone)
{
    AddFile(L"20261121.VLG", L"1\r\n");
    AddFile(L"20261119.UFG", L"|||\r\n2\r\n3\r\n");
    AddFile(L"20261115.PPG", L"1\r\n2\r\n");
    const ReportCounts counts = Collect();
    EXPECT_EQ(counts.m_vecVirus, (ReportSeries{1, 0, 0}));
    EXPECT_EQ(counts.m_vecWeb, (ReportSeries{0, 3, 0}));
    EXPECT_EQ(counts.m_vecDataPrevention, (ReportSeries{0, 0, 2}));
    EXPECT_EQ(counts.m_vecSeriesMax, (ReportSeries{1, 0, 0, 3, 2}));
    EXPECT_EQ(counts.m_nMaxCount, 3u);
    EXPECT_EQ(counts.m_nGrandTotal, 6u);
}

TEST_F(ReportCollectorTest, AFileThatCannotBeReadCountsNothingAndTheOthersCount)
{
    m_files.m_arrEntry = {{.name = L"20261121.VLG", .text = L"x\r\n", .isReadable = false},
                          {L"20261120.VLG", L"x\r\n"}};
    EXPECT_EQ(Collect().m_vecVirus, (ReportSeries{1, 0, 0}));
    std::uint32_t count = 0;
    CReportCollector collector(m_files, 7, 3);
    EXPECT_FALSE(collector.ParseLogW(L"20261121.VLG", LogTypeVirus, count));
    EXPECT_FALSE(collector.ParseLogW(L"20261101.VLG", LogTypeVirus, count));
    EXPECT_TRUE(collector.ParseLogW(L"20261120.VLG", LogTypeVirus, count));
    EXPECT_EQ(count, 1u);
}

TEST_F(ReportCollectorTest, ADayThatIsOneButCannotBeCountedBackEndsTheCollection)
{
    for (const auto& [name, error] : {std::pair{L"18991231.VLG", E_FAIL}, {L"99991231.VLG", E_INVALIDARG}})
    {
        m_files.m_arrEntry = {{name, L"x\r\n"}};
        try
        {
            Collect();
            ADD_FAILURE() << testing::PrintToString(std::wstring(name));
        }
        catch (const CAtlException& exception)
        {
            EXPECT_EQ(static_cast<HRESULT>(exception), error);
        }
    }
}

TEST_F(ReportCollectorTest, TracesWhatItReadsAndCounts)
{
    AddFile(L"20261121.SPG", Line(L"1", L"1") + L"\r\n" + Line(L"9", L"0") + L"\r\n");
    AddFile(L"notes.VLG");
    const TraceRecorder trace;
    Collect(1, 1);
    const Names expected{
        L"log filename[notes.VLG]",
        L"log filename[20261121.SPG]",
        L"[Enter]CKxReportDlg::ParseLogW",
        L"CZPTLogBase::PutRecode strData[" + Line(L"1", L"1") + L"]",
        L"CKxReportDlg::MakeReportRecode --- Spyware Other Count add 1",
        L"CKxReportDlg::MakeReportRecode Spyware Detect Count add 1",
        L"CZPTLogBase::PutRecode strData[" + Line(L"9", L"0") + L"]",
        L"CKxReportDlg::MakeReportRecode Spyware Other Count add 1",
        L"[Leave]CKxReportDlg::ParseLogW",
        L"Max Count item number [3]",
    };
    EXPECT_EQ(trace.Texts(), expected);
    EXPECT_EQ(trace.Texts(VdCommon::TraceLevel::Flow), (Names{expected[2], expected[8]}));
}
