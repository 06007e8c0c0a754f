// The viewer on daily files: what a user sees and does.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "resource/DialogTexts.h"
#include "resource/resource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/Input.h"
#include "tests/e2e/Viewer.h"
#include "tests/e2e/ViewerDialog.h"
#include "tests/support/ClipboardText.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <dlgs.h>

#include <algorithm>
#include <filesystem>

namespace
{

using Texts = std::vector<std::wstring>;

std::wstring Record(const std::wstring& time, const std::wstring& threat)
{
    return L"x|" + time + L"|1048576|x|0|0|" + threat + L"|C:\\" + threat + L".exe|4|1|0|0\r\n";
}

class DayFileTest : public ::testing::Test
{
protected:
    // A file of four records in the folder, and the viewer on it.
    std::wstring WriteDay(const std::filesystem::path& folder)
    {
        std::filesystem::create_directories(folder);
        const std::wstring path = (folder / L"20261120.VLG").wstring();
        WriteUtf16(path, Record(L"0900", L"beta") + Record(L"1030", L"delta") + Record(L"0915", L"alpha") +
                             Record(L"0930", L"gamma"));
        return path;
    }

    const LanguageFile m_language;
    const TemporaryFolder m_folder;
};

} // namespace

TEST_F(DayFileTest, ShowsTheDayNewestFirstAndTheClickedRowAndClosesByItsButton)
{
    const Viewer viewer(FileCommandLine(VirusLog, WriteDay(m_folder.Path())));
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_EQ(viewer.Dates().size(), 1u);
    ASSERT_EQ(viewer.RowCount(), 4);
    EXPECT_EQ(viewer.Cell(0, 0), L"10:30");
    EXPECT_EQ(viewer.Cell(0, 1), Text(800));
    EXPECT_EQ(viewer.Cell(0, 2), L"delta");
    EXPECT_EQ(viewer.Cell(3, 0), L"09:00");
    EXPECT_EQ(viewer.Cell(3, 2), L"beta");

    viewer.ClickRow(1);
    EXPECT_TRUE(WaitUntil([&] { return viewer.TextOf(IDC_INFO_VALUE_0_LINK) == L"gamma"; }));
    EXPECT_EQ(viewer.TextOf(IDC_INFO_VALUE_2), L"C:\\gamma.exe");
    EXPECT_EQ(viewer.TextOf(IDC_INFO_VALUE_3), Text(147));
    EXPECT_EQ(viewer.TextOf(IDC_INFO_VALUE_4), Text(800));
    EXPECT_EQ(viewer.Close(), 0u);
}

