// The detail pane: what a click or an arrow key shows in it, and how it looks.

#include "framework/ui/kestrix/controls/Scale.h"
#include "framework/ui/kestrix/controls/SkinColours.h"
#include "resource/resource.h"
#include "tests/support/Picture.h"
#include "tests/support/StandingScale.h"
#include "tests/ui/framework/ui/kestrix/app/PageTest.h"

namespace
{

const std::wstring LongPlace =
    L"C:\\Users\\someone\\Documents\\a folder with a long name\\" + std::wstring(300, L'x') + L".exe";

class KestrixDlgDetailTest : public PageTest
{
protected:
    // The list shows them in the order: a first action that failed and a second that did, an unknown threat, and a
    // detail. The detail stands last in the file, since it would be that of all records after it.
    KestrixDlgDetailTest()
    {
        OpenDay({L"x|1000|1048576|x|0|0|threat|" + LongPlace + L"|2|0|1|1",
                 L"x|0900|1048577|x|0|1|" + Text(51) + L"|C:\\u|4|0|0|0",
                 L"x|0800|1048579|x|0|0|older|C:\\o|4|1|0|0|more about it"});
    }

    // The values of the seven rows; the first is the link.
    Texts Values() const
    {
        return {TextOf(IDC_INFO_VALUE_0_LINK), TextOf(IDC_INFO_VALUE_1), TextOf(IDC_INFO_VALUE_2),
                TextOf(IDC_INFO_VALUE_3),      TextOf(IDC_INFO_VALUE_4), TextOf(IDC_INFO_VALUE_5),
                TextOf(IDC_INFO_VALUE_6)};
    }

    // What the page gives for a control's colours.
    HBRUSH Colour(UINT control, COLORREF& text)
    {
        const UniqueMemoryDC dc(CreateCompatibleDC(nullptr));
        SetTextColor(dc.get(), RGB(1, 2, 3));
        const LRESULT brush = m_page.SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc.get()),
                                                 reinterpret_cast<LPARAM>(Item(control).GetSafeHwnd()));
        text = GetTextColor(dc.get());
        return reinterpret_cast<HBRUSH>(brush);
    }

    const Texts m_newest = {L"threat", Text(150), LongPlace.substr(0, std::stoul(Text(55))) + L"...",
                            Text(147), Text(805), Text(802),
                            Text(802)};
};

} // namespace

TEST_F(KestrixDlgDetailTest, ItsSevenRowsHaveCaptionsAndNoValuesAfterALoad)
{
    const Texts captions = {TextOf(IDC_INFO_LABEL_0), TextOf(IDC_INFO_LABEL_1), TextOf(IDC_INFO_LABEL_2),
                            TextOf(IDC_INFO_LABEL_3), TextOf(IDC_INFO_LABEL_4), TextOf(IDC_INFO_LABEL_5),
                            TextOf(IDC_INFO_LABEL_6)};
    EXPECT_EQ(captions, (Texts{Text(549), Text(550), Text(429), Text(430), Text(192), Text(193), Text(89)}));
    EXPECT_EQ(Values(), Texts(7));
    for (const UINT shown : {IDC_INFO_LABEL_0, IDC_INFO_VALUE_0_LINK, IDC_INFO_LABEL_6, IDC_INFO_VALUE_6})
    {
        EXPECT_TRUE(IsShown(shown)) << shown;
    }
    for (const UINT hidden : {IDC_INFO_VALUE_0_TEXT, IDC_INFO_VALUE_2_WHOLE, IDC_ALLOW, IDC_ALLOW_LABEL})
    {
        EXPECT_FALSE(IsShown(hidden)) << hidden;
    }
}

