// What /RegServer and /UnregServer do to the registry.

#include "tests/e2e/Service.h"

#include "platform/dialog/UniqueHandle.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <memory>

namespace
{

using Entries = std::map<std::wstring, std::wstring>;

// All keys and texts below a key.
void Collect(HKEY parent, const std::wstring& path, Entries& entries)
{
    UniqueRegistryKey key;
    if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS)
    {
        return;
    }
    std::array<wchar_t, 1024> text{};
    DWORD size = sizeof text;
    RegGetValueW(key.get(), nullptr, nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size);
    entries[path] = text.data();
    std::array<wchar_t, 256> name{};
    DWORD length = static_cast<DWORD>(name.size());
    for (DWORD i = 0;
         RegEnumKeyExW(key.get(), i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS; ++i)
    {
        Collect(parent, path + L"\\" + name.data(), entries);
        length = static_cast<DWORD>(name.size());
    }
}

Entries ClassEntries()
{
    Entries entries;
    for (const wchar_t* const root : {L"CLSID", L"Interface", L"AppID"})
    {
        Collect(HKEY_CLASSES_ROOT, root, entries);
    }
    return entries;
}

constexpr wchar_t ServerKey[] = L"CLSID\\{BFAD02E8-9788-4E80-9843-967BDD2CA422}\\LocalServer32";
constexpr wchar_t LocalEventsKey[] = L"Interface\\{026A5546-B25A-4629-A9FB-70F1C718F188}";

} // namespace

TEST(ServiceRegistryTest, RegisteringEntersTheQuotedPathAndTheProxiesAndUnregisteringLeavesNoTrace)
{
    Service::Run(L"/UnregServer");
    const Entries before = ClassEntries();
    {
        const Service service(L"/Idle:300");
        const Entries during = ClassEntries();
        ASSERT_TRUE(during.contains(ServerKey));
        const std::wstring& line = during.at(ServerKey);
        EXPECT_EQ(line.front(), L'"');
        EXPECT_TRUE(line.ends_with(L"\\VdFrwkSvc.exe\" /idle:300"));
        EXPECT_TRUE(during.contains(LocalEventsKey));
    }
    EXPECT_EQ(ClassEntries(), before);
}

TEST(ServiceRegistryTest, UnregisteringTwiceIsNoFailure)
{
    EXPECT_EQ(Service::Run(L"/UnregServer"), 0u);
    EXPECT_EQ(Service::Run(L"/UnregServer"), 0u);
}

TEST(ServiceRegistryTest, AWrongCommandLineIsToldByTheExitCode)
{
    EXPECT_EQ(Service::Run(L"/RegSever"), 2u);
}
