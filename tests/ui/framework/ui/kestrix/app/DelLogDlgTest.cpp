#include "framework/ui/kestrix/app/DelLogDlg.h"

#include "resource/resource.h"
#include "tests/ui/framework/ui/kestrix/app/PurgeDialogTest.h"

#include <string>
#include <vector>

namespace
{

class DelLogDlgTest : public PurgeDialogTest<CDelLogDlg>
{
protected:
    CWindow Combo() const { return m_dialog.Item(IDC_DELETE_DATE); }

    int Selected() const { return static_cast<int>(Combo().SendMessage(CB_GETCURSEL)); }

    // As the user does.
    void Choose(int index)
    {
        Combo().SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index));
        m_dialog.SendMessage(WM_COMMAND, MAKEWPARAM(IDC_DELETE_DATE, CBN_SELCHANGE),
                             reinterpret_cast<LPARAM>(Combo().GetSafeHwnd()));
    }

    std::wstring SizeOf(std::uint32_t kilobytes) const
    {
        std::wstring text = Text(67);
        return text.replace(text.find(L"%u"), 2, std::to_wstring(kilobytes));
    }
};

} // namespace

TEST_F(DelLogDlgTest, TheDatesStandInTheOrderOfTheListWithWhatItCarriesBesideThem)
{
    m_dialog.Run({[&]
                  {
                      EXPECT_EQ(
                          EntriesOf(Combo()),
                          (Entries{{L"11/20/2026", 20261120}, {L"11/19/2026", 20261119}, {L"10/31/2026", 20261031}}));
                  }});
}

TEST_F(DelLogDlgTest, TheDateOfTheListIsSelectedAndTheFirstWhereItHasNone)
{
    for (const int selected : {-1, 0, 2})
    {
        m_dates.SetCurSel(selected);
        m_dialog.Run({[&] { EXPECT_EQ(Selected(), selected < 0 ? 0 : selected); }});
    }
}

TEST_F(DelLogDlgTest, TheSizeIsThatOfTheSelectedDateAndOfAllBelowItInKilobytesRoundedUp)
{
    AddDate(L"10/30/2026", 20261030); // not in the map, as all dates of the database
    m_dialog.m_nTotalBytes = 99'999;
    m_dialog.m_mapLogFiles = {{L"11/20/2026", 1024}, {L"11/19/2026", 1}, {L"10/31/2026", 2048}};
    std::vector<std::wstring> sizes;
    m_dialog.Run({[&]
                  {
                      sizes.push_back(m_dialog.m_strSizeText);
                      for (int i = 0; i < 4; ++i)
                      {
                          Choose(i);
                          sizes.push_back(m_dialog.m_strSizeText);
                      }
                  }});
    EXPECT_EQ(sizes, (std::vector<std::wstring>{SizeOf(4), SizeOf(4), SizeOf(3), SizeOf(2), SizeOf(0)}));
}

TEST_F(DelLogDlgTest, FilesOfMoreThan4GigabytesHaveTheirSize)
{
    m_dialog.m_mapLogFiles = {{L"11/20/2026", 0xFFFFFFFF}, {L"11/19/2026", 0xFFFFFFFF}};
    m_dialog.Run({[&] { EXPECT_EQ(m_dialog.m_strSizeText, SizeOf(2 * 4'194'304)); }});
}

TEST_F(DelLogDlgTest, OkAsksWithTheDialogAsOwnerAndTheNameThatTheSuiteHasThen)
{
    HWND window = nullptr;
    std::wstring title;
    m_boxes.m_onBox = [&] { title = m_dialog.GetWindowText(); };
    m_dialog.RunToItsOwnEnd({[&]
                             {
                                 window = m_dialog;
                                 m_registry.SetText(SuiteKey, L"ProductName", L"Another name");
                                 Press(IDOK);
                             }});
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    const MessageBoxRecorder::Box& box = m_boxes.Boxes()[0];
    EXPECT_EQ(box.text, Text(66));
    EXPECT_EQ(box.caption, L"Another name");
    EXPECT_EQ(box.flags, 52u);
    EXPECT_EQ(box.owner, window);
    EXPECT_EQ(title, L"Another name");
}

TEST_F(DelLogDlgTest, TheQuestionSaysThatTheDateGoesTooAndThatNothingComesBack)
{
    EXPECT_NE(Text(66).find(L"up to and including the chosen date"), std::wstring::npos);
    EXPECT_NE(Text(66).find(L"cannot be undone"), std::wstring::npos);
    EXPECT_EQ(Text(66).back(), L'?');
}

TEST_F(DelLogDlgTest, NoInTheConfirmationKeepsTheDialogOpenWithTheFocusOnTheCombo)
{
    m_boxes.Answer(IDNO);
    HWND focus = nullptr;
    HWND combo = nullptr;
    const INT_PTR result = m_dialog.Run({[&]
                                         {
                                             Choose(2);
                                             m_dialog.Item(IDOK).SetFocus();
                                             Press(IDOK);
                                             EXPECT_TRUE(m_dialog.IsWindowVisible());
                                             combo = Combo();
                                             focus = ::GetFocus();
                                             EXPECT_EQ(Selected(), 2);
                                         }});
    EXPECT_EQ(result, m_dialog.EndedByTest);
    EXPECT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_NE(combo, nullptr);
    EXPECT_EQ(focus, combo);
    EXPECT_EQ(m_dialog.m_strDate, L"");
    EXPECT_EQ(m_dialog.m_nDateCount, 0);
}

TEST_F(DelLogDlgTest, YesKeepsTheChoice)
{
    const INT_PTR result = m_dialog.RunToItsOwnEnd({[&]
                                                    {
                                                        Choose(1);
                                                        Press(IDOK);
                                                    }});
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(m_dialog.m_nDateIndex, 1);
    EXPECT_EQ(m_dialog.m_nDateCount, 3);
    EXPECT_EQ(m_dialog.m_strDate, L"11/19/2026");
    EXPECT_EQ(m_dialog.m_nDateData, 20261119u);
}

TEST_F(DelLogDlgTest, CancelAsksNothing)
{
    EXPECT_EQ(m_dialog.RunToItsOwnEnd({[&] { Press(IDCANCEL); }}), IDCANCEL);
    EXPECT_TRUE(m_boxes.Boxes().empty());
    EXPECT_EQ(m_dialog.m_strDate, L"");
}

// A purge that ends while the dialog stands has the page fill its list anew; what stood third is another day then.
TEST_F(DelLogDlgTest, TheChosenDayStaysWhenTheListIsFilledAnewMeanwhile)
{
    m_boxes.m_onBox = [&]
    {
        m_dates.ResetContent();
        AddDate(L"11/21/2026", 20261121);
    };
    m_dialog.RunToItsOwnEnd({[&]
                             {
                                 Choose(2);
                                 Press(IDOK);
                             }});
    EXPECT_EQ(m_dialog.m_strDate, L"10/31/2026");
    EXPECT_EQ(m_dialog.m_nDateData, 20261031u);
}

TEST_F(DelLogDlgTest, IsDrawnInTheSkin)
{
    m_dialog.Run({[&]
                  {
                      ::SetFocus(nullptr); // which another program may take meanwhile
                      EXPECT_PICTURE(PictureOf(m_dialog), "delete");
                  }});
}
