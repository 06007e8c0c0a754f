// The viewer, six other clients of the service and of the database, and a feeder at once: who looks sees all that was
// done before and nothing by halves, nobody waits for ever, and neither the viewer nor the service grows.

#include "platform/dialog/ComUse.h"
#include "suite/database/LogKinds.h"
#include "suite/database/LogLine.h"
#include "suite/framework/FirewallRules.h"
#include "suite/framework/ValueSource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/EventRows.h"
#include "tests/support/LanguageFile.h"
#include "tests/unit/suite/framework/RandomRules.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <list>
#include <stdexcept>
#include <thread>

namespace
{

using EventLog::EventDatabase;
using Framework::List;

constexpr EventLog::Day Day = 20261120;
constexpr int PartLines = 50;          // that are fed at once
constexpr int Parts = 40;              // of a day; then it is fed anew
constexpr ULONGLONG Patience = 60'000; // milliseconds until a step that is not over is taken for one that got stuck
constexpr std::size_t Growth = 2048;   // kilobytes, beside a tenth

void Require(bool condition, const char* what)
{
    if (!condition)
    {
        throw std::runtime_error(what);
    }
}

std::wstring NumberedThreat(int round, int number)
{
    return std::to_wstring(round) + L"-" + std::to_wstring(number);
}

// The memory of a process, in kilobytes: one sample a second.
using Samples = std::vector<std::size_t>;

std::size_t Median(const Samples& samples, std::size_t from, std::size_t to)
{
    Samples part(samples.begin() + from, samples.begin() + std::max(to, from + 1));
    std::ranges::sort(part);
    return part[part.size() / 2];
}

void TellMemory(const char* name, const Samples& samples)
{
    const std::size_t first = Median(samples, samples.size() / 10, samples.size() / 5);
    const std::size_t last = Median(samples, samples.size() * 9 / 10, samples.size());
    EXPECT_LT(last, first + first / 10 + Growth) << name;
    std::cout << "load\t" << name << "\t\t\t" << first << "\t" << last << "\n";
}

// Somebody who takes the same step again and again, in a thread and a single-threaded apartment of his own, until he is
// told to stop or a step throws.
class Worker
{
public:
    // The step gets its number, from 0 on.
    Worker(std::string theName, std::function<void(int)> step)
        : name(std::move(theName)), m_thread(std::bind_front(&Worker::Run, this), std::move(step))
    {
    }

    void Stop() { m_thread.request_stop(); }

    // How long the step lasts that is not over, in milliseconds.
    ULONGLONG InStep() const { return hasEnded ? 0 : GetTickCount64() - m_nSince; }

    const std::string name;
    std::atomic<int> steps = 0;
    std::atomic<ULONGLONG> longest = 0; // milliseconds of a step that is over
    std::atomic<bool> hasEnded = false;
    std::string fault; // what the last step threw, when it has ended

private:
    static constexpr DWORD Pause = 20; // milliseconds between two steps, so that there is room for the others

    void Run(const std::stop_token& stop, const std::function<void(int)>& step)
    {
        const ComUse com;
        try
        {
            for (; !stop.stop_requested(); ++steps, Sleep(Pause))
            {
                m_nSince = GetTickCount64();
                step(steps);
                longest = std::max<ULONGLONG>(longest, GetTickCount64() - m_nSince);
            }
        }
        catch (const std::exception& error)
        {
            fault = error.what();
        }
        hasEnded = true;
    }

    std::atomic<ULONGLONG> m_nSince = GetTickCount64();
    std::jthread m_thread; // last, since it uses the others
};

class LoadTest : public ServiceFixture
{
protected:
    void Feed(int step)
    {
        std::vector<std::wstring> lines;
        const int part = step % Parts;
        for (int i = 0; i < PartLines; ++i)
        {
            lines.push_back(VirusLine(L"103015", NumberedThreat(step / Parts, part * PartLines + i)));
        }
        part == 0 ? m_feed.ReplaceDay(VirusSubType, Day, lines) : m_feed.Append(VirusSubType, Day, lines);
        m_fed = step;
    }

