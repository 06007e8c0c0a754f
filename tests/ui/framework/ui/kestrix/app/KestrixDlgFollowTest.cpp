// The detail pane follows the selection, whoever moves it, and shows no record twice.

#include "resource/resource.h"
#include "tests/support/MenuVisit.h"
#include "tests/support/TraceRecorder.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

#include <algorithm>

namespace
{

constexpr wchar_t ShownTrace[] = L"[Enter]CKestrixDlg::OnClickLogList()...";

class KestrixDlgFollowTest : public PageTest
{
protected:
    // Newest first: epsilon at 13:00 down to alpha at 09:00.
    KestrixDlgFollowTest()
    {
        OpenDay({Line(L"0900", L"alpha"), Line(L"1000", L"beta"), Line(L"1100", L"gamma"), Line(L"1200", L"delta"),
                 Line(L"1300", L"epsilon")});
        m_list.SetFocus();
        Pump();
    }

    static std::wstring Line(const std::wstring& time, const std::wstring& threat)
    {
        return L"x|" + time + L"|1048576|x|0|0|" + threat + L"|C:\\" + threat + L"|4|1|0|0";
    }

    // Deals with what was posted, as the page's loop does; not with timers, which may be due again and again.
    void Pump()
    {
        MSG message{};
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_POSTMESSAGE))
        {
            const bool isOfPage = message.hwnd == m_page || ::IsChild(m_page, message.hwnd);
            if (!isOfPage || !m_page.PreTranslateMessage(message))
            {
                ::TranslateMessage(&message);
                ::DispatchMessageW(&message);
            }
        }
    }

    // A key of the list, with what it leads to before it is let go.
    void PressKey(WORD key)
    {
        ::PostMessageW(m_list, WM_KEYDOWN, key, 1);
        Pump();
        ::PostMessageW(m_list, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        Pump();
    }

    void TypeLetter(wchar_t letter)
    {
        ::PostMessageW(m_list, WM_CHAR, letter, 1);
        Pump();
    }

    std::wstring Shown() const { return TextOf(IDC_INFO_VALUE_0_LINK); }

    // How often a click or an arrow key has shown its record.
    long ShownByInput() const { return std::ranges::count(m_trace.Texts(), ShownTrace); }

    const TraceRecorder m_trace;
};

} // namespace

TEST_F(KestrixDlgFollowTest, TheKeysThatMoveFarFillThePane)
{
    PressKey(VK_END);
    EXPECT_EQ(Shown(), L"alpha");
    PressKey(VK_HOME);
    EXPECT_EQ(Shown(), L"epsilon");
    PressKey(VK_NEXT);
    EXPECT_EQ(Shown(), L"alpha");
    PressKey(VK_PRIOR);
    EXPECT_EQ(Shown(), L"epsilon");
    EXPECT_EQ(ShownByInput(), 0) << "nobody has clicked";
}

TEST_F(KestrixDlgFollowTest, ATypedBeginningOfATimeFillsThePane)
{
    for (const wchar_t letter : std::wstring_view(L"11"))
    {
        TypeLetter(letter);
    }
    EXPECT_EQ(Shown(), L"gamma");
}

TEST_F(KestrixDlgFollowTest, AnAssistiveProgramThatSelectsARowFillsThePane)
{
    SelectRow(3);
    EXPECT_EQ(Shown(), L"") << "within the change";
    Pump();
    EXPECT_EQ(Shown(), L"beta");
}

TEST_F(KestrixDlgFollowTest, ManyChangesAreFollowedOnce)
{
    for (const int row : {0, 1, 2, 3})
    {
        SelectRow(row);
    }
    MSG message{};
    int posted = 0;
    while (::PeekMessageW(&message, m_page, WM_APP, 0xBFFF, PM_REMOVE))
    {
        ++posted;
        ::DispatchMessageW(&message);
    }
    EXPECT_EQ(posted, 1);
    EXPECT_EQ(Shown(), L"beta");
}

TEST_F(KestrixDlgFollowTest, ARecordThatIsShownAlreadyIsNotShownAgain)
{
    SelectRow(0);
    Pump();
    m_page.SetDlgItemText(IDC_INFO_VALUE_0_LINK, L"as it was");
    ListView_SetItemState(m_list, 0, 0, LVIS_SELECTED);
    SelectRow(0);
    Pump();
    EXPECT_EQ(Shown(), L"as it was");
}

