#include "platform/dialog/UniqueHandle.h"
#include "platform/dialog/UniqueHandleMembers.h"
#include "tests/support/LiveHandles.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

// A kind of handle that is no system object: closing notes the number and spoils the last error.
struct NumberTraits
{
    using Handle = int;
    static constexpr HandleKind Kind = HandleKind::Kernel;

    static int Invalid() noexcept { return -1; }

    static void Close(int handle) noexcept
    {
        Closed().push_back(handle);
        SetLastError(ERROR_GEN_FAILURE);
    }

    static std::vector<int>& Closed()
    {
        static std::vector<int> closed;
        return closed;
    }
};

using UniqueNumber = UniqueHandle<NumberTraits>;

class UniqueHandleTest : public ::testing::Test
{
protected:
    void SetUp() override { NumberTraits::Closed().clear(); }

    const std::vector<int>& Closed() const { return NumberTraits::Closed(); }

    long Live() const { return LiveHandles::Of(HandleKind::Kernel); }
};

void HandOut(int* address)
{
    *address = 7;
}

TEST_F(UniqueHandleTest, ClosesOnceAtTheEndOfItsLife)
{
    {
        const UniqueNumber number(3);
        EXPECT_EQ(3, number.get());
        EXPECT_TRUE(Closed().empty());
    }
    EXPECT_EQ(std::vector<int>{3}, Closed());
}

TEST_F(UniqueHandleTest, HoldsNothingAtFirstAndClosesNothing)
{
    {
        const UniqueNumber number;
        EXPECT_FALSE(number);
        EXPECT_EQ(-1, number.get());
    }
    EXPECT_TRUE(Closed().empty());
}

TEST_F(UniqueHandleTest, ClosingKeepsTheLastError)
{
    UniqueNumber number(3);
    SetLastError(ERROR_FILE_NOT_FOUND);
    number.reset();
    EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_NOT_FOUND), GetLastError());
    EXPECT_EQ(std::vector<int>{3}, Closed());
}

TEST_F(UniqueHandleTest, MovingHandsOverAndLeavesNothing)
{
    UniqueNumber first(3);
    UniqueNumber second(std::move(first));
    EXPECT_FALSE(first);
    EXPECT_EQ(3, second.get());

    UniqueNumber third(4);
    third = std::move(second);
    EXPECT_EQ(std::vector<int>{4}, Closed());
    EXPECT_EQ(3, third.get());
    EXPECT_FALSE(second);
}

TEST_F(UniqueHandleTest, MovingOntoItselfKeepsTheHandle)
{
    UniqueNumber number(3);
    UniqueNumber& same = number;
    number = std::move(same);
    EXPECT_EQ(3, number.get());
    EXPECT_TRUE(Closed().empty());
}

TEST_F(UniqueHandleTest, ResetToTheSameHandleKeepsIt)
{
    UniqueNumber number(3);
    number.reset(3);
    EXPECT_EQ(3, number.get());
    EXPECT_TRUE(Closed().empty());
}

TEST_F(UniqueHandleTest, ReleaseGivesTheHandleWithoutClosing)
{
    UniqueNumber number(3);
    EXPECT_EQ(3, number.release());
    EXPECT_FALSE(number);
    EXPECT_TRUE(Closed().empty());
}

TEST_F(UniqueHandleTest, TheAddressTakesWhatAFunctionHandsOutAndClosesWhatWasHeld)
{
    UniqueNumber number(3);
    HandOut(number.put());
    EXPECT_EQ(7, number.get());
    EXPECT_EQ(std::vector<int>{3}, Closed());
}

TEST_F(UniqueHandleTest, CountsEveryOwnedHandleOnce)
{
    const long before = Live();
    {
        UniqueNumber first(3);
        UniqueNumber second(std::move(first));
        UniqueNumber third;
        HandOut(third.put());
        EXPECT_EQ(before + 2, Live());
        static_cast<void>(second.release());
        EXPECT_EQ(before + 1, Live());
    }
    EXPECT_EQ(before, Live());
}

TEST_F(UniqueHandleTest, AFileThatCannotBeOpenedIsNoFile)
{
    const UniqueFile file(
        CreateFileW(L"no such folder\\no such file", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_FALSE(file);
    EXPECT_EQ(INVALID_HANDLE_VALUE, file.get());
}

TEST_F(UniqueHandleTest, ARegistryKeyArrivesThroughTheAddress)
{
    UniqueRegistryKey key;
    ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software", 0, KEY_READ, key.put()));
    EXPECT_TRUE(key);
}

TEST_F(UniqueHandleTest, ADrawingObjectIsGoneWithItsOwner)
{
    HBRUSH brush = nullptr;
    {
        const UniqueBrush owner(CreateSolidBrush(RGB(1, 2, 3)));
        brush = owner.get();
        EXPECT_EQ(static_cast<DWORD>(OBJ_BRUSH), GetObjectType(brush));
    }
    EXPECT_EQ(0u, GetObjectType(brush));
}

} // namespace
