// The form as an assistive program reads it. The system gives a control its role by the window class, also one that a
// class of ours draws; its name is its text, or the label right before it; its state is that of the window. The system
// under these tests gives names, states and access keys through the interface for assistive programs, and no roles but
// that of an edit; so the classes stand for the roles here. The link reads as a text: the annotation that would make it
// one (IAccPropServices) is not carried out there, and so could not be tested.

#include "platform/dialog/ComPtr.h"
#include "tests/ui/framework/ui/kestrix/app/KeysFormTest.h"

#include <oleacc.h>

#include <array>
#include <map>
#include <set>
#include <stdexcept>
#include <string>

namespace
{

std::wstring ClassOf(HWND window)
{
    std::array<wchar_t, 64> name{};
    ::GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

// What a screen reader calls a control: a button's own text, the text right before any other. What is hidden between
// them is passed over.
std::wstring AccessibleName(HWND control)
{
    if (ClassOf(control) == WC_BUTTONW)
    {
        return CWindow(control).GetWindowText();
    }
    HWND before = ::GetWindow(control, GW_HWNDPREV);
    while (before != nullptr && (CWindow(before).GetStyle() & WS_VISIBLE) == 0)
    {
        before = ::GetWindow(before, GW_HWNDPREV);
    }
    return before != nullptr && ClassOf(before) == WC_STATICW ? CWindow(before).GetWindowText() : std::wstring();
}

// All controls below a window that the Tab key can reach, now or once they are shown; lists inside of controls are not.
std::vector<HWND> FocusControls(HWND window)
{
    std::vector<HWND> controls;
    for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        if ((CWindow(child).GetExStyle() & WS_EX_CONTROLPARENT) != 0)
        {
            std::ranges::copy(FocusControls(child), std::back_inserter(controls));
        }
        else if ((CWindow(child).GetStyle() & WS_TABSTOP) != 0)
        {
            controls.push_back(child);
        }
    }
    return controls;
}

// The libraries of the compiler hold another value below its usual name.
constexpr IID AccessibleInterface{0x618736E0, 0x3C3D, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};

// What the interface for assistive programs tells of a control.
class Accessible
{
public:
    explicit Accessible(HWND control)
    {
        void* object = nullptr;
        EXPECT_HRESULT_SUCCEEDED(
            ::AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT), AccessibleInterface, &object));
        if (object == nullptr)
        {
            throw std::runtime_error("The control " + std::to_string(::GetDlgCtrlID(control)) + " cannot be read");
        }
        m_object.reset(static_cast<IAccessible*>(object));
    }

    std::wstring Name() const { return TextOf(&IAccessible::get_accName); }

    std::wstring Value() const { return TextOf(&IAccessible::get_accValue); }

    std::wstring AccessKey() const { return TextOf(&IAccessible::get_accKeyboardShortcut); }

    bool Has(LONG state) const
    {
        VARIANT answer{};
        EXPECT_HRESULT_SUCCEEDED(m_object->get_accState(Self(), &answer));
        return (answer.lVal & state) == state;
    }

private:
    static VARIANT Self()
    {
        VARIANT self{};
        self.vt = VT_I4;
        self.lVal = CHILDID_SELF;
        return self;
    }

    std::wstring TextOf(HRESULT (WINAPI IAccessible::*get)(VARIANT, BSTR*)) const
    {
        BSTR text = nullptr;
        (m_object.get()->*get)(Self(), &text);
        const std::wstring copy = text != nullptr ? text : L"";
        ::SysFreeString(text);
        return copy;
    }

    CComPtr<IAccessible> m_object;
};

std::vector<HWND> ChildrenOf(HWND window)
{
    std::vector<HWND> children;
    for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        children.push_back(child);
    }
    return children;
}

class LogFormAccessTest : public KeysFormTest
{
protected:
    LogFormAccessTest() { AfxOleInit(); }

    ~LogFormAccessTest() override { AfxOleTerm(); }

    // Once a record is shown.
    void WithRecord(const ScriptedForm::Step& step)
    {
        m_form.Run({[&] { ShowFirstRecord(); }, step});
    }
};

} // namespace

TEST_F(LogFormAccessTest, EveryControlThatCanHaveTheFocusHasANameForScreenReaders)
{
    m_form.Run({[&]
                {
                    const std::vector<HWND> controls = FocusControls(m_form);
                    EXPECT_GE(controls.size(), 11u);
                    for (const HWND control : controls)
                    {
                        if (::GetDlgCtrlID(control) != IDC_FORM_TAB &&         // has names of its own
                            ::GetDlgCtrlID(control) != IDC_INFO_VALUE_2_WHOLE) // is not shown
                        {
                            EXPECT_NE(AccessibleName(control), L"") << ::GetDlgCtrlID(control);
                        }
                    }
                    EXPECT_EQ(AccessibleName(m_form.Page()->GetDlgItem(IDC_DATE_LIST)), Text(IDS_HEADING_DATES));
                    EXPECT_EQ(AccessibleName(m_form.Page()->GetDlgItem(IDC_RECORD_LIST)), Text(IDS_HEADING_ENTRIES));
                }});
}

