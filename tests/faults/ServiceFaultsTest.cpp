// What a user has the service do, with each call failing that it makes.

#include "suite/framework/ClassFactory.h"
#include "suite/framework/DatabaseLogs.h"
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
constexpr ValueKey Rules{48, 5};
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

    void RestoreDatabase() const { WriteBytes(m_path, m_file); }

    bool IsDatabaseWhole() const
    {
        const EventRows rows = EventRowsOf(m_path);
        return IsIntact(m_path) && (rows == m_before || rows == WithoutKindThrough(m_before, Virus, 20261010));
    }

    std::wstring RowCount() const { return std::to_wstring(EventRowsOf(m_path).size()); }

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

    // A failure is told by the result.
    void Try(Operation operation, std::initializer_list<FaultKind> kinds)
    {
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
    std::size_t events = 0;
    const UniqueSafeArray order = MakeArray({20261010u, 0u, VirusPurgeType});
    Try({.name = "delete in the service",
         .prepare =
             [&]
         {
             RestoreDatabase();
             events = inbox.Events().size();
         },
         .run =
             [&]
         {
             ULONG word = 0;
             ULONG unused = 0;
             m_result = m_controller->DoCommand(22, 1, 0, 0, &word, &unused, order.get());
             if (SUCCEEDED(m_result))
             {
                 EXPECT_TRUE(inbox.WaitFor(events + 1)) << "the client waits for the event";
                 m_result = inbox.LastResult();
             }
         },
         .outcome = [&] { return RowCount(); },
         .isWhole = [&] { return IsDatabaseWhole(); }},
        {Allocation, File, Com, Sqlite});
    m_purger.Events().UnadviseAll(this);
}

// A read that failed was taken for settings that are not there, and by those the events are deleted.
TEST_F(ServiceFaultsTest, TheScheduleWhileNothingIsToBeDeleted)
{
    m_controller.Reset();
    WritePurgeSettings({1, 0});
    Try({.name = "the schedule, switched off",
         .prepare = [&] { RestoreDatabase(); },
         .run =
             [&]
         {
             Do([this] { m_purger.PurgeIfDue(); });
             EXPECT_TRUE(WaitUntilIdle());
         },
         .outcome = [&] { return RowCount(); },
         .isWhole = [&] { return EventRowsOf(m_path) == m_before; }},
        {Registry});
}

TEST_F(ServiceFaultsTest, ChangingTheSettings)
{
    const UniqueSafeArray wanted = MakeArray({60u, 1u});
    Try({.name = "settings in the service",
         .prepare =
             [] {
                 WritePurgeSettings({20, 0});
             },
         .run = [&] { Set(Settings, wanted.get()); },
         .outcome = [] { return std::to_wstring(ReadPurgeSettings().days); },
         .isWhole =
             []
         {
             const PurgeSettings settings = ReadPurgeSettings();
             return settings == PurgeSettings{20, 0} || settings == PurgeSettings{60, 1};
         }},
        {Allocation, Registry, Com});
}

TEST_F(ServiceFaultsTest, StoringRules)
{
    const List before{SampleRule(L"old")};
    const List after{SampleRule(L"new"), SampleRule(L"old")};
    const UniqueSafeArray wanted = MakeArray(after);
    const auto kept = [&] { return ValueStore(m_folder.Path()).Get(Rules); };
    Try({.name = "rules in the service",
         .prepare = [&] { m_store.Set(Rules, before); },
         .run = [&] { Set(Rules, wanted.get()); },
         .outcome = [&] { return std::to_wstring(kept().value_or(List()).size()); },
         .isWhole = [&] { return m_store.Get(Rules) == kept() && (kept() == before || kept() == after); }},
        {Allocation, File, Com});
}

// A file whose size could not be told was taken for a damaged one, and its values for none.
TEST_F(ServiceFaultsTest, StartingWithStoredRules)
{
    const List rules{SampleRule(L"kept")};
    std::optional<List> read;
    Try({.name = "the service's start",
         .prepare = [&] { m_store.Set(Rules, rules); },
         .run =
             [&]
         {
             read.reset();
             Do([&] { read = ValueStore(m_folder.Path()).Get(Rules); });
         },
         .outcome = [&] { return std::to_wstring(read.value_or(List()).size()); },
         .isWhole = [&] { return ValueStore(m_folder.Path()).Get(Rules) == rules; }},
        {Allocation, File});
}

// The table of clients kept an entry without its client.
TEST_F(ServiceFaultsTest, AFirstClient)
{
    const auto factory = Suite::ComPtr<IClassFactory>::Attach(new ClassFactory(m_service));
    Suite::ComPtr<IVdFrwkLocalController> controller;
    Suite::ComPtr<IVdFrwkProfile> profile;
    Try({.name = "a client of the service",
         .prepare =
             [&]
         {
             profile.Reset();
             controller.Reset();
         },
         .run =
             [&]
         {
             void* made = nullptr;
             m_result = factory->CreateInstance(nullptr, __uuidof(IVdFrwkLocalController), &made);
             controller = Suite::ComPtr<IVdFrwkLocalController>::Attach(static_cast<IVdFrwkLocalController*>(made));
             m_result = FAILED(m_result) ? m_result : controller->GetActiveProfile(profile.Put());
             m_objects.DisconnectEndedClients(); // as the service does all the time
         },
         .outcome = [&] { return std::to_wstring(FAILED(m_result)); }},
        {Allocation});
}