TEST_F(KestrixDlgFollowTest, APressThatIsDraggedAwayIsFollowedWhenTheButtonIsLetGo)
{
    const auto note = [this](HWND window, UINT message)
    {
        MSG input{};
        input.hwnd = window;
        input.message = message;
        m_page.PreTranslateMessage(input);
    };
    note(m_list, WM_LBUTTONDOWN);
    SelectRow(1);
    Pump();
    EXPECT_EQ(Shown(), L"") << "the button is still down";
    note(m_page.GetDlgItem(IDC_DATE_LIST), WM_LBUTTONUP);
    Pump();
    EXPECT_EQ(Shown(), L"delta");
}

TEST_F(KestrixDlgFollowTest, AnArrowKeyShowsItsRecordOnceWhenItIsLetGo)
{
    PressKey(VK_HOME);
    ::PostMessageW(m_list, WM_KEYDOWN, VK_DOWN, 1);
    Pump();
    EXPECT_EQ(Shown(), L"epsilon") << "the key is still down";
    ::PostMessageW(m_list, WM_KEYUP, VK_DOWN, 1);
    Pump();
    EXPECT_EQ(Shown(), L"delta");
    EXPECT_EQ(ShownByInput(), 1);
}

TEST_F(KestrixDlgFollowTest, AClickShowsItsRecordOnce)
{
    RECT row{};
    row.left = LVIR_LABEL;
    m_list.SendMessage(LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
    const LPARAM point = MAKELPARAM(row.left + 5, row.top + 5);
    ::PostMessageW(m_list, WM_LBUTTONDOWN, MK_LBUTTON, point);
    Pump();
    EXPECT_EQ(Shown(), L"") << "the button is still down";
    ::PostMessageW(m_list, WM_LBUTTONUP, 0, point);
    Pump();
    EXPECT_EQ(Shown(), L"delta");
    EXPECT_EQ(ShownByInput(), 1);
}

TEST_F(KestrixDlgFollowTest, ARightClickSelectsItsRowAndTheDetailsFollowBeforeTheMenu)
{
    PressKey(VK_HOME);
    RECT row{};
    row.left = LVIR_LABEL;
    m_list.SendMessage(LVM_GETITEMRECT, 3, reinterpret_cast<LPARAM>(&row));
    const LPARAM point = MAKELPARAM(row.left + 5, row.top + 5);
    const MenuVisit visit({VK_ESCAPE});
    ::PostMessageW(m_list, WM_RBUTTONDOWN, MK_RBUTTON, point);
    Pump();
    ::PostMessageW(m_list, WM_RBUTTONUP, 0, point);
    Pump();
    EXPECT_TRUE(visit.HasSeen());
    EXPECT_EQ(m_list.GetNextItem(-1, LVNI_SELECTED), 3);
    EXPECT_EQ(Shown(), L"beta");
    EXPECT_EQ(ShownByInput(), 0);
}

// The key is let go in another window, which has the keyboard by then.
TEST_F(KestrixDlgFollowTest, AnArrowKeyThatIsNeverLetGoHereHoldsUntilTheNextKey)
{
    ::PostMessageW(m_list, WM_KEYDOWN, VK_DOWN, 1);
    Pump();
    PressKey(VK_END);
    EXPECT_EQ(Shown(), L"alpha");
}

TEST_F(KestrixDlgFollowTest, ALoadShowsNothing)
{
    PressKey(VK_END);
    SelectDate(0);
    m_page.SendMessage(WM_NULL);
    Pump();
    EXPECT_EQ(m_list.GetNextItem(-1, LVNI_SELECTED), -1);
    EXPECT_EQ(ShownByInput(), 0);
}

TEST_F(KestrixDlgFollowTest, ASortKeepsTheRecordThatIsShown)
{
    PressKey(VK_END);
    ClickHeader(2);
    Pump();
    EXPECT_EQ(Shown(), L"alpha");
    PressKey(VK_HOME);
    EXPECT_EQ(Shown(), L"alpha") << "it is the first by its name";
    PressKey(VK_END);
    EXPECT_EQ(Shown(), L"gamma");
}

TEST_F(KestrixDlgFollowTest, ARowThatLosesTheSelectionLeavesThePane)
{
    PressKey(VK_END);
    m_list.SetItemState(4, 0, LVIS_SELECTED);
    Pump();
    EXPECT_EQ(Shown(), L"alpha");
}
