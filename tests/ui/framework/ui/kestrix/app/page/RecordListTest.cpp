#include "framework/ui/kestrix/app/page/RecordList.h"

#include "platform/dialog/OleDateTime.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/PlainLog.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/page/PartWindow.h"

#include <gtest/gtest.h>

#include <array>
#include <memory_resource>
#include <string>
#include <vector>

namespace
{

using Texts = std::vector<std::wstring>;

constexpr LogKind ThreeColumns{};

// The arrow of a column; -1 for none.
int ArrowOf(HWND header, int column)
{
    HDITEMW item{};
    item.mask = HDI_IMAGE | HDI_FORMAT;
    SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
    return (item.fmt & HDF_IMAGE) != 0 ? item.iImage : -1;
}

// The list with a log of three columns.
class RecordListTest : public ::testing::Test
{
protected:
    RecordListTest()
    {
        m_window.Add(WC_LISTVIEWW, IDC_RECORD_LIST, LVS_REPORT | LVS_SINGLESEL | LVS_OWNERDATA, {0, 0, 600, 400});
        m_list.SubclassDlgItem(IDC_RECORD_LIST, m_window);
        m_list.SetLog(m_log, ThreeColumns);
        m_log.SetListCtrl(&m_list);
        m_log.SetListColumn();
    }

    ~RecordListTest() override { m_list.RemoveLog(); }

    void Load(const std::wstring& lines)
    {
        const std::wstring path = m_folder.File(L"20261120.VLG");
        WriteUtf16(path, lines);
        m_log.ClearLog();
        m_list.LoadFile(path);
    }

    // The first fields of the rows, from the top.
    Texts Rows() const
    {
        Texts rows;
        for (int row = 0; row < m_list.GetItemCount(); ++row)
        {
            rows.emplace_back(reinterpret_cast<const LogRec*>(m_list.GetItemData(row))->Field(0));
        }
        return rows;
    }

    int Arrow(int column) const { return ArrowOf(m_list.GetHeaderCtrl(), column); }

    const LanguageFile m_language;
    const TemporaryFolder m_folder;
    const TraceRecorder m_trace;
    PlainLog m_log{3};
    PartWindow m_window;
    CRecordList m_list;
};

constexpr int Up = 0;
constexpr int Down = 1;

// What the list answers when it is asked for a cell.
class CellTest : public RecordListTest
{
protected:
    CellTest()
    {
        for (const wchar_t* field : {L"08:00", L"first", L"threat", L"fourth"})
        {
            m_record.Append(field);
        }
    }

    // The buffer of so many characters after the call; it held "before".
    std::wstring Answer(const LogRec* record, int column, int size = 300, UINT mask = LVIF_TEXT)
    {
        std::array<wchar_t, 301> text{L"before"};
        NMLVDISPINFOW info{};
        info.item.mask = mask;
        info.item.iSubItem = column;
        info.item.lParam = reinterpret_cast<LPARAM>(record);
        info.item.pszText = text.data();
        info.item.cchTextMax = size;
        m_list.AnswerText(info);
        return text.data();
    }

    std::pmr::monotonic_buffer_resource m_memory;
    LogRec m_record{&m_memory};
};

// A log that counts how often it is asked for the order of two records.
class CountingLog : public PlainLog
{
public:
    CountingLog() : PlainLog(1)
    {
        s_count = 0;
        m_pfnCompareDn = &Compare;
    }

    static inline int s_count = 0;

private:
    static int CALLBACK Compare(LPARAM first, LPARAM second, LPARAM column)
    {
        ++s_count;
        return CompareFuncDn(first, second, column);
    }
};

} // namespace

TEST_F(RecordListTest, AFreshListStandsNewestFirstWithTheArrowDownOnItsFirstColumn)
{
    Load(L"08|b|x\r\n10|a|x\r\n09|c|x\r\n");
    EXPECT_EQ(Rows(), (Texts{L"10", L"09", L"08"}));
    EXPECT_EQ(Arrow(0), Down);
    EXPECT_EQ(Arrow(1), -1);
    EXPECT_TRUE(m_list.GetStyle() & WS_VISIBLE) << "the list draws";
}

// A log is written in the order of its times, so its rows mostly stand as the first sort has them.
TEST_F(RecordListTest, RowsThatAlreadyStandNewestFirstAreComparedWithTheirNeighboursAlone)
{
    CountingLog log;
    m_list.RemoveLog();
    m_list.SetLog(log, ThreeColumns);
    log.SetListCtrl(&m_list);
    Load(L"08\r\n09\r\n09\r\n10\r\n");
    EXPECT_EQ(Rows(), (Texts{L"10", L"09", L"09", L"08"}));
    EXPECT_EQ(CountingLog::s_count, 3) << "each row is compared with the next alone";
    m_list.RemoveLog();
}

