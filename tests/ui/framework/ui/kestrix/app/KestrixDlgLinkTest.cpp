// The link of a threat: what opens, and when nothing does.

#include "resource/resource.h"
#include "tests/support/ChangedLanguageFile.h"
#include "tests/support/ControllerDouble.h"
#include "tests/support/OleApartment.h"
#include "tests/support/StartRecorder.h"
#include "tests/support/TraceRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

#include <algorithm>

namespace
{

constexpr auto LinkRefused = static_cast<HRESULT>(0x80040201);

using Start = StartRecorder::Start;

// The page with a record of this threat selected.
class KestrixDlgLinkTest : public PageTest
{
protected:
    void OpenWith(const std::wstring& threat)
    {
        OpenDay({L"x|0900|1048576|x|0|0|" + threat + L"|C:\\b|4|1|0|0"});
        Item(IDC_INFO_VALUE_0_LINK).SetWindowText(threat);
    }

    void ClickLink() { ClickControl(IDC_INFO_VALUE_0_LINK); }

    // What the service answers to the question for a connection: one element of this type.
    void AnswerWith(VARTYPE type, VARIANT_BOOL value)
    {
        m_controller.m_onQuery = [=](ULONG, LPSAFEARRAY* array)
        {
            SAFEARRAYBOUND bound{1, 0};
            *array = SafeArrayCreate(VT_VARIANT, 1, &bound);
            VARIANT element{};
            element.vt = type;
            element.boolVal = value;
            LONG index = 0;
            return SafeArrayPutElement(*array, &index, &element);
        };
    }

    long CountOfError(const std::wstring& text) const { return std::ranges::count(m_trace.Errors(), text); }

    static std::wstring AddressOf(const std::wstring& name)
    {
        std::wstring address = LoadText(IDS_THREAT_ADDRESS);
        return address.replace(address.find(L"%s"), 2, name);
    }

    const OleApartment m_apartment;
    ControllerDouble m_controller;
    const TraceRecorder m_trace;
    StartRecorder m_starts;
};

} // namespace

TEST_F(KestrixDlgLinkTest, AClickStartsTheBrowserWithTheAddressOfTheThreat)
{
    OpenWith(L"Trojan.Some-Name_7");
    AnswerWith(VT_BOOL, VARIANT_TRUE);
    ClickLink();
    EXPECT_EQ(m_starts.Starts(),
              (std::vector<Start>{{L"open", L"iexplore.exe", AddressOf(L"Trojan.Some-Name_7"), SW_SHOWNORMAL}}));
    for (const wchar_t* const text : {L"Click Link String Edit", L"[Enter] CKestrixDlg::ChkInternetConnect",
                                      L"[CKestrixDlg::ChkInternetConnect()] internet connection status = (1)",
                                      L"[Leave] CKestrixDlg::ChkInternetConnect"})
    {
        EXPECT_EQ(std::ranges::count(m_trace.Texts(), text), 1) << std::filesystem::path(text);
    }
    EXPECT_EQ(m_controller.m_calls.back(), L"QueryValue 39 4 0 0 0 of 0");
}

// The text went to the C library as it was: %n wrote to an address that nobody had given, and the viewer was gone.
TEST_F(KestrixDlgLinkTest, AnAddressTextWithOtherPlacesThanOneForTheNameOpensAllTheSame)
{
    ChangedLanguageFile changed;
    changed.SetText(IDS_THREAT_ADDRESS, L"https://www.example.com/?name=%s%s%n%d");
    const LanguageFile language(changed.Path());
    OpenWith(L"Worm");
    ClickLink();
    EXPECT_EQ(m_starts.Starts(),
              (std::vector<Start>{{L"open", L"iexplore.exe", L"https://www.example.com/?name=Worm", SW_SHOWNORMAL}}));
}

TEST_F(KestrixDlgLinkTest, ABrowserThatDoesNotStartIsReplacedByWhateverOpensAnAddress)
{
    OpenWith(L"Worm");
    m_starts.m_nResult = 2;
    ClickLink();
    ASSERT_EQ(m_starts.Starts().size(), 2u);
    EXPECT_EQ(m_starts.Starts()[1], (Start{L"open", AddressOf(L"Worm"), L"", SW_SHOWNORMAL}));
}

