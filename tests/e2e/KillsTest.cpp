// Programs that are killed at random moments of their work: they leave what was there before or what was to be there,
// and the next one does the whole work with it.

#include "resource/resource.h"
#include "suite/framework/ValueSource.h"
#include "tests/e2e/ClientThread.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/RuleList.h"
#include "tests/e2e/SaveDialog.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/e2e/ViewerDialog.h"
#include "tests/support/DebugScale.h"
#include "tests/support/EventRows.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/Seed.h"
#include "tests/unit/suite/framework/RandomRules.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <map>
#include <random>
#include <ranges>

namespace
{

using Lines = std::vector<std::wstring>;

constexpr EventLog::Day Day = 20261118;
constexpr int Records = static_cast<int>(Scaled(20'000));
constexpr std::size_t Rules = Scaled(2000);
constexpr char OldExport[] = "an older export";

enum Outcome
{
    Old,
    New,
    Between, // of two settings, when the purge is off
    Broken,
    Stuck, // a call did not come back, or a dialog did not come
    Outcomes
};

Lines VirusLines(const wchar_t* threat)
{
    return Lines(Records, VirusLine(L"103015", threat));
}

// False while the file is being replaced.
bool CanRead(const std::wstring& path, std::string& bytes)
{
    try
    {
        bytes = ReadBytes(path);
        return true;
    }
    catch (const std::runtime_error&)
    {
        return false;
    }
}

// Some, and those with one for a program before them, which is allowed.
RuleList RulesFor(Outcome outcome)
{
    Framework::List rules = RandomRules(Rules, 1);
    if (outcome == New)
    {
        rules.insert(rules.begin(), MadeRule(L"C:\\a.exe", L"a", Tcp));
    }
    return RuleList(rules);
}

class KillsTest : public ServiceFixture
{
protected:
    struct Operation
    {
        std::string_view killed;
        const char* during;
        DWORD duration;               // in milliseconds, for the first kill; the others know that of the work before
        void (KillsTest::*prepare)(); // makes the old state
        void (KillsTest::*begin)();   // returns when nothing is left but the work itself
        Outcome (KillsTest::*look)();
    };

    static const Operation Operations[10];

    KillsTest()
    {
        std::wstring text;
        for (int i = 0; i < Records; ++i)
        {
            text += L"x|103015|1048576|x|0|0|new|C:\\new.exe|4|1|0|0\r\n";
        }
        WriteUtf16(m_file, text);
    }

    void FillForImport() { Fill(VirusLines(L"new")); }

    void FillForDeletion() { Fill({}); }

    void Fill(const Lines& after)
    {
        m_lines = {VirusLines(L"old"), after};
        EventLog::EventDatabase::Create(m_logs.File()).ReplaceDay(VirusSubType, Day, m_lines[Old]);
    }

    void RemoveDatabase()
    {
        m_lines = {Lines(), VirusLines(L"new")};
        for (const wchar_t* const end : {L"", L"-wal", L"-shm"})
        {
            std::filesystem::remove(m_logs.File().wstring() + end);
        }
    }

    void WriteSettings()
    {
        for (const auto& [name, number] : {std::pair{L"EventLogPurgeFlag", 0}, {L"EventLogPurgeFre", 30}})
        {
            RegSetKeyValueW(HKEY_LOCAL_MACHINE, EventLogKey, name, REG_DWORD, &number, sizeof number);
        }
    }

    void FillForAllowing()
    {
        StoreOldRules();
        constexpr wchar_t blocked[] = L"100000|4|0|2||6|2|LIP|49152|192.0.2.20|443|||C:\\a.exe||";
        EventLog::EventDatabase::Create(m_logs.File()).ReplaceDay(FirewallSubType, Day, Lines{blocked});
    }

    void StoreOldRules() { m_rules[Old].Store(m_service); }

    void WriteOldExport() { WriteBytes(m_export, OldExport); }

    void Import()
    {
        m_import.emplace(ProgramFolder() + L"ImportLogs.exe",
                         L"--database \"" + m_logs.File().wstring() + L"\" \"" + m_file + L"\"",
                         m_service.Installed().File(L"import.txt"));
    }

    void OrderDeletion()
    {
        m_client.emplace([](auto& controller) { return OrderPurge(controller, VirusPurgeType, Day); });
    }

    void SetSettings()
    {
        const Framework::List settings{7u, 1u};
        m_client.emplace([=, this](auto& controller) { return m_answer = SetProfile(controller, {113, 2}, settings); });
    }

    void SetRules()
    {
        m_client.emplace([this](auto& controller) { return m_answer = m_rules[New].Set(controller); });
    }

    void ReadWhileImporting()
    {
        m_viewer.emplace(DatabaseCommandLine(VirusLog));
        Import();
        m_viewer->ClickDate(0);
    }

    void PressDelete()
    {
        m_viewer.emplace(DatabaseCommandLine(VirusLog));
        if (!m_viewer->Dates().empty()) // else it was done when the viewer was killed
        {
            m_viewer->Click(IDC_FORM_DELETE);
            const ViewerDialog dialog(*m_viewer, IDC_DELETE_DATE);
            dialog.ChooseByClick(IDC_DELETE_DATE, 0);
            dialog.Click(IDOK);
            ViewerDialog(*m_viewer, IDYES).Click(IDYES);
        }
    }

    void PressSettings()
    {
        m_viewer.emplace(DatabaseCommandLine(VirusLog));
        m_viewer->Click(IDC_SETTING);
        const ViewerDialog dialog(*m_viewer, IDC_SETTINGS_FREQUENCY);
        dialog.ChooseByClick(IDC_SETTINGS_FREQUENCY, 0); // 7 days
        if (!dialog.IsChecked(IDC_SETTINGS_PURGE))
        {
            dialog.Click(IDC_SETTINGS_PURGE);
            WaitUntil([&] { return dialog.IsChecked(IDC_SETTINGS_PURGE); });
        }
        dialog.Click(IDOK);
    }

    void PressAllow()
    {
        m_viewer.emplace(DatabaseCommandLine(FirewallLog));
        WaitUntil([&] { return m_viewer->RowCount() == 1; });
        m_viewer->PressKey(VK_DOWN);
        WaitUntil([&] { return m_viewer->IsEnabled(IDC_ALLOW); });
        m_viewer->Click(IDC_ALLOW);
    }

    void PressExport()
    {
        m_viewer.emplace(FileCommandLine(VirusLog, m_file));
        PostMessageW(m_viewer->Item(IDC_FORM_EXPORT), BM_CLICK, 0, 0);
        const SaveDialog dialog;
        dialog.Type(m_export);
        dialog.Press(VK_RETURN);
        ViewerDialog(*m_viewer, IDYES).Click(IDYES); // replace
    }

    Outcome LookAtRecords()
    {
        const bool isThere = std::filesystem::exists(m_logs.File());
        const Lines lines = isThere ? m_logs.VirusLines(Day) : Lines();
        const bool isIntact = !isThere || IsIntact(m_logs.File());
        return !isIntact ? Broken : lines == m_lines[New] ? New : lines == m_lines[Old] ? Old : Broken;
    }

    Outcome LookAtSettings()
    {
        const std::uint32_t days = PurgeSetting(L"EventLogPurgeFre");
        const std::uint32_t flag = PurgeSetting(L"EventLogPurgeFlag");
        return days == 7 ? (flag == 1 ? New : Between) : days == 30 && flag == 0 ? Old : Broken;
    }

    Outcome LookAtRules()
    {
        return m_rules[New].AreStored(m_service) ? New : m_rules[Old].AreStored(m_service) ? Old : Broken;
    }

    // Not while the press lasts: a file that is read cannot be replaced.
    Outcome LookAtAllowed() { return m_viewer && m_viewer->IsEnabled(IDC_ALLOW) ? Old : LookAtRules(); }

    Outcome LookAtExport()
    {
        std::string bytes;
        WaitUntil([&] { return CanRead(m_export, bytes); });
        const bool isWhole = std::ranges::count(bytes, '\n') == Records + 2 && bytes.ends_with(Utf16Bytes(L"\"\r\n"));
        return isWhole ? New : bytes == OldExport ? Old : Broken;
    }

    Outcome KillAt(DWORD moment, const Operation& operation)
    {
        m_answer = E_PENDING;
        (this->*operation.begin)();
        Sleep(moment);
        End(operation.killed);
        const Outcome outcome = (this->*operation.look)();
        return m_answer == Framework::Success && outcome != New ? Broken : outcome;
    }

    // Returns how long the work took, in milliseconds.
    ULONGLONG Complete(const Operation& operation)
    {
        (this->*operation.begin)();
        const ULONGLONG start = GetTickCount64();
        const HRESULT answer = m_client ? m_client->Result() : S_OK;
        const bool isDone = WaitUntil([&] { return (this->*operation.look)() == New; });
        const ULONGLONG duration = GetTickCount64() - start + 1;
        EXPECT_TRUE(isDone) << "the next one lost a call, or was refused: " << answer;
        EXPECT_EQ(isDone && m_viewer ? m_viewer->Close() : 0, 0u);
        End(isDone ? "viewer" : "service");
        return isDone ? duration : operation.duration;
    }

    // Kills a program, and waits for the others.
    void End(std::string_view killed)
    {
        if (killed == "service")
        {
            Service::Kill();
        }
        m_viewer.reset();
        EXPECT_EQ(m_import && killed != "import" ? m_import->ExitCode() : 0, 0u);
        m_import.reset();
        m_client.reset();
        EXPECT_TRUE(Service::HasEnded());
    }

    // One kill, and what the next program makes of what is left.
    Outcome Try(const Operation& operation, DWORD moment, ULONGLONG& duration)
    {
        try
        {
            WriteSettings();
            (this->*operation.prepare)();
            const Outcome outcome = KillAt(moment, operation);
            EXPECT_NE(outcome, Broken);
            EXPECT_TRUE(outcome != Between || operation.killed == "service");
            const ULONGLONG work = Complete(operation);
            duration = outcome == Old ? work : duration;
            return outcome;
        }
        catch (const std::runtime_error& error)
        {
            ADD_FAILURE() << error.what();
            End("service");
            Connect(); // Wine's service for activations is to be started again by the process that stopped it
            EXPECT_TRUE(Service::HasEnded());
            return Stuck;
        }
    }

    const LanguageFile m_language;
    const EventLogs m_logs{m_service.Installed()};
    const std::wstring m_file = m_service.Installed().File(L"20261118.VLG");
    const std::wstring m_export = m_service.Installed().File(L"export.txt");
    const RuleList m_rules[2] = {RulesFor(Old), RulesFor(New)};
    std::array<Lines, 2> m_lines;
    std::optional<Viewer> m_viewer;
    std::optional<Process> m_import;
    std::optional<ClientThread> m_client;
    std::atomic<HRESULT> m_answer = E_PENDING; // to a client that sets a value
};

// The usual number of kills takes the first rows, which write in four ways.
constexpr KillsTest::Operation KillsTest::Operations[10] = {
    {"import", "feeding", 700, &KillsTest::FillForImport, &KillsTest::Import, &KillsTest::LookAtRecords},
    {"service", "settings", 20, &KillsTest::WriteSettings, &KillsTest::SetSettings, &KillsTest::LookAtSettings},
    {"service", "rules", 400, &KillsTest::StoreOldRules, &KillsTest::SetRules, &KillsTest::LookAtRules},
    {"viewer", "export", 700, &KillsTest::WriteOldExport, &KillsTest::PressExport, &KillsTest::LookAtExport},
    {"service", "purge", 300, &KillsTest::FillForDeletion, &KillsTest::OrderDeletion, &KillsTest::LookAtRecords},
    {"viewer", "purge", 500, &KillsTest::FillForDeletion, &KillsTest::PressDelete, &KillsTest::LookAtRecords},
    {"viewer", "feeding", 700, &KillsTest::FillForImport, &KillsTest::ReadWhileImporting, &KillsTest::LookAtRecords},
    {"viewer", "settings", 50, &KillsTest::WriteSettings, &KillsTest::PressSettings, &KillsTest::LookAtSettings},
    {"viewer", "rules", 900, &KillsTest::FillForAllowing, &KillsTest::PressAllow, &KillsTest::LookAtAllowed},
    {"import", "first feeding", 700, &KillsTest::RemoveDatabase, &KillsTest::Import, &KillsTest::LookAtRecords},
};

} // namespace

TEST_F(KillsTest, AProgramThatIsKilledLeavesTheOldOrTheNewAndTheNextOneDoesItsWork)
{
    const char* const given = std::getenv("KESTRIX_KILLS");
    const int kills = given == nullptr ? 4 : std::atoi(given);
    std::mt19937 random(Seed());
    std::array<std::array<int, Outcomes>, std::size(Operations)> counts{};
    std::map<std::size_t, ULONGLONG> durations;
    for (int i = 0; i < kills; ++i)
    {
        const std::size_t row = i % std::size(Operations);
        const Operation& operation = Operations[row];
        ULONGLONG& duration = durations.try_emplace(row, operation.duration).first->second;
        const DWORD moment = static_cast<DWORD>(random() % duration);
        SCOPED_TRACE(std::string(operation.killed) + ", " + operation.during + ", " + std::to_string(moment) + " ms");
        ++counts[row][Try(operation, moment, duration)];
    }
    for (std::size_t row = 0; row < std::size(Operations); ++row)
    {
        std::cout << "kills\t" << Operations[row].killed << "\t" << Operations[row].during;
        std::ranges::for_each(counts[row], [](int number) { std::cout << "\t" << number; });
        std::cout << "\n";
    }
}
