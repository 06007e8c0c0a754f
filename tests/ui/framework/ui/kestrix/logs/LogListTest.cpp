// What every log does with the page's list.

#include "tests/support/LanguageFile.h"
#include "tests/support/PlainLog.h"
#include "tests/support/StandingScale.h"
#include "tests/ui/framework/ui/kestrix/logs/LogWindow.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace
{

using Texts = std::vector<std::wstring>;

// A plain log whose records have an icon.
class FieldLog : public PlainLog
{
public:
    using PlainLog::PlainLog;

    void MakeRecodeEOL(LogRec& record) override { record.nImage = 3; }

    void UseIcons() { m_layout.iconBitmap = IDB_LOG_ICONS; }
};

// Refuses every row after the first few.
class FullList : public CSortListCtrl
{
public:
    int InsertItem(const LVITEMW& item) override { return GetItemCount() >= 2 ? -1 : CSortListCtrl::InsertItem(item); }
};

LVITEMW ItemOf(const CListCtrl& list, int item)
{
    LVITEMW get{};
    get.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM | LVIF_NORECOMPUTE;
    get.iItem = item;
    wchar_t text[10]{};
    get.pszText = text;
    get.cchTextMax = 10;
    EXPECT_TRUE(list.SendMessage(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&get)));
    get.pszText = get.pszText == text ? nullptr : get.pszText;
    return get;
}

class LogListTest : public ::testing::Test
{
protected:
    void Put(CZPTLogBase& log, std::initializer_list<const wchar_t*> lines)
    {
        for (const wchar_t* const line : lines)
        {
            ASSERT_TRUE(log.PutRecode(line, CZPTLogBase::AnyLine));
        }
    }

    // Columns and rows of the log in the window's list.
    void Show(FieldLog& log)
    {
        m_window.m_pLog = &log;
        log.SetListCtrl(&m_window.m_list);
        log.SetListColumn();
        ASSERT_TRUE(log.SetListLog());
    }

    LVCOLUMNW ColumnOf(int column, wchar_t (&title)[300]) const
    {
        LVCOLUMNW get{};
        get.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        get.pszText = title;
        get.cchTextMax = 300;
        EXPECT_TRUE(m_window.m_list.SendMessage(LVM_GETCOLUMNW, column, reinterpret_cast<LPARAM>(&get)));
        return get;
    }

    const LanguageFile m_language;
    LogWindow m_window;
};

} // namespace

TEST_F(LogListTest, ANewObjectShowsNoRowsAndSucceedsWhenAListIsAttached)
{
    FieldLog log;
    EXPECT_FALSE(log.SetListLog());
    log.SetListCtrl(&m_window.m_list);
    EXPECT_TRUE(log.SetListLog());
    EXPECT_EQ(m_window.m_list.GetItemCount(), 0);
}

TEST_F(LogListTest, AListThatIsNoSortedListIsNotTaken)
{
    CListCtrl plain;
    ASSERT_TRUE(plain.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, {0, 0, 100, 100}, m_window, 5));
    FieldLog log(2);
    Put(log, {L"a"});
    log.SetListCtrl(&m_window.m_list);
    log.SetListCtrl(&plain);
    log.SetListColumn();
    EXPECT_FALSE(log.SetListLog());
    EXPECT_EQ(plain.GetItemCount(), 0);
    EXPECT_EQ(m_window.m_list.GetItemCount(), 0);
    EXPECT_EQ(m_window.m_list.SortHeader().GetItemCount(), 0);
    log.ClearLog();
}

TEST_F(LogListTest, TheColumnsHaveTheirTitlesWidthsAndLeftAlignment)
{
    FieldLog log(3);
    log.SetListCtrl(&m_window.m_list);
    log.SetListColumn();
    ASSERT_EQ(m_window.m_list.SortHeader().GetItemCount(), 3);
    const std::pair<UINT, int> expected[] = {{39, 100}, {38, 150}, {81, 125}};
    for (int i = 0; i < 3; ++i)
    {
        wchar_t title[300]{};
        const LVCOLUMNW column = ColumnOf(i, title);
        EXPECT_EQ(title, Text(expected[i].first));
        EXPECT_EQ(column.cx, expected[i].second);
        EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_LEFT);
    }
}

TEST_F(LogListTest, TheColumnsAreAsWideAsTheScaleOfTheScreenMakesThem)
{
    const StandingScale scale(144);
    FieldLog log(3);
    log.SetListCtrl(&m_window.m_list);
    log.SetListColumn();
    for (const auto& [column, width] : {std::pair{0, 150}, {1, 225}, {2, 188}})
    {
        EXPECT_EQ(m_window.m_list.SendMessage(LVM_GETCOLUMNWIDTH, column), width);
    }
}

TEST_F(LogListTest, ATitleIsCutTo254Characters)
{
    FieldLog log(2);
    log.m_arrColumn[0] = std::wstring(254, L'a');
    log.m_arrColumn[1] = std::wstring(255, L'b');
    log.SetListCtrl(&m_window.m_list);
    log.SetListColumn();
    wchar_t title[300]{};
    ColumnOf(0, title);
    EXPECT_EQ(title, std::wstring(254, L'a'));
    ColumnOf(1, title);
    EXPECT_EQ(title, std::wstring(254, L'b'));
}

