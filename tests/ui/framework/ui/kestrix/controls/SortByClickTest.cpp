// The rule of clicks on the headers of a sorted list: the page's rule, on the page's own list.

#include "framework/ui/kestrix/app/Kestrix.h"
#include "framework/ui/kestrix/app/KestrixDlg.h"
#include "resource/resource.h"
#include "tests/support/CommonControls.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/ProviderDouble.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

constexpr int ClickUp = 0;
constexpr int ClickDown = 1;

class SortByClickTest : public ::testing::Test
{
protected:
    SortByClickTest()
    {
        RegisterCommonControls();
        m_app.m_pIDBManagerProvider = &m_provider;
        const std::wstring path = m_folder.File(L"20260101.VLG");
        WriteUtf16(path, L"x|0900|1048576|x|0|0|beta|p|4|1|0|0\r\n"
                         L"x|1030|1048576|x|0|0|alpha|p|1|1|0|0\r\n"
                         L"x|0930|1048576|x|0|0|gamma|p|2|1|0|0\r\n");
        m_page.m_strLogPath = path;
        m_page.m_bLogOnly = true;
        m_page.m_pHost = &m_app;
        m_parent.CWnd::Create(L"STATIC", {}, WS_POPUP, {0, 0, 800, 600}, nullptr, 0);
        m_page.CDialog::Create(IDD_LOG_PAGE, &m_parent);
        m_list.Attach(m_page.GetDlgItem(IDC_RECORD_LIST));
    }

    // As the header tells the list when the user clicks it.
    void Click(int column)
    {
        const HWND header = m_list.GetHeaderCtrl();
        NMHEADERW click{};
        click.hdr = {header, static_cast<UINT_PTR>(::GetDlgCtrlID(header)), static_cast<UINT>(HDN_ITEMCLICKW)};
        click.iItem = column;
        m_list.SendMessage(WM_NOTIFY, click.hdr.idFrom, reinterpret_cast<LPARAM>(&click));
    }

    // The arrow of a column; -1 for none.
    int Arrow(int column) const
    {
        HDITEMW item{};
        item.mask = HDI_IMAGE | HDI_FORMAT;
        Header_GetItem(m_list.GetHeaderCtrl(), column, &item);
        return (item.fmt & HDF_IMAGE) != 0 ? item.iImage : -1;
    }

    // The threat names from top to bottom.
    std::vector<std::wstring> Names() const
    {
        std::vector<std::wstring> names;
        for (int i = 0; i < m_list.GetItemCount(); ++i)
        {
            names.push_back(m_list.GetItemText(i, 2));
        }
        return names;
    }

    const LanguageFile m_language;
    TemporaryFolder m_folder;
    ProviderDouble m_provider;
    CKestrixApp m_app; // lends the page the provider, without which it stays empty
    CWnd m_parent;
    CKestrixDlg m_page;
    CListCtrl m_list; // the page's list by another name
};

} // namespace

TEST_F(SortByClickTest, AFreshListStandsInDescendingOrderOfItsFirstColumnWithTheDownArrowOnIt)
{
    EXPECT_EQ(Names(), (std::vector<std::wstring>{L"alpha", L"gamma", L"beta"}));
    EXPECT_EQ(Arrow(0), ClickDown);
}

TEST_F(SortByClickTest, AClickOnAColumnThenOnAnotherThenOnTheFirstIsAscendingInAllThree)
{
    Click(2);
    EXPECT_EQ(Arrow(2), ClickUp);
    EXPECT_EQ(Names(), (std::vector<std::wstring>{L"alpha", L"beta", L"gamma"}));
    Click(0);
    EXPECT_EQ(Arrow(0), ClickUp);
    EXPECT_EQ(Arrow(2), -1);
    EXPECT_EQ(Names(), (std::vector<std::wstring>{L"beta", L"gamma", L"alpha"}));
    Click(2);
    EXPECT_EQ(Arrow(2), ClickUp);
    EXPECT_EQ(Arrow(0), -1);
    EXPECT_EQ(Names(), (std::vector<std::wstring>{L"alpha", L"beta", L"gamma"}));
}

TEST_F(SortByClickTest, ASecondClickOnAColumnTurnsItAroundAndAThirdTurnsItBack)
{
    Click(2);
    Click(2);
    EXPECT_EQ(Arrow(2), ClickDown);
    EXPECT_EQ(Names(), (std::vector<std::wstring>{L"gamma", L"beta", L"alpha"}));
    Click(2);
    EXPECT_EQ(Arrow(2), ClickUp);
    EXPECT_EQ(Names(), (std::vector<std::wstring>{L"alpha", L"beta", L"gamma"}));
}
