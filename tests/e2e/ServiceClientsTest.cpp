// The service and the lives of its clients: who starts it, who stays, who dies.

#include "suite/framework/SafeArray.h"
#include "suite/framework/ValueSource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/EventRecorder.h"
#include "tests/e2e/Process.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/LanguageFile.h"

#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

namespace
{

using ServiceClientsTest = ServiceFixture;

constexpr char ExitCommand[] = "1 -1 0";

// A client in a process of its own, ready when the constructor returns.
class OtherClient
{
public:
    OtherClient(const std::wstring& mode, std::wstring file)
        : m_strFile(std::move(file)),
          m_process(ProgramFolder() + L"..\\tests\\e2e\\ServiceClient.exe", mode + L" \"" + m_strFile + L"\"")
    {
        EXPECT_TRUE(WaitUntil([this] { return Has("ready"); }));
    }

    bool Has(const std::string& line) const
    {
        std::ifstream file{std::filesystem::path(m_strFile)};
        std::string read;
        while (std::getline(file, read) && read != line)
        {
        }
        return read == line;
    }

    void Kill() const
    {
        TerminateProcess(m_process.Handle(), 1);
        EXPECT_TRUE(m_process.HasEnded(10'000));
    }

    const Process& Program() const { return m_process; }

private:
    const std::wstring m_strFile;
    const Process m_process;
};

// The mutex of the service, held by this program, which is none.
class HeldMutex
{
public:
    HeldMutex() : m_mutex(CreateMutexW(nullptr, TRUE, L"Local\\VdFrwkSvc-Instance")) {}

    ~HeldMutex() { ReleaseMutex(m_mutex.get()); }

    HeldMutex(const HeldMutex&) = delete;
    HeldMutex& operator=(const HeldMutex&) = delete;

private:
    const UniqueKernelHandle m_mutex;
};

} // namespace

TEST_F(ServiceClientsTest, StartsOnDemandAndEndsWhenUnused)
{
    EXPECT_TRUE(Service::Processes().empty());
    {
        const auto controller = Connect();
        EXPECT_EQ(Service::Processes().size(), 1u);
    }
    EXPECT_TRUE(Service::HasEnded());
}

// The purge was over before the client came, and the service took that for the end of its use.
TEST_F(ServiceClientsTest, APurgeOfItsOwnAtItsStartDoesNotKeepTheFirstClientOut)
{
    RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, EventLogKey, L"EventLogPurgeFlag"); // it purges by itself
    EXPECT_EQ(QueryProfile(*Connect().Get(), Framework::ValueKey{112, 1}).size(), 3u);
}

TEST_F(ServiceClientsTest, AClientThatComesWhileItEndsGetsTheNextOne)
{
    Connect();
    ASSERT_TRUE(Service::HasEnded());
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_EQ(QueryProfile(*Connect().Get(), Framework::ValueKey{112, 1}).size(), 3u);
        // Until another process may be the service, while this one still waits for late clients.
        EXPECT_TRUE(WaitUntil([] { return !Service::IsRunning(); }));
    }
}

