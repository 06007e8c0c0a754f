// Programs that are killed at random moments of their work: they leave what was there before or what was to be there,
// and the next one does the whole work with it.

#include "resource/resource.h"
#include "suite/framework/Apartment.h"
#include "suite/framework/PurgeSettings.h"
#include "suite/framework/ValueSource.h"
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
#include <fstream>
#include <future>
#include <iostream>
#include <random>

namespace
{

using Lines = std::vector<std::wstring>;

constexpr EventLog::Day Day = 20261118;
constexpr int Records = static_cast<int>(Scaled(20'000));
constexpr std::chrono::seconds Patience{30};
constexpr char OldExport[] = "an older export";
constexpr wchar_t BlockedLine[] = L"100000|4|0|2||6|2|LIP|49152|192.0.2.20|443|||C:\\a.exe||";

enum Outcome
{
    Old,
    New,
    Between, // of two settings, when the purge is off
    Broken,
    Stuck, // a call did not come back, or a dialog did not come
    Outcomes
};

Outcome OldOrNew(bool isOld, bool isNew)
{
    return isNew ? New : isOld ? Old : Broken;
}

class KillsTest : public ServiceFixture
{
protected:
    struct Operation
    {
        std::string_view killed;
        const char* during;
        ULONGLONG duration;         // in milliseconds, for the first kill; the others know that of the work before
        std::wstring before;        // the threat of all records that are there before; empty when there are none
        std::wstring after;         // the same of those that are to be there
        void (KillsTest::*begin)(); // returns when nothing is left but the work itself
        Outcome (KillsTest::*look)();
        int counts[Outcomes] = {};
    };

    // The usual number of kills takes the first rows, which write in four ways.
    static std::vector<Operation> Operations()
    {
        using Test = KillsTest;
        return {
            {"import", "feeding", 700, L"old", L"new", &Test::Import, &Test::LookAtRecords},
            {"service", "settings", 2, L"old", L"old", &Test::SetSettings, &Test::LookAtSettings},
            {"service", "rules", 400, L"old", L"old", &Test::SetRules, &Test::LookAtRules},
            {"viewer", "export", 700, L"old", L"old", &Test::PressExport, &Test::LookAtExport},
            {"service", "purge", 300, L"old", L"", &Test::OrderDeletion, &Test::LookAtRecords},
            {"viewer", "purge", 500, L"old", L"", &Test::PressDelete, &Test::LookAtRecords},
            {"viewer", "feeding", 700, L"old", L"new", &Test::ReadWhileImporting, &Test::LookAtRecords},
            {"viewer", "settings", 50, L"old", L"old", &Test::PressSettings, &Test::LookAtSettings},
            {"viewer", "rules", 900, L"old", L"old", &Test::PressAllow, &Test::LookAtRules},
            {"import", "first feeding", 700, L"", L"new", &Test::Import, &Test::LookAtRecords},
        };
    }

    KillsTest()
    {
        std::wstring text;
        for (int i = 0; i < Records; ++i)
        {
            text += L"x|103015|1048576|x|0|0|new|C:\\new.exe|4|1|0|0\r\n";
        }
        WriteUtf16(m_file, text);
    }

    // Makes the old state of everything.
    void Prepare(const Operation& operation)
    {
        Framework::WritePurgeSettings({30, 0});
        m_oldRules.Store(m_service);
        WriteBytes(m_export, OldExport);
        const auto linesOf = [](const std::wstring& threat)
        { return threat.empty() ? Lines() : Lines(Records, VirusLine(L"103015", threat)); };
        m_lines[Old] = linesOf(operation.before);
        m_lines[New] = linesOf(operation.after);
        for (const wchar_t* const part : {L"", L"-wal", L"-shm"})
        {
            std::filesystem::remove(m_logs.File().wstring() + part);
        }
        if (!m_lines[Old].empty())
        {
            m_logs.Append(VirusSubType, Day, m_lines[Old]);
            m_logs.Append(FirewallSubType, Day, {BlockedLine});
        }
    }

    void Import()
    {
        m_import.emplace(ProgramFolder() + L"ImportLogs.exe",
                         L"--database \"" + m_logs.File().wstring() + L"\" \"" + m_file + L"\"",
                         m_service.Installed().File(L"import.txt"));
    }

    // Has a client call the service, in a thread of its own. Returns when the call begins, and not a moment later: a
    // short one may be over then.
    void Call(const std::function<HRESULT(IVdFrwkLocalController&)>& call)
    {
        std::promise<void> begins;
        const std::future<void> begun = begins.get_future();
        auto connectAndCall = [call, begins = std::move(begins)]() mutable
        {
            const Framework::Apartment apartment;
            const auto controller = Connect();
            begins.set_value();
            return call(*controller.Get());
        };
        m_client = std::async(std::launch::async, std::move(connectAndCall));
        begun.wait_for(Patience);
    }

    void OrderDeletion()
    {
        Call([](auto& controller) { return OrderPurge(controller, VirusPurgeType, Day); });
    }

    void SetSettings()
    {
        const Framework::List settings{7u, 1u};
        Call([=, this](auto& controller) { return m_answer = SetProfile(controller, {113, 2}, settings); });
    }

    void SetRules()
    {
        Call([this](auto& controller) { return m_answer = m_newRules.Set(controller); });
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
        return isIntact ? OldOrNew(lines == m_lines[Old], lines == m_lines[New]) : Broken;
    }

    Outcome LookAtSettings()
    {
        const std::uint32_t days = PurgeSetting(L"EventLogPurgeFre");
        const std::uint32_t flag = PurgeSetting(L"EventLogPurgeFlag");
        return days == 7 && flag != 1 ? Between : OldOrNew(days == 30 && flag == 0, days == 7);
    }

    Outcome LookAtRules() { return OldOrNew(m_oldRules.AreStored(m_service), m_newRules.AreStored(m_service)); }

    Outcome LookAtExport()
    {
        std::ifstream file(std::filesystem::path(m_export), std::ios::binary); // cannot be opened while it is replaced
        const std::string bytes{std::istreambuf_iterator(file), {}};
        const bool isWhole = std::ranges::count(bytes, '\n') == Records + 2 && bytes.ends_with(Utf16Bytes(L"\"\r\n"));
        return OldOrNew(bytes == OldExport, isWhole);
    }

    // One kill, and what the next program makes of what is left.
    Outcome Try(Operation& operation, DWORD moment)
    {
        Prepare(operation);
        m_answer = E_PENDING;
        (this->*operation.begin)();
        Sleep(moment);
        End(operation.killed);
        const Outcome found = (this->*operation.look)();
        const Outcome outcome = m_answer == Framework::Success && found != New ? Broken : found;
        EXPECT_NE(outcome, Broken);
        EXPECT_TRUE(outcome != Between || operation.killed == "service");
        const ULONGLONG duration = Complete(operation);
        operation.duration = outcome == Old ? duration : operation.duration;
        return outcome;
    }

    // Returns how long the work took, in milliseconds.
    ULONGLONG Complete(const Operation& operation)
    {
        (this->*operation.begin)();
        const ULONGLONG start = GetTickCount64();
        const bool hasAnswer = !m_client.valid() || m_client.wait_for(Patience) == std::future_status::ready;
        const bool isDone = WaitUntil([&] { return (this->*operation.look)() == New; });
        const ULONGLONG duration = GetTickCount64() - start + 1;
        EXPECT_TRUE(isDone) << (hasAnswer ? "the next one was refused" : "the next one lost a call");
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
        m_client = {};
        EXPECT_TRUE(Service::HasEnded());
    }

    // After a call that did not come back, or a dialog that did not come.
    void BeginAnew()
    {
        End("service");
        Connect(); // Wine's service for activations is to be started again by the process that stopped it
        EXPECT_TRUE(Service::HasEnded());
    }

    const LanguageFile m_language;
    const EventLogs m_logs{m_service.Installed()};
    const std::wstring m_file = m_service.Installed().File(L"20261118.VLG");
    const std::wstring m_export = m_service.Installed().File(L"export.txt");
    const Framework::List m_rules = RandomRules(Scaled(2000), 1);
    const RuleList m_oldRules{m_rules};
    const RuleList m_newRules{With(m_rules, 0, MadeRule(L"C:\\a.exe", L"a", Tcp))}; // allows a program
    Lines m_lines[2];                                                               // of the day: old and new
    std::optional<Viewer> m_viewer;
    std::optional<Process> m_import;
    std::future<HRESULT> m_client;
    std::atomic<HRESULT> m_answer = E_PENDING; // to a client that sets a value
};

} // namespace

TEST_F(KillsTest, AProgramThatIsKilledLeavesTheOldOrTheNewAndTheNextOneDoesItsWork)
{
    const char* const given = std::getenv("KESTRIX_KILLS");
    const int kills = given == nullptr ? 5 : std::atoi(given);
    std::mt19937 random(Seed());
    std::vector<Operation> operations = Operations();
    for (int i = 0; i < kills; ++i)
    {
        Operation& operation = operations[i % operations.size()];
        const DWORD moment = static_cast<DWORD>(random() % operation.duration);
        SCOPED_TRACE(std::string(operation.killed) + ", " + operation.during + ", " + std::to_string(moment) + " ms");
        try
        {
            ++operation.counts[Try(operation, moment)];
        }
        catch (const std::runtime_error& error)
        {
            ADD_FAILURE() << error.what();
            ++operation.counts[Stuck];
            BeginAnew();
        }
    }
    for (const Operation& operation : operations)
    {
        std::cout << "kills\t" << operation.killed << "\t" << operation.during;
        std::ranges::for_each(operation.counts, [](int number) { std::cout << "\t" << number; });
        std::cout << "\n";
    }
}
