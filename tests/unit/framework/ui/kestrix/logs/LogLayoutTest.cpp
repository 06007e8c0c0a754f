// What the base makes of the tables of a class: cells, order, detail pane and the label line of an export.

#include "framework/ui/kestrix/logs/ColumnOrder.h"
#include "resource/resource.h"
#include "tests/support/LogFixture.h"
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

// Sorted by a field after those that the number of the column asks for.
constexpr LogColumn LaterField[] = {{0, 0, 0, 0}, {0, 0, 2, 2}};

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

using LogLayoutTest = LogFixture<TableLog>;

} // namespace

TEST_F(LogLayoutTest, AColumnShowsItsFieldAndOneThatIsNotThereLeavesTheText)
{
    const LogRec& record = Put(L"a|b|c|d|e");
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
    const LogRec& first = Put(L"1|b|x|1|1");
    const LogRec& second = Put(L"2|a|y|1|2");
    EXPECT_LT(CompareUp(first, second, 0), 0);
    EXPECT_GT(CompareUp(first, second, 1), 0) << "by field 1, although field 2 is shown";
    EXPECT_EQ(CompareUp(first, second, 3), 0) << "a column without a row is sorted by the field of its number";
    EXPECT_LT(CompareUp(first, second, 4), 0);
    EXPECT_EQ(CompareUp(first, second, 5), 0) << "no such field";
    EXPECT_GT(CompareDown(first, second, 0), 0);
}

// The system's sort calls the pair; an error that left it would leave the rows in the middle of being moved.
TEST_F(LogLayoutTest, ARecordWithoutTheFieldOfAColumnIsSortedAsOneWithAnEmptyField)
{
    LogRec shortOne(std::pmr::new_delete_resource());
    shortOne.Append(L"1");
    shortOne.Append(L"2");
    LogRec whole(std::pmr::new_delete_resource());
    LogRec empty(std::pmr::new_delete_resource());
    for (const wchar_t* field : {L"1", L"2", L"3"})
    {
        whole.Append(field);
        empty.Append(field == std::wstring_view(L"3") ? L"" : field);
    }
    const auto up = &ColumnOrder<LaterField>::Up;
    const auto order = [up](const LogRec& first, const LogRec& second)
    { return up(reinterpret_cast<LPARAM>(&first), reinterpret_cast<LPARAM>(&second), 1); };
    EXPECT_LT(order(shortOne, whole), 0);
    EXPECT_GT(order(whole, shortOne), 0);
    EXPECT_EQ(order(shortOne, empty), 0);
    EXPECT_EQ(order(shortOne, shortOne), 0);
}

TEST_F(LogLayoutTest, ARowShowsItsFieldInTheWayOfItsTable)
{
    const std::wstring longText(200, L'x');
    Show(L"threat|whole|" + longText + L"|d|last");
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
    Show(Text(IDS_UNKNOWN_THREAT_NAME) + L"|b|c||e");
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