TEST_F(RecordListTest, AClickSortsUpAndASecondOneDownAndAnotherColumnStartsUpAgain)
{
    Load(L"08|b|x\r\n10|a|x\r\n09|c|x\r\n");
    m_list.SortByClick(0);
    EXPECT_EQ(Rows(), (Texts{L"08", L"09", L"10"}));
    EXPECT_EQ(Arrow(0), Up);
    m_list.SortByClick(0);
    EXPECT_EQ(Rows(), (Texts{L"10", L"09", L"08"}));
    EXPECT_EQ(Arrow(0), Down);
    m_list.SortByClick(1);
    EXPECT_EQ(Rows(), (Texts{L"10", L"08", L"09"}));
    EXPECT_EQ(Arrow(1), Up);
    EXPECT_EQ(Arrow(0), -1);
    m_list.ForgetClicks();
    m_list.SortByClick(1);
    EXPECT_EQ(Arrow(1), Up) << "a second click would be down";
}

// A million rows may take a second.
TEST_F(RecordListTest, WhileAClickSortsTheHeaderShowsItAndTheCursorAsksToWait)
{
    struct Sight
    {
        HCURSOR cursor;
        int arrow;
        bool isPainted;
    };

    static HWND header;
    static Sight sight;
    header = m_list.GetHeaderCtrl();
    m_log.m_pfnCompareUp = [](LPARAM, LPARAM, LPARAM)
    {
        sight = {GetCursor(), ArrowOf(header, 1), !GetUpdateRect(header, nullptr, FALSE)};
        return 0;
    };
    Load(L"08|b|x\r\n10|a|x\r\n");
    const HCURSOR before = SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    m_list.SortByClick(1);
    EXPECT_EQ(sight.cursor, LoadCursorW(nullptr, IDC_WAIT));
    EXPECT_EQ(sight.arrow, Up);
    EXPECT_TRUE(sight.isPainted);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
    SetCursor(before);
}

TEST_F(RecordListTest, AClickWithoutALogMovesTheArrowAlone)
{
    m_list.RemoveLog();
    m_list.SortByClick(1);
    EXPECT_EQ(Arrow(1), Up);
}

TEST_F(RecordListTest, ADayThatCannotBeReadIsTracedAndHasNoRows)
{
    EXPECT_FALSE(m_list.LoadDay({2026, 11, 20, 0, 0, 0})) << "there is no provider";
    EXPECT_EQ(m_list.GetItemCount(), 0);
    EXPECT_EQ(m_trace.Errors().back(), L"*** CKestrixDlg::OnSelchangeLogDate() - m_pLogData->ReadLogDBMgr() failed.");
}

TEST_F(RecordListTest, TheSelectedRecordIsThatOfTheFirstSelectedRow)
{
    Load(L"08|b|x\r\n10|a|x\r\n");
    EXPECT_EQ(m_list.SelectedRecord(), nullptr);
    m_list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
    ASSERT_NE(m_list.SelectedRecord(), nullptr);
    EXPECT_EQ(m_list.SelectedRecord()->Field(0), L"08");
}

TEST_F(RecordListTest, ASelectedRowWithoutARecordIsTracedAndHasNone)
{
    LVITEMW item{};
    m_list.InsertItem(item);
    m_list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(m_list.SelectedRecord(), nullptr);
    EXPECT_EQ(m_trace.Errors(), Texts{L"CKestrixDlg::OnClickLogList() - pLogData is NULL."});
}

TEST_F(RecordListTest, RowsGoWithTheirLogAndColumnsWhenAsked)
{
    Load(L"08|b|x\r\n");
    m_list.RemoveLog();
    EXPECT_EQ(m_list.GetItemCount(), 0);
    EXPECT_EQ(m_list.SortHeader().GetItemCount(), 3);
    m_list.RemoveColumns();
    EXPECT_EQ(m_list.SortHeader().GetItemCount(), 0);
}

TEST_F(CellTest, TheThreeColumnsAnswerTheirTexts)
{
    EXPECT_EQ(Answer(&m_record, 0), L"08:00");
    EXPECT_EQ(Answer(&m_record, 1), L"first");
    EXPECT_EQ(Answer(&m_record, 2), L"threat");
}

TEST_F(CellTest, AColumnAboveTheHighestOfTheKindLeavesTheTextAsItWas)
{
    EXPECT_EQ(Answer(&m_record, 3), L"before");
}

