#pragma once

#include "tests/e2e/InstalledFolder.h"

#include <windows.h>

#include <string>
#include <vector>

// The real service, registered with its proxies for the life of the object, with a folder of its own as the installed
// one, which has the first firewall rules of the sample logs. At the end its processes are ended and the registry is as
// it was. One at a time.
class Service
{
public:
    // arguments: what follows /RegServer. Throws std::runtime_error when it cannot be registered.
    explicit Service(const std::wstring& arguments = L"/Idle:300");
    ~Service();
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    const TemporaryFolder& Installed() const { return m_installed.Folder(); }

    // The numbers of its processes that run now.
    static std::vector<DWORD> Processes();

    // Whether one of its processes takes clients.
    static bool IsRunning();

    // Waits for the end of the last of its processes; false when one stays.
    static bool HasEnded();

    // Ends its processes as a crash would, and waits for that.
    static void Kill();

    // Stops and lets go all threads of its one process.
    static void Freeze();
    static void Thaw();

    // Runs its program with these arguments, and with what it prints in a file where one is named; returns the exit
    // code.
    static DWORD Run(const std::wstring& arguments, const std::wstring& output = {});

private:
    const InstalledFolder m_installed;
};
