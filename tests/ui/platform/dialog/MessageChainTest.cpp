#include "platform/dialog/MessageChain.h"

#include "tests/ui/platform/dialog/TestWindows.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace
{

constexpr int ControlId = 5;
constexpr UINT MessageChainProbe = WM_USER + 1;

// What a handler does after its note; by default nothing more.
using Action = std::function<LRESULT(CWnd&)>;

// A control that handles what is reflected to it.
class CReflecting : public CWnd
{
public:
    explicit CReflecting(Notes& notes) : m_notes(notes) {}

    LRESULT CallDefault() { return Default(); }

    std::function<void(CReflecting&)> m_during;

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows = MessageRows(On::ReflectedCommand<BN_CLICKED, &CReflecting::OnClick>,
                                                 On::ReflectedNotify<TCN_SELCHANGE, &CReflecting::OnSelect>,
                                                 On::ReflectedMessage<WM_DRAWITEM, &CReflecting::OnDraw>,
                                                 On::ReflectedCtlColor<&CReflecting::OnColor>);
        static constexpr MessageMap map{rows, &CWnd::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    void Enter(const wchar_t* note)
    {
        m_notes.push_back(note);
        if (const auto during = m_during)
        {
            during(*this);
        }
    }

    void OnClick() { Enter(L"control click"); }

    LRESULT OnSelect(NMHDR&)
    {
        Enter(L"control select");
        return 21;
    }

    void OnDraw(DRAWITEMSTRUCT&) { Enter(L"control draw"); }

    HBRUSH OnColor(HDC, UINT kind)
    {
        m_notes.push_back(Note(L"control color", kind));
        return reinterpret_cast<HBRUSH>(0x21);
    }

    Notes& m_notes;
};

// Its parent, with rows for the same messages.
class CReceiving : public CWnd
{
public:
    explicit CReceiving(Notes& notes) : m_notes(notes) {}

    bool m_continue = false;

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows = MessageRows(
            On::Command<ControlId, &CReceiving::OnClick>, On::Notify<TCN_SELCHANGE, ControlId, &CReceiving::OnSelect>,
            On::Message<WM_DRAWITEM, &CReceiving::OnDraw>, On::CtlColor<&CReceiving::OnColor>,
            On::Message<MessageChainProbe, &CReceiving::OnProbe>);
        static constexpr MessageMap map{rows, &CWnd::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    LRESULT Continue() { return m_continue ? Default() : 0; }

    void OnClick()
    {
        m_notes.push_back(L"parent click");
        Continue();
    }

    LRESULT OnSelect(NMHDR&)
    {
        m_notes.push_back(L"parent select");
        return 11;
    }

    void OnDraw(int, DRAWITEMSTRUCT&) { m_notes.push_back(L"parent draw"); }

    HBRUSH OnColor(HDC, HWND, UINT kind)
    {
        m_notes.push_back(Note(L"parent color", kind));
        return reinterpret_cast<HBRUSH>(m_continue ? Default() : 0x11);
    }

    LRESULT OnProbe(WPARAM, LPARAM)
    {
        m_notes.push_back(L"probe");
        const LRESULT first = Default();
        return first + Default(); // a second call runs the rest once more
    }

    Notes& m_notes;
};

class MessageChainTest : public ::testing::Test
{
protected:
    void SetUp() override { m_control->SubclassWindow(m_controlWindow.Get()); }

    void AttachParent() { ASSERT_TRUE(m_parent->SubclassWindow(m_parentWindow.Get())); }

    LRESULT Click() { return Send(WM_COMMAND, MAKEWPARAM(ControlId, BN_CLICKED), Control()); }

    LRESULT Select()
    {
        NMHDR header{m_controlWindow.Get(), ControlId, static_cast<UINT>(TCN_SELCHANGE)};
        return Send(WM_NOTIFY, ControlId, reinterpret_cast<LPARAM>(&header));
    }

    LRESULT Draw(UINT type)
    {
        DRAWITEMSTRUCT item{};
        item.CtlType = type;
        item.hwndItem = m_controlWindow.Get();
        return Send(WM_DRAWITEM, ControlId, reinterpret_cast<LPARAM>(&item));
    }

    LRESULT Color() { return Send(WM_CTLCOLORSTATIC, 0, Control()); }

    LPARAM Control() const { return reinterpret_cast<LPARAM>(m_controlWindow.Get()); }

    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam)
    {
        return SendMessageW(m_parentWindow.Get(), message, wParam, lParam);
    }

    Notes m_notes;
    PlainWindow m_parentWindow;
    PlainWindow m_controlWindow{m_parentWindow.Get(), ControlId};
    std::unique_ptr<CReceiving> m_parent = std::make_unique<CReceiving>(m_notes);
    std::unique_ptr<CReflecting> m_control = std::make_unique<CReflecting>(m_notes);
};

TEST_F(MessageChainTest, ANotificationGoesToTheControlAndIsHandledThere)
{
    AttachParent();
    EXPECT_EQ(0, Click());
    EXPECT_EQ(21, Select());
    EXPECT_EQ(TRUE, Draw(ODT_BUTTON));
    EXPECT_EQ((Notes{L"control click", L"control select", L"control draw"}), m_notes);
}

TEST_F(MessageChainTest, TheControlsHandlerHandsOnToTheParentByDefault)
{
    AttachParent();
    LRESULT rest = 0;
    m_control->m_during = [&rest](CReflecting& control) { rest = control.CallDefault(); };
    EXPECT_EQ(21, Select());
    EXPECT_EQ(11, rest);
    EXPECT_EQ((Notes{L"control select", L"parent select"}), m_notes);
}

TEST_F(MessageChainTest, AControlWithoutObjectLeavesTheNotificationToTheParent)
{
    AttachParent();
    m_control.reset();
    Click();
    EXPECT_EQ(11, Select());
    Draw(ODT_BUTTON);
    EXPECT_EQ((Notes{L"parent click", L"parent select", L"parent draw"}), m_notes);
}

TEST_F(MessageChainTest, AQuestionAboutColoursGoesToTheParentFirst)
{
    AttachParent();
    EXPECT_EQ(0x11, Color());
    EXPECT_EQ(Notes{L"parent color 6"}, m_notes);

    m_notes.clear();
    m_parent->m_continue = true;
    EXPECT_EQ(0x21, Color());
    EXPECT_EQ((Notes{L"parent color 6", L"control color 6"}), m_notes);
}

// A parent whose map knows nothing of the control.
TEST_F(MessageChainTest, AParentWithoutRowsStillReflects)
{
    CWnd parent;
    ASSERT_TRUE(parent.SubclassWindow(m_parentWindow.Get()));
    Click();
    EXPECT_EQ(21, Select());
    EXPECT_EQ(0x21, Color());
    EXPECT_EQ((Notes{L"control click", L"control select", L"control color 6"}), m_notes);
    EXPECT_EQ(0, m_parentWindow.CountOf(WM_COMMAND));
}

TEST_F(MessageChainTest, AMenuItemToDrawIsNotReflected)
{
    AttachParent();
    Draw(ODT_MENU);
    EXPECT_EQ(Notes{L"parent draw"}, m_notes);
}

TEST_F(MessageChainTest, ADialogsOwnColoursAreNotReflectedToItself)
{
    ASSERT_TRUE(m_control->GetSafeHwnd() != nullptr);
    SendMessageW(m_controlWindow.Get(), WM_CTLCOLORDLG, 0, Control());
    EXPECT_TRUE(m_notes.empty());
}

TEST_F(MessageChainTest, DefaultRunsTheOriginalAndGivesItsResultEachTime)
{
    AttachParent();
    m_parentWindow.m_answer = 4;
    EXPECT_EQ(8, Send(MessageChainProbe, 0x123456789, -7));
    EXPECT_EQ(Notes{L"probe"}, m_notes);
    ASSERT_EQ(2, m_parentWindow.CountOf(MessageChainProbe));
    EXPECT_EQ(0x123456789u, m_parentWindow.m_reached.back().wParam);
    EXPECT_EQ(-7, m_parentWindow.m_reached.back().lParam);
}

TEST_F(MessageChainTest, DefaultOutsideOfAHandlerDoesNothing)
{
    m_controlWindow.m_reached.clear();
    EXPECT_EQ(0, m_control->CallDefault());
    EXPECT_TRUE(m_controlWindow.m_reached.empty());
}

TEST_F(MessageChainTest, AMessageInsideAHandlerLeavesTheOuterOneWhole)
{
    AttachParent();
    m_control->m_during = [this](CReflecting& control)
    {
        SendMessageW(m_controlWindow.Get(), WM_USER + 9, 0, 0); // handled by nobody, in between
        control.CallDefault();
    };
    Select();
    EXPECT_EQ((Notes{L"control select", L"parent select"}), m_notes);
}

TEST_F(MessageChainTest, AControlMayGoInItsOwnReflectedMessage)
{
    AttachParent();
    m_control->m_during = [this](CReflecting&) { m_control.reset(); };
    Click();
    EXPECT_EQ(nullptr, m_control);
    Click();
    EXPECT_EQ((Notes{L"control click", L"parent click"}), m_notes);
}

TEST_F(MessageChainTest, TheParentMayGoBeforeTheControlHandsOn)
{
    AttachParent();
    m_control->m_during = [this](CReflecting& control)
    {
        m_parent.reset();
        control.CallDefault();
    };
    Click();
    EXPECT_EQ(Notes{L"control click"}, m_notes);
    EXPECT_EQ(1, m_parentWindow.CountOf(WM_COMMAND)); // the window's own procedure is left
}

class CommandApp : public RecordingApp
{
public:
    BOOL OnCommand(UINT id) override
    {
        m_commands.push_back(id);
        return id == 100;
    }

    std::vector<UINT> m_commands;
};

TEST_F(MessageChainTest, ACommandThatNoWindowAnswersGoesToTheApplication)
{
    CommandApp app;
    AttachParent();
    m_control.reset();
    Send(WM_COMMAND, MAKEWPARAM(100, 0), 0);
    EXPECT_EQ(0, m_parentWindow.CountOf(WM_COMMAND));
    Send(WM_COMMAND, MAKEWPARAM(101, 0), 0);
    EXPECT_EQ(1, m_parentWindow.CountOf(WM_COMMAND)); // the application did not want it
    Send(WM_COMMAND, MAKEWPARAM(100, LBN_SELCHANGE), Control());
    EXPECT_EQ(2, m_parentWindow.CountOf(WM_COMMAND)); // no command
    Click();
    EXPECT_EQ((std::vector<UINT>{100, 101}), app.m_commands);
}

} // namespace
