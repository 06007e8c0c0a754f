#include "platform/dialog/MessageMap.h"

#include "tests/ui/platform/dialog/TestWindows.h"

#include <gtest/gtest.h>

namespace
{

constexpr int ListId = 7;
constexpr int ButtonId = 8;
constexpr UINT Unlisted = WM_USER + 5; // a message without a shape of its own

HWND Other()
{
    return reinterpret_cast<HWND>(0x1234);
}

HDC SomeDC()
{
    return reinterpret_cast<HDC>(0x5678);
}

// Has a row of every shape and notes what its handlers get.
class CDecoder : public CWnd
{
public:
    Notes m_notes;

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    template <class... Arguments>
    void Add(const Arguments&... arguments)
    {
        m_notes.push_back(Note(arguments...));
    }

    void OnNothing() { Add(L"nothing"); }

    void OnMouse(UINT keys, POINT point) { Add(L"mouse", keys, point.x, point.y); }

    void OnKey(UINT key, UINT repeat, UINT flags) noexcept { Add(L"key", key, repeat, flags); }

    void OnOtherWindow(HWND other) { Add(L"other", other == Other()); }

    void OnSize(UINT type, int width, int height) { Add(L"size", type, width, height); }

    void OnEnable(bool enabled) { Add(L"enable", enabled); }

    void OnTimer(UINT_PTR timer) { Add(L"timer", timer); }

    void OnUpdateUiState(UINT action, UINT flags) { Add(L"state", action, flags); }

    BOOL OnEraseBkgnd(HDC dc)
    {
        Add(L"erase", dc == SomeDC());
        return TRUE;
    }

    BOOL OnSetCursor(HWND window, UINT hitTest, UINT mouse)
    {
        Add(L"cursor", window == Other(), hitTest, mouse);
        return TRUE;
    }

    HCURSOR OnQueryDragIcon() { return reinterpret_cast<HCURSOR>(0x77); }

    void OnDrawItem(int control, DRAWITEMSTRUCT& item) { Add(L"draw", control, item.itemID); }

    LRESULT OnSetText(const wchar_t* text)
    {
        Add(L"text", text);
        return 5;
    }

    BOOL OnQueryNewPalette() { return TRUE; }

    HBRUSH OnCtlColor(HDC dc, HWND control, UINT kind)
    {
        Add(L"color", dc == SomeDC(), control == Other(), kind);
        return reinterpret_cast<HBRUSH>(0x99);
    }

    LRESULT OnRaw(WPARAM wParam, LPARAM lParam)
    {
        Add(L"raw", wParam, lParam);
        return -3;
    }

    void OnClick() { Add(L"click"); }

    void OnSelect() { Add(L"select"); }

    void OnColumnClick(NMLISTVIEW& click) { Add(L"column", click.iSubItem); }

    LRESULT OnGetDispInfo(NMLVDISPINFOW& info)
    {
        info.item.iImage = 12;
        return 6;
    }

