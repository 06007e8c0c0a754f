// The labels of a form with a report: since when the events count.

#include "platform/dialog/Exceptions.h"
#include "resource/resource.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TraceRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/FormTest.h"

#include <ctime>

namespace
{

constexpr wchar_t EventLogKey[] = L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";

// The days of the page reach back far enough for the file of the test.
class LogFormReportTest : public FormTest
{
protected:
    LogFormReportTest()
    {
        m_form.m_bLogOnly = false;
        m_form.m_nReportSpan = 10'000;
        m_registry.SetText(L"Software\\Veldrane\\Zeptara", L"InstalledFolder", m_folder.Path().wstring());
    }

    std::wstring TotalLabel()
    {
        std::wstring text;
        m_form.Run({[&] { text = m_form.Item(IDC_FORM_REPORT_TOTAL).GetWindowText(); }});
        return text;
    }

    // The second label with a date this many days back.
    static std::wstring TotalSince(int daysBack)
    {
        const std::time_t then = std::time(nullptr) - daysBack * 86'400;
        wchar_t date[128]{};
        std::wcsftime(date, std::size(date), LoadText(IDS_REPORT_DATE).c_str(), std::localtime(&then));
        return L"0 events since " + std::wstring(date);
    }

    void Install(const SYSTEMTIME& time)
    {
        const auto* const bytes = reinterpret_cast<const BYTE*>(&time);
        m_registry.SetBytes(EventLogKey, L"InstallTime", {bytes, bytes + sizeof time});
    }

    const RegistrySandbox m_registry;
    const TraceRecorder m_trace;
};

} // namespace

TEST_F(LogFormReportTest, TheReportCountsFromTheFirstDayOfItsPeriod)
{
    EXPECT_EQ(TotalLabel(), TotalSince(6));
}

// The second line was missing: a read that fails leaves no bytes.
TEST_F(LogFormReportTest, AnInstallationTimeThatCannotBeReadIsTracedAsAFailureAndAsSizeZero)
{
    TotalLabel();
    EXPECT_EQ(m_trace.Errors(), (std::vector<std::wstring>{L"VdCommon::Storage::Reg::QueryValue() failed: 0x00000002",
                                                           L"size of byte_array is invalid: 0"}));
}

TEST_F(LogFormReportTest, APeriodBelow3OrAbove30DaysCountsAs7)
{
    for (const auto& [frequency, days] : {std::pair{2u, 7}, {3u, 3}, {30u, 30}, {31u, 7}, {0u, 7}})
    {
        m_registry.SetNumber(EventLogKey, L"GenReportFrequency", frequency);
        EXPECT_EQ(TotalLabel(), TotalSince(days - 1)) << frequency;
    }
}

TEST_F(LogFormReportTest, AnInstallationWithinThePeriodIsItsBeginning)
{
    SYSTEMTIME time{};
    const std::time_t then = std::time(nullptr) - 2 * 86'400;
    const std::tm fields = *std::localtime(&then);
    time.wYear = static_cast<WORD>(fields.tm_year + 1900);
    time.wMonth = static_cast<WORD>(fields.tm_mon + 1);
    time.wDay = static_cast<WORD>(fields.tm_mday);
    time.wHour = 12;
    Install(time);
    EXPECT_EQ(TotalLabel(), TotalSince(2));
    time.wYear = 2001;
    Install(time);
    EXPECT_EQ(TotalLabel(), TotalSince(6));
}

TEST_F(LogFormReportTest, AnInstallationInTheFutureIsTheBeginningToo)
{
    Install({2126, 11, 0, 21, 12, 0, 0, 0});
    EXPECT_EQ(TotalLabel(), L"0 events since 2126-11-21");
}

TEST_F(LogFormReportTest, AnInstallationTimeOfAnotherSizeIsTracedAndLeftOut)
{
    std::vector<std::wstring> errors;
    for (const std::size_t size : {3u, 15u, 17u})
    {
        m_registry.SetBytes(EventLogKey, L"InstallTime", std::vector<BYTE>(size, 7));
        EXPECT_EQ(TotalLabel(), TotalSince(6));
        errors.push_back(L"size of byte_array is invalid: " + std::to_wstring(size));
    }
    EXPECT_EQ(m_trace.Errors(), errors);
}

TEST_F(LogFormReportTest, AnInstallationTimeThatIsNoneIsToldWithItsErrorAndThereIsNoForm)
{
    const std::wstring told = ExceptionText(std::make_exception_ptr(CAtlException(static_cast<HRESULT>(0x80004005))));
    for (const SYSTEMTIME& time : {SYSTEMTIME{1899, 12, 0, 31, 0, 0, 0, 0},
                                   {2026, 0, 0, 1, 0, 0, 0, 0},
                                   {2026, 13, 0, 1, 0, 0, 0, 0},
                                   {2026, 11, 0, 0, 0, 0, 0, 0},
                                   {2026, 11, 0, 31, 0, 0, 0, 0}})
    {
        const std::size_t before = m_boxes.Boxes().size();
        Install(time);
        EXPECT_EQ(m_form.Run({}), -1) << time.wYear << " " << time.wMonth << " " << time.wDay;
        ASSERT_EQ(m_boxes.Boxes().size(), before + 1);
        EXPECT_EQ(m_boxes.Boxes().back().text, told);
    }
}
