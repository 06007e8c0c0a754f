#include "suite/common/Folders.h"

#include "tests/support/RegistrySandbox.h"

#include <gtest/gtest.h>

namespace
{

constexpr wchar_t Key[] = L"Software\\Veldrane\\Zeptara";

} // namespace

TEST(InstalledFolder, IsWhatTheRegistryNames)
{
    const RegistrySandbox registry;
    registry.SetText(Key, L"InstalledFolder", L"C:\\Zeptara Suite\\");
    EXPECT_EQ(Suite::InstalledFolder(), L"C:\\Zeptara Suite\\");
}

TEST(InstalledFolder, IsNothingWithoutKeyValueOrText)
{
    const RegistrySandbox registry;
    EXPECT_EQ(Suite::InstalledFolder(), std::nullopt);
    registry.MakeKey(Key);
    EXPECT_EQ(Suite::InstalledFolder(), std::nullopt);
    registry.SetText(Key, L"InstalledFolder", L"");
    EXPECT_EQ(Suite::InstalledFolder(), std::nullopt);
}

TEST(InstalledFolder, IsNothingWhenTheValueIsNoText)
{
    const RegistrySandbox registry;
    registry.SetNumber(Key, L"InstalledFolder", 5);
    EXPECT_EQ(Suite::InstalledFolder(), std::nullopt);
}

TEST(DataFolder, IsWhatTheRegistryNames)
{
    const RegistrySandbox registry;
    registry.SetText(Key, L"InstalledFolder", L"C:\\Program Files\\Zeptara\\");
    registry.SetText(Key, L"DataFolder", L"C:\\ProgramData\\Zeptara\\");
    EXPECT_EQ(Suite::DataFolder(), L"C:\\ProgramData\\Zeptara\\");
}

TEST(DataFolder, IsTheInstalledFolderWithoutOneOfItsOwn)
{
    const RegistrySandbox registry;
    EXPECT_EQ(Suite::DataFolder(), std::nullopt);
    registry.SetText(Key, L"InstalledFolder", L"C:\\Zeptara");
    EXPECT_EQ(Suite::DataFolder(), L"C:\\Zeptara");
    registry.SetText(Key, L"DataFolder", L"");
    EXPECT_EQ(Suite::DataFolder(), L"C:\\Zeptara");
}

TEST(InstalledFolder, EndsWhereAValueWithoutTerminatorEnds)
{
    const RegistrySandbox registry;
    registry.Set(Key, L"InstalledFolder", REG_SZ, L"C:\\Suite", 8 * sizeof(wchar_t));
    EXPECT_EQ(Suite::InstalledFolder(), L"C:\\Suite");
}