TEST_F(LogFormAccessTest, TheThirdValueAndItsWholeTextHaveTheirCaptionAsName)
{
    WithRecord(
        [&]
        {
            EXPECT_EQ(AccessibleName(PageItem(IDC_INFO_VALUE_2)), Text(IDS_LABEL_LOCATION));
            m_form.Page()->SendMessage(WM_COMMAND, MAKEWPARAM(IDC_INFO_VALUE_2, STN_CLICKED));
            EXPECT_EQ(AccessibleName(PageItem(IDC_INFO_VALUE_2_WHOLE)), Text(IDS_LABEL_LOCATION));
        });
}

TEST_F(LogFormAccessTest, EveryControlIsOfAClassWhoseRoleTheSystemKnows)
{
    const std::set<std::wstring> known{WC_STATICW,   WC_BUTTONW,     WC_EDITW,    WC_LISTBOXW,
                                       WC_COMBOBOXW, WC_TABCONTROLW, WC_LISTVIEWW};
    m_form.Run({[&]
                {
                    std::map<std::wstring, int> counts;
                    for (const HWND window : {m_form.GetSafeHwnd(), m_form.Page()->GetSafeHwnd()})
                    {
                        for (const HWND child : ChildrenOf(window))
                        {
                            if (child != m_form.Page()->GetSafeHwnd())
                            {
                                ++counts[ClassOf(child)];
                                EXPECT_TRUE(known.contains(ClassOf(child))) << ::GetDlgCtrlID(child);
                            }
                        }
                    }
                    EXPECT_EQ(counts[WC_BUTTONW], 9);
                    EXPECT_EQ(counts[WC_LISTBOXW], 1);
                    EXPECT_EQ(counts[WC_COMBOBOXW], 1);
                    EXPECT_EQ(counts[WC_LISTVIEWW], 1);
                    EXPECT_EQ(counts[WC_TABCONTROLW], 1);
                }});
}

TEST_F(LogFormAccessTest, DrawnButtonsGiveTheirNamesAccessKeysAndStates)
{
    struct Button
    {
        UINT id;
        const wchar_t* name;
        const wchar_t* key;
        LONG state;
    };

    constexpr Button buttons[] = {
        {IDC_FORM_HELP, L"Help", L"Alt+H", 0},
        {IDC_FORM_EXPORT, L"Export...", L"Alt+E", 0},
        {IDC_FORM_DELETE, L"Delete...", L"Alt+D", STATE_SYSTEM_UNAVAILABLE},
        {IDC_FORM_CLOSE, L"Close", L"Alt+C", 0},
        {IDC_FORM_MINIMISE, L"Minimize", L"Alt+M", 0},
        {IDC_FORM_CLOSE_BOX, L"Close", L"", 0},
        {IDC_VIEW, L"View", L"Alt+V", 0},
        {IDC_SETTING, L"Settings...", L"Alt+S", STATE_SYSTEM_UNAVAILABLE},
        {IDC_ALLOW, L"Allow", L"Alt+A", STATE_SYSTEM_INVISIBLE},
    };
    m_form.Run({[&]
                {
                    for (const Button& button : buttons)
                    {
                        const HWND ofForm = m_form.Item(button.id);
                        const Accessible read(ofForm != nullptr ? ofForm : PageItem(button.id));
                        EXPECT_EQ(read.Name(), button.name);
                        EXPECT_EQ(read.AccessKey(), button.key);
                        EXPECT_EQ(read.Has(STATE_SYSTEM_UNAVAILABLE), button.state == STATE_SYSTEM_UNAVAILABLE)
                            << button.id;
                        EXPECT_EQ(read.Has(STATE_SYSTEM_INVISIBLE), button.state == STATE_SYSTEM_INVISIBLE)
                            << button.id;
                    }
                }});
}

TEST_F(LogFormAccessTest, TheFocusIsAState)
{
    m_form.Run({[&]
                {
                    const Accessible list(PageItem(IDC_RECORD_LIST));
                    ::SetFocus(PageItem(IDC_RECORD_LIST));
                    EXPECT_TRUE(list.Has(STATE_SYSTEM_FOCUSED));
                    m_form.Item(IDC_FORM_CLOSE).SetFocus();
                    EXPECT_FALSE(list.Has(STATE_SYSTEM_FOCUSED));
                    EXPECT_TRUE(Accessible(m_form.Item(IDC_FORM_CLOSE)).Has(STATE_SYSTEM_FOCUSED));
                }});
}