    void OnSetFocus(NMHDR& header) { Add(L"focus", header.idFrom); }
};

const MessageMap& CDecoder::Map()
{
    static constexpr auto rows = MessageRows(
        On::Message<WM_CLOSE, &CDecoder::OnNothing>, On::Message<WM_MOUSELEAVE, &CDecoder::OnNothing>,
        On::Message<WM_MOUSEMOVE, &CDecoder::OnMouse>, On::Message<WM_LBUTTONDOWN, &CDecoder::OnMouse>,
        On::Message<WM_LBUTTONUP, &CDecoder::OnMouse>, On::Message<WM_LBUTTONDBLCLK, &CDecoder::OnMouse>,
        On::Message<WM_MOUSEHOVER, &CDecoder::OnMouse>, On::Message<WM_KEYDOWN, &CDecoder::OnKey>,
        On::Message<WM_KEYUP, &CDecoder::OnKey>, On::Message<WM_CHAR, &CDecoder::OnKey>,
        On::Message<WM_SETFOCUS, &CDecoder::OnOtherWindow>, On::Message<WM_KILLFOCUS, &CDecoder::OnOtherWindow>,
        On::Message<WM_PALETTECHANGED, &CDecoder::OnOtherWindow>, On::Message<WM_SIZE, &CDecoder::OnSize>,
        On::Message<WM_ENABLE, &CDecoder::OnEnable>, On::Message<WM_TIMER, &CDecoder::OnTimer>,
        On::Message<WM_UPDATEUISTATE, &CDecoder::OnUpdateUiState>, On::Message<WM_ERASEBKGND, &CDecoder::OnEraseBkgnd>,
        On::Message<WM_SETCURSOR, &CDecoder::OnSetCursor>, On::Message<WM_QUERYDRAGICON, &CDecoder::OnQueryDragIcon>,
        On::Message<WM_DRAWITEM, &CDecoder::OnDrawItem>, On::Message<WM_SETTEXT, &CDecoder::OnSetText>,
        On::Message<WM_QUERYNEWPALETTE, &CDecoder::OnQueryNewPalette>, On::CtlColor<&CDecoder::OnCtlColor>,
        On::Message<Unlisted, &CDecoder::OnRaw>, On::Command<ButtonId, &CDecoder::OnClick>,
        On::Control<LBN_SELCHANGE, ListId, &CDecoder::OnSelect>,
        On::Notify<LVN_COLUMNCLICK, ListId, &CDecoder::OnColumnClick>,
        On::Notify<LVN_GETDISPINFOW, ListId, &CDecoder::OnGetDispInfo>,
        On::Notify<NM_SETFOCUS, ListId, &CDecoder::OnSetFocus>);
    static constexpr MessageMap map{rows, &CWnd::Map};
    return map;
}

class MessageMapTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_object.SubclassWindow(m_window.Get())); }

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        m_object.m_notes.clear();
        m_window.m_reached.clear();
        return m_object.SendMessage(message, wParam, lParam);
    }

    // The one note of the message.
    std::wstring NoteOf(UINT message, WPARAM wParam, LPARAM lParam)
    {
        Send(message, wParam, lParam);
        return m_object.m_notes.size() == 1 ? m_object.m_notes.front() : L"not one note";
    }

    LPARAM AsLong(const void* pointer) { return reinterpret_cast<LPARAM>(pointer); }

    PlainWindow m_window;
    CDecoder m_object;
};

TEST_F(MessageMapTest, AMessageWithoutArgumentsIsHandledWithZero)
{
    EXPECT_EQ(0, Send(WM_CLOSE));
    EXPECT_EQ(Notes{L"nothing"}, m_object.m_notes);
    EXPECT_TRUE(m_window.m_reached.empty());
    EXPECT_EQ(L"nothing", NoteOf(WM_MOUSELEAVE, 0, 0));
}

TEST_F(MessageMapTest, MouseMessagesGiveKeysAndASignedPoint)
{
    for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_MOUSEHOVER})
    {
        EXPECT_EQ(L"mouse 9 -3 40", NoteOf(message, MK_LBUTTON | MK_CONTROL, MAKELPARAM(-3, 40)));
    }
}

TEST_F(MessageMapTest, KeyMessagesGiveKeyRepeatAndFlags)
{
    for (const UINT message : {WM_KEYDOWN, WM_KEYUP, WM_CHAR})
    {
        EXPECT_EQ(L"key 32 2 57", NoteOf(message, VK_SPACE, MAKELPARAM(2, 57)));
    }
}

TEST_F(MessageMapTest, FocusAndPaletteMessagesGiveTheOtherWindow)
{
    for (const UINT message : {WM_SETFOCUS, WM_KILLFOCUS, WM_PALETTECHANGED})
    {
        EXPECT_EQ(L"other 1", NoteOf(message, reinterpret_cast<WPARAM>(Other()), 0));
    }
}

TEST_F(MessageMapTest, SizeGivesTypeWidthAndHeight)
{
    EXPECT_EQ(L"size 2 300 40000", NoteOf(WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(300, 40000)));
}

