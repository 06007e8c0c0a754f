#include "framework/ui/kestrix/app/ReportSpan.h"

#include "framework/ui/kestrix/app/Kestrix.h"
#include "tests/support/ImportPatch.h"
#include "tests/ui/framework/ui/kestrix/app/ControllerTest.h"

#include <oleauto.h>

extern "C" decltype(&::SafeArrayDestroy) __imp_SafeArrayDestroy;

namespace
{

int g_nDestroyed = 0; // arrays

HRESULT WINAPI CountDestroyed(SAFEARRAY*)
{
    ++g_nDestroyed;
    return S_OK;
}

class ReportSpanTest : public ControllerTest
{
protected:
    // The profile answers with numbers of this type, one an element.
    void AnswerWith(std::vector<LONG> numbers, VARTYPE type = VT_UI4)
    {
        m_controller.m_onQuery = [numbers, type](ULONG, LPSAFEARRAY* array)
        {
            for (LONG i = 0; i < static_cast<LONG>(numbers.size()); ++i)
            {
                VARIANT element{};
                element.vt = type;
                element.lVal = numbers[static_cast<std::size_t>(i)];
                SafeArrayPutElement(*array, &i, &element);
            }
            return S_OK;
        };
    }

    std::uint32_t SpanOf(LONG frequency)
    {
        AnswerWith({frequency, 1, 2});
        return QueryReportSpan();
    }

    Texts Leave(const wchar_t* values) const
    {
        return {L"[Enter] CKestrixApp::GetReportSpan()...", std::wstring(L"pProfile->QueryValue() ") + values,
                L"[Leave] CKestrixApp::GetReportSpan()..."};
    }
};

} // namespace

TEST_F(ReportSpanTest, AsksTheActiveProfileForTheReportSettings)
{
    EXPECT_EQ(SpanOf(12), 12u);
    EXPECT_EQ(m_controller.m_calls, (Texts{L"CreateInstance", L"GetActiveProfile", L"QueryValue 112 1 0 0 0 of 3"}));
    EXPECT_EQ(m_trace.Texts(), Leave(L"Fre[12], AlertFlag[1]"));
    EXPECT_EQ(m_controller.References(), 0);
}

TEST_F(ReportSpanTest, TheArrayThatWasFilledIsDestroyedOnce)
{
    AnswerWith({12, 1, 2});
    const ImportPatch<decltype(&::SafeArrayDestroy)> destroy(__imp_SafeArrayDestroy, &CountDestroyed);
    g_nDestroyed = 0;
    QueryReportSpan();
    EXPECT_EQ(g_nDestroyed, 1);
}

TEST_F(ReportSpanTest, TwoAndThirtyOneGiveSevenWhileThreeAndThirtyAreKept)
{
    EXPECT_EQ(SpanOf(2), 7u);
    EXPECT_EQ(SpanOf(3), 3u);
    EXPECT_EQ(SpanOf(30), 30u);
    EXPECT_EQ(SpanOf(31), 7u);
    EXPECT_EQ(SpanOf(0), 7u);
    EXPECT_EQ(SpanOf(-1), 7u);
}

TEST_F(ReportSpanTest, ANumberOfAnotherTypeReadsAsZeroAndEndsTheReading)
{
    AnswerWith({12, 5, 2}, VT_I4);
    EXPECT_EQ(QueryReportSpan(), 7u);
    EXPECT_EQ(m_trace.Errors(), Texts{L"*** VariantArray::GetValue() - Specified element was not VT_UI4."});
    EXPECT_EQ(m_trace.Texts().end()[-2], L"pProfile->QueryValue() Fre[0], AlertFlag[0]");
}

TEST_F(ReportSpanTest, AReadThatFailsAfterTheFrequencyLeavesTheFrequency)
{
    AnswerWith({12}); // the two others stay empty
    EXPECT_EQ(QueryReportSpan(), 12u);
    EXPECT_EQ(m_trace.Texts().end()[-2], L"pProfile->QueryValue() Fre[12], AlertFlag[0]");
}

TEST_F(ReportSpanTest, AProfileThatTakesTheArrayAwayGivesSeven)
{
    m_controller.m_onQuery = [](ULONG, LPSAFEARRAY* array)
    {
        SafeArrayDestroy(*array);
        *array = nullptr;
        return S_OK;
    };
    EXPECT_EQ(QueryReportSpan(), 7u);
}

TEST_F(ReportSpanTest, AProfileMayReplaceTheArrayByAShorterOne)
{
    m_controller.m_onQuery = [](ULONG, LPSAFEARRAY* array)
    {
        SafeArrayDestroy(*array);
        *array = SafeArrayCreateVector(VT_VARIANT, 0, 1);
        LONG first = 0;
        VARIANT element{};
        element.vt = VT_UI4;
        element.ulVal = 9;
        return SafeArrayPutElement(*array, &first, &element);
    };
    EXPECT_EQ(QueryReportSpan(), 9u);
}

TEST_F(ReportSpanTest, TheResultOfTheQueryIsNotLookedAt)
{
    m_controller.Fail(Step::Query, Refused);
    EXPECT_EQ(QueryReportSpan(), 7u);
    EXPECT_EQ(m_trace.Texts().back(), L"[Leave] CKestrixApp::GetReportSpan()...");
}

TEST_F(ReportSpanTest, WithoutAControllerTheSpanIsSeven)
{
    m_controller.Fail(Step::Create, Refused);
    EXPECT_EQ(QueryReportSpan(), 7u);
    m_controller.GiveNothing(Step::Create);
    EXPECT_EQ(QueryReportSpan(), 7u);
    EXPECT_EQ(m_trace.Errors(), (Texts(2, L"pLocalController.CoCreateInstance() failed.")));
}

TEST_F(ReportSpanTest, WithoutAnActiveProfileTheSpanIsSeven)
{
    m_controller.Fail(Step::Profile, Refused);
    EXPECT_EQ(QueryReportSpan(), 7u);
    m_controller.GiveNothing(Step::Profile);
    EXPECT_EQ(QueryReportSpan(), 7u);
    EXPECT_EQ(m_trace.Errors(), (Texts(2, L"pLocalController->GetActiveProfile() failed.")));
}

TEST_F(ReportSpanTest, TheCommandLinesNumberIsNotTheSpan)
{
    AnswerWith({12, 0, 0});
    CKestrixApp app;
    app.m_strCmdLine = L"LocalLog%|1%|%|%|%|20";
    ASSERT_TRUE(app.ParseCommandLine());
    EXPECT_EQ(app.m_nReportSpan, 12u);
}
