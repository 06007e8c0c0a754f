// The page on the event-log database: its dates, loading a date, and what fails there.

#include "resource/resource.h"
#include "tests/support/ImportPatch.h"
#include "tests/ui/framework/ui/kestrix/app/DatabasePageTest.h"

#include <algorithm>

extern "C" decltype(&::SendMessageW) __imp_SendMessageW;

namespace
{

constexpr HRESULT Refused = static_cast<HRESULT>(0x80040201);
constexpr std::uint32_t VirusQuerySubType = 2;

using KestrixDlgDatabaseTest = DatabasePageTest;

std::wstring Record(const std::wstring& time, const std::wstring& threat)
{
    return L"x|" + time + L"|1048576|x|0|0|" + threat + L"|C:\\b|4|1|0|0|x";
}

// Listens to whether windows are told to paint themselves.
class RedrawListener
{
public:
    RedrawListener() : m_patch(__imp_SendMessageW, &Listen)
    {
        s_last = -1;
        s_original = m_patch.Original();
    }

    // The argument of the last WM_SETREDRAW; -1 when there was none.
    static int Last() { return s_last; }

private:
    static LRESULT WINAPI Listen(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        s_last = message == WM_SETREDRAW ? static_cast<int>(wParam) : s_last;
        return s_original(window, message, wParam, lParam);
    }

    static inline int s_last = -1;
    static inline decltype(&::SendMessageW) s_original = nullptr;

    ImportPatch<decltype(&::SendMessageW)> m_patch;
};

} // namespace

TEST_F(KestrixDlgDatabaseTest, ItsDatesStandInTheOrderOfTheProviderAndTheFirstIsLoaded)
{
    m_database.AddDay(2026, 11, 20);
    m_database.AddDay(2026, 11, 21);
    m_database.AddDay(2025, 1, 2);
    m_database.SetLines({Record(L"0900", L"beta"), Record(L"1000", L"alpha")});
    OpenPage();
    EXPECT_EQ(m_page.m_nInitResult, TRUE);
    EXPECT_EQ(Dates(), (Texts{DateText(2026, 11, 20), DateText(2026, 11, 21), DateText(2025, 1, 2)}));
    EXPECT_EQ(Item(IDC_DATE_LIST).SendMessage(LB_GETCURSEL), 0);
    EXPECT_EQ(Column(2), (Texts{L"alpha", L"beta"}));
    EXPECT_EQ(m_database.AskedFrom().wDay, 20);
    EXPECT_TRUE(CanExport());
    EXPECT_TRUE(CanDelete());
    EXPECT_TRUE(Item(IDC_SETTING).IsWindowEnabled());
}

TEST_F(KestrixDlgDatabaseTest, TheQueryForDaysIsAZeroedPeriodWithAOneBehindIt)
{
    m_database.AddDay(2026, 11, 20);
    OpenPage();
    ASSERT_FALSE(m_database.m_arrQuery.empty());
    const ProviderDouble::Query& query = m_database.m_arrQuery.front();
    EXPECT_EQ(query.kind, 2u);
    EXPECT_EQ(query.query, 2u);
    EXPECT_EQ(query.logSubType, VirusQuerySubType);
    EXPECT_EQ(query.resultBefore, nullptr);
    EXPECT_EQ(query.flags, 0u);
    std::vector<std::uint8_t> expected(42);
    expected[32] = 1;
    EXPECT_EQ(query.request, expected);
}

TEST_F(KestrixDlgDatabaseTest, ADateOnTheListIsLoadedWhenItIsSelected)
{
    m_database.AddDay(2026, 11, 20);
    m_database.AddDay(2024, 2, 29);
    OpenPage();
    m_database.SetLines({Record(L"0900", L"gamma")});
    SelectDate(1);
    EXPECT_EQ(m_database.AskedFrom().wYear, 2024);
    EXPECT_EQ(m_database.AskedFrom().wMonth, 2);
    EXPECT_EQ(m_database.AskedFrom().wDay, 29);
    EXPECT_EQ(Column(2), (Texts{L"gamma"}));
}

TEST_F(KestrixDlgDatabaseTest, ALogWithoutDatesStandsEmptyWithExportAndDeleteDisabledAndTellsNothing)
{
    OpenPage();
    EXPECT_EQ(m_page.m_nInitResult, TRUE);
    EXPECT_TRUE(m_page.IsWindowVisible());
    EXPECT_EQ(Dates(), Texts{});
    EXPECT_EQ(m_list.GetItemCount(), 0);
    EXPECT_FALSE(CanExport());
    EXPECT_FALSE(CanDelete());
    EXPECT_TRUE(m_boxes.Boxes().empty());
    EXPECT_TRUE(m_trace.Errors().empty());
    EXPECT_EQ(std::ranges::count(m_trace.Texts(), L"*** CKestrixDlg::FillDate() - No records output."), 1);
    EXPECT_EQ(m_database.CountOf(OrlQueryRecords), 0);
}

TEST_F(KestrixDlgDatabaseTest, ADateWithAnInvalidMonthIsLeftOut)
{
    m_database.AddDay(2026, 13, 1);
    m_database.AddDay(2026, 11, 20);
    m_database.AddDay(2026, 0, 1);
    m_database.AddDay(2026, 2, 30);
    m_database.AddDay(0, 0, 0);
    OpenPage();
    EXPECT_EQ(Dates(), Texts{DateText(2026, 11, 20)});
}

