#include "tests/support/StartProcess.h"

#include <system_error>

namespace
{

Suite::KernelHandle MakeFileToInherit(const std::wstring& path)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return Suite::OwnFile(
        CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, 0, nullptr));
}

} // namespace

Suite::KernelHandle StartProcess(std::wstring commandLine, const std::wstring& output, DWORD flags)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    const Suite::KernelHandle file = output.empty() ? nullptr : MakeFileToInherit(output);
    if (file)
    {
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = file.get();
        startup.hStdError = file.get();
    }
    PROCESS_INFORMATION made{};
    const auto start = [&]
    {
        return CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, file != nullptr, flags, nullptr, nullptr,
                              &startup, &made) != FALSE;
    };
    // On a busy machine Wine loses about one process of two thousand before it begins, whatever program it is.
    const bool isStarted = start() || (GetLastError() == ERROR_INTERNAL_ERROR && start());
    if (!isStarted)
    {
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                                "a program of the test cannot be started");
    }
    const Suite::KernelHandle thread(made.hThread);
    return Suite::KernelHandle(made.hProcess);
}

std::wstring PathOfThisProgram()
{
    wchar_t path[MAX_PATH]{};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}