    // All that was fed before is there, in its order and in whole parts.
    void Read(const EventDatabase& database) const
    {
        const int before = m_fed;
        int round = 0;
        int count = 0;
        const auto take = [&](std::wstring_view line)
        {
            const std::wstring threat(EventLog::TokensOf(line)[6]);
            round = count == 0 ? std::stoi(threat) : round;
            Require(threat == NumberedThreat(round, count++), "a record is lost, or is there twice");
        };
        database.ReadPeriod(VirusSubType, {{Day, 0}, {Day, 235'959}}, take);
        Require(count % PartLines == 0, "a part of a transaction is there");
        Require(round * Parts + count / PartLines > before, "what was fed is not there");
    }

    static void SetValues(int step) { SetAndQuery({112, 1}, {static_cast<std::uint32_t>(step), 1u, 0u}); }

    void SetRules(int step) const { SetAndQuery(Framework::FirewallRules, m_rules[step % 2]); }

    static void SetAndQuery(const Framework::ValueKey& key, const List& list)
    {
        const auto controller = Connect();
        Require(SetProfile(*controller.Get(), key, list) == Framework::Success, "a value is not taken");
        Require(QueryProfile(*controller.Get(), key) == list, "a value is another one afterwards");
    }

    void Purge()
    {
        m_purged.Append(SpywareSubType, Day, std::vector{VirusLine(L"103015", L"purged")});
        ServiceSession session;
        const std::uint32_t type = EventLog::FindKindOfSubType(SpywareSubType)->purgeType;
        Require(OrderPurge(session.Controller(), type, Day) == Framework::Success, "a purge is refused");
        Require(PumpUntil([&] { return !session.events.empty(); }), "the event of a purge does not come");
        Require(m_purged.Days(SpywareSubType).empty(), "a purge left what it was to take");
    }

    void View(int step) const
    {
        m_viewer->ChooseDate(0);
        m_viewer->ClickHeader(step % 3);
        const auto isWhole = [this](int rows) { return rows > 0 && rows % PartLines == 0; };
        Require(WaitUntil([&] { return isWhole(m_viewer->RowCount()); }), "the viewer shows a part of a transaction");
    }

    // The events that the client in a process of its own has had, after its line "ready".
    auto Heard() const
    {
        std::ifstream file{std::filesystem::path(m_heard)};
        return std::count(std::istreambuf_iterator<char>(file), {}, '\n') - 1;
    }

    void Start()
    {
        Feed(0);
        m_listener.emplace(ProgramFolder() + L"..\\tests\\e2e\\ServiceClient.exe", L"listen \"" + m_heard + L"\"");
        ASSERT_TRUE(WaitUntil([&] { return Heard() == 0; }));
        m_viewer.emplace(DatabaseCommandLine(VirusLog));
        ASSERT_NE(m_viewer->Form(), nullptr);
        m_workers.emplace_back("feeder", [this](int step) { Feed(step + 1); });
        m_workers.emplace_back("reader", [this](int) { Read(m_read[0]); });
        m_workers.emplace_back("other reader", [this](int) { Read(m_read[1]); });
        m_workers.emplace_back("client with values", &SetValues);
        m_workers.emplace_back("client with rules", [this](int step) { SetRules(step); });
        m_workers.emplace_back("client that purges", [this](int) { Purge(); });
        m_workers.emplace_back("viewer", [this](int step) { View(step); });
    }

    // Samples the memory each second until the time is over or somebody is not at work any more.
    void Watch(ULONGLONG milliseconds)
    {
        const UniqueKernelHandle service(
            OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, Service::Processes().at(0)));
        const ULONGLONG end = GetTickCount64() + milliseconds;
        const auto isIdle = [](const Worker& each) { return each.hasEnded || each.InStep() > Patience; };
        const auto isOver = [&]
        {
            m_viewersMemory.push_back(PrivateBytes(m_viewer->Program().Handle()) / 1024);
            m_servicesMemory.push_back(PrivateBytes(service.get()) / 1024);
            return GetTickCount64() > end || std::ranges::any_of(m_workers, isIdle);
        };
        WaitUntil(isOver, 2 * milliseconds, 1000);
    }

    bool HaveAllEnded() const { return std::ranges::all_of(m_workers, &Worker::hasEnded); }

    void Stop()
    {
        std::ranges::for_each(m_workers, &Worker::Stop);
        WaitUntil([&] { return HaveAllEnded(); }, Patience);
        for (const Worker& each : m_workers)
        {
            EXPECT_TRUE(each.hasEnded) << each.name << " got stuck " << each.InStep() / 1000
                                       << " s ago: in a call that Wine has lost, or in a lock";
            EXPECT_EQ(each.hasEnded ? each.fault : "", "") << each.name;
            std::cout << "load\t" << each.name << "\t" << each.steps << "\t" << each.longest << "\t\t\n";
        }
        std::cout << "load\tclient that listens\t" << Heard() << "\t\t\t\n";
        TellMemory("viewer's memory", m_viewersMemory);
        TellMemory("service's memory", m_servicesMemory);
    }

    const LanguageFile m_language;
    const EventLogs m_logs{m_service.Installed()};
    // A connection each, kept open: of a file that has locks, Wine's server keeps whatever is opened until the last is
    // closed.
    EventDatabase m_feed = EventDatabase::Create(m_logs.File());
    EventDatabase m_purged = EventDatabase::Open(m_logs.File());
    const EventDatabase m_read[2] = {EventDatabase::Open(m_logs.File()), EventDatabase::Open(m_logs.File())};
    const std::wstring m_heard = m_service.Installed().File(L"heard.txt");
    const List m_rules[2] = {RandomRules(200, 1), RandomRules(200, 2)};
    std::atomic<int> m_fed = 0; // the last step of the feeder that is over
    Samples m_viewersMemory;
    Samples m_servicesMemory;
    std::optional<Process> m_listener;
    std::optional<Viewer> m_viewer;
    std::list<Worker> m_workers;
};

} // namespace

TEST_F(LoadTest, TheViewerSixClientsAndAFeederAtOnceLoseNothingWaitForNobodyAndStaySmall)
{
    const char* const given = std::getenv("KESTRIX_LOAD_SECONDS");
    ASSERT_NO_FATAL_FAILURE(Start());
    Watch(1000 * std::strtoul(given == nullptr ? "10" : given, nullptr, 10));
    Stop();
    if (!HaveAllEnded())
    {
        std::cout.flush();
        std::_Exit(EXIT_FAILURE); // who is stuck cannot be waited for
    }
    const auto heard = Heard();
    Purge();
    EXPECT_TRUE(WaitUntil([&] { return Heard() > heard; })) << "the client that listens hears of the last purge";
    Read(m_read[0]);
    m_viewer->ChooseDate(0);
    EXPECT_EQ(m_viewer->RowCount(), (m_fed % Parts + 1) * PartLines);
    EXPECT_TRUE(IsIntact(m_logs.File()));
    EXPECT_EQ(m_viewer->Close(), 0u);
    m_listener.reset();
    EXPECT_TRUE(Service::HasEnded());
}
