// What /RegServer and /UnregServer do to the registry.

#include "tests/e2e/Service.h"

#include "platform/dialog/UniqueHandle.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace
{

// Appends a line for each key below a key, with its text. One text for all of them, since a debug test has room for
// some thousand blocks and a registry has more keys.
void Collect(HKEY parent, const std::wstring& path, std::wstring& entries)
{
    UniqueRegistryKey key;
    if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS)
    {
        return;
    }
    std::array<wchar_t, 1024> text{};
    DWORD size = sizeof text;
    RegGetValueW(key.get(), nullptr, nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size);
    entries.append(path).append(L"=").append(text.data()).append(L"\n");
    std::array<wchar_t, 256> name{};
    DWORD length = static_cast<DWORD>(name.size());
    for (DWORD i = 0;
         RegEnumKeyExW(key.get(), i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS; ++i)
    {
        Collect(parent, path + L"\\" + name.data(), entries);
        length = static_cast<DWORD>(name.size());
    }
}

std::wstring ClassEntries()
{
    std::wstring entries;
    for (const wchar_t* const root : {L"CLSID", L"Interface", L"AppID"})
    {
        Collect(HKEY_CLASSES_ROOT, root, entries);
    }
    return entries;
}

// The text of a key, with the end of its line; empty without the key.
std::wstring EntryOf(const std::wstring& entries, const std::wstring& key)
{
    const std::size_t start = entries.find(L"\n" + key + L"=");
    return start == std::wstring::npos
               ? std::wstring()
               : entries.substr(start + key.size() + 2, entries.find(L'\n', start + 1) - start - key.size() - 1);
}

constexpr wchar_t ServerKey[] = L"CLSID\\{BFAD02E8-9788-4E80-9843-967BDD2CA422}\\LocalServer32";
constexpr wchar_t LocalEventsKey[] = L"Interface\\{026A5546-B25A-4629-A9FB-70F1C718F188}";

} // namespace

TEST(ServiceRegistryTest, RegisteringEntersTheQuotedPathAndTheProxiesAndUnregisteringLeavesNoTrace)
{
    Service::Run(L"/UnregServer");
    const std::wstring before = ClassEntries();
    {
        const Service service(L"/Idle:300");
        const std::wstring during = ClassEntries();
        const std::wstring line = EntryOf(during, ServerKey);
        EXPECT_TRUE(line.starts_with(L'"')) << line;
        EXPECT_TRUE(line.ends_with(L"\\VdFrwkSvc.exe\" /idle:300\n")) << line;
        EXPECT_FALSE(EntryOf(during, LocalEventsKey).empty());
    }
    EXPECT_TRUE(ClassEntries() == before) << "an entry stays, or one that was there is gone";
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