TEST_F(KestrixDlgDetailTest, AClickOnARowFillsThePane)
{
    ClickRow(0);
    EXPECT_EQ(Values(), m_newest);
    EXPECT_EQ(TipOf(IDC_INFO_VALUE_0_LINK), L"threat");
    EXPECT_EQ(TipOf(IDC_INFO_VALUE_2), LongPlace) << "the whole location";
    ClickRow(2);
    EXPECT_EQ(Values(), (Texts{L"older", Text(150), L"C:\\o", Text(149), Text(800), L"", L"more about it"}));
    EXPECT_EQ(TipOf(IDC_INFO_VALUE_2), L"C:\\o");
}

TEST_F(KestrixDlgDetailTest, AClickBesideTheRowsLeavesThePane)
{
    ClickRow(0);
    m_list.SetItemState(0, 0, LVIS_SELECTED);
    NMITEMACTIVATE click{};
    click.iItem = -1;
    Notify(IDC_RECORD_LIST, static_cast<UINT>(NM_CLICK), click);
    EXPECT_EQ(Values(), m_newest);
}

TEST_F(KestrixDlgDetailTest, ARowWithoutARecordLeavesThePane)
{
    ClickRow(0);
    LVITEMW item{};
    const int row = m_list.InsertItem(item);
    ASSERT_EQ(row, 0);
    ClickRow(row);
    EXPECT_EQ(Values(), m_newest);
}

TEST_F(KestrixDlgDetailTest, TheArrowKeysUpAndDownFillThePane)
{
    SelectRow(0);
    ReleaseKey(m_list, VK_DOWN);
    EXPECT_EQ(Values(), m_newest);
    SelectRow(2);
    ReleaseKey(m_list, VK_UP);
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_LINK), L"older");
}

TEST_F(KestrixDlgDetailTest, OtherKeysAndOtherWindowsDoNotByThemselves)
{
    SelectRow(0);
    ReleaseKey(m_list, VK_LEFT);
    ReleaseKey(m_list, VK_NEXT);
    ReleaseKey(Item(IDC_DATE_LIST), VK_DOWN);
    EXPECT_EQ(Values(), Texts(7)) << "the selection is followed by the next message";
}

TEST_F(KestrixDlgDetailTest, AnUnknownThreatIsAPlainTextInThePlaceOfTheLink)
{
    ClickRow(1);
    EXPECT_TRUE(IsShown(IDC_INFO_VALUE_0_TEXT));
    EXPECT_FALSE(IsShown(IDC_INFO_VALUE_0_LINK));
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_TEXT), Text(52));
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_1), Text(151));
    ClickRow(0);
    EXPECT_FALSE(IsShown(IDC_INFO_VALUE_0_TEXT));
    EXPECT_TRUE(IsShown(IDC_INFO_VALUE_0_LINK));
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_0_LINK), L"threat");
}

TEST_F(KestrixDlgDetailTest, TheLinkAndThePlainTextLieInTheSamePlace)
{
    const RECT link = Item(IDC_INFO_VALUE_0_LINK).GetWindowRect();
    const RECT text = Item(IDC_INFO_VALUE_0_TEXT).GetWindowRect();
    EXPECT_TRUE(EqualRect(&link, &text));
}

TEST_F(KestrixDlgDetailTest, AClickOnTheLocationOpensTheWholeTextAndTheNextRowClosesIt)
{
    ClickRow(0);
    ClickControl(IDC_INFO_VALUE_2);
    EXPECT_FALSE(IsShown(IDC_INFO_VALUE_2));
    EXPECT_TRUE(IsShown(IDC_INFO_VALUE_2_WHOLE));
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_2_WHOLE), LongPlace);
    ClickRow(2);
    EXPECT_TRUE(IsShown(IDC_INFO_VALUE_2));
    EXPECT_FALSE(IsShown(IDC_INFO_VALUE_2_WHOLE));
    EXPECT_EQ(TextOf(IDC_INFO_VALUE_2), L"C:\\o");
}