TEST_F(MessageMapTest, EnableTimerAndUiStateAreDecoded)
{
    EXPECT_EQ(L"enable 1", NoteOf(WM_ENABLE, TRUE, 0));
    EXPECT_EQ(L"enable 0", NoteOf(WM_ENABLE, FALSE, 0));
    EXPECT_EQ(L"timer 81985529216486895", NoteOf(WM_TIMER, 0x0123456789abcdef, 0));
    EXPECT_EQ(L"state 1 2", NoteOf(WM_UPDATEUISTATE, MAKEWPARAM(UIS_SET, UISF_HIDEACCEL), 0));
}

TEST_F(MessageMapTest, TheResultOfAQuestionIsTheHandlers)
{
    EXPECT_EQ(TRUE, Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(SomeDC())));
    EXPECT_EQ(Notes{L"erase 1"}, m_object.m_notes);
    EXPECT_EQ(TRUE, Send(WM_SETCURSOR, reinterpret_cast<WPARAM>(Other()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)));
    EXPECT_EQ(Notes{L"cursor 1 1 512"}, m_object.m_notes);
    EXPECT_EQ(0x77, Send(WM_QUERYDRAGICON));
    EXPECT_EQ(TRUE, Send(WM_QUERYNEWPALETTE));
    EXPECT_EQ(5, Send(WM_SETTEXT, 0, AsLong(L"new text")));
    EXPECT_EQ(Notes{L"text new text"}, m_object.m_notes);
}

TEST_F(MessageMapTest, DrawItemGivesControlAndItemAndIsDone)
{
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.itemID = 3;
    EXPECT_EQ(TRUE, Send(WM_DRAWITEM, ListId, AsLong(&item)));
    EXPECT_EQ(Notes{L"draw 7 3"}, m_object.m_notes);
}

TEST_F(MessageMapTest, OneRowAnswersTheColoursOfAllKindsAndGivesTheKind)
{
    for (UINT kind = CTLCOLOR_MSGBOX; kind <= CTLCOLOR_STATIC; ++kind)
    {
        EXPECT_EQ(0x99, Send(WM_CTLCOLORMSGBOX + kind, reinterpret_cast<WPARAM>(SomeDC()), AsLong(Other())));
        EXPECT_EQ(Notes{Note(L"color 1 1", kind)}, m_object.m_notes);
    }
}

TEST_F(MessageMapTest, AMessageWithoutAShapeHandsOverBothArguments)
{
    EXPECT_EQ(-3, Send(Unlisted, 11, -12));
    EXPECT_EQ(Notes{L"raw 11 -12"}, m_object.m_notes);
}

TEST_F(MessageMapTest, AMessageWithoutARowReachesTheWindowUnchanged)
{
    m_window.m_answer = 31;
    EXPECT_EQ(31, Send(WM_USER + 6, 0x123456789, -5));
    ASSERT_EQ(1u, m_window.m_reached.size());
    EXPECT_EQ(WM_USER + 6u, m_window.m_reached[0].message);
    EXPECT_EQ(0x123456789u, m_window.m_reached[0].wParam);
    EXPECT_EQ(-5, m_window.m_reached[0].lParam);
}

TEST_F(MessageMapTest, ACommandIsAClickAMenuOrAnAccelerator)
{
    const LPARAM control = AsLong(Other());
    EXPECT_EQ(L"click", NoteOf(WM_COMMAND, MAKEWPARAM(ButtonId, BN_CLICKED), control));
    EXPECT_EQ(L"click", NoteOf(WM_COMMAND, MAKEWPARAM(ButtonId, 0), 0)); // menu
    EXPECT_EQ(L"click", NoteOf(WM_COMMAND, MAKEWPARAM(ButtonId, 1), 0)); // accelerator
    Send(WM_COMMAND, MAKEWPARAM(ButtonId, BN_DOUBLECLICKED), control);
    EXPECT_TRUE(m_object.m_notes.empty());
}

