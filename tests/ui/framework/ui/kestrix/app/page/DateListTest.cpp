#include "framework/ui/kestrix/app/page/DateList.h"

#include "platform/dialog/Exceptions.h"
#include "platform/dialog/OleDateTime.h"
#include "resource/resource.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/PlainLog.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/DatabaseDouble.h"
#include "tests/ui/framework/ui/kestrix/app/page/PartWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{

constexpr std::uint32_t AnySpan = 1'000'000; // days

class DateListTest : public ::testing::Test
{
protected:
    DateListTest()
    {
        m_window.Add(WC_LISTBOXW, IDC_DATE_LIST, LBS_NOTIFY, {0, 0, 200, 200});
        m_list.SubclassDlgItem(IDC_DATE_LIST, m_window);
    }

    void FillFromDatabase(bool all = true) { m_list.Fill({m_log, true, &m_database, m_path, all, AnySpan}); }

    void FillFromFiles(bool all = true, std::uint32_t span = AnySpan)
    {
        m_path = m_folder.File(L"*.VLG");
        m_list.Fill({m_log, false, nullptr, m_path, all, span});
    }

    void MakeFiles(std::initializer_list<const wchar_t*> names) const
    {
        for (const wchar_t* name : names)
        {
            WriteBytes(m_folder.File(name), "x");
        }
    }

    // The days as YYYYMMDD, as the entries would load them.
    std::vector<int> Days()
    {
        std::vector<int> days;
        for (int i = 0; i < m_list.GetCount(); ++i)
        {
            m_list.SetCurSel(i);
            COleDateTime date;
            SYSTEMTIME day{};
            EXPECT_TRUE(m_list.GetSelectedDate(date) && date.GetAsSystemTime(day)) << i;
            days.push_back(day.wYear * 10'000 + day.wMonth * 100 + day.wDay);
        }
        return days;
    }

    bool Traced(const std::wstring& text) const { return std::ranges::count(m_trace.Texts(), text) != 0; }

    const LanguageFile m_language;
    const TemporaryFolder m_folder;
    const TraceRecorder m_trace;
    DatabaseDouble m_database;
    PlainLog m_log;
    std::wstring m_path;
    PartWindow m_window;
    CDateList m_list;
};

} // namespace

TEST_F(DateListTest, TheDaysOfTheDatabaseStandInItsOrderInPlaceOfThoseBefore)
{
    FillFromDatabase();
    EXPECT_EQ(Days(), std::vector<int>{});
    m_database.AddDay(2026, 11, 19);
    m_database.AddDay(2026, 11, 20);
    m_database.AddDay(2025, 12, 31);
    FillFromDatabase();
    FillFromDatabase();
    EXPECT_EQ(Days(), (std::vector<int>{20261119, 20261120, 20251231}));
    EXPECT_TRUE(Traced(L"[Leave] CKestrixDlg::FillDate()"));
}

TEST_F(DateListTest, ADayWithAnInvalidMonthIsLeftOut)
{
    m_database.AddDay(2026, 13, 1);
    m_database.AddDay(2026, 11, 20);
    FillFromDatabase();
    EXPECT_EQ(Days(), std::vector<int>{20261120});
}

TEST_F(DateListTest, AFormWithAReportListsNoDayOfTheDatabase)
{
    m_database.AddDay(2026, 11, 20);
    FillFromDatabase(false);
    EXPECT_EQ(Days(), std::vector<int>{});
}

TEST_F(DateListTest, WithoutAProviderTheListIsEmptyAndTheReasonTraced)
{
    m_database.AddDay(2026, 11, 20);
    FillFromDatabase();
    m_list.Fill({m_log, true, nullptr, m_path, true, AnySpan});
    EXPECT_EQ(Days(), std::vector<int>{});
    EXPECT_EQ(m_trace.Errors(),
              std::vector<std::wstring>{L"*** CKestrixDlg::FillDate() - m_pIDBManagerProvider is NULL."});
}

TEST_F(DateListTest, TheDaysOfFilesStandNewestFirst)
{
    MakeFiles({L"20261119.VLG", L"20270101.VLG", L"20260230.VLG", L"20251231.VLG", L"2026112.VLG"});
    FillFromFiles();
    EXPECT_EQ(Days(), (std::vector<int>{20270101, 20261119, 20251231}));
    EXPECT_TRUE(Traced(L"strPath: " + m_path));
}

TEST_F(DateListTest, AFormWithAReportListsTheFilesOfItsSpanAlone)
{
    SYSTEMTIME today{};
    GetLocalTime(&today);
    const int number = today.wYear * 10'000 + today.wMonth * 100 + today.wDay;
    MakeFiles({(std::to_wstring(number) + L".VLG").c_str(), L"20200101.VLG"});
    FillFromFiles(false, 7);
    EXPECT_EQ(Days(), std::vector<int>{number});
}

// All files were looked at before the first day was listed, so that the trace told of files after the one at which
// the search had ended.
TEST_F(DateListTest, AFileWhoseDayCannotBeCountedEndsTheListAndTheDaysBeforeItStay)
{
    MakeFiles({L"20201119.VLG", L"20201120.VLG", L"30010101.VLG", L"30010102.VLG"});
    EXPECT_THROW(FillFromFiles(false), CAtlException);
    EXPECT_EQ(Days(), (std::vector<int>{20201120, 20201119}));
    EXPECT_TRUE(Traced(L"log filename[30010101.VLG]"));
    EXPECT_FALSE(Traced(L"log filename[30010102.VLG]"));
    EXPECT_FALSE(Traced(L"[Leave] CKestrixDlg::FillDate()"));
}

TEST_F(DateListTest, NothingSelectedIsNoDateAndNoText)
{
    m_database.AddDay(2026, 11, 20);
    FillFromDatabase();
    COleDateTime date;
    EXPECT_FALSE(m_list.GetSelectedDate(date));
    EXPECT_EQ(m_list.SelectedText(), L"");
    m_list.SetCurSel(0);
    EXPECT_TRUE(m_list.GetSelectedDate(date));
    EXPECT_EQ(m_list.SelectedText(), m_list.GetText(0));
}

TEST_F(DateListTest, ATextThatIsNoDateSelectsNone)
{
    m_list.SetCurSel(m_list.AddString(L"no date"));
    COleDateTime date;
    EXPECT_FALSE(m_list.GetSelectedDate(date));
}

TEST_F(DateListTest, ALogThatTheDatabaseDoesNotKnowIsTracedAndNotAskedFor)
{
    PlainLog strange(0, 1, LogTypeNone);
    m_database.AddDay(2026, 11, 20);
    m_list.Fill({strange, true, &m_database, m_path, true, AnySpan});
    EXPECT_TRUE(Traced(L"*** CKestrixDlg::FillDate() - m_pLogData->GetQueryValueSubType() failed."));
    EXPECT_EQ(m_database.CountOf(OrlQueryDays), 0);
    EXPECT_EQ(m_list.GetCount(), 0);
}
