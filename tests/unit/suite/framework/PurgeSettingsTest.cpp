#include "suite/framework/PurgeSettings.h"

#include "tests/support/ImportPatch.h"
#include "tests/support/RegistrySandbox.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <system_error>
#include <utility>
#include <vector>

extern "C" decltype(&::RegSetKeyValueW) __imp_RegSetKeyValueW;

using namespace Framework;

namespace
{

constexpr wchar_t Key[] = L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";

// Refuses writes to the registry by their numbers, counted from 1.
class RefusingRegistry
{
public:
    explicit RefusingRegistry(std::vector<int> refused) : m_patch(__imp_RegSetKeyValueW, &Write)
    {
        s_refused = std::move(refused);
        s_nWrites = 0;
        s_original = m_patch.Original();
    }

private:
    static LSTATUS WINAPI Write(HKEY root, LPCWSTR key, LPCWSTR name, DWORD type, const void* data, DWORD size)
    {
        const bool isRefused = std::ranges::find(s_refused, ++s_nWrites) != s_refused.end();
        return isRefused ? ERROR_ACCESS_DENIED : s_original(root, key, name, type, data, size);
    }

    static inline std::vector<int> s_refused;
    static inline int s_nWrites = 0;
    static inline decltype(&::RegSetKeyValueW) s_original = nullptr;

    const ImportPatch<decltype(&::RegSetKeyValueW)> m_patch;
};

} // namespace

TEST(PurgeSettingsTest, MissingValuesHaveTheirDefaults)
{
    const RegistrySandbox registry;
    EXPECT_EQ(ReadPurgeSettings(), (PurgeSettings{30, 1}));
}

TEST(PurgeSettingsTest, AValueThatIsNoNumberHasItsDefault)
{
    struct Case
    {
        DWORD type;
        std::vector<BYTE> bytes;
    };

    const Case cases[] = {
        {REG_SZ, {'7', 0, 0, 0}},
        {REG_BINARY, {7, 0, 0, 0}},
        {REG_QWORD, {7, 0, 0, 0, 0, 0, 0, 0}},
        {REG_DWORD_BIG_ENDIAN, {0, 0, 0, 7}},
        {REG_NONE, {}},
        {REG_DWORD, {7, 0, 0}},
        {REG_DWORD, {7, 0, 0, 0, 0}},
        {REG_DWORD, {}},
    };
    for (const auto& [type, bytes] : cases)
    {
        const RegistrySandbox registry;
        registry.Set(Key, L"EventLogPurgeFre", type, bytes.data(), bytes.size());
        EXPECT_EQ(ReadPurgeSettings(), (PurgeSettings{30, 1})) << type << ", " << bytes.size();
        registry.SetNumber(Key, L"EventLogPurgeFre", 14);
        registry.Set(Key, L"EventLogPurgeFlag", type, bytes.data(), bytes.size());
        EXPECT_EQ(ReadPurgeSettings(), (PurgeSettings{14, 1})) << type << ", " << bytes.size();
    }
}

TEST(PurgeSettingsTest, NumbersAreReadAsTheyStandThere)
{
    for (const PurgeSettings& settings : {PurgeSettings{90, 2}, PurgeSettings{0, 0}, PurgeSettings{0xFFFFFFFF, 1}})
    {
        const RegistrySandbox registry;
        registry.SetNumber(Key, L"EventLogPurgeFre", settings.days);
        registry.SetNumber(Key, L"EventLogPurgeFlag", settings.flag);
        EXPECT_EQ(ReadPurgeSettings(), settings);
    }
}

TEST(PurgeSettingsTest, TheyAreWrittenAsNumbersWhereTheViewerReadsThem)
{
    const RegistrySandbox registry;
    WritePurgeSettings({45, 0});
    std::vector<BYTE> bytes;
    EXPECT_EQ(registry.Get(Key, L"EventLogPurgeFre", bytes), REG_DWORD);
    EXPECT_EQ(bytes, (std::vector<BYTE>{45, 0, 0, 0}));
    EXPECT_EQ(registry.Get(Key, L"EventLogPurgeFlag", bytes), REG_DWORD);
    EXPECT_EQ(ReadPurgeSettings(), (PurgeSettings{45, 0}));
}

TEST(PurgeSettingsTest, OnesThatCannotBeWrittenWholeLeaveWhatWasThere)
{
    for (const PurgeSettings& after : {PurgeSettings{7, 0}, PurgeSettings{7, 1}})
    {
        const RegistrySandbox registry;
        WritePurgeSettings({45, 1 - after.flag});
        for (const int failing : {1, 2})
        {
            const RefusingRegistry refusing({failing});
            EXPECT_THROW(WritePurgeSettings(after), std::system_error);
            EXPECT_EQ(ReadPurgeSettings(), (PurgeSettings{45, 1 - after.flag})) << failing;
        }
    }
}

// The days were written first: whoever switched the purge off and chose 7 days, and whose service was ended in between,
// was left with a purge that keeps 7 days.
TEST(PurgeSettingsTest, AProcessThatEndsBetweenTheTwoValuesLeavesNothingThatTakesMore)
{
    struct Case
    {
        PurgeSettings before;
        PurgeSettings after;
        PurgeSettings left;
    };

    constexpr Case cases[] = {
        {{30, 1}, {7, 0}, {30, 0}},
        {{30, 0}, {7, 0}, {30, 0}},
        {{7, 0}, {30, 1}, {30, 0}},
        {{30, 1}, {7, 1}, {7, 1}},
    };
    for (const Case& row : cases)
    {
        const RegistrySandbox registry;
        WritePurgeSettings(row.before);
        const RefusingRegistry ended({2, 3});
        EXPECT_THROW(WritePurgeSettings(row.after), std::system_error);
        EXPECT_EQ(ReadPurgeSettings(), row.left);
    }
}