// Keys of the machine may be lost to another window that comes to the front; each may be pressed again.
TEST_F(DayFileTest, KeysOfTheMachineMoveTheDetailsAndCopyRecordsAndValues)
{
    const Viewer viewer(FileCommandLine(VirusLog, WriteDay(m_folder.Path())));
    ASSERT_NE(viewer.Form(), nullptr);
    const auto press = [&](std::initializer_list<WORD> keys, const std::function<bool()>& done)
    {
        constexpr ULONGLONG patience = 3000; // milliseconds
        return WaitUntil(
            [&]
            {
                PressKeysOfMachine(viewer.Form(), keys);
                return WaitUntil(done, patience);
            });
    };
    const auto copies = [&](std::initializer_list<WORD> keys, const std::wstring& text)
    {
        ClearClipboard();
        return press(keys, [&] { return TextOfClipboard() == text; });
    };
    CZPTLogVir log;
    log.m_bUseDBMgr = false;
    const std::wstring line = Record(L"0900", L"beta");
    ASSERT_TRUE(log.PutRecode(line.substr(0, line.find(L"\r\n")), CZPTLogBase::AnyLine));
    const LogRec& beta = *log.GetLogRecord(0);

    viewer.ClickRow(0);
    ASSERT_TRUE(WaitUntil([&] { return viewer.TextOf(IDC_INFO_VALUE_0_LINK) == L"delta"; }));
    EXPECT_TRUE(press({VK_END}, [&] { return viewer.TextOf(IDC_INFO_VALUE_0_LINK) == L"beta"; }));
    EXPECT_TRUE(copies({VK_CONTROL, 'C'}, log.ExportLine(beta, false)));
    EXPECT_TRUE(copies({VK_CONTROL, VK_SHIFT, 'C'}, log.ExportLine(beta, true)));

    const auto hasMenu = [&] { return viewer.Program().Windows().size() == 2; };
    EXPECT_TRUE(press({VK_SHIFT, VK_F10}, hasMenu));
    EXPECT_TRUE(press({'D'}, [&] { return !hasMenu(); }));
    EXPECT_TRUE(
        WaitUntil([] { return TextOfClipboard().value_or(L"").find(L" C:\\beta.exe\r\n") != std::wstring::npos; }));

    for (const int next : {IDC_INFO_VALUE_0_LINK, IDC_INFO_VALUE_1})
    {
        EXPECT_TRUE(press({VK_TAB}, [&] { return FocusBeside(viewer.Form()) == viewer.Item(next); })) << next;
    }
    EXPECT_TRUE(copies({VK_CONTROL, 'C'}, viewer.TextOf(IDC_INFO_VALUE_1)));
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(DayFileTest, AClickOnAHeaderSortsAndASecondTurnsTheOrder)
{
    const Viewer viewer(FileCommandLine(VirusLog, WriteDay(m_folder.Path())));
    ASSERT_NE(viewer.Form(), nullptr);
    viewer.ClickHeader(2);
    EXPECT_TRUE(WaitUntil([&] { return viewer.Column(2) == (Texts{L"alpha", L"beta", L"delta", L"gamma"}); }));
    viewer.ClickHeader(2);
    EXPECT_TRUE(WaitUntil([&] { return viewer.Column(2) == (Texts{L"gamma", L"delta", L"beta", L"alpha"}); }));
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(DayFileTest, F3AsksForATextGoesFromRecordToRecordAndSaysWhenTheSearchHasGoneRound)
{
    const Viewer viewer(FileCommandLine(VirusLog, WriteDay(m_folder.Path())));
    ASSERT_NE(viewer.Form(), nullptr);
    const auto isFound = [&](const wchar_t* threat)
    { return WaitUntil([&] { return viewer.TextOf(IDC_INFO_VALUE_0_LINK) == threat; }); };
    viewer.PressKey(VK_F3);
    const ViewerDialog dialog(viewer, edt1);
    dialog.Press('T');
    dialog.Press('A');
    EXPECT_TRUE(WaitUntil([&] { return Ask(dialog.Item(edt1), WM_GETTEXTLENGTH) == 2; })); // which comes by messages
    dialog.Press(VK_RETURN);
    EXPECT_TRUE(isFound(L"delta"));
    dialog.Press(VK_RETURN);
    EXPECT_TRUE(isFound(L"beta"));
    EXPECT_FALSE(IsWindowVisible(viewer.Item(IDC_SEARCH_NOTE)));
    dialog.Press(VK_ESCAPE);
    EXPECT_TRUE(dialog.WaitUntilClosed());
    viewer.PressKey(VK_F3);
    EXPECT_TRUE(isFound(L"delta"));
    EXPECT_TRUE(WaitUntil([&] { return IsWindowVisible(viewer.Item(IDC_SEARCH_NOTE)) != FALSE; }));
    EXPECT_EQ(viewer.TextOf(IDC_SEARCH_NOTE), Text(IDS_SEARCH_FROM_TOP));
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(DayFileTest, APathMayHaveSpacesAndAnyCharacters)
{
    const Viewer viewer(FileCommandLine(VirusLog, WriteDay(m_folder.Path() / L"a b \x00E4\x0416\x65E5\x672C")));
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_EQ(viewer.RowCount(), 4);
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(DayFileTest, AFileThatIsStillWrittenIsShownUpToItsLastWholeLineAndAgainOnDemand)
{
    const std::wstring path = WriteDay(m_folder.Path());
    const UniqueFile writer(CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(writer);
    const auto append = [&](const std::wstring& text)
    {
        const std::string bytes = Utf16Bytes(text);
        DWORD written = 0;
        WriteFile(writer.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    };
    const std::wstring line = Record(L"1100", L"newest");
    append(line.substr(0, 20));
    const Viewer viewer(FileCommandLine(VirusLog, path));
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_EQ(viewer.RowCount(), 4);

    append(line.substr(20) + Record(L"1101", L"last"));
    EXPECT_EQ(viewer.RowCount(), 4);
    viewer.ChooseDate();
    EXPECT_EQ(viewer.RowCount(), 6);
    EXPECT_EQ(viewer.Cell(0, 2), L"last");
    EXPECT_EQ(viewer.Cell(1, 2), L"newest");
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(DayFileTest, AMonthOfSamplesOpens)
{
    const Process samples(ProgramFolder() + L"..\\suite\\SampleLogs.exe",
                          L"--kind VLG --days 3 --end 20261120 --seed 7 --folder \"" + m_folder.Path().wstring() +
                              L"\"");
    ASSERT_EQ(samples.ExitCode(60'000), 0u);
    std::wstring path;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(m_folder.Path()))
    {
        path = entry.path().extension() == L".VLG" ? entry.path().wstring() : path;
    }
    ASSERT_FALSE(path.empty());
    const std::wstring text = ReadUtf16(path);
    const Viewer viewer(FileCommandLine(VirusLog, path));
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_EQ(viewer.RowCount(), std::ranges::count(text, L'\n'));
    EXPECT_GT(viewer.RowCount(), 0);
    Texts times = viewer.Column(0);
    EXPECT_TRUE(std::ranges::is_sorted(times, std::ranges::greater()));
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(DayFileTest, AFileThatIsNotThereIsToldByABoxWithTheLogsTitle)
{
    const Process viewer(ProgramFolder() + L"Kestrix.exe", FileCommandLine(VirusLog, m_folder.File(L"20261120.VLG")));
    const HWND box = viewer.Window(Text(143));
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(WaitUntil(
        [&]
        {
            PostMessageW(box, WM_COMMAND, IDOK, 0);
            return !IsWindow(box);
        }));
    const HWND form = viewer.Window(Text(IDS_FORM_TITLE));
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(CloseForm(viewer, form), 0u);
}
