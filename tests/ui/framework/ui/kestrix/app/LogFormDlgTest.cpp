// The form around the page: what it shows, and what it leaves behind.

#include "resource/resource.h"
#include "tests/support/LiveHandles.h"
#include "tests/support/LiveWindows.h"
#include "tests/ui/framework/ui/kestrix/app/FormTest.h"

namespace
{

using LogFormDlgTest = FormTest;

bool IsInside(const CWindow& inner, const CWindow& outer)
{
    const RECT small = inner.GetWindowRect();
    const RECT large = outer.GetWindowRect();
    RECT both{};
    return IntersectRect(&both, &small, &large) && EqualRect(&both, &small);
}

} // namespace

TEST_F(LogFormDlgTest, TitleAndHeadingAreTheFormsTitle)
{
    std::wstring title;
    std::wstring heading;
    m_form.Run({[&]
                {
                    title = m_form.GetWindowText();
                    heading = m_form.Item(IDC_FORM_HEADING).GetWindowText();
                }});
    EXPECT_EQ(title, Text(80));
    EXPECT_EQ(heading, Text(80));
}

TEST_F(LogFormDlgTest, ThePageStandsInTheFormWithItsRecords)
{
    m_form.Run({[&]
                {
                    EXPECT_TRUE(m_form.IsWindowVisible());
                    CKestrixDlg* const page = m_form.Page();
                    ASSERT_NE(page, nullptr);
                    EXPECT_TRUE(page->IsWindowVisible());
                    EXPECT_TRUE(IsInside(*page, m_form));
                    EXPECT_EQ(CWindow(page->GetDlgItem(IDC_RECORD_LIST)).SendMessage(LVM_GETITEMCOUNT), 3);
                    EXPECT_EQ(page->m_strLogPath, m_form.m_strLogPath);
                    EXPECT_EQ(page->m_pParentForm, &m_form);
                }});
}

TEST_F(LogFormDlgTest, ThePageGetsAllThatTheCommandLineSaid)
{
    m_form.m_strLocalIp = L"192.0.2.7";
    m_form.m_nReportSpan = 9;
    m_form.m_nLogType = LogTypeNone;
    m_form.m_bIsLocal = true;
    m_form.Run({[&]
                {
                    CKestrixDlg* const page = m_form.Page();
                    ASSERT_NE(page, nullptr);
                    EXPECT_EQ(page->m_strLocalIp, L"192.0.2.7");
                    EXPECT_EQ(page->m_nReportSpan, 9u);
                    EXPECT_EQ(page->m_nLogType, static_cast<std::uint32_t>(LogTypeNone));
                    EXPECT_TRUE(page->m_bIsLocal);
                    EXPECT_TRUE(page->m_bLogOnly);
                }});
}

TEST_F(LogFormDlgTest, DeleteIsDisabledInFileModeAndExportIsNot)
{
    m_form.Run({[&]
                {
                    EXPECT_FALSE(m_form.Item(IDC_FORM_DELETE).IsWindowEnabled());
                    EXPECT_TRUE(m_form.Item(IDC_FORM_EXPORT).IsWindowEnabled());
                    EXPECT_TRUE(m_form.Item(IDC_FORM_CLOSE).IsWindowEnabled());
                    EXPECT_FALSE(CWindow(m_form.Page()->GetDlgItem(IDC_SETTING)).IsWindowEnabled());
                }});
}

TEST_F(LogFormDlgTest, ItHasItsIcons)
{
    m_form.Run({[&]
                {
                    EXPECT_NE(m_form.SendMessage(WM_GETICON, ICON_BIG), 0);
                    EXPECT_NE(m_form.SendMessage(WM_GETICON, ICON_SMALL), 0);
                }});
}

TEST_F(LogFormDlgTest, AFileThatIsNotThereIsToldOnceAndTheEmptyFormCanBeClosed)
{
    m_form.m_strLogPath = m_folder.File(L"20261121.VLG");
    EXPECT_EQ(m_form.RunToItsOwnEnd({[&]
                                     {
                                         EXPECT_TRUE(m_form.IsWindowVisible());
                                         m_form.Item(IDC_FORM_CLOSE).SendMessage(BM_CLICK);
                                     }}),
              IDCANCEL);
    ASSERT_EQ(m_boxes.Boxes().size(), 1u);
    EXPECT_EQ(m_boxes.Boxes()[0].text, Text(188));
}

TEST_F(LogFormDlgTest, ItRunsASecondTime)
{
    EXPECT_EQ(m_form.Run({}), ScriptedForm::EndedByTest);
    LRESULT rows = 0;
    EXPECT_EQ(
        m_form.Run({[&] { rows = CWindow(m_form.Page()->GetDlgItem(IDC_RECORD_LIST)).SendMessage(LVM_GETITEMCOUNT); }}),
        ScriptedForm::EndedByTest);
    EXPECT_EQ(rows, 3);
}

TEST_F(LogFormDlgTest, TenFormsLeaveNoHandleAndNoWindow)
{
    const auto handles = LiveHandles::All();
    const auto windows = LiveWindows();
    auto during = handles;
    for (int i = 0; i < 10; ++i)
    {
        ScriptedForm form;
        form.m_strLogPath = m_form.m_strLogPath;
        form.m_nLogType = LogTypeVirus;
        EXPECT_EQ(form.Run({[&]
                            {
                                const CWindow list(form.Page()->GetDlgItem(IDC_RECORD_LIST));
                                list.SendMessage(LVM_SORTITEMS);
                                form.Page()->OnSelchangeLogDate();
                                during = LiveHandles::All();
                            }}),
                  ScriptedForm::EndedByTest);
    }
    EXPECT_NE(during, handles) << "a form that stands has handles";
    EXPECT_EQ(LiveHandles::All(), handles);
    EXPECT_EQ(LiveWindows(), windows);
}
