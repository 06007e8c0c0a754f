// Programs that are killed at random moments of their work: they leave what was there before or what was to be there,
// and the next one does the whole work with it.

#include "resource/resource.h"
#include "suite/framework/FirewallRules.h"
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

namespace
{

using Framework::List;
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

template <class State>
Outcome OldOrNew(const State& state, const std::array<State, 2>& states)
{
    return state == states[New] ? New : state == states[Old] ? Old : Broken;
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

    static const Operation Operations[8];

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

    void SetOldRules()
    {
        EXPECT_EQ(SetProfile(*Connect().Get(), Framework::FirewallRules, m_rules[Old]), Framework::Success);
    }

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

    void SetSettings() { Set({113, 2}, {7u, 1u}); }

    void SetRules() { Set(Framework::FirewallRules, m_rules[New]); }

    void Set(const Framework::ValueKey& key, const List& list)
    {
        m_client.emplace([this, key, list](auto& controller) { return m_answer = SetProfile(controller, key, list); });
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
        return isThere && !IsIntact(m_logs.File()) ? Broken : OldOrNew(lines, m_lines);
    }

    Outcome LookAtSettings()
    {
        const std::uint32_t days = PurgeSetting(L"EventLogPurgeFre");
        const std::uint32_t flag = PurgeSetting(L"EventLogPurgeFlag");
        return days == 7 ? (flag == 1 ? New : Between) : days == 30 && flag == 0 ? Old : Broken;
    }

    Outcome LookAtRules()
    {
        const auto values = Framework::ParseFile(ReadBytes(m_service.Installed().File(L"Framework.dat")));
        const List rules = values ? values->at(Framework::FirewallRules) : List();
        return OldOrNew(rules, m_rules);
    }

    Outcome LookAtExport()
    {
        const std::string bytes = ReadBytes(m_export);
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

    // The duration is that of the work, in milliseconds.
    Outcome Complete(const Operation& operation, ULONGLONG& duration)
    {
        (this->*operation.begin)();
        const ULONGLONG start = GetTickCount64();
        const HRESULT answer = m_client ? m_client->Result() : S_OK;
        const bool isDone = WaitUntil([&] { return (this->*operation.look)() == New; });
        duration = GetTickCount64() - start + 1;
        EXPECT_EQ(isDone && m_viewer ? m_viewer->Close() : 0, 0u);
        EXPECT_TRUE(isDone) << "a call was lost or refused: " << answer;
        End(isDone ? "viewer" : "service");
        return isDone ? New : Stuck;
    }

    // Kills a program, and waits for the others.
    void End(std::string_view killed)
    {
        if (killed == "service")
        {
            Service::Kill();
            Connect(); // Wine's service for activations is to be started again by the process that stopped it
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
            ULONGLONG unused = 0;
            EXPECT_EQ(Complete(operation, outcome == Old ? duration : unused), New) << "the next one";
            return outcome;
        }
        catch (const std::runtime_error& error)
        {
            ADD_FAILURE() << error.what();
            End("service");
            return Stuck;
        }
    }

    const LanguageFile m_language;
    const EventLogs m_logs{m_service.Installed()};
    const std::wstring m_file = m_service.Installed().File(L"20261118.VLG");
    const std::wstring m_export = m_service.Installed().File(L"export.txt");
    const std::array<List, 2> m_rules{RandomRules(Rules, 1), RandomRules(Rules, 2)}; // old and new
    std::array<Lines, 2> m_lines;
    std::optional<Viewer> m_viewer;
    std::optional<Process> m_import;
    std::optional<ClientThread> m_client;
    std::atomic<HRESULT> m_answer = E_PENDING; // to a client that sets a value
};

// The usual number of kills takes the first rows.
constexpr KillsTest::Operation KillsTest::Operations[8] = {
    {"import", "feeding", 700, &KillsTest::FillForImport, &KillsTest::Import, &KillsTest::LookAtRecords},
    {"service", "purge", 300, &KillsTest::FillForDeletion, &KillsTest::OrderDeletion, &KillsTest::LookAtRecords},
    {"service", "settings", 20, &KillsTest::WriteSettings, &KillsTest::SetSettings, &KillsTest::LookAtSettings},
    {"service", "rules", 400, &KillsTest::SetOldRules, &KillsTest::SetRules, &KillsTest::LookAtRules},
    {"viewer", "export", 700, &KillsTest::WriteOldExport, &KillsTest::PressExport, &KillsTest::LookAtExport},
    {"viewer", "purge", 500, &KillsTest::FillForDeletion, &KillsTest::PressDelete, &KillsTest::LookAtRecords},
    {"viewer", "feeding", 700, &KillsTest::FillForImport, &KillsTest::ReadWhileImporting, &KillsTest::LookAtRecords},
    {"import", "first feeding", 700, &KillsTest::RemoveDatabase, &KillsTest::Import, &KillsTest::LookAtRecords},
};

} // namespace

TEST_F(KillsTest, AProgramThatIsKilledLeavesTheOldOrTheNewAndTheNextOneDoesItsWork)
{
    const char* const given = std::getenv("KESTRIX_KILLS");
    const int kills = given == nullptr ? 6 : std::atoi(given);
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