TEST_F(KestrixDlgDatabaseTest, EachDateIsTracedWithItsDigitsAndItsText)
{
    m_database.AddDay(2026, 3, 4);
    OpenPage();
    const Texts flow = m_trace.Texts(VdCommon::TraceLevel::Flow);
    EXPECT_EQ(std::ranges::count(flow, L"*** CKestrixDlg::ConvertSystemTimeToDateTimeString() - Converted Result: "
                                       L"_tsDateTime = 20260304000000"),
              1);
    EXPECT_EQ(std::ranges::count(flow, L"*** CKestrixDlg::FillDate() - Datetime string to be filled : " +
                                           DateText(2026, 3, 4)),
              1);
}

TEST_F(KestrixDlgDatabaseTest, AFormWithAReportListsNoDates)
{
    m_page.m_bLogOnly = false;
    m_database.AddDay(2026, 11, 20);
    OpenPage();
    EXPECT_EQ(Dates(), Texts{});
}

TEST_F(KestrixDlgDatabaseTest, AQueryForDaysThatFailsIsTracedAndLeavesTheListEmpty)
{
    m_database.AddDay(2026, 11, 20);
    m_database.m_daysStatus = Refused;
    OpenPage();
    EXPECT_EQ(Dates(), Texts{});
    EXPECT_EQ(ErrorCount(L"*** CKestrixDlg::FillDate() - m_pIDBManagerProvider->QueryValue() failed. [0x80040201]"), 1);
    EXPECT_FALSE(CanExport());
}

TEST_F(KestrixDlgDatabaseTest, AnAnswerWithoutDaysIsTracedAndLeavesTheListEmpty)
{
    m_database.m_givesNoDays = true;
    OpenPage();
    EXPECT_EQ(Dates(), Texts{});
    EXPECT_EQ(ErrorCount(L"*** CKestrixDlg::FillDate() - pvecLogDate is NULL."), 1);
}

TEST_F(KestrixDlgDatabaseTest, WithoutAProviderThePageStaysEmpty)
{
    m_app.m_pIDBManagerProvider = nullptr;
    OpenPage();
    EXPECT_EQ(m_page.m_nInitResult, FALSE);
    EXPECT_TRUE(m_page.IsWindowVisible());
    EXPECT_EQ(Dates(), Texts{});
    EXPECT_EQ(ErrorCount(L"*** CKestrixDlg::OnInitDialog() - m_pIDBManagerProvider is NULL."), 1);
    EXPECT_EQ(Item(IDC_LOG_TYPE).SendMessage(CB_GETCOUNT), 0);
    SelectDate(0);
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(KestrixDlgDatabaseTest, WithoutAHostThereIsNoProvider)
{
    m_page.m_pHost = nullptr;
    OpenPage();
    EXPECT_EQ(m_page.m_nInitResult, FALSE);
    EXPECT_EQ(ErrorCount(L"*** CKestrixDlg::OnInitDialog() - m_pIDBManagerProvider is NULL."), 1);
}

TEST_F(KestrixDlgDatabaseTest, ADayThatFailsToLoadIsTracedAndTheListPaintsAgainWithTheNextDayThatLoads)
{
    m_database.AddDay(2026, 11, 20);
    m_database.AddDay(2026, 11, 19);
    m_database.SetLines({Record(L"0900", L"beta")});
    OpenPage();
    const RedrawListener redraw;
    m_database.m_linesStatus = Refused;
    SelectDate(1);
    EXPECT_EQ(ErrorCount(L"*** CKestrixDlg::OnSelchangeLogDate() - m_pLogData->ReadLogDBMgr() failed."), 1);
    EXPECT_EQ(m_list.GetItemCount(), 0);
    EXPECT_EQ(redraw.Last(), FALSE);
    EXPECT_TRUE(CanExport()) << "the date is selected all the same";

    m_database.m_linesStatus = 0x00040200;
    SelectDate(0);
    EXPECT_EQ(m_list.GetItemCount(), 1);
    EXPECT_EQ(redraw.Last(), TRUE);
}

TEST_F(KestrixDlgDatabaseTest, ATextThatIsNoDateEmptiesTheListAndDisablesExport)
{
    m_database.AddDay(2026, 11, 20);
    m_database.SetLines({Record(L"0900", L"beta")});
    OpenPage();
    Item(IDC_DATE_LIST).SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(L"no date"));
    SelectDate(1);
    EXPECT_EQ(m_list.GetItemCount(), 0);
    EXPECT_FALSE(CanExport());
    EXPECT_TRUE(CanDelete());
    EXPECT_EQ(m_database.CountOf(OrlQueryRecords), 1);
}

TEST_F(KestrixDlgDatabaseTest, WithoutASelectedDateExportAndDeleteAreDisabled)
{
    m_database.AddDay(2026, 11, 20);
    OpenPage();
    ASSERT_TRUE(CanDelete());
    SelectDate(-1);
    EXPECT_FALSE(CanExport());
    EXPECT_FALSE(CanDelete());
}
