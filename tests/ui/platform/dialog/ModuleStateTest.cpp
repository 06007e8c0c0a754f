#include "platform/dialog/ModuleState.h"
#include "platform/dialog/ResourceText.h"

#include "platform/dialog/UniqueHandle.h"
#include "tests/ui/platform/dialog/TestResources.h"

#include <gtest/gtest.h>

namespace
{

class ModuleStateTest : public ::testing::Test
{
protected:
    void SetUp() override { AfxSetResourceHandle(nullptr); }

    void TearDown() override { AfxSetResourceHandle(nullptr); }
};

TEST_F(ModuleStateTest, ResourcesComeFromTheProgramUntilAModuleIsSet)
{
    EXPECT_EQ(GetModuleHandleW(nullptr), AfxGetInstanceHandle());
    EXPECT_EQ(AfxGetInstanceHandle(), AfxGetResourceHandle());
    AfxSetResourceHandle(GetModuleHandleW(L"kernel32.dll"));
    EXPECT_EQ(GetModuleHandleW(L"kernel32.dll"), AfxGetResourceHandle());
}

TEST_F(ModuleStateTest, TheBytesOfAResourceAreThoseOfTheModule)
{
    const std::span<const std::byte> bytes = GetResourceBytes(IDB_TEST_STRIP, RT_BITMAP);
    ASSERT_GE(bytes.size(), sizeof(BITMAPINFOHEADER));
    const auto& header = *reinterpret_cast<const BITMAPINFOHEADER*>(bytes.data());
    EXPECT_EQ(header.biWidth, 4);
    EXPECT_EQ(header.biHeight, 2);
    EXPECT_EQ(bytes.size(), header.biSize + 2u * 12); // two rows of four pixels of three bytes
    EXPECT_TRUE(GetResourceBytes(9999, RT_BITMAP).empty());
    EXPECT_TRUE(GetResourceBytes(IDB_TEST_STRIP, RT_DIALOG).empty());
}

TEST_F(ModuleStateTest, TheLastTextOfABlockAndTheFirstOfTheNextAreTheirOwn)
{
    EXPECT_EQ(L"first text", LoadText(IDS_TEST_FIRST));
    EXPECT_EQ(L"second text, the first of its block", LoadText(IDS_TEST_SECOND));
}

TEST_F(ModuleStateTest, AMissingTextIsEmpty)
{
    EXPECT_EQ(L"", LoadText(IDS_TEST_FIRST - 1)); // its block is there
    EXPECT_EQ(L"", LoadText(IDS_TEST_EMPTY_BLOCK));
    EXPECT_EQ(L"", LoadText(65535));
    EXPECT_EQ(L"", LoadText(65536 + IDS_TEST_FIRST)); // numbers have 16 bits
    EXPECT_EQ(L"", LoadText(static_cast<UINT>(-1)));
}

TEST_F(ModuleStateTest, ATextIsReadOnceAndStays)
{
    const std::wstring& text = LoadText(IDS_TEST_FIRST);
    LoadText(IDS_TEST_SECOND);
    EXPECT_EQ(&text, &LoadText(IDS_TEST_FIRST));
}

TEST_F(ModuleStateTest, AnotherModuleEmptiesTheTable)
{
    EXPECT_EQ(L"first text", LoadText(IDS_TEST_FIRST));
    EXPECT_EQ(L"second text, the first of its block", LoadText(IDS_TEST_SECOND));

    const UniqueModule other(
        LoadLibraryExW(L"ui_dialog_other.mui", nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE));
    ASSERT_TRUE(other) << "ui_dialog_other.mui is not in the current folder: " << GetLastError();
    AfxSetResourceHandle(other.get());
    EXPECT_EQ(L"first text of the other module", LoadText(IDS_TEST_FIRST));
    EXPECT_EQ(L"", LoadText(IDS_TEST_SECOND));

    AfxSetResourceHandle(nullptr);
    EXPECT_EQ(L"first text", LoadText(IDS_TEST_FIRST));
}

} // namespace