TEST_F(CellTest, AColumnWithoutAFieldAnswersTheEmptyText)
{
    EXPECT_EQ(Answer(&m_record, 4), L"");
    const LogRec empty(&m_memory);
    EXPECT_EQ(Answer(&empty, 0), L"");
}

TEST_F(CellTest, ARecordWithAnImageAboveEightShowsNothing)
{
    m_record.nImage = 8;
    EXPECT_EQ(Answer(&m_record, 0), L"08:00");
    m_record.nImage = 9;
    EXPECT_EQ(Answer(&m_record, 0), L"before");
    m_record.nImage = 0xFFFFFFFF;
    EXPECT_EQ(Answer(&m_record, 0), L"before");
}

TEST_F(CellTest, WithoutTheTextFlagOrARecordOrALogNothingChanges)
{
    EXPECT_EQ(Answer(&m_record, 0, 300, LVIF_IMAGE | LVIF_STATE), L"before");
    EXPECT_EQ(Answer(nullptr, 0), L"before");
    m_list.RemoveLog();
    EXPECT_EQ(Answer(&m_record, 0), L"before");
}

TEST_F(CellTest, ASmallBufferGetsWhatFitsAndATerminator)
{
    EXPECT_EQ(Answer(&m_record, 2, 4), L"thr");
    EXPECT_EQ(Answer(&m_record, 2, 1), L"");
    EXPECT_EQ(Answer(&m_record, 2, 0), L"before");
}

TEST(ShortenDisplayText, ATextOf255CharactersIsLeftAlone)
{
    const std::wstring text(255, L'a');
    EXPECT_EQ(CRecordList::ShortenDisplayText(text), text);
    EXPECT_EQ(CRecordList::ShortenDisplayText({}), L"");
}

TEST(ShortenDisplayText, ATextOf256CharactersKeepsItsTwoEnds)
{
    const std::wstring text = std::wstring(128, L'a') + std::wstring(128, L'b');
    EXPECT_EQ(CRecordList::ShortenDisplayText(text), std::wstring(125, L'a') + L"....." + std::wstring(125, L'b'));
}

// A character beyond the first 65,536 is two units; half of one would show as a box.
TEST(ShortenDisplayText, ACutThatWouldPartASurrogatePairKeepsOneUnitLessOnThatSide)
{
    const std::wstring pair = L"\xD83D\xDE00";

    const struct
    {
        const char* name;
        std::wstring head; // 150 units, of which the first 125 are kept
        std::wstring tail; // 150 units, of which the last 125 are kept
        std::size_t headKept;
        std::size_t tailKept;
    } cases[] = {
        {"no pair", std::wstring(150, L'a'), std::wstring(150, L'b'), 125, 125},
        {"parted at the head", std::wstring(124, L'a') + pair + std::wstring(24, L'a'), std::wstring(150, L'b'), 124,
         125},
        {"parted at the tail", std::wstring(150, L'a'), std::wstring(24, L'b') + pair + std::wstring(124, L'b'), 125,
         124},
        {"parted on both sides", std::wstring(124, L'a') + pair + std::wstring(24, L'a'),
         std::wstring(24, L'b') + pair + std::wstring(124, L'b'), 124, 124},
        {"whole beside both cuts", std::wstring(123, L'a') + pair + std::wstring(25, L'a'),
         std::wstring(25, L'b') + pair + std::wstring(123, L'b'), 125, 125},
        {"halves without their others", std::wstring(125, L'a') + pair[1] + std::wstring(24, L'a'),
         std::wstring(24, L'b') + pair[0] + std::wstring(125, L'b'), 125, 125},
    };

    for (const auto& expected : cases)
    {
        ASSERT_EQ(expected.head.size(), 150u) << expected.name;
        ASSERT_EQ(expected.tail.size(), 150u) << expected.name;
        EXPECT_EQ(CRecordList::ShortenDisplayText(expected.head + expected.tail),
                  expected.head.substr(0, expected.headKept) + L"....." + expected.tail.substr(150 - expected.tailKept))
            << expected.name;
    }
}

// A letter of two bytes in the system's code page is one unit here, and so is a combining mark.
TEST(ShortenDisplayText, OtherCharactersAreNeverKeptBack)
{
    for (const wchar_t letter : {L'\x65E5', L'\x0416', L'\x0301', L'\xAC00'})
    {
        const std::wstring text(300, letter);
        EXPECT_EQ(CRecordList::ShortenDisplayText(text),
                  std::wstring(125, letter) + L"....." + std::wstring(125, letter));
    }
}