TEST_F(LogFormAccessTest, ValuesOfTheDetailPaneAreReadAsTheyAreShown)
{
    WithRecord(
        [&]
        {
            EXPECT_EQ(Accessible(PageItem(IDC_INFO_VALUE_0_LINK)).Name(), L"alpha");
            const Accessible location(PageItem(IDC_INFO_VALUE_2));
            EXPECT_EQ(location.Name(), Text(IDS_LABEL_LOCATION));
            EXPECT_EQ(location.Value(), L"C:\\a");
            EXPECT_TRUE(location.Has(STATE_SYSTEM_READONLY | STATE_SYSTEM_FOCUSABLE));
            EXPECT_TRUE(Accessible(PageItem(IDC_INFO_VALUE_0_TEXT)).Has(STATE_SYSTEM_INVISIBLE));
            EXPECT_FALSE(Accessible(PageItem(IDC_INFO_VALUE_0_LINK)).Has(STATE_SYSTEM_INVISIBLE));
        });
}

TEST_F(LogFormAccessTest, EveryValueStandsBesideItsCaptionInTheOrderOfReading)
{
    constexpr std::array captions{IDC_INFO_LABEL_0, IDC_INFO_LABEL_1, IDC_INFO_LABEL_2, IDC_INFO_LABEL_3,
                                  IDC_INFO_LABEL_4, IDC_INFO_LABEL_5, IDC_INFO_LABEL_6};
    constexpr std::array values{IDC_INFO_VALUE_0_TEXT, IDC_INFO_VALUE_1, IDC_INFO_VALUE_2, IDC_INFO_VALUE_3,
                                IDC_INFO_VALUE_4,      IDC_INFO_VALUE_5, IDC_INFO_VALUE_6};
    m_form.Run(
        {[&]
         {
             for (std::size_t row = 0; row < values.size(); ++row)
             {
                 const HWND before = ::GetWindow(PageItem(values[row]), GW_HWNDPREV);
                 EXPECT_EQ(::GetDlgCtrlID(before), captions[row]);
             }
             // The link has its own text as name.
             EXPECT_EQ(::GetDlgCtrlID(::GetWindow(PageItem(IDC_INFO_VALUE_0_LINK), GW_HWNDNEXT)), IDC_INFO_LABEL_0);
             EXPECT_EQ(::GetDlgCtrlID(::GetWindow(PageItem(IDC_INFO_VALUE_2), GW_HWNDNEXT)), IDC_INFO_VALUE_2_WHOLE);
         }});
}

TEST_F(LogFormAccessTest, RowsAndColumnsOfTheListHaveTexts)
{
    m_form.Run(
        {[&]
         {
             const HWND list = PageItem(IDC_RECORD_LIST);
             ASSERT_EQ(ListView_GetItemCount(list), 3);
             std::array<wchar_t, 64> text{};
             const auto textOf = [&](int row, int column)
             {
                 LVITEMW item{};
                 item.iSubItem = column;
                 item.pszText = text.data();
                 item.cchTextMax = static_cast<int>(text.size());
                 ::SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
                 return std::wstring(text.data());
             };
             EXPECT_EQ(textOf(0, 0), L"10:30");
             EXPECT_EQ(textOf(0, 2), L"alpha");
             EXPECT_EQ(textOf(2, 2), L"beta");
             for (int column = 0; column < 3; ++column)
             {
                 LVCOLUMNW head{};
                 head.mask = LVCF_TEXT;
                 head.pszText = text.data();
                 head.cchTextMax = static_cast<int>(text.size());
                 ::SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&head));
                 EXPECT_NE(std::wstring(text.data()), L"") << column;
             }
         }});
}

TEST_F(LogFormAccessTest, TheTabsOfAFormWithAReportHaveNames)
{
    m_form.m_bLogOnly = false;
    m_form.m_nReportSpan = 10'000; // days; the file's date is one of them
    m_form.Run({[&]
                {
                    for (const auto& [tab, title] : {std::pair{0, IDS_TAB_REPORT}, std::pair{1, IDS_TAB_LOGS}})
                    {
                        std::array<wchar_t, 64> text{};
                        TCITEMW item{};
                        item.mask = TCIF_TEXT;
                        item.pszText = text.data();
                        item.cchTextMax = static_cast<int>(text.size());
                        m_form.Item(IDC_FORM_TAB)
                            .SendMessage(TCM_GETITEMW, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&item));
                        EXPECT_EQ(std::wstring(text.data()), Text(title));
                    }
                }});
}

TEST_F(LogFormAccessTest, TheFormHasItsTitleAsName)
{
    m_form.Run({[&] { EXPECT_EQ(m_form.GetWindowText(), Text(IDS_FORM_TITLE)); }});
}
