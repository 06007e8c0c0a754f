// Records that lack a field which their log shows or sorts by. The log raises an error for them: each painting once
// told the user so in a box, a sort by such a column ended in a box and in no order, and a click left the pane half
// changed.

#include "resource/resource.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

#include <algorithm>
#include <set>

namespace
{

// A record of a scan has a name in its third column; one of the behavior monitor from a file ends before that field.
const std::wstring Scan = L"x|0900|1048576|3|4|C:\\a.exe|C:\\|7|8|9|a name|11|1|13|14";
const std::wstring Monitor = L"x|1030|0x10000000|3|4|5|6|7|program|0|10|11|1";

class KestrixDlgShortRecordTest : public PageTest
{
protected:
    void OpenSpyware(std::initializer_list<std::wstring> lines)
    {
        m_page.m_nLogType = LogTypeSpyware;
        OpenDay(lines);
    }

    // A day with many records of both kinds. Those of the monitor come last: the first leaves its form to the others.
    void OpenLongDay()
    {
        const std::wstring path = m_folder.File(L"20261120.SPG");
        std::wstring lines;
        for (const std::wstring& line : {Scan, Monitor})
        {
            for (int i = 0; i < OfEachKind; ++i)
            {
                lines += Lines({line});
            }
        }
        WriteUtf16(path, lines);
        m_page.m_nLogType = LogTypeSpyware;
        Open(path);
    }

    // The records of the rows, each once.
    std::set<LPARAM> Records() const
    {
        std::set<LPARAM> records;
        for (int row = 0; row < m_list.GetItemCount(); ++row)
        {
            records.insert(m_list.GetItemData(row));
        }
        return records;
    }

    static constexpr int OfEachKind = 100;
};

} // namespace

TEST_F(KestrixDlgShortRecordTest, ACellOfAFieldThatIsNotThereIsEmptyAndNoPaintingShowsABox)
{
    OpenSpyware({Scan, Monitor});
    EXPECT_EQ(Cells(0), (Texts{L"10:30", Text(302), L""}));
    EXPECT_EQ(Cells(1), (Texts{L"09:00", Text(316), L"a name"}));
    for (int painting = 0; painting < 2; ++painting)
    {
        m_list.RedrawWindow(RDW_INVALIDATE | RDW_UPDATENOW);
    }
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

TEST_F(KestrixDlgShortRecordTest, ASortByAFieldThatSomeRecordsLackKeepsEveryRowAndPutsThemBeforeAllNames)
{
    OpenLongDay();
    const std::set<LPARAM> records = Records();
    ASSERT_EQ(records.size(), 2u * OfEachKind);
    Texts names(OfEachKind, L"");
    names.insert(names.end(), OfEachKind, L"a name");
    ClickHeader(2);
    EXPECT_EQ(Records(), records);
    EXPECT_EQ(Column(2), names);
    ClickHeader(2);
    EXPECT_EQ(Records(), records);
    std::ranges::reverse(names);
    EXPECT_EQ(Column(2), names);
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

TEST_F(KestrixDlgShortRecordTest, ARecordThatIsTooShortForThePaneLeavesItBlankAndNoBoxComes)
{
    m_page.m_nLogType = LogTypeSkippedTask;
    OpenDay({L"x|x|x|0900|0|0", L"x|x|x|0800|3|1"}); // no task has the number 3
    ClickRow(0);
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_TEXT), Text(224));
    ClickRow(1);
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_TEXT), L"") << "not the reason of the row before";
    EXPECT_FALSE(IsShown(IDC_INFO_VALUE_2)) << "this log has one row";
    SelectRow(0);
    ReleaseKey(m_list, VK_UP);
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_TEXT), Text(224));
    SelectRow(1);
    ReleaseKey(m_list, VK_DOWN);
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_TEXT), L"");
    EXPECT_TRUE(m_boxes.Boxes().empty());
}
