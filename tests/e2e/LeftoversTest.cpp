// A run that was killed left its folder as the installed one and its service registered. The next run then showed the
// service's traces and records where its tests expected none, until somebody removed the prefix.

#include "tests/e2e/Leftovers.h"

#include "common/VdFrwk.h"
#include "tests/e2e/RegistryValue.h"
#include "tests/e2e/Service.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace
{

constexpr wchar_t SuiteKey[] = L"Software\\Veldrane\\Zeptara";

bool HasValue(HKEY key, const wchar_t* path, const wchar_t* name)
{
    return RegGetValueW(key, path, name, RRF_RT_ANY, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

bool IsServiceRegistered()
{
    wchar_t number[39]{};
    StringFromGUID2(__uuidof(VdFrwkLocalController), number, static_cast<int>(std::size(number)));
    return HasValue(HKEY_CLASSES_ROOT, (std::wstring(L"CLSID\\") + number + L"\\LocalServer32").c_str(), nullptr);
}

} // namespace

TEST(LeftoversTest, OfARunThatWasKilledAreGoneBeforeTheNext)
{
    const TemporaryFolder folder;
    // As the objects of the tests set them, whose ends do not come when the run is killed.
    const std::wstring path = folder.Path().wstring();
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, SuiteKey, L"InstalledFolder", REG_SZ, path.c_str(),
                    static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t)));
    ASSERT_EQ(Service::Run(L"/RegServer"), 0u);
    ASSERT_TRUE(IsServiceRegistered());

    EXPECT_TRUE(RemoveLeftovers());
    EXPECT_FALSE(HasValue(HKEY_LOCAL_MACHINE, SuiteKey, L"InstalledFolder"));
    EXPECT_FALSE(IsServiceRegistered());
    EXPECT_FALSE(RemoveLeftovers());
}

TEST(LeftoversTest, AnInstallationThatIsNoTestsStays)
{
    const RegistryValue installed(SuiteKey, L"InstalledFolder", L"C:\\Zeptara");
    EXPECT_FALSE(RemoveLeftovers());
    EXPECT_TRUE(HasValue(HKEY_LOCAL_MACHINE, SuiteKey, L"InstalledFolder"));
}
