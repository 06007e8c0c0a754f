// Every kind of log in the real program, from the database and from a daily file: the golden days as a user meets them.

#include "framework/ui/kestrix/logs/LogKinds.h"
#include "resource/resource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/GoldenView.h"
#include "tests/e2e/SaveDialog.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/VisibleText.h"

#include <algorithm>
#include <stdexcept>

namespace
{

using Lines = GoldenView::Lines;

constexpr EventLog::Day Today = 20261120;
constexpr ULONGLONG Patience = 5000; // milliseconds for what a click changes

constexpr std::pair<int, int> InfoRows[] = {
    {IDC_INFO_LABEL_0, IDC_INFO_VALUE_0_TEXT}, {IDC_INFO_LABEL_1, IDC_INFO_VALUE_1},
    {IDC_INFO_LABEL_2, IDC_INFO_VALUE_2},      {IDC_INFO_LABEL_3, IDC_INFO_VALUE_3},
    {IDC_INFO_LABEL_4, IDC_INFO_VALUE_4},      {IDC_INFO_LABEL_5, IDC_INFO_VALUE_5},
    {IDC_INFO_LABEL_6, IDC_INFO_VALUE_6},
};

const LogKind& KindOf(const GoldenDayFile& day)
{
    const std::wstring extension(day.extension.begin(), day.extension.end());
    const auto found = std::ranges::find(LogKinds(), extension, &LogKind::extension);
    if (found == LogKinds().end())
    {
        throw std::runtime_error(day.name + " is a day of no kind");
    }
    return *found;
}

// As golden days have their lines.
std::string Trimmed(const std::string& line)
{
    return line.substr(0, line.find_last_not_of(' ') + 1);
}

Lines RowsOf(const Viewer& viewer, std::size_t columns)
{
    Lines rows;
    for (int row = 0; row < viewer.RowCount(); ++row)
    {
        std::string cells;
        for (std::size_t column = 0; column < columns; ++column)
        {
            cells += (column == 0 ? "" : " | ") + Visible(viewer.Cell(row, static_cast<int>(column)));
        }
        rows.push_back(Trimmed(cells));
    }
    return rows;
}

Lines PaneOf(const Viewer& viewer)
{
    Lines rows;
    for (const auto& [label, text] : InfoRows)
    {
        if (!IsWindowVisible(viewer.Item(label)))
        {
            continue;
        }
        const bool isLink = text == IDC_INFO_VALUE_0_TEXT && IsWindowVisible(viewer.Item(IDC_INFO_VALUE_0_LINK));
        const std::string value = Visible(viewer.TextOf(isLink ? IDC_INFO_VALUE_0_LINK : text));
        rows.push_back(Trimmed(Visible(viewer.TextOf(label)) + " | " + value) +
                       (isLink && !value.empty() ? " | link" : ""));
    }
    return rows;
}

// In an export of its own kind.
bool LeavesOutFields(const LogKind& kind)
{
    return kind.type == LogTypeFirewall || kind.type == LogTypePhishing;
}

bool HasNoValues(const Lines& pane)
{
    return std::ranges::all_of(pane, [](const std::string& row) { return row.ends_with(" |"); });
}

Lines LinesOf(const std::wstring& file)
{
    constexpr std::wstring_view lineEnd = L"\r\n";
    Lines lines;
    for (std::size_t start = 0; start < file.size();)
    {
        const std::size_t end = std::min(file.find(lineEnd, start), file.size());
        lines.push_back(Trimmed(Visible(file.substr(start, end - start))));
        start = end + lineEnd.size();
    }
    return lines;
}

void ExpectRows(const Viewer& viewer, std::size_t columns, const Lines& expected)
{
    Lines rows;
    WaitUntil([&] { return (rows = RowsOf(viewer, columns)) == expected; }, Patience);
    EXPECT_EQ(rows, expected);
}

void ExpectPane(const Viewer& viewer, const Lines& expected)
{
    Lines pane;
    WaitUntil(
        [&]
        {
            pane = PaneOf(viewer);
            return expected.empty() ? HasNoValues(pane) : pane == expected;
        },
        Patience);
    EXPECT_TRUE(expected.empty() ? HasNoValues(pane) : pane == expected) << ::testing::PrintToString(pane);
}

class AllLogsTest : public ServiceFixture
{
protected:
    AllLogsTest()
    {
        for (const std::string& name : GoldenDayFile::Names())
        {
            const GoldenDayFile day(name);
            (day.isFromDatabase ? m_arrOfDatabase : m_arrOfFiles).push_back(day);
        }
    }

    // Puts the days of the database there, and returns the command line that shows one of them.
    std::wstring FillDatabase() const
    {
        for (const GoldenDayFile& day : m_arrOfDatabase)
        {
            m_logs.Append(KindOf(day).querySubType, Today, GoldenView(day).LogLines());
        }
        return DatabaseCommandLine(static_cast<int>(LogKinds().front().commandCode));
    }

    // Writes the day to its file, and returns the command line that shows it.
    std::wstring WriteFile(const GoldenDayFile& day) const
    {
        const LogKind& kind = KindOf(day);
        const std::wstring path = m_folder.File(std::to_wstring(Today) + L"." + std::wstring(kind.extension));
        std::wstring text;
        for (const std::wstring& line : GoldenView(day).LogLines())
        {
            text += line + L"\r\n";
        }
        WriteUtf16(path, text);
        return FileCommandLine(static_cast<int>(kind.commandCode), path);
    }

