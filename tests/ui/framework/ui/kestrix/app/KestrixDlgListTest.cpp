// A daily file on the page: its date, its records in the list, and the order of the list.

#include "framework/ui/kestrix/logs/LogRec.h"
#include "resource/resource.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

#include <algorithm>
#include <array>
#include <memory_resource>

namespace
{

constexpr int NoArrow = -1;
constexpr int Up = 0;
constexpr int Down = 1;

// Four records out of their order, one for each icon.
const std::initializer_list<std::wstring> FourRecords = {
    L"x|0900|1048576|x|0|0|beta|C:\\b|2|0|1|1",
    L"x|1030|1048577|x|0|1|delta|C:\\d|4|0|0|0",
    L"x|0915|1|x|alpha|subject|sender|4|1|0|0",
    L"x|0930|1048579|x|0|0|gamma|C:\\g|2|0|2|0",
};

int ImageOf(const CListCtrl& list, int row)
{
    LVITEMW item{};
    item.mask = LVIF_IMAGE;
    item.iItem = row;
    list.SendMessage(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return item.iImage;
}

std::wstring ColumnTitle(const CListCtrl& list, int column)
{
    std::array<wchar_t, 100> title{};
    LVCOLUMNW get{};
    get.mask = LVCF_TEXT;
    get.pszText = title.data();
    get.cchTextMax = static_cast<int>(title.size());
    list.SendMessage(LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&get));
    return title.data();
}

// A record of a virus log, and what the page answers when the list asks for a cell of it.
class CellTest : public PageTest
{
protected:
    CellTest()
    {
        for (const wchar_t* field : {L"08:00", L"source", L"type", L"threat", L"place", L"first", L"", L"detail"})
        {
            m_record.Append(field);
        }
        OpenDay({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
    }

    // The buffer after the notification; it held "before".
    std::wstring Answer(int column)
    {
        std::array<wchar_t, 300> text{L"before"};
        NMLVDISPINFOW info{};
        info.item.mask = LVIF_TEXT;
        info.item.iItem = -1; // no row of the list, which would name its own record
        info.item.iSubItem = column;
        info.item.lParam = reinterpret_cast<LPARAM>(&m_record);
        info.item.pszText = text.data();
        info.item.cchTextMax = static_cast<int>(text.size());
        Notify(IDC_RECORD_LIST, static_cast<UINT>(LVN_GETDISPINFOW), info);
        return text.data();
    }

    std::pmr::monotonic_buffer_resource m_memory;
    LogRec m_record{&m_memory};
};

using KestrixDlgListTest = PageTest;

} // namespace

TEST_F(KestrixDlgListTest, ADayFileShowsItsDateSelected)
{
    OpenDay(FourRecords);
    EXPECT_EQ(m_page.m_nInitResult, TRUE);
    EXPECT_TRUE(m_page.IsWindowVisible());
    EXPECT_EQ(Dates(), Texts{DateText(2026, 11, 20)});
    EXPECT_EQ(Item(IDC_DATE_LIST).SendMessage(LB_GETCURSEL), 0);
    EXPECT_TRUE(m_boxes.Boxes().empty());
}

TEST_F(KestrixDlgListTest, AllCellsShowTheirTextsNewestFirstWhateverTheOrderInTheFile)
{
    OpenDay(FourRecords);
    ASSERT_EQ(m_list.GetItemCount(), 4);
    EXPECT_EQ(Cells(0), (Texts{L"10:30", Text(801), L"delta"}));
    EXPECT_EQ(Cells(1), (Texts{L"09:30", Text(805), L"gamma"}));
    EXPECT_EQ(Cells(2), (Texts{L"09:15", Text(800), L"alpha"}));
    EXPECT_EQ(Cells(3), (Texts{L"09:00", Text(802), L"beta"})) << "what was done last";
}

TEST_F(KestrixDlgListTest, EachRecordHasItsIcon)
{
    OpenDay(FourRecords);
    EXPECT_EQ(ImageOf(m_list, 0), 2);
    EXPECT_EQ(ImageOf(m_list, 1), 3);
    EXPECT_EQ(ImageOf(m_list, 2), 0);
    EXPECT_EQ(ImageOf(m_list, 3), 1);
    EXPECT_NE(m_list.SendMessage(LVM_GETIMAGELIST, LVSIL_SMALL), 0);
}

TEST_F(KestrixDlgListTest, TheColumnsHaveTheirTitlesAndWidths)
{
    OpenDay(FourRecords);
    EXPECT_EQ(ColumnTitle(m_list, 0), Text(39));
    EXPECT_EQ(ColumnTitle(m_list, 1), Text(38));
    EXPECT_EQ(ColumnTitle(m_list, 2), Text(81));
    EXPECT_EQ(m_list.GetColumnWidth(0), 100);
    EXPECT_EQ(m_list.GetColumnWidth(1), 150);
    EXPECT_EQ(m_list.GetColumnWidth(2), 125);
    EXPECT_EQ(SendMessageW(m_list.GetHeaderCtrl(), HDM_GETITEMCOUNT, 0, 0), 3);
}

TEST_F(KestrixDlgListTest, AFreshListHasTheDownArrowOnItsFirstColumnAlone)
{
    OpenDay(FourRecords);
    EXPECT_EQ(Arrow(0), Down);
    EXPECT_EQ(Arrow(1), NoArrow);
    EXPECT_EQ(Arrow(2), NoArrow);
}

TEST_F(KestrixDlgListTest, TheFirstClickOnTheColumnThatStandsDownAfterALoadSortsUp)
{
    OpenDay(FourRecords);
    ClickHeader(0);
    EXPECT_EQ(Column(0), (Texts{L"09:00", L"09:15", L"09:30", L"10:30"}));
    EXPECT_EQ(Arrow(0), Up);
    ClickHeader(0);
    EXPECT_EQ(Column(0), (Texts{L"10:30", L"09:30", L"09:15", L"09:00"}));
    EXPECT_EQ(Arrow(0), Down);
}

TEST_F(KestrixDlgListTest, ASecondClickTurnsTheOrderAndAnotherColumnStartsUpAgain)
{
    OpenDay(FourRecords);
    ClickHeader(2);
    EXPECT_EQ(Column(2), (Texts{L"alpha", L"beta", L"delta", L"gamma"}));
    EXPECT_EQ(Arrow(2), Up);
    EXPECT_EQ(Arrow(0), NoArrow);
    ClickHeader(2);
    EXPECT_EQ(Column(2), (Texts{L"gamma", L"delta", L"beta", L"alpha"}));
    EXPECT_EQ(Arrow(2), Down);
    Texts results = Column(1);
    std::ranges::sort(results);
    ClickHeader(1);
    EXPECT_EQ(Column(1), results);
    EXPECT_EQ(Arrow(1), Up);
    EXPECT_EQ(Arrow(2), NoArrow);
    ClickHeader(2);
    EXPECT_EQ(Column(2), (Texts{L"alpha", L"beta", L"delta", L"gamma"}));
    EXPECT_EQ(Arrow(2), Up);
}

TEST_F(KestrixDlgListTest, ANewLoadForgetsTheClicksBefore)
{
    OpenDay(FourRecords);
    ClickHeader(2);
    SelectDate(0);
    EXPECT_EQ(Column(0), (Texts{L"10:30", L"09:30", L"09:15", L"09:00"}));
    EXPECT_EQ(Arrow(0), Down);
    EXPECT_EQ(Arrow(2), NoArrow);
    ClickHeader(2);
    EXPECT_EQ(Arrow(2), Up) << "a second click on the column would be down";
}

TEST_F(KestrixDlgListTest, SelectingTheDateReadsTheFileAgain)
{
    OpenDay({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
    WriteUtf16(m_folder.File(L"20261120.VLG"), Lines(FourRecords));
    SelectDate(0);
    EXPECT_EQ(m_list.GetItemCount(), 4);
    EXPECT_EQ(Cells(0), (Texts{L"10:30", Text(801), L"delta"}));
}

TEST_F(CellTest, TheThreeColumnsAnswerTheirTexts)
{
    EXPECT_EQ(Answer(0), L"08:00");
    EXPECT_EQ(Answer(1), L"first");
    EXPECT_EQ(Answer(2), L"threat");
}

TEST_F(CellTest, AnEmptyDateListShowsNothing)
{
    Item(IDC_DATE_LIST).SendMessage(LB_RESETCONTENT);
    EXPECT_EQ(Answer(0), L"before");
}

TEST_F(KestrixDlgListTest, ATextOf255CharactersIsShownWholeAndOneOf256WithoutItsMiddle)
{
    const std::wstring fits = std::wstring(127, L'a') + std::wstring(128, L'b');
    const std::wstring isCut = std::wstring(128, L'a') + std::wstring(128, L'b');
    OpenDay(
        {L"x|0900|1048576|x|0|0|" + fits + L"|C:\\b|4|1|0|0", L"x|0800|1048576|x|0|0|" + isCut + L"|C:\\b|4|1|0|0"});
    EXPECT_EQ(Cells(0)[2], fits);
    EXPECT_EQ(Cells(1)[2], std::wstring(125, L'a') + L"....." + std::wstring(125, L'b'));
}