TEST_F(KestrixDlgDetailTest, AnArrowKeyAndANewLoadCloseTheWholeTextToo)
{
    ClickRow(0);
    ClickControl(IDC_INFO_VALUE_2);
    ReleaseKey(m_list, VK_DOWN);
    EXPECT_FALSE(IsShown(IDC_INFO_VALUE_2_WHOLE));
    ClickControl(IDC_INFO_VALUE_2);
    ASSERT_TRUE(IsShown(IDC_INFO_VALUE_2_WHOLE));
    SelectDate(0);
    EXPECT_FALSE(IsShown(IDC_INFO_VALUE_2_WHOLE));
    EXPECT_TRUE(IsShown(IDC_INFO_VALUE_2));
}

TEST_F(KestrixDlgDetailTest, AValueWithTheKeyboardHasTheRingOfTheDialogAtEveryScale)
{
    ClickRow(0);
    CWindow value = Item(IDC_INFO_VALUE_1);
    RECT place = value.GetWindowRect();
    m_page.ScreenToClient(place);
    for (const int dpi : {96, 192})
    {
        const StandingScale scale(dpi);
        const int width = Scaled(2);
        const int middle = (place.top + place.bottom) / 2;
        m_list.SetFocus();
        EXPECT_NE(PictureOf(m_page).At(place.left - width, middle), SkinColour::Focus) << dpi;
        value.SetFocus();
        const Picture page = PictureOf(m_page);
        EXPECT_EQ(page.At(place.left - width, middle), SkinColour::Focus) << dpi;
        EXPECT_EQ(page.At(place.right, middle), SkinColour::Focus) << dpi;
        EXPECT_NE(page.At(place.left - width - 1, middle), SkinColour::Focus) << dpi;
    }
}

TEST_F(KestrixDlgDetailTest, CaptionsAreBoldAndValuesAreNot)
{
    for (const UINT caption : {IDC_INFO_LABEL_0, IDC_INFO_LABEL_1, IDC_INFO_LABEL_2, IDC_INFO_LABEL_3, IDC_INFO_LABEL_4,
                               IDC_INFO_LABEL_5, IDC_INFO_LABEL_6, IDC_SPARE_EDIT, IDC_ALLOW_LABEL})
    {
        EXPECT_EQ(FontOf(Item(caption)).lfWeight, FW_BOLD) << caption;
        EXPECT_FALSE(FontOf(Item(caption)).lfUnderline) << caption;
    }
    for (const UINT value : {IDC_INFO_VALUE_0_TEXT, IDC_INFO_VALUE_1, IDC_INFO_VALUE_2, IDC_INFO_VALUE_6})
    {
        EXPECT_EQ(FontOf(Item(value)).lfWeight, FW_NORMAL) << value;
        EXPECT_FALSE(FontOf(Item(value)).lfUnderline) << value;
    }
}

TEST_F(KestrixDlgDetailTest, TheLinkIsUnderlinedAndBlueOnWhite)
{
    EXPECT_EQ(FontOf(Item(IDC_INFO_VALUE_0_LINK)).lfWeight, FW_NORMAL);
    EXPECT_TRUE(FontOf(Item(IDC_INFO_VALUE_0_LINK)).lfUnderline);
    COLORREF text = 0;
    LOGBRUSH brush{};
    ASSERT_NE(GetObjectW(Colour(IDC_INFO_VALUE_0_LINK, text), sizeof brush, &brush), 0);
    EXPECT_EQ(text, 0xFF0000u);
    EXPECT_EQ(brush.lbColor, RGB(255, 255, 255));
}

TEST_F(KestrixDlgDetailTest, NoOtherValueIsBlue)
{
    for (const UINT value : {IDC_INFO_VALUE_0_TEXT, IDC_INFO_VALUE_1, IDC_INFO_VALUE_2, IDC_INFO_LABEL_0})
    {
        COLORREF text = 0;
        EXPECT_NE(Colour(value, text), nullptr);
        EXPECT_NE(text, 0xFF0000u) << value;
    }
}