// The service waited for a minute, and said nothing.
TEST_F(ServiceClientsTest, AServiceWhoseMutexIsHeldEndsInSecondsAndSaysWhatIsInTheWay)
{
    const HeldMutex held;
    const DebuggerOutput output(ProgramFolder() + L"VdFrwkSvc.exe", L"-Embedding", 30'000);
    EXPECT_TRUE(output.ended);
    EXPECT_EQ(output.exitCode, 1u);
    EXPECT_TRUE(
        output.Has("VdFrwkSvc: A program other than the service holds the mutex Local\\VdFrwkSvc-Instance, so the "
                   "service cannot start. End that program, or sign out and in again.\n"))
        << testing::PrintToString(output.lines);
}

// It waited without a window for as long as the system waits for a server, twice.
TEST_F(ServiceClientsTest, AViewerWhoseServiceCannotStartHasItsWindowAllTheSame)
{
    const LanguageFile language;
    const EventLogs logs(m_service.Installed());
    const HeldMutex held;
    const Viewer viewer(DatabaseCommandLine(VirusLog));
    EXPECT_NE(viewer.Form(), nullptr); // within half a minute
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(ServiceClientsTest, ACallOfAServiceThatIsKilledMeanwhileFails)
{
    const auto controller = Connect();
    Service::Freeze();
    std::atomic<bool> isCalling = false;
    std::thread killer(
        [&]
        {
            WaitUntil([&] { return isCalling.load(); });
            Service::Kill();
        });
    ULONG word = 1;
    ULONG result = 0;
    isCalling = true; // and the service does not answer
    EXPECT_TRUE(FAILED(controller->DoCommand(22, 1, 0, 0, &word, &result, Framework::MakeArray({}).get())));
    killer.join();
}

TEST_F(ServiceClientsTest, AdviseAfterTheServiceWasKilledFails)
{
    const auto controller = Connect();
    const auto point = LocalEvents(*controller.Get());
    Service::Kill();
    EventRecorder recorder([](const std::string&) { return S_OK; });
    DWORD cookie = 0;
    EXPECT_TRUE(FAILED(point->Advise(&recorder, &cookie)));
    CoDisconnectObject(&recorder, 0);
}

TEST_F(ServiceClientsTest, UnadviseAfterTheServiceWasKilledFails)
{
    ServiceSession session;
    Service::Kill();
    EXPECT_TRUE(FAILED(session.Point().Unadvise(session.Cookie())));
}

TEST_F(ServiceClientsTest, TwoClientsAtOnceBothGetTheEvent)
{
    ServiceSession one;
    ServiceSession two;
    const OtherClient other(L"listen", m_service.Installed().File(L"other.txt"));
    EXPECT_EQ(Service::Processes().size(), 1u);
    EXPECT_EQ(OrderPurge(one.Controller(), VirusPurgeType, 20261119), Framework::Success);
    EXPECT_TRUE(PumpUntil([&] { return !one.events.empty() && !two.events.empty() && other.Has(PurgeDone); }));
    EXPECT_EQ(two.events, Events{PurgeDone});
}

TEST_F(ServiceClientsTest, TwoClientsThatStartItAtOnceGetTheSameProcess)
{
    const OtherClient other(L"listen", m_service.Installed().File(L"other.txt"));
    ServiceSession session;
    EXPECT_EQ(Service::Run(L"-Embedding"), 0u); // a second process sees the first and ends
    EXPECT_EQ(Service::Processes().size(), 1u);
}

TEST_F(ServiceClientsTest, AClientThatWasKilledStopsNobodyAndKeepsNothing)
{
    const OtherClient other(L"listen", m_service.Installed().File(L"other.txt"));
    {
        ServiceSession session;
        other.Kill();
        for (std::size_t i = 1; i <= 3; ++i)
        {
            EXPECT_EQ(OrderPurge(session.Controller(), VirusPurgeType, 20261119), Framework::Success);
            EXPECT_TRUE(PumpUntil([&] { return session.events.size() == i; }));
        }
    }
    EXPECT_TRUE(Service::HasEnded());
}

TEST_F(ServiceClientsTest, AClientThatHangsDelaysNeitherTheOthersNorTheEndOfTheService)
{
    const OtherClient other(L"hang", m_service.Installed().File(L"other.txt"));
    {
        ServiceSession session;
        EXPECT_EQ(OrderPurge(session.Controller(), VirusPurgeType, 20261119), Framework::Success);
        EXPECT_TRUE(PumpUntil([&] { return session.events.size() == 1 && other.Has(PurgeDone); }));
        EXPECT_EQ(OrderPurge(session.Controller(), VirusPurgeType, 20261119), Framework::Success);
        EXPECT_TRUE(PumpUntil([&] { return session.events.size() == 2; }));
        EXPECT_EQ(session.Point().Unadvise(session.Cookie()), S_OK);
    }
    other.Kill();
    EXPECT_TRUE(Service::HasEnded());
}

TEST_F(ServiceClientsTest, TheExitCommandReachesAllClients)
{
    const OtherClient other(L"listen", m_service.Installed().File(L"other.txt"));
    {
        ServiceSession session;
        EXPECT_EQ(Service::Run(L"/Exit"), 0u);
        EXPECT_TRUE(PumpUntil([&] { return !session.events.empty(); }));
        EXPECT_EQ(session.events, Events{ExitCommand});
        EXPECT_EQ(other.Program().ExitCode(), 0u);
    }
    EXPECT_TRUE(Service::HasEnded());
}

TEST_F(ServiceClientsTest, TheExitCommandWithoutAServiceStartsNone)
{
    EXPECT_EQ(Service::Run(L"/Exit"), 0u);
    EXPECT_TRUE(Service::Processes().empty());
}
