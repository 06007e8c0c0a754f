// What the base makes of the tables of a class: cells, order, detail pane and the label line of an export.

#include "framework/ui/kestrix/logs/ColumnOrder.h"
#include "resource/resource.h"
#include "tests/support/InfoPaneDouble.h"
#include "tests/unit/framework/ui/kestrix/logs/ExportTest.h"

#include <stdexcept>

namespace
{

constexpr LogColumn Columns[] = {{IDS_COLUMN_TIME, 70, 0, 0}, {IDS_COLUMN_THREAT, 90, 2, 1}};
constexpr LogInfoRow Rows[] = {
    {IDS_LABEL_THREAT, true, 0, InfoText::Threat},
    {IDS_LABEL_TYPE, true, 1},
    {IDS_LABEL_LOCATION, true, 2, InfoText::Cut},
    {IDS_LABEL_SOURCE, true, 3, InfoText::Whole, IDS_UNKNOWN_THREAT},
    {0, false},
    {IDS_LABEL_DETAIL, true, LastField},
};
constexpr ExportLabel Labels[] = {
    {IDS_LABEL_DETAIL},
    {IDS_LABEL_DETAIL, Colons::LastRemoved},
    {IDS_EXPORT_TIME, Colons::LastRemoved},
    {.literal = L"a:b:"},
    {.colons = Colons::AllRemoved, .literal = L"a:b:"},
    {.colons = Colons::LastRemoved, .literal = L"a:b:"},
};
constexpr LogLayout Layout = {.type = LogTypeScan, .columns = Columns, .infoRows = Rows, .exportLabels = Labels};

class TableLog : public PlainLog
{
public:
    TableLog()
    {
        m_arrColumn.clear();
        Setup(Layout);
        m_pfnCompareUp = &ColumnOrder<Columns>::Up;
        m_pfnCompareDn = &ColumnOrder<Columns>::Down;
    }
};

class LogLayoutTest : public ::testing::Test
{
protected:
    LogLayoutTest() { m_log.SetInfoDialog(&m_pane); }

    LogRec* Put(std::wstring_view line)
    {
        EXPECT_TRUE(m_log.PutRecode(line, CZPTLogBase::AnyLine));
        return m_log.GetLogRecord(m_log.GetLogCount() - 1);
    }

    std::wstring Cell(const LogRec* record, int column) const
    {
        std::wstring text = L"before";
        m_log.GetColumnText(record, text, column);
        return text;
    }

    int Up(const LogRec* first, const LogRec* second, int column) const
    {
        return m_log.m_pfnCompareUp(reinterpret_cast<LPARAM>(first), reinterpret_cast<LPARAM>(second), column);
    }

    const LanguageFile m_language;
    TableLog m_log;
    InfoPaneDouble m_pane;
};

} // namespace

TEST_F(LogLayoutTest, AColumnShowsItsFieldAndOneThatIsNotThereLeavesTheText)
{
    const LogRec* const record = Put(L"a|b|c|d|e");
    EXPECT_EQ(Cell(record, 0), L"a");
    EXPECT_EQ(Cell(record, 1), L"c");
    EXPECT_EQ(Cell(record, 2), L"before");
    EXPECT_EQ(Cell(record, -1), L"before");
}

TEST_F(LogLayoutTest, AColumnOfAShorterRecordIsTheVectorsOutOfRangeError)
{
    LogRec record(std::pmr::new_delete_resource());
    std::wstring text;
    EXPECT_THROW(m_log.GetColumnText(&record, text, 1), std::out_of_range);
}

TEST_F(LogLayoutTest, AColumnIsSortedByTheFieldThatItsTableNames)
{
    const LogRec* const first = Put(L"1|b|x|1|1");
    const LogRec* const second = Put(L"2|a|y|1|2");
    EXPECT_LT(Up(first, second, 0), 0);
    EXPECT_GT(Up(first, second, 1), 0) << "by field 1, although field 2 is shown";
    EXPECT_EQ(Up(first, second, 3), 0) << "a column without a row is sorted by the field of its number";
    EXPECT_LT(Up(first, second, 4), 0);
    EXPECT_EQ(Up(first, second, 5), 0) << "no such field";
    EXPECT_GT(m_log.m_pfnCompareDn(reinterpret_cast<LPARAM>(first), reinterpret_cast<LPARAM>(second), 0), 0);
}

TEST_F(LogLayoutTest, ARowShowsItsFieldInTheWayOfItsTable)
{
    const std::wstring longText(200, L'x');
    m_log.SetInfoLabel();
    m_log.SetLogInfo(Put(L"threat|whole|" + longText + L"|d|last"));
    EXPECT_TRUE(m_pane[0].isLink);
    EXPECT_EQ(m_pane[0].text, L"threat");
    EXPECT_EQ(m_pane[0].toolTip, L"threat");
    EXPECT_EQ(m_pane[1].text, L"whole");
    EXPECT_EQ(m_pane[1].toolTip, L"");
    EXPECT_EQ(m_pane[2].text, m_log.TruncateText(longText));
    EXPECT_EQ(m_pane[2].toolTip, longText);
    EXPECT_EQ(m_pane[3].text, L"d");
    EXPECT_EQ(m_pane[5].text, L"last");
    EXPECT_EQ(m_log.GetInfoText(), longText);
}

TEST_F(LogLayoutTest, ARowWithoutAFieldStaysAndAnEmptyFieldHasItsText)
{
    m_log.SetInfoLabel();
    m_log.SetLogInfo(Put(Text(IDS_UNKNOWN_THREAT_NAME) + L"|b|c||e"));
    EXPECT_FALSE(m_pane[4].isSet);
    EXPECT_EQ(m_pane[3].text, Text(IDS_UNKNOWN_THREAT));
    EXPECT_FALSE(m_pane[0].isLink);
    EXPECT_EQ(m_pane[0].text, Text(IDS_UNKNOWN_THREAT));
}

TEST_F(LogLayoutTest, ALabelLosesTheColonsThatItsTableNames)
{
    ASSERT_TRUE(Text(IDS_LABEL_DETAIL).ends_with(L':')) << "the caption of the pane";
    const std::wstring detail = Text(IDS_LABEL_DETAIL);
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"labels.csv");
    std::uint32_t error = 0;
    ASSERT_TRUE(m_log.ExportLog(path, LogTypeScan, L"", L"", &error));
    const std::wstring text = ReadUtf16(path);
    EXPECT_EQ(text.substr(text.find(L'\n') + 1), L"\"" + detail + L"\"\t\"" + detail.substr(0, detail.size() - 1) +
                                                     L"\"\t\"" + Text(IDS_EXPORT_TIME) +
                                                     L"\"\t\"a:b:\"\t\"ab\"\t\"a:b\"\r\n");
}
