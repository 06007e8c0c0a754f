// What a user has the service do, with each call failing that it makes.

#include "suite/framework/ClassFactory.h"
#include "suite/framework/DatabaseLogs.h"
#include "suite/framework/FirewallRules.h"
#include "suite/framework/PurgeSettings.h"
#include "suite/framework/SafeArray.h"
#include "tests/faults/Sweep.h"
#include "tests/support/EventRows.h"
#include "tests/unit/suite/framework/Inbox.h"
#include "tests/unit/suite/framework/SampleRule.h"
#include "tests/unit/suite/framework/ServiceFixture.h"

using namespace Framework;

namespace
{

using enum FaultKind;

constexpr std::uint32_t Virus = 2;
constexpr std::uint32_t VirusPurgeType = 1;
constexpr ValueKey Settings{113, 2};

class ServiceFaultsTest : public ServiceFixture
{
protected:
    ServiceFaultsTest()
    {
        const std::vector<std::wstring> lines{L"x|120000|one", L"x|130000|two"};
        EventLog::EventDatabase::Create(m_path).Append(Virus, 20261010, lines);
        EventLog::EventDatabase::Open(m_path).Append(Virus, 20261120, lines);
        m_file = ReadBytes(m_path);
        m_before = EventRowsOf(m_path);
    }

    // What the database has, and whether it is intact.
    auto Events() const { return std::pair(EventRowsOf(m_path), IsIntact(m_path)); }

    // The rules that the service has now, and those when it starts anew.
    auto Rules() const { return std::pair(m_store.Get(FirewallRules), ValueStore(m_folder.Path()).Get(FirewallRules)); }

    // Has a client set a value of the profile, and keeps the result.
    void Set(const ValueKey& key, SAFEARRAY* array)
    {
        ULONG word = 0;
        ULONG unused = 0;
        Suite::ComPtr<IVdFrwkProfile> profile;
        m_result = m_controller->GetActiveProfile(profile.Put());
        if (SUCCEEDED(m_result))
        {
            m_result = profile->SetValue(key.type, key.subType, 0, 0, &word, &unused, array);
        }
    }

    // Keeps the result of what may throw.
    void Do(const std::function<void()>& work)
    {
        m_result = WithoutExceptions(
            [&]
            {
                work();
                return S_OK;
            });
    }

    // All is done or nothing, and a failure is told by the result.
    void Try(Operation operation, std::initializer_list<FaultKind> kinds)
    {
        operation.isOldOrNew = true;
        operation.isTold = [this] { return FAILED(m_result); };
        m_sweep.Try(operation, kinds);
    }

    const std::wstring m_path = m_folder.File(EventLog::DatabaseFileName);
    std::string m_file;
    EventRows m_before;
    DatabaseLogs m_database{m_folder.Path(), std::chrono::milliseconds(50)};
    Service m_purger{m_objects, m_store, m_database, m_calendar, m_journal};
    Suite::ComPtr<IVdFrwkLocalController> m_controller =
        Suite::ComPtr<IVdFrwkLocalController>::Attach(new Controller(m_purger));
    HRESULT m_result = S_OK;
    Sweep m_sweep;
};

} // namespace

TEST_F(ServiceFaultsTest, Deleting)
{
    Inbox inbox;
    m_purger.Events().Advise(this, __uuidof(IVdFrwkLocalEvents), Suite::ComPtr<IUnknown>(inbox.Sink()));
    const UniqueSafeArray order = MakeArray({20261010u, 0u, VirusPurgeType});
    std::size_t events = 0;
    const auto prepare = [&]
    {
        WriteBytes(m_path, m_file);
        events = inbox.Events().size();
    };
    const auto run = [&]
    {
        ULONG word = 0;
        ULONG unused = 0;
        m_result = m_controller->DoCommand(22, 1, 0, 0, &word, &unused, order.get());
        if (SUCCEEDED(m_result))
        {
            EXPECT_TRUE(inbox.WaitFor(events + 1)) << "the client waits for the event";
            m_result = inbox.LastResult();
        }
    };
    Try({"delete in the service", prepare, run, [&] { return Events(); }}, {Allocation, File, Com, Sqlite});
    EXPECT_EQ(Events(), std::pair(WithoutKindThrough(m_before, Virus, 20261010), true));
    m_purger.Events().UnadviseAll(this);
}

// A read that failed was taken for settings that are not there, and by those the events are deleted.
TEST_F(ServiceFaultsTest, TheScheduleWhileNothingIsToBeDeleted)
{
    m_controller.Reset();
    WritePurgeSettings({1, 0});
    const auto prepare = [&] { WriteBytes(m_path, m_file); };
    const auto run = [&]
    {
        Do([this] { m_purger.PurgeIfDue(); });
        EXPECT_TRUE(WaitUntilIdle());
    };
    Try({"the schedule, switched off", prepare, run, [&] { return Events(); }}, {Registry});
    EXPECT_EQ(Events(), std::pair(m_before, true));
}

TEST_F(ServiceFaultsTest, ChangingTheSettings)
{
    const PurgeSettings after{60, 1};
    const UniqueSafeArray wanted = MakeArray({after.days, after.flag});
    const auto prepare = [&] { WritePurgeSettings({20, 0}); };
    const auto run = [&] { Set(Settings, wanted.get()); };
    Try({"settings in the service", prepare, run, &ReadPurgeSettings}, {Allocation, Registry, Com});
    EXPECT_EQ(ReadPurgeSettings(), after);
}

TEST_F(ServiceFaultsTest, StoringRules)
{
    const List after{SampleRule(L"new"), SampleRule(L"old")};
    const UniqueSafeArray wanted = MakeArray(after);
    const auto prepare = [&] { m_store.Set(FirewallRules, {SampleRule(L"old")}); };
    const auto run = [&] { Set(FirewallRules, wanted.get()); };
    Try({"rules in the service", prepare, run, [&] { return Rules(); }}, {Allocation, File, Com});
    EXPECT_EQ(Rules(), std::pair(std::optional(after), std::optional(after)));
}

// A file whose size could not be told was taken for a damaged one, and its values for none.
TEST_F(ServiceFaultsTest, StartingWithStoredRules)
{
    const List rules{SampleRule(L"kept")};
    std::optional<List> read;
    const auto prepare = [&]
    {
        read.reset();
        m_store.Set(FirewallRules, rules);
    };
    const auto run = [&] { Do([&] { read = ValueStore(m_folder.Path()).Get(FirewallRules); }); };
    Try({"the service's start", prepare, run, [&] { return std::pair(read, Rules()); }}, {Allocation, File});
    EXPECT_EQ(read, rules);
}

// The table of clients kept an entry without its client.
TEST_F(ServiceFaultsTest, AFirstClient)
{
    const auto factory = Suite::ComPtr<IClassFactory>::Attach(new ClassFactory(m_service));
    Suite::ComPtr<IVdFrwkLocalController> controller;
    Suite::ComPtr<IVdFrwkProfile> profile;
    const auto prepare = [&]
    {
        profile.Reset();
        controller.Reset();
    };
    const auto run = [&]
    {
        m_result = factory->CreateInstance(nullptr, __uuidof(IVdFrwkLocalController), controller.PutVoid());
        m_result = FAILED(m_result) ? m_result : controller->GetActiveProfile(profile.Put());
        m_objects.DisconnectEndedClients(); // as the service does all the time
    };
    Try({"a client of the service", prepare, run, [&] { return profile.Get() != nullptr; }}, {Allocation});
}
