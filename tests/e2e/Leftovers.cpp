#include "tests/e2e/Leftovers.h"

#include "tests/e2e/Service.h"
#include "tests/support/TemporaryFolder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace
{

constexpr wchar_t VendorKey[] = L"Software\\Veldrane";

std::filesystem::path NamedFolder()
{
    wchar_t folder[MAX_PATH]{};
    DWORD size = sizeof folder;
    RegGetValueW(HKEY_LOCAL_MACHINE, L"Software\\Veldrane\\Zeptara", L"InstalledFolder", RRF_RT_REG_SZ, nullptr, folder,
                 &size);
    return folder;
}

// Before the first test of each run.
class CleanStart : public ::testing::Environment
{
    void SetUp() override { RemoveLeftovers(); }
};

const auto* const g_cleanStart = ::testing::AddGlobalTestEnvironment(new CleanStart);

} // namespace

bool RemoveLeftovers()
{
    if (!TemporaryFolder::IsName(NamedFolder().filename().wstring()))
    {
        return false;
    }
    Service::Kill();
    Service::Run(L"/UnregServer");
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, VendorKey);
    return true;
}
