// What the page traces of failures that nobody sees on the screen.

#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "resource/resource.h"
#include "tests/ui/framework/ui/kestrix/app/DatabasePageTest.h"

#include <algorithm>

namespace
{

constexpr std::size_t PathRoom = 260; // characters, with the terminator

class PageTracesTest : public DatabasePageTest
{
protected:
    // Loads the date of a page in file mode again, from this path, and returns the failures traced.
    Texts ErrorsOfLoading(const std::wstring& path)
    {
        m_page.m_strLogPath = path;
        m_trace.Clear();
        SelectDate(0);
        return m_trace.Errors();
    }
};

} // namespace

TEST_F(PageTracesTest, APathThatIsEmptyOrDoesNotFitIsTracedWithTheStatusOfItsCopy)
{
    m_page.m_bIsLocal = false;
    OpenDay({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
    EXPECT_EQ(ErrorsOfLoading({}), Texts{L"VdCommon::String::CopyTString() failed: 0x00000000"});
    EXPECT_EQ(ErrorsOfLoading(std::wstring(PathRoom, L'x')),
              Texts{L"VdCommon::String::CopyTString() failed: 0x0000007A"});
    const Texts errors = ErrorsOfLoading(std::wstring(PathRoom - 1, L'x'));
    EXPECT_TRUE(std::ranges::none_of(errors, [](const std::wstring& text)
                                     { return text.starts_with(L"VdCommon::String::CopyTString"); }));
}

TEST_F(PageTracesTest, ARowWithoutARecordIsTraced)
{
    m_page.m_bIsLocal = false;
    OpenDay({L"x|0900|1048576|x|0|0|beta|C:\\b|4|1|0|0"});
    m_trace.Clear();
    m_list.SendMessage(LVM_DELETEALLITEMS);
    LVITEMW item{};
    m_list.SendMessage(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    ClickRow(0);
    EXPECT_EQ(m_trace.Errors(), Texts{L"CKestrixDlg::OnClickLogList() - pLogData is NULL."});
}

namespace
{

// The way to the extension of any log, which is that of its class alone.
struct Extension : CZPTLogBase
{
    static constexpr std::wstring CZPTLogBase::*Member = &Extension::m_strExt;
};

// A page whose log belongs to no kind of the database by the time that it asks for its days.
class StrangePage : public CKestrixDlg
{
    void SetInfoRow(std::size_t, const std::wstring&, bool) override { Log()->*Extension::Member = L"???"; }
};

} // namespace

TEST_F(PageTracesTest, ALogThatTheDatabaseDoesNotKnowIsTracedAndNotAskedFor)
{
    m_database.AddDay(2026, 11, 20);
    StrangePage page;
    page.m_nLogType = LogTypeVirus;
    page.m_bLogOnly = true;
    page.m_bIsLocal = true;
    page.m_pHost = &m_app;
    page.SetFormButtons(m_export, m_delete);
    ASSERT_TRUE(page.Create(IDD_LOG_PAGE, &m_parent));
    EXPECT_EQ(ErrorCount(L"*** CKestrixDlg::FillDate() - m_pLogData->GetQueryValueSubType() failed."), 1);
    EXPECT_EQ(m_database.CountOf(OrlQueryDays), 0);
    EXPECT_EQ(CWindow(page.GetDlgItem(IDC_DATE_LIST)).SendMessage(LB_GETCOUNT), 0);
}