    // What a user does with the log that the viewer shows. An export takes the viewer for one of the kind that it was
    // started with, and so has the title of that one and the fields that its records have.
    void ExpectDay(const Viewer& viewer, const GoldenDayFile& day, const LogKind& started) const
    {
        SCOPED_TRACE(day.name);
        const GoldenView golden(day);
        ExpectRows(viewer, golden.Columns(), golden.Rows());
        ClickAndWalkThroughTheRows(viewer, golden);
        for (std::size_t click = 0; click < 2 * golden.Columns(); ++click)
        {
            SCOPED_TRACE("click " + std::to_string(click));
            viewer.ClickHeader(static_cast<int>(click / 2));
            ExpectRows(viewer, golden.Columns(), golden.RowsAfterClick(click));
        }
        Lines exported = LinesOf(Export(viewer));
        ASSERT_FALSE(exported.empty());
        EXPECT_EQ(exported[0],
                  Visible(L"\"" + Text(ExportTitle(started.type)) + L"\"\t\"" + DateText(Today) + L"\"\t\"\""));
        exported.erase(exported.begin());
        const bool isOwn = &started == &KindOf(day) || !LeavesOutFields(KindOf(day));
        EXPECT_EQ(exported, isOwn ? golden.Export() : golden.ExportOfAllFields());
    }

    static void ClickAndWalkThroughTheRows(const Viewer& viewer, const GoldenView& golden)
    {
        viewer.ClickRow(0);
        ExpectPane(viewer, golden.PaneOfRow(0));
        for (std::size_t row = 1; row < golden.Rows().size(); ++row)
        {
            SCOPED_TRACE("row " + std::to_string(row));
            viewer.PressKey(VK_DOWN);
            ExpectPane(viewer, golden.PaneOfRow(row));
        }
        viewer.PressKey(VK_UP);
        ExpectPane(viewer, golden.PaneOfRow(std::max<std::size_t>(golden.Rows().size(), 2) - 2));
    }

    std::wstring Export(const Viewer& viewer) const
    {
        const std::wstring path = m_folder.File(L"export.csv");
        std::filesystem::remove(path);
        PostMessageW(viewer.Item(IDC_FORM_EXPORT), BM_CLICK, 0, 0);
        const SaveDialog dialog;
        dialog.Type(path);
        dialog.Press(VK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return !dialog.IsOpen() && std::filesystem::exists(path); }));
        viewer.RowCount(); // the viewer answers again: the file is whole
        return ReadUtf16(path);
    }

    const RegistryValue m_firewall{L"Software\\Veldrane\\Zeptara\\17\\Installer", L"FirewallAP", 1};
    const LanguageFile m_language;
    const TemporaryFolder m_folder;
    const EventLogs m_logs{m_service.Installed()};
    std::vector<GoldenDayFile> m_arrOfDatabase;
    std::vector<GoldenDayFile> m_arrOfFiles;
};

} // namespace

TEST_F(AllLogsTest, EachOfTheDatabaseIsShownSortedToldAndExportedInOneViewer)
{
    const Viewer viewer(FillDatabase());
    ASSERT_NE(viewer.Form(), nullptr);
    std::size_t shown = 0;
    for (int log = 0; log < viewer.LogCount(); ++log)
    {
        const std::uint32_t type = viewer.TypeOfLog(log);
        for (const GoldenDayFile& day : m_arrOfDatabase)
        {
            if (KindOf(day).type == type)
            {
                viewer.SwitchToLog(log);
                ExpectDay(viewer, day, LogKinds().front());
                ++shown;
            }
        }
    }
    EXPECT_EQ(shown, LogKinds().size());
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(AllLogsTest, EachOfADailyFileIsShownSortedToldAndExported)
{
    for (const GoldenDayFile& day : m_arrOfFiles)
    {
        const Viewer viewer(WriteFile(day));
        ASSERT_NE(viewer.Form(), nullptr) << day.name;
        ExpectDay(viewer, day, KindOf(day));
        EXPECT_EQ(viewer.Close(), 0u) << day.name;
    }
    EXPECT_EQ(m_arrOfFiles.size(), LogKinds().size());
}

// A hundred rounds with counts of handles and blocks are done in process; see KestrixDlgRoundsTest. Here is the rest of
// the program: the database library, the service's client and the system's controls.
TEST_F(AllLogsTest, RoundsThroughAllLogsLeaveTheMemoryOfTheViewerAsItWas)
{
    constexpr int firstRounds = 5;
    constexpr int rounds = 25;
    constexpr std::size_t mostGrowth = 1 << 18; // bytes: about 1,000 for each log that is shown
    const Viewer viewer(FillDatabase());
    ASSERT_NE(viewer.Form(), nullptr);
    ASSERT_EQ(viewer.LogCount(), static_cast<int>(LogKinds().size()));
    std::size_t before = 0;
    for (int round = 1; round <= rounds; ++round)
    {
        for (int log = 0; log < viewer.LogCount(); ++log)
        {
            viewer.SwitchToLog(log);
            ASSERT_GT(viewer.RowCount(), 0) << "round " << round << ", log " << log;
        }
        before = round == firstRounds ? PrivateBytes(viewer.Program().Handle()) : before;
    }
    const std::size_t after = PrivateBytes(viewer.Program().Handle());
    RecordProperty("PrivateBytesBefore", std::to_string(before));
    RecordProperty("PrivateBytesAfter", std::to_string(after));
    EXPECT_GT(before, 0u);
    EXPECT_LE(after, before + mostGrowth);
    EXPECT_EQ(viewer.Close(), 0u);
}
