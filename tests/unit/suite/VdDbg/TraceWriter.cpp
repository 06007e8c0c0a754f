#include "tests/unit/suite/VdDbg/TraceWriter.h"

#include "suite/VdDbg/LogFile.h"
#include "tests/support/StartProcess.h"
#include "tests/unit/suite/VdDbg/TraceLogs.h"

#include <gtest/gtest.h>

#include <shellapi.h>

#include <iterator>

namespace
{

constexpr DWORD LimitMilliseconds = 100'000;
constexpr wchar_t Marker[] = L"--trace-writer";

// How the second process ends: none of the codes of a crash or of the test program itself.
constexpr DWORD Written = 71;
constexpr DWORD Refused = 72;
constexpr DWORD Unusable = 73;

std::wstring ReadyEvent(const std::wstring& gun, const std::wstring& name)
{
    return gun + L"." + name;
}

// The life of the second process.
DWORD WriteAll(const WritingOrder& order, const std::wstring& gun)
{
    const Suite::KernelHandle fired(OpenEventW(SYNCHRONIZE, FALSE, gun.c_str()));
    const Suite::KernelHandle ready(OpenEventW(EVENT_MODIFY_STATE, FALSE, ReadyEvent(gun, order.name).c_str()));
    VdDbg::LogFile file(NameIn(order.folder), false, order.limit);
    if (!fired || !ready || file.Open() != ERROR_SUCCESS)
    {
        return Unusable;
    }
    SetEvent(ready.get());
    if (WaitForSingleObject(fired.get(), LimitMilliseconds) != WAIT_OBJECT_0)
    {
        return Unusable;
    }
    const std::string name = std::filesystem::path(order.name).string();
    for (int number = 0; number < order.lines; ++number)
    {
        if (file.Append(Noon(), TraceLine(name, number) + "\r\n") != ERROR_SUCCESS)
        {
            return Refused;
        }
    }
    return Written;
}

// Turns this process into a second one when its command line says so, before any test has begun.
class SecondProcess : public ::testing::Environment
{
public:
    void SetUp() override
    {
        int count = 0;
        wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
        if (count == 7 && std::wstring(arguments[1]) == Marker)
        {
            const WritingOrder order{arguments[3], arguments[4], std::stoi(arguments[5]), std::stoull(arguments[6])};
            ExitProcess(WriteAll(order, arguments[2]));
        }
        LocalFree(arguments);
    }
};

const ::testing::Environment* const g_secondProcess = ::testing::AddGlobalTestEnvironment(new SecondProcess);

Suite::KernelHandle Start(const WritingOrder& order, const std::wstring& gun)
{
    return StartProcess(L"\"" + PathOfThisProgram() + L"\" " + Marker + L" " + gun + L" \"" + order.folder + L"\" " +
                            order.name + L" " + std::to_wstring(order.lines) + L" " + std::to_wstring(order.limit),
                        {}, DETACHED_PROCESS);
}

std::wstring UniqueName()
{
    static int s_count = 0;
    return L"KestrixTest.VdDbg." + std::to_wstring(GetCurrentProcessId()) + L"." + std::to_wstring(++s_count);
}

} // namespace

std::string TraceLine(const std::string& name, int number)
{
    return name + " " + std::to_string(number) + " " + std::string(static_cast<std::size_t>(number % 50), name[0]);
}

StartingGun::StartingGun() : m_strName(UniqueName()), m_event(CreateEventW(nullptr, TRUE, FALSE, m_strName.c_str())) {}

TraceWriter::TraceWriter(const WritingOrder& order, const StartingGun& gun)
    : m_ready(CreateEventW(nullptr, TRUE, FALSE, ReadyEvent(gun.Name(), order.name).c_str())),
      m_process(Start(order, gun.Name()))
{
    const HANDLE either[] = {m_ready.get(), m_process.get()};
    EXPECT_EQ(WaitForMultipleObjects(std::size(either), either, FALSE, LimitMilliseconds), WAIT_OBJECT_0)
        << "the second process did not come as far as its log";
}

TraceWriter::~TraceWriter()
{
    if (m_process)
    {
        Kill();
    }
}

bool TraceWriter::End()
{
    EXPECT_EQ(WaitForSingleObject(m_process.get(), LimitMilliseconds), WAIT_OBJECT_0);
    DWORD code = 0;
    GetExitCodeProcess(m_process.get(), &code);
    m_process.reset();
    return code == Written;
}

void TraceWriter::Kill()
{
    TerminateProcess(m_process.get(), 1);
    EXPECT_EQ(WaitForSingleObject(m_process.get(), LimitMilliseconds), WAIT_OBJECT_0);
    m_process.reset();
}