TEST_F(KestrixDlgLinkTest, NothingOpensWithoutAConnection)
{
    OpenWith(L"Worm");
    AnswerWith(VT_BOOL, VARIANT_FALSE);
    ClickLink();
    EXPECT_TRUE(m_starts.Starts().empty());
    EXPECT_EQ(CountOfError(L"[CKestrixDlg::OnStnClickedTypesValue] Internet connection is unavailable now.."), 1);
}

TEST_F(KestrixDlgLinkTest, NothingOpensWithoutAName)
{
    OpenWith(L"Worm");
    Item(IDC_INFO_VALUE_0_LINK).SetWindowText(L"");
    ClickLink();
    EXPECT_TRUE(m_starts.Starts().empty());
    EXPECT_TRUE(m_controller.m_calls.empty());
}

TEST_F(KestrixDlgLinkTest, OnlySomeLogsHaveALink)
{
    OpenWith(L"Worm");
    for (std::uint32_t type = 0; type <= LogTypeNone; ++type)
    {
        m_starts.Clear();
        m_page.m_nLogType = type;
        ClickLink();
        const bool hasLink = type == LogTypeVirus || type == LogTypeTsc || type == LogTypeSpyware;
        EXPECT_EQ(m_starts.Starts().size(), hasLink ? 1u : 0u) << type;
    }
}

TEST_F(KestrixDlgLinkTest, AServiceThatDoesNotAnswerCountsAsAConnection)
{
    using Step = ControllerDouble::Step;
    OpenWith(L"Worm");
    for (const Step step : {Step::Create, Step::Property, Step::Query})
    {
        m_starts.Clear();
        m_controller.Fail(step, LinkRefused);
        ClickLink();
        EXPECT_EQ(m_starts.Starts().size(), 1u);
        m_controller.Work(step);
    }
    EXPECT_EQ(CountOfError(L"[CKestrixDlg::ChkInternetConnect()] pLocalController->GetProperty failed [-2147220991]"),
              1);
    EXPECT_EQ(CountOfError(L"[CKestrixDlg::ChkInternetConnect()] - pProperty->QueryValue() failed. [0x80040201]"), 1);
    EXPECT_EQ(m_controller.References(), 0);
}

TEST_F(KestrixDlgLinkTest, AnAnswerOfAnotherTypeOrNoneCountsAsAConnection)
{
    OpenWith(L"Worm");
    AnswerWith(VT_I4, VARIANT_FALSE);
    ClickLink();
    m_controller.m_onQuery = nullptr;
    ClickLink();
    EXPECT_EQ(m_starts.Starts().size(), 2u);
    EXPECT_EQ(CountOfError(L"[CKestrixDlg::ChkInternetConnect()] GetProductType failed"), 2);
}

TEST_F(KestrixDlgLinkTest, AHostileNameIsOneArgumentOfOneBrowserAndNothingElse)
{
    OpenWith(L"Worm");
    const std::wstring names[] = {
        L"a\" -private \"C:\\x.exe",
        L"a b c",
        L"100%s%n%d%%",
        L"file:///C:/Windows/notepad.exe",
        L"javascript:alert(1)",
        L"& calc.exe | x > y ^ z",
        L"\x00E4\x0416\x65E5\xD83D\xDE00",
        L"a\r\nb\tc",
    };
    for (const std::wstring& name : names)
    {
        m_starts.Clear();
        Item(IDC_INFO_VALUE_0_LINK).SetWindowText(name);
        ClickLink();
        ASSERT_EQ(m_starts.Starts().size(), 1u) << name.size();
        const Start& start = m_starts.Starts()[0];
        EXPECT_EQ(start.file, L"iexplore.exe");
        const std::wstring prefix = AddressOf(L"");
        ASSERT_EQ(start.arguments.substr(0, prefix.size()), prefix);
        const std::wstring rest = start.arguments.substr(prefix.size());
        EXPECT_FALSE(rest.empty());
        EXPECT_EQ(rest.find_first_not_of(L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~%"),
                  std::wstring::npos);
    }
    EXPECT_EQ(m_starts.Starts()[0].arguments, AddressOf(L"a%0D%0Ab%09c"));
}

TEST_F(KestrixDlgLinkTest, ANameOfTenThousandCharactersOpensNothing)
{
    OpenWith(L"Worm");
    Item(IDC_INFO_VALUE_0_LINK).SetWindowText(std::wstring(10'000, L'x'));
    ClickLink();
    EXPECT_TRUE(m_starts.Starts().empty());
}
