// The viewer on a day of a million records: what a user does with it, and the memory that it leaves.

#include "resource/resource.h"
#include "suite/samples/Month.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/Input.h"
#include "tests/e2e/InstalledFolder.h"
#include "tests/e2e/SaveDialog.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>

namespace
{

constexpr int Records = 1'000'000;
constexpr int FewRecords = 10;
constexpr int Columns = 3;
constexpr int Switches = 10;
constexpr DWORD ImportLimit = 60'000; // milliseconds

struct BigDay
{
    std::wstring file; // its name tells the day
    unsigned dayOfMonth;
    int records;
};

// In the order of the list of dates.
const BigDay Days[] = {{L"20261120.VLG", 20, Records}, {L"20261119.VLG", 19, FewRecords}};

class BigDayTest : public ::testing::Test
{
protected:
    BigDayTest()
    {
        for (const auto& [file, dayOfMonth, records] : Days)
        {
            const std::chrono::year_month_day day{std::chrono::year(2026), std::chrono::November,
                                                  std::chrono::day(dayOfMonth)};
            Samples::WriteLines(m_files.File(file), *Samples::FindKind(L"VLG"), day,
                                static_cast<std::uint64_t>(records), 1);
        }
        const Process import(ProgramFolder() + L"ImportLogs.exe",
                             L"--database \"" + m_logs.File().wstring() + L"\" \"" + m_files.Path().wstring() + L"\"");
        EXPECT_EQ(import.ExitCode(ImportLimit), 0u);
    }

    HWND List() const { return m_viewer->Item(IDC_RECORD_LIST); }

    int TopRow() const { return static_cast<int>(Ask(List(), LVM_GETTOPINDEX)); }

    int SelectedRow() const
    {
        return static_cast<int>(Ask(List(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    }

    int LastTopRow() const { return Records - static_cast<int>(Ask(List(), LVM_GETCOUNTPERPAGE)); }

    // Texts of a column, from rows all over the list.
    std::vector<std::wstring> SomeOf(int column) const
    {
        std::vector<std::wstring> cells;
        for (int row = 0; row < Records; row += Records / 50)
        {
            cells.push_back(m_viewer->Cell(row, column));
        }
        return cells;
    }

    // Takes the thumb of the list's scroll bar, which stands at the lower end, and draws it to the upper one.
    void DragToTheTop() const
    {
        constexpr int insideOfTheThumb = 3; // pixels from its edge
        RECT list{};
        GetWindowRect(List(), &list);
        const int edge = GetSystemMetrics(SM_CXEDGE);
        const int arrow = GetSystemMetrics(SM_CYVSCROLL);
        const int x = list.right - edge - GetSystemMetrics(SM_CXVSCROLL) / 2;
        const int y = list.bottom - edge - arrow - insideOfTheThumb;
        POINT target{x, list.top + edge + arrow};
        PostMessageW(List(), WM_NCLBUTTONDOWN, HTVSCROLL, MAKELPARAM(x, y));
        ScreenToClient(List(), &target);
        PostMessageW(List(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(target.x, target.y));
        PostMessageW(List(), WM_LBUTTONUP, 0, MAKELPARAM(target.x, target.y));
    }

    void SwitchDay(int index) const
    {
        m_viewer->ChooseDate(index);
        ASSERT_EQ(m_viewer->RowCount(), Days[index].records);
    }

    double Megabytes() const { return static_cast<double>(PrivateBytes(m_viewer->Program().Handle())) / (1024 * 1024); }

    const LanguageFile m_language;
    const TemporaryFolder m_files;
    const InstalledFolder m_installed;
    const EventLogs m_logs{m_installed.Folder()};
    std::unique_ptr<Viewer> m_viewer;
};

} // namespace

TEST_F(BigDayTest, AMillionRecordsAreScrolledSortedSelectedExportedSwitchedAndClosed)
{
    m_viewer = std::make_unique<Viewer>(DatabaseCommandLine(VirusLog));
    ASSERT_NE(m_viewer->Form(), nullptr);
    ASSERT_EQ(m_viewer->RowCount(), Records);
    const double atFirst = Megabytes();
    EXPECT_GT(atFirst, 50) << "there is something to lose";

    m_viewer->PressKey(VK_END);
    EXPECT_TRUE(WaitUntil([&] { return SelectedRow() == Records - 1; }));
    EXPECT_EQ(TopRow(), LastTopRow());
    const std::wstring oldest = m_viewer->Cell(Records - 1, 0);
    DragToTheTop();
    EXPECT_TRUE(WaitUntil([&] { return TopRow() == 0; })) << "the top row is " << TopRow();

    for (int column = Columns - 1; column >= 0; --column)
    {
        m_viewer->ClickHeader(column);
        EXPECT_TRUE(WaitUntil([&] { return std::ranges::is_sorted(SomeOf(column)); })) << "column " << column;
    }
    EXPECT_EQ(m_viewer->Cell(0, 0), oldest);

    m_viewer->ClickRow(2);
    EXPECT_TRUE(WaitUntil([&] { return m_viewer->TextOf(IDC_INFO_VALUE_0_LINK) == m_viewer->Cell(2, 2); }));
    m_viewer->PressKey(VK_DOWN);
    EXPECT_TRUE(WaitUntil([&] { return SelectedRow() == 3; }));

    const std::filesystem::path exported = m_files.Path() / L"export.txt";
    PostMessageW(m_viewer->Item(IDC_FORM_EXPORT), BM_CLICK, 0, 0);
    {
        const SaveDialog dialog;
        ASSERT_TRUE(dialog.IsOpen());
        dialog.Type(exported.wstring());
        dialog.Press(VK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return !dialog.IsOpen() && std::filesystem::exists(exported); }));
    }
    EXPECT_EQ(m_viewer->RowCount(), Records) << "the viewer answers again";
    EXPECT_GT(std::filesystem::file_size(exported), std::filesystem::file_size(m_files.File(Days[0].file)) / 2);

    for (int i = 0; i < Switches; ++i)
    {
        SwitchDay(i % 2 == 0 ? 1 : 0);
    }
    EXPECT_LT(Megabytes(), atFirst * 1.1);
    EXPECT_EQ(m_viewer->Close(), 0u);
}
