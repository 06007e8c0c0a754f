#include "tests/e2e/Service.h"

#include "platform/dialog/UniqueHandle.h"
#include "tests/e2e/Process.h"

#include <winsvc.h>

#include <tlhelp32.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>

namespace
{

constexpr wchar_t Program[] = L"VdFrwkSvc.exe";

// NtSuspendProcess and NtResumeProcess have no header.
void CallForProcesses(const char* function)
{
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), function);
    const auto call = reinterpret_cast<LONG(NTAPI*)(HANDLE)>(reinterpret_cast<void*>(found));
    for (const DWORD id : Service::Processes())
    {
        const UniqueKernelHandle process(OpenProcess(PROCESS_SUSPEND_RESUME, FALSE, id));
        if (call == nullptr || !process || call(process.get()) < 0)
        {
            throw std::runtime_error("the service of the test cannot be stopped or let go");
        }
    }
}

// Wine goes on to hand out the class object of a process that was killed. Its service for activations forgets it when
// it is stopped, and is started again by the next one who needs it; who comes while its process is still ending finds
// no class at all.
void ForgetClassObjects()
{
    struct Closer
    {
        void operator()(SC_HANDLE handle) const { CloseServiceHandle(handle); }
    };

    using UniqueService = std::unique_ptr<SC_HANDLE__, Closer>;
    const UniqueService manager(OpenSCManagerW(nullptr, nullptr, SC_MANAGER_CONNECT));
    const UniqueService service(OpenServiceW(manager.get(), L"RpcSs", SERVICE_STOP | SERVICE_QUERY_STATUS));
    SERVICE_STATUS_PROCESS status{};
    UniqueKernelHandle process;
    const auto isStopped = [&]
    {
        DWORD size = 0;
        const bool isKnown = QueryServiceStatusEx(service.get(), SC_STATUS_PROCESS_INFO,
                                                  reinterpret_cast<BYTE*>(&status), sizeof status, &size);
        if (isKnown && status.dwProcessId != 0 && !process)
        {
            process.reset(OpenProcess(SYNCHRONIZE, FALSE, status.dwProcessId));
        }
        SERVICE_STATUS answer{};
        ControlService(service.get(), SERVICE_CONTROL_STOP, &answer); // in vain while it is just being started
        return isKnown && status.dwCurrentState == SERVICE_STOPPED;
    };
    const auto hasEnded = [&] { return !process || WaitForSingleObject(process.get(), 0) == WAIT_OBJECT_0; };
    if (!service || !WaitUntil(isStopped) || !WaitUntil(hasEnded))
    {
        throw std::runtime_error("the class object of a killed service cannot be forgotten");
    }
}

} // namespace

Service::Service(const std::wstring& arguments)
{
    constexpr wchar_t rules[] = L"FirstRules.txt";
    std::filesystem::copy_file(ProgramFolder() + L"..\\suite\\" + rules, Installed().File(rules));
    if (Run(L"/RegServer " + arguments) != 0)
    {
        throw std::runtime_error("the service of the test cannot be registered");
    }
}

Service::~Service()
{
    if (!HasEnded())
    {
        Kill();
    }
    Run(L"/UnregServer");
}

std::vector<DWORD> Service::Processes()
{
    std::vector<DWORD> found;
    const UniqueKernelHandle all(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(all.get(), &entry); more; more = Process32NextW(all.get(), &entry))
    {
        if (_wcsicmp(entry.szExeFile, Program) == 0)
        {
            found.push_back(entry.th32ProcessID);
        }
    }
    return found;
}

bool Service::IsRunning()
{
    const UniqueKernelHandle running(OpenEventW(SYNCHRONIZE, FALSE, L"Local\\VdFrwkSvc-Running"));
    return running && WaitForSingleObject(running.get(), 0) == WAIT_OBJECT_0;
}

bool Service::HasEnded()
{
    return WaitUntil([] { return Processes().empty(); });
}

void Service::Kill()
{
    const std::vector<DWORD> processes = Processes();
    for (const DWORD id : processes)
    {
        const UniqueKernelHandle process(OpenProcess(PROCESS_TERMINATE, FALSE, id));
        TerminateProcess(process.get(), EXIT_FAILURE);
    }
    if (!processes.empty() && HasEnded())
    {
        ForgetClassObjects();
    }
}

void Service::Freeze()
{
    CallForProcesses("NtSuspendProcess");
}

void Service::Thaw()
{
    CallForProcesses("NtResumeProcess");
}

DWORD Service::Run(const std::wstring& arguments, const std::wstring& output)
{
    return Process(ProgramFolder() + Program, arguments, output).ExitCode();
}
