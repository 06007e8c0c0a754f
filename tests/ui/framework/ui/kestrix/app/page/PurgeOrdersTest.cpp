#include "framework/ui/kestrix/app/page/PurgeOrders.h"

#include "tests/support/ImportPatch.h"
#include "tests/ui/framework/ui/kestrix/app/ControllerTest.h"
#include "tests/ui/framework/ui/kestrix/app/SentArrays.h"

#include <oleauto.h>

#include <algorithm>
#include <thread>

extern "C" decltype(&::SafeArrayPutElement) __imp_SafeArrayPutElement;

namespace
{

HRESULT WINAPI RefuseElement(SAFEARRAY*, LONG*, void*)
{
    return E_OUTOFMEMORY;
}

// A moment that a failed call is to leave alone.
constexpr SYSTEMTIME Untouched{1, 2, 3, 4, 5, 6, 7, 8};

bool IsUntouched(const SYSTEMTIME& time)
{
    return time.wYear == 1 && time.wMonth == 2 && time.wDayOfWeek == 3 && time.wDay == 4 && time.wHour == 5;
}

std::wstring RegionsText(WORD year, WORD month, WORD day)
{
    const SYSTEMTIME time{year, month, 0, day, 0, 0, 0, 0};
    DATE date = 0;
    BSTR text = nullptr;
    ::SystemTimeToVariantTime(const_cast<SYSTEMTIME*>(&time), &date);
    ::VarBstrFromDate(date, LOCALE_USER_DEFAULT, VAR_DATEVALUEONLY, &text);
    const std::wstring copy = text;
    ::SysFreeString(text);
    return copy;
}

class PurgeOrdersTest : public ControllerTest
{
protected:
    bool Order(const ListedDay& day = {L"", 20261114}) { return OrderPurge(7, day); }

    // Runs it on a thread whose apartment is none of the user interface's.
    static void OnThreadOfManyApartments(const std::function<void()>& run)
    {
        std::thread(
            [&]
            {
                ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);
                run();
                ::CoUninitialize();
            })
            .join();
    }

    bool Traced(const std::wstring& text) const { return std::ranges::count(m_trace.Texts(), text) == 1; }

    const SentArrays m_sent{m_controller};
};

} // namespace

TEST_F(PurgeOrdersTest, SettingsGoToTheActiveProfileAsTwoNumbers)
{
    StorePurgeSettings(45, 1);
    EXPECT_EQ(m_controller.m_calls, (Texts{L"CreateInstance", L"GetActiveProfile", L"SetValue 113 2 0 0 0 of 2"}));
    EXPECT_EQ(m_sent.All(), (std::vector<SentArray>{{{VT_UI4, 45}, {VT_UI4, 1}}}));
    EXPECT_EQ(m_trace.Texts(), Texts{L"CKestrixDlg::OnBnClickedBtnSetting Set Event Log purge frequency[45], Flag[1]"});
    EXPECT_EQ(m_controller.References(), 0);
}

TEST_F(PurgeOrdersTest, TheResultOfSetValueIsNotLookedAt)
{
    m_controller.Fail(Step::Set, Refused);
    StorePurgeSettings(7, 0);
    EXPECT_EQ(m_trace.Texts(), Texts{L"CKestrixDlg::OnBnClickedBtnSetting Set Event Log purge frequency[7], Flag[0]"});
}

TEST_F(PurgeOrdersTest, SettingsStopAtTheFirstStepThatFailsAndTraceIt)
{
    const struct
    {
        Step step;
        HRESULT status; // S_OK: success and nothing
        const wchar_t* error;
    } cases[] = {
        {Step::Create, Refused, L"pLocalController.CoCreateInstance() failed."},
        {Step::Create, S_OK, L"pLocalController.CoCreateInstance() failed."},
        {Step::Profile, Refused, L"pLocalController->GetActiveProfile() failed. [0x80040201]"},
        {Step::Profile, S_OK, L"pLocalController->GetActiveProfile() failed. [0x00000000]"},
    };

    for (const auto& each : cases)
    {
        m_trace.Clear();
        m_controller.Fail(each.step, each.status);
        StorePurgeSettings(7, 1);
        EXPECT_EQ(m_trace.Texts(), Texts{each.error});
        m_controller.Work(each.step);
    }
    EXPECT_TRUE(m_sent.All().empty());
}

TEST_F(PurgeOrdersTest, SettingsThatDoNotFitTheArrayAreNotSent)
{
    const ImportPatch patch(__imp_SafeArrayPutElement, &RefuseElement);
    StorePurgeSettings(7, 1);
    EXPECT_TRUE(Traced(L"ComPrfEvtLogSet::SetPrfEvtLogtSet() failed."));
    EXPECT_TRUE(m_sent.All().empty());
    EXPECT_EQ(m_controller.m_calls.back(), L"GetActiveProfile");
}

TEST_F(PurgeOrdersTest, OnAThreadOfAnotherApartmentNothingIsAsked)
{
    bool ordered = false;
    OnThreadOfManyApartments([] { StorePurgeSettings(7, 1); });
    OnThreadOfManyApartments([&] { ordered = Order(); });
    EXPECT_EQ(m_trace.Texts(), Texts(2, L"  Failed to CoInitialize: [0x80010106]"));
    EXPECT_TRUE(m_controller.m_calls.empty());
    EXPECT_TRUE(ordered);
}