TEST_F(LogListTest, SetListColumnAddsTheSelectionOfWholeRowsAndTipsWithCutTimesToTheListsStyle)
{
    m_window.m_list.SetExtendedStyle(LVS_EX_GRIDLINES);
    FieldLog log(1);
    log.SetListCtrl(&m_window.m_list);
    log.SetListColumn();
    EXPECT_EQ(m_window.m_list.GetExtendedStyle(),
              static_cast<DWORD>(LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP));
}

TEST_F(LogListTest, SetListColumnGivesTheHeaderItsArrowsAlsoWithoutColumns)
{
    FieldLog log(0);
    log.SetListCtrl(&m_window.m_list);
    ASSERT_EQ(m_window.m_list.SortHeader().GetImageList(), nullptr);
    log.SetListColumn();
    EXPECT_NE(m_window.m_list.SortHeader().GetImageList(), nullptr);
}

TEST_F(LogListTest, TheRowsStandNewestFirstAndPointToTheirRecords)
{
    FieldLog log(1);
    Put(log, {L"old", L"middle", L"new"});
    Show(log);
    ASSERT_EQ(m_window.m_list.GetItemCount(), 3);
    for (int i = 0; i < 3; ++i)
    {
        const LVITEMW item = ItemOf(m_window.m_list, i);
        EXPECT_EQ(item.lParam, reinterpret_cast<LPARAM>(log.GetLogRecord(static_cast<std::size_t>(2 - i)))) << i;
        EXPECT_EQ(item.pszText, LPSTR_TEXTCALLBACKW) << "the list holds no texts";
    }
    EXPECT_EQ(m_window.Column(0), (Texts{L"new", L"middle", L"old"}));
}

TEST_F(LogListTest, TheIconFormSetsEachRecordsIconAndTheBasesFormNone)
{
    FieldLog log(1);
    Put(log, {L"a"});
    Show(log);
    EXPECT_NE(ItemOf(m_window.m_list, 0).iImage, 3);
    m_window.m_list.DeleteAllItems();
    log.UseIcons();
    ASSERT_TRUE(log.SetListLog());
    EXPECT_EQ(ItemOf(m_window.m_list, 0).iImage, 3);
}

TEST_F(LogListTest, ARowThatCannotBeMadeStopsItAndFails)
{
    FullList list;
    ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, {0, 0, 100, 100}, m_window, 5));
    FieldLog log(1);
    Put(log, {L"a", L"b", L"c", L"d"});
    log.SetListCtrl(&list);
    EXPECT_FALSE(log.SetListLog());
    EXPECT_EQ(list.GetItemCount(), 2);
    EXPECT_EQ(log.GetLogCount(), 4u);
}

TEST_F(LogListTest, ARecordWithFewerTokensThanColumnsShowsAndItsMissingColumnsAreEmpty)
{
    FieldLog log(6);
    Put(log, {L"a|b", L"c"});
    Show(log);
    EXPECT_EQ(m_window.Row(0, 6), (Texts{L"c", L"", L"", L"", L"", L""}));
    EXPECT_EQ(m_window.Row(1, 6), (Texts{L"a", L"b", L"", L"", L"", L""}));
}

TEST_F(LogListTest, ThePlainComparePairSortsTheRowsByAColumn)
{
    FieldLog log(2);
    Put(log, {L"10:00|b", L"11:00|c", L"12:00|a"});
    Show(log);
    m_window.m_list.SortItems(log.m_pfnCompareUp, 1);
    EXPECT_EQ(m_window.Column(1), (Texts{L"a", L"b", L"c"}));
    m_window.m_list.SortItems(log.m_pfnCompareDn, 0);
    EXPECT_EQ(m_window.Column(0), (Texts{L"12:00", L"11:00", L"10:00"}));
}

TEST_F(LogListTest, ClearLogTakesRecordsAndRowsAway)
{
    FieldLog log(1);
    Put(log, {L"a", L"b"});
    Show(log);
    log.ClearLog();
    EXPECT_EQ(log.GetLogCount(), 0u);
    EXPECT_EQ(m_window.m_list.GetItemCount(), 0);
    EXPECT_TRUE(log.SetListLog());
    EXPECT_EQ(m_window.m_list.GetItemCount(), 0);
    EXPECT_EQ(m_window.m_list.SortHeader().GetItemCount(), 1) << "the columns stay";
}

TEST_F(LogListTest, TheEndOfALogDoesNotTouchTheList)
{
    {
        FieldLog log(1);
        Put(log, {L"a", L"b"});
        Show(log);
        m_window.m_pLog = nullptr;
    }
    EXPECT_EQ(m_window.m_list.GetItemCount(), 2);
    FieldLog next(1);
    next.SetListCtrl(&m_window.m_list);
    next.ClearLog();
    EXPECT_EQ(m_window.m_list.GetItemCount(), 0) << "the next log's first clearing removes them";
}

TEST_F(LogListTest, ALogWithoutIconsGivesTheListNone)
{
    FieldLog log(1);
    log.SetListCtrl(&m_window.m_list);
    EXPECT_EQ(m_window.m_list.SendMessage(LVM_GETIMAGELIST, LVSIL_SMALL), 0);
}
