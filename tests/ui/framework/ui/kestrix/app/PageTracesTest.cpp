// What the page traces of failures that nobody sees on the screen.

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
