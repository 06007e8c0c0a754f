#include "tests/unit/common/VdCommon/MutexHolder.h"

#include "common/VdCommon/VdComn_Synchronize.h"
#include "tests/support/StartProcess.h"

#include <gtest/gtest.h>

#include <shellapi.h>

#include <iterator>

namespace
{

constexpr DWORD LimitMilliseconds = 60'000;
constexpr wchar_t Marker[] = L"--mutex-holder";

// How the second process ends: none of the codes of a crash or of the test program itself.
constexpr DWORD Created = 71;
constexpr DWORD Refused = 72;
constexpr DWORD Unusable = 73;

std::wstring TriedEvent(const std::wstring& name)
{
    return name + L".tried";
}

std::wstring EndEvent(const std::wstring& name)
{
    return name + L".end";
}

// The life of the second process.
DWORD Hold(const MutexTrial& trial)
{
    const UniqueKernelHandle tried(::OpenEventW(EVENT_MODIFY_STATE, FALSE, TriedEvent(trial.name).c_str()));
    const UniqueKernelHandle end(::OpenEventW(SYNCHRONIZE, FALSE, EndEvent(trial.name).c_str()));
    if (!tried || !end)
    {
        return Unusable;
    }
    VdCommon::Synchronize::Mutex mutex;
    const DWORD result = mutex.Create(trial.name, trial.exclusive, trial.initialOwner) ? Created : Refused;
    ::SetEvent(tried.get());
    ::WaitForSingleObject(end.get(), LimitMilliseconds);
    // With the handle open and the mutex not released, as a process ends that is ended from outside.
    ::ExitProcess(result);
}

// Turns this process into the second one when its command line says so, before any test has begun.
class SecondProcess : public ::testing::Environment
{
public:
    void SetUp() override
    {
        int count = 0;
        wchar_t** const arguments = ::CommandLineToArgvW(::GetCommandLineW(), &count);
        if (count == 5 && std::wstring(arguments[1]) == Marker)
        {
            ::ExitProcess(Hold({arguments[2], std::wstring(arguments[3]) == L"1", std::wstring(arguments[4]) == L"1"}));
        }
        ::LocalFree(arguments);
    }
};

const ::testing::Environment* const g_secondProcess = ::testing::AddGlobalTestEnvironment(new SecondProcess);

Suite::KernelHandle Start(const MutexTrial& trial)
{
    return StartProcess(L"\"" + PathOfThisProgram() + L"\" " + Marker + L" " + trial.name +
                            (trial.exclusive ? L" 1" : L" 0") + (trial.initialOwner ? L" 1" : L" 0"),
                        {}, DETACHED_PROCESS);
}

} // namespace

std::wstring MutexHolder::UniqueName()
{
    static int count = 0;
    return L"KestrixTest." + std::to_wstring(::GetCurrentProcessId()) + L"." + std::to_wstring(++count);
}

MutexHolder::MutexHolder(const MutexTrial& trial)
    : m_hTried(::CreateEventW(nullptr, TRUE, FALSE, TriedEvent(trial.name).c_str())),
      m_hEnd(::CreateEventW(nullptr, TRUE, FALSE, EndEvent(trial.name).c_str())),
      m_hProcess(Start(trial))
{
    const HANDLE either[] = {m_hTried.get(), m_hProcess.get()};
    EXPECT_EQ(::WaitForMultipleObjects(std::size(either), either, FALSE, LimitMilliseconds), WAIT_OBJECT_0)
        << "the second process did not come as far as its mutex";
}

MutexHolder::~MutexHolder()
{
    if (m_hProcess)
    {
        End();
    }
}

bool MutexHolder::End()
{
    ::SetEvent(m_hEnd.get());
    EXPECT_EQ(::WaitForSingleObject(m_hProcess.get(), LimitMilliseconds), WAIT_OBJECT_0);
    DWORD code = 0;
    ::GetExitCodeProcess(m_hProcess.get(), &code);
    EXPECT_TRUE(code == Created || code == Refused) << "the second process ended with " << code;
    m_hProcess.reset();
    return code == Created;
}
