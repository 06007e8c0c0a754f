#include "common/VdCommon/VdComn_StorageText.h"

#include "tests/unit/common/VdCommon/StorageCodes.h"

#include <gtest/gtest.h>

namespace
{

using namespace VdCommon::Storage;

TEST(StorageText, NullIsTheEmptyText)
{
    EXPECT_EQ(TextOf(nullptr), L"");
    EXPECT_EQ(TextOf(L"text"), L"text");
}

TEST(StorageText, PathHasOneBackslashBetweenItsParts)
{
    EXPECT_EQ(JoinPath(L"Software", L"Key"), L"Software\\Key");
    EXPECT_EQ(JoinPath(L"Software\\", L"Key"), L"Software\\Key");
}

TEST(StorageText, PathOfTheFirstPartAloneEndsInABackslash)
{
    EXPECT_EQ(JoinPath(L"Software", L""), L"Software\\");
    EXPECT_EQ(JoinPath(L"Software\\", nullptr), L"Software\\");
}

TEST(StorageText, PathSkipsWhatIsEmptyOrNull)
{
    EXPECT_EQ(JoinPath(nullptr, L"Key"), L"Key");
    EXPECT_EQ(JoinPath(L"", L"Key"), L"Key");
    EXPECT_EQ(JoinPath(nullptr, nullptr), L"");
}

TEST(StorageText, AllocatedTextIsZeroed)
{
    EXPECT_EQ(AllocateText(3), std::wstring(3, L'\0'));
}

TEST(StorageText, MissingMemoryThrowsCode6)
{
    EXPECT_EQ(ThrownCode([] { AllocateText(std::size_t{1} << 58); }), 6u);
    EXPECT_EQ(ThrownCode([] { AllocateText(~std::size_t{0}); }), 6u);
}

} // namespace
