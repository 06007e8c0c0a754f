#include "suite/framework/PurgeSettings.h"

#include "tests/support/RegistrySandbox.h"

#include <gtest/gtest.h>

#include <system_error>

using namespace Framework;

namespace
{

constexpr wchar_t Key[] = L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";

} // namespace

TEST(PurgeSettingsTest, MissingValuesHaveTheirDefaults)
{
    const RegistrySandbox registry;
    EXPECT_EQ(ReadPurgeSettings(), (PurgeSettings{30, 1}));
}

TEST(PurgeSettingsTest, AValueThatIsNoNumberHasItsDefault)
{
    const RegistrySandbox registry;
    registry.SetText(Key, L"EventLogPurgeFre", L"14");
    registry.SetNumber(Key, L"EventLogPurgeFlag", 0);
    EXPECT_EQ(ReadPurgeSettings(), (PurgeSettings{30, 0}));
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