TEST_F(MessageMapTest, AControlsNotificationFitsByCodeAndControl)
{
    const LPARAM control = AsLong(Other());
    EXPECT_EQ(L"select", NoteOf(WM_COMMAND, MAKEWPARAM(ListId, LBN_SELCHANGE), control));
    Send(WM_COMMAND, MAKEWPARAM(ListId, LBN_DBLCLK), control);
    EXPECT_TRUE(m_object.m_notes.empty());
    Send(WM_COMMAND, MAKEWPARAM(ButtonId, LBN_SELCHANGE), control);
    EXPECT_TRUE(m_object.m_notes.empty());
}

TEST_F(MessageMapTest, ANotificationGivesItsStructure)
{
    NMLISTVIEW click{};
    click.hdr = {Other(), ListId, LVN_COLUMNCLICK};
    click.iSubItem = 4;
    EXPECT_EQ(0, Send(WM_NOTIFY, ListId, AsLong(&click)));
    EXPECT_EQ(Notes{L"column 4"}, m_object.m_notes);

    NMLVDISPINFOW info{};
    info.hdr = {Other(), ListId, static_cast<UINT>(LVN_GETDISPINFOW)};
    EXPECT_EQ(6, Send(WM_NOTIFY, ListId, AsLong(&info)));
    EXPECT_EQ(12, info.item.iImage);
}

TEST_F(MessageMapTest, ANotificationMayBeTakenByItsHeaderAlone)
{
    NMHDR focus{Other(), ListId, NM_SETFOCUS};
    Send(WM_NOTIFY, ListId, AsLong(&focus));
    EXPECT_EQ(Notes{L"focus 7"}, m_object.m_notes);
}

TEST_F(MessageMapTest, ANotificationOfAnotherControlIsNotHandled)
{
    NMHDR focus{Other(), ButtonId, NM_SETFOCUS};
    Send(WM_NOTIFY, ButtonId, AsLong(&focus));
    EXPECT_TRUE(m_object.m_notes.empty());
    EXPECT_EQ(1, m_window.CountOf(WM_NOTIFY));
}

// A base with two rows, and a derived class that hides one of them and calls it by name.
class CBaseRows : public CWnd
{
public:
    Notes m_notes;

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows =
            MessageRows(On::Message<WM_CLOSE, &CBaseRows::OnClose>, On::Message<WM_TIMER, &CBaseRows::OnTimer>);
        static constexpr MessageMap map{rows, &CWnd::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

    void OnClose() { m_notes.push_back(L"base close"); }

    void OnTimer(UINT_PTR) { m_notes.push_back(L"base timer"); }
};

class CDerivedRows : public CBaseRows
{
protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows = MessageRows(On::Message<WM_CLOSE, &CDerivedRows::OnClose>);
        static constexpr MessageMap map{rows, &CBaseRows::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    void OnClose()
    {
        m_notes.push_back(L"derived close");
        CBaseRows::OnClose();
    }
};

TEST(MessageMapOfClassesTest, ARowHidesTheBasesAndReachesItByName)
{
    PlainWindow window;
    CDerivedRows object;
    ASSERT_TRUE(object.SubclassWindow(window.Get()));
    object.SendMessage(WM_CLOSE);
    EXPECT_EQ((Notes{L"derived close", L"base close"}), object.m_notes);
}

TEST(MessageMapOfClassesTest, ARowOfTheBaseIsFoundFromTheDerivedClass)
{
    PlainWindow window;
    CDerivedRows object;
    ASSERT_TRUE(object.SubclassWindow(window.Get()));
    object.SendMessage(WM_TIMER, 1);
    EXPECT_EQ(Notes{L"base timer"}, object.m_notes);
}

TEST(MessageMapOfClassesTest, ATableMayBeEmpty)
{
    static constexpr auto rows = MessageRows();
    static constexpr MessageMap map{rows, nullptr};
    EXPECT_EQ(nullptr, map.Find(RowKind::Message, WM_CLOSE, 0));
}

} // namespace
