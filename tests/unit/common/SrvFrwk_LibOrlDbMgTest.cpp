#include "common/SrvFrwk_LibOrlDbMg.h"

#include "tests/support/LiveHandles.h"
#include "tests/support/OrlRecorder.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceRecorder.h"

#include <gtest/gtest.h>

namespace
{

using SrvFrwk::Library::LibOrlDbMg;
using Texts = std::vector<std::wstring>;

long LiveModules()
{
    return LiveHandles::Of(HandleKind::Module);
}

class LibOrlDbMgTest : public ::testing::Test
{
protected:
    Texts Failure(const wchar_t* code) const
    {
        return {std::wstring(L"*** LibOrlDbMg::Initialize() - InitializeLibrary() failed. [") + code + L"]"};
    }

    const OrlRecorder m_library;
    const TraceRecorder m_trace;
    LibOrlDbMg m_binding;
};

} // namespace

TEST_F(LibOrlDbMgTest, BindsTheFourExportsOfTheFolder)
{
    ASSERT_TRUE(m_binding.Initialize(m_library.Folder()));
    EXPECT_TRUE(m_binding.IsBound());
    EXPECT_EQ(m_binding.Module(), m_library.Module());
    IDBManagerProvider* provider = nullptr;
    m_binding.Orl_Initialize(0, 0);
    m_binding.Orl_CreateFunction(&provider, 0, 0);
    m_binding.Orl_FreeFunction(0, 0, 0);
    m_binding.Orl_Uninitialize(0, 0);
    EXPECT_EQ(m_library.Calls(), (std::vector<std::string>{"Orl_Initialize", "Orl_CreateFunction", "Orl_FreeFunction",
                                                           "Orl_Uninitialize"}));
    EXPECT_EQ(m_trace.Texts(), Texts{});
}

TEST_F(LibOrlDbMgTest, AFolderMayEndInASeparator)
{
    EXPECT_TRUE(m_binding.Initialize(m_library.Folder() + L"\\"));
    EXPECT_EQ(m_binding.Module(), m_library.Module());
}

TEST_F(LibOrlDbMgTest, AnEmptyFolderLeavesTheBareNameToThePlatform)
{
    // A module of this name is loaded, and that is what the platform finds for a bare name.
    EXPECT_TRUE(m_binding.Initialize(L""));
    EXPECT_EQ(m_binding.Module(), m_library.Module());
}

TEST_F(LibOrlDbMgTest, AFolderWithoutTheLibraryTellsThePlatformsCode)
{
    const TemporaryFolder folder;
    EXPECT_FALSE(m_binding.Initialize(folder.Path().wstring()));
    EXPECT_FALSE(m_binding.IsBound());
    EXPECT_EQ(m_binding.Module(), nullptr);
    EXPECT_EQ(m_trace.Texts(), Failure(L"0x0000007e"));
}

TEST_F(LibOrlDbMgTest, AFileThatIsNoLibraryIsRefused)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"OrlDbMg.dll"), "no library");
    EXPECT_FALSE(m_binding.Initialize(folder.Path().wstring()));
    EXPECT_EQ(m_trace.Texts(), Failure(L"0x000000c1"));
}

TEST_F(LibOrlDbMgTest, ALibraryThatIsBoundIsNotLoadedAgain)
{
    ASSERT_TRUE(m_binding.Initialize(m_library.Folder()));
    EXPECT_FALSE(m_binding.Initialize(m_library.Folder()));
    EXPECT_TRUE(m_binding.IsBound());
    EXPECT_EQ(m_trace.Texts(), Failure(L"0x00001392")); // 5010
}

TEST_F(LibOrlDbMgTest, ALibraryThatLacksAnExportStaysLoadedUnboundUntilTheWrapperGoes)
{
    const OrlRecorder incomplete(L"incomplete");
    const long before = LiveModules();
    {
        LibOrlDbMg binding;
        EXPECT_FALSE(binding.Initialize(incomplete.Folder()));
        EXPECT_FALSE(binding.IsBound());
        EXPECT_EQ(binding.Module(), incomplete.Module());
        EXPECT_NE(binding.Orl_Uninitialize, nullptr); // those before and after the missing one are looked up
        EXPECT_EQ(binding.Orl_FreeFunction, nullptr);
        EXPECT_EQ(m_trace.Texts(), Failure(L"0x0000007f"));

        EXPECT_FALSE(binding.Initialize(incomplete.Folder())); // a module is held
        EXPECT_FALSE(binding.Uninitialize());                  // and not bound
        EXPECT_EQ(m_trace.Texts().size(), 3u);
        EXPECT_EQ(m_trace.Texts()[1], Failure(L"0x00001392")[0]);
        EXPECT_EQ(m_trace.Texts()[2], L"*** LibOrlDbMg::Uninitialize() - UnInitializeLibrary() failed. [0x00000006]");
        EXPECT_EQ(LiveModules(), before + 1);
    }
    EXPECT_EQ(LiveModules(), before);
}

TEST_F(LibOrlDbMgTest, UninitializeUnloadsAndForgetsTheExports)
{
    const long before = LiveModules();
    ASSERT_TRUE(m_binding.Initialize(m_library.Folder()));
    EXPECT_TRUE(m_binding.Uninitialize());
    EXPECT_EQ(LiveModules(), before);
    EXPECT_FALSE(m_binding.IsBound());
    EXPECT_EQ(m_binding.Module(), nullptr);
    EXPECT_EQ(m_binding.Orl_Initialize, nullptr);
    EXPECT_EQ(m_binding.Orl_Uninitialize, nullptr);
    EXPECT_EQ(m_binding.Orl_CreateFunction, nullptr);
    EXPECT_EQ(m_binding.Orl_FreeFunction, nullptr);
    EXPECT_TRUE(m_binding.Initialize(m_library.Folder()));
    EXPECT_EQ(m_trace.Texts(), Texts{});
}

TEST_F(LibOrlDbMgTest, UninitializeWithoutALibraryIsRefused)
{
    EXPECT_FALSE(m_binding.Uninitialize());
    EXPECT_EQ(m_trace.Texts(), Texts{L"*** LibOrlDbMg::Uninitialize() - UnInitializeLibrary() failed. [0x00000006]"});
}

TEST_F(LibOrlDbMgTest, ABoundLibraryIsFreedWithTheWrapper)
{
    const long before = LiveModules();
    {
        LibOrlDbMg binding;
        ASSERT_TRUE(binding.Initialize(m_library.Folder()));
        EXPECT_EQ(LiveModules(), before + 1);
    }
    EXPECT_EQ(LiveModules(), before);
}