TEST_F(PurgeOrdersTest, AnOrderIsACommandOfThreeNumbers)
{
    EXPECT_TRUE(Order());
    EXPECT_EQ(m_controller.m_calls, (Texts{L"CreateInstance", L"DoCommand 22 1 0 0 1 of 3"}));
    EXPECT_EQ(m_sent.All(), (std::vector<SentArray>{{{VT_UI4, 20261114}, {VT_UI4, 0}, {VT_UI4, 7}}}));
    EXPECT_EQ(m_trace.Texts(), Texts{L"Log Purge type[7], time[20261114]"});
    EXPECT_EQ(m_controller.References(), 0);
}

TEST_F(PurgeOrdersTest, ARefusedOrderIsTraced)
{
    m_controller.Fail(Step::Command, Refused);
    EXPECT_TRUE(Order());
    EXPECT_EQ(m_trace.Errors(), Texts{L"  Failed to DoCommand: [0x80040201]"});
}

TEST_F(PurgeOrdersTest, WithoutAServiceTheOrderIsTracedAndTheDayNotLookedAt)
{
    m_controller.Fail(Step::Create, Refused);
    EXPECT_TRUE(Order({L"no date", NoDay}));
    EXPECT_EQ(m_trace.Texts(), Texts{L"  Failed to CoCreateInstance: [0x80040201]"});
}

TEST_F(PurgeOrdersTest, AnOrderThatDoesNotFitTheArrayIsNotSent)
{
    const ImportPatch patch(__imp_SafeArrayPutElement, &RefuseElement);
    EXPECT_TRUE(Order());
    EXPECT_EQ(m_controller.m_calls, Texts{L"CreateInstance"});
}

TEST_F(PurgeOrdersTest, AnOrderLeavesTheApartmentAsItWas)
{
    HRESULT after = S_OK;
    std::thread(
        [&]
        {
            Order();
            APTTYPE type{};
            APTTYPEQUALIFIER qualifier{};
            after = ::CoGetApartmentType(&type, &qualifier);
        })
        .join();
    EXPECT_EQ(after, CO_E_NOTINITIALIZED);
}

// Day and month stand the other way round in such a text.
TEST_F(PurgeOrdersTest, TheDayThatAnEntryCarriesGoesBeforeItsText)
{
    EXPECT_TRUE(Order({RegionsText(2026, 5, 3), 20260305}));
    EXPECT_TRUE(Order({L"14. 11. 2026.", 20261114}));
    EXPECT_EQ(m_sent.Dates(), (std::vector<ULONG>{20260305, 20261114}));
}

TEST_F(PurgeOrdersTest, AnEntryThatCarriesNoDayIsReadFromItsText)
{
    EXPECT_TRUE(Order({RegionsText(2026, 11, 14), NoDay}));
    EXPECT_TRUE(Order({RegionsText(2025, 12, 31), static_cast<DayNumber>(-1)})) << "an entry that does not exist";
    EXPECT_EQ(m_sent.Dates(), (std::vector<ULONG>{20261114, 20251231}));
}

TEST_F(PurgeOrdersTest, ADateTextThatTheLocaleCannotReadGivesFalseAndNoCommand)
{
    EXPECT_FALSE(Order({L"no date", NoDay}));
    EXPECT_EQ(m_trace.Texts(), (Texts{L"GetPurgeSystemTime : Failed to ParseDateTime: [0x80020005]",
                                      L"  Failed to GetPurgeSystemTime: [no date]"}));
    EXPECT_EQ(m_controller.m_calls, Texts{L"CreateInstance"});
}

TEST_F(PurgeOrdersTest, ATextIsTheStartOfItsDay)
{
    SYSTEMTIME time = Untouched;
    ASSERT_TRUE(GetPurgeSystemTime((RegionsText(2026, 11, 14) + L" 06:12:04").c_str(), time));
    EXPECT_EQ(DayNumberOf(time), 20261114u);
    EXPECT_EQ(time.wDayOfWeek, 0);
    EXPECT_EQ(time.wHour, 0);
    EXPECT_EQ(time.wMinute, 0);
    EXPECT_EQ(time.wSecond, 0);
    EXPECT_EQ(time.wMilliseconds, 0);
    EXPECT_TRUE(m_trace.Texts().empty());
}

TEST_F(PurgeOrdersTest, ATextThatIsNoDateOrNullLeavesTheMomentAlone)
{
    SYSTEMTIME time = Untouched;
    EXPECT_FALSE(GetPurgeSystemTime(nullptr, time));
    EXPECT_FALSE(GetPurgeSystemTime(L"", time));
    EXPECT_FALSE(GetPurgeSystemTime(L"2026-02-30", time));
    EXPECT_TRUE(IsUntouched(time));
    EXPECT_EQ(m_trace.Errors(), (Texts{L"GetPurgeSystemTime : Invalid pram:",
                                       L"GetPurgeSystemTime : Failed to ParseDateTime: [0x80020005]",
                                       L"GetPurgeSystemTime : Failed to ParseDateTime: [0x80020005]"}));
}
