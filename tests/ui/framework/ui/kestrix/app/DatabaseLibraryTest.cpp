#include "framework/ui/kestrix/app/DatabaseLibrary.h"

#include "platform/dialog/UniqueHandle.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/LiveHandles.h"
#include "tests/support/OrlRecorder.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceRecorder.h"

#include <gtest/gtest.h>

namespace
{

using Texts = std::vector<std::wstring>;
using Calls = std::vector<std::string>;

constexpr auto LibraryRefused = static_cast<HRESULT>(0x80040299);
constexpr HRESULT Success = 262656;

class DatabaseLibraryTest : public ::testing::Test
{
protected:
    DatabaseLibraryTest() { InstallAt(m_library.Folder()); }

    void InstallAt(const std::wstring& folder)
    {
        m_registry.SetText(L"Software\\Veldrane\\Zeptara", L"InstalledFolder", folder);
    }

    static long LiveModules() { return LiveHandles::Of(HandleKind::Module); }

    // What a start traces that fails with this text, which stands between its enter and leave lines.
    void ExpectStartError(const std::wstring& text) const
    {
        EXPECT_EQ(m_trace.Texts(), (Texts{L"[Enter] CKestrixApp::InitializeOrlDbMgLibrary()...",
                                          L"*** CKestrixApp::InitializeOrlDbMgLibrary() - " + text,
                                          L"[Leave] CKestrixApp::InitializeOrlDbMgLibrary()..."}));
    }

    void ExpectEndError(const std::wstring& text) const
    {
        EXPECT_EQ(m_trace.Texts(), (Texts{L"[Enter] CKestrixApp::UnInitializeOrlDbMgLibrary()...",
                                          L"*** CEventLogProvider::UnInitializeOrlDbMgLibrary() - " + text,
                                          L"[Leave] CKestrixApp::UnInitializeOrlDbMgLibrary()..."}));
    }

    // Starts the library, which is to work, and forgets what that did.
    void Start()
    {
        ASSERT_EQ(m_database.Start(m_pProvider), Success);
        m_library.State().count = 0;
        m_trace.Clear();
    }

    const RegistrySandbox m_registry;
    const OrlRecorder m_library;
    TraceRecorder m_trace;
    CDatabaseLibrary m_database;
    IDBManagerProvider* m_pProvider = nullptr;
};

} // namespace

TEST_F(DatabaseLibraryTest, StartsInOrderAndEndsInTheReverse)
{
    const long before = LiveModules();
    EXPECT_EQ(m_database.Start(m_pProvider), Success);
    EXPECT_NE(m_pProvider, nullptr);
    EXPECT_EQ(LiveModules(), before + 1);
    EXPECT_EQ(m_database.Stop(m_pProvider), Success);
    EXPECT_EQ(m_pProvider, nullptr);
    EXPECT_EQ(LiveModules(), before);
    EXPECT_EQ(m_library.Calls(), (Calls{"Orl_Initialize", "Orl_CreateFunction", "provider Initialize",
                                        "provider Uninitialize", "Orl_FreeFunction", "Orl_Uninitialize"}));
    EXPECT_EQ(m_trace.Texts(), (Texts{L"[Enter] CKestrixApp::InitializeOrlDbMgLibrary()...",
                                      L"[Leave] CKestrixApp::InitializeOrlDbMgLibrary()...",
                                      L"[Enter] CKestrixApp::UnInitializeOrlDbMgLibrary()...",
                                      L"[Leave] CKestrixApp::UnInitializeOrlDbMgLibrary()..."}));
}

TEST_F(DatabaseLibraryTest, ASecondStartDoesNothingAndReportsSuccess)
{
    Start();
    IDBManagerProvider* const provider = m_pProvider;
    EXPECT_EQ(m_database.Start(m_pProvider), Success);
    EXPECT_EQ(m_pProvider, provider);
    EXPECT_EQ(m_library.Calls(), Calls{});
    ExpectStartError(L"cOrlDbMgLib.Initialize() already initialized.");
}

TEST_F(DatabaseLibraryTest, WithoutTheLibraryTheFolderIsTracedWithItsSeparator)
{
    const TemporaryFolder folder;
    InstallAt(folder.Path().wstring());
    EXPECT_EQ(m_database.Start(m_pProvider), static_cast<HRESULT>(0x80040240));
    EXPECT_EQ(m_pProvider, nullptr);
    EXPECT_EQ(m_trace.Errors(), (Texts{L"*** LibOrlDbMg::Initialize() - InitializeLibrary() failed. [0x0000007e]",
                                       L"*** CKestrixApp::InitializeOrlDbMgLibrary() - cOrlDbMgLib.Initialize() "
                                       L"failed. [" +
                                           folder.Path().wstring() + L"\\]"}));
}

TEST_F(DatabaseLibraryTest, WithoutAnInstalledFolderThePlatformLooksForTheLibrary)
{
    InstallAt(L"");
    EXPECT_EQ(m_database.Start(m_pProvider), Success); // that of the test is loaded already
    EXPECT_EQ(m_library.Calls().size(), 3u);
}

TEST_F(DatabaseLibraryTest, ALibraryThatLacksAnExportStaysLoadedUntilTheObjectGoes)
{
    const OrlRecorder incomplete(L"incomplete");
    InstallAt(incomplete.Folder() + L"\\");
    const long before = LiveModules();
    {
        CDatabaseLibrary database;
        EXPECT_EQ(database.Start(m_pProvider), static_cast<HRESULT>(0x80040240));
        EXPECT_EQ(LiveModules(), before + 1);
        EXPECT_EQ(m_trace.Errors()[0], L"*** LibOrlDbMg::Initialize() - InitializeLibrary() failed. [0x0000007f]");
        EXPECT_EQ(database.Stop(m_pProvider), Success);
        EXPECT_EQ(LiveModules(), before + 1);
    }
    EXPECT_EQ(LiveModules(), before);
    EXPECT_EQ(incomplete.Calls(), Calls{});
}

TEST_F(DatabaseLibraryTest, ALibraryThatDoesNotInitializeIsUnloadedAndALaterAttemptStartsAfresh)
{
    const long before = LiveModules();
    m_library.State().initialize = LibraryRefused;
    EXPECT_EQ(m_database.Start(m_pProvider), LibraryRefused);
    EXPECT_EQ(m_library.Calls(), Calls{"Orl_Initialize"});
    EXPECT_EQ(LiveModules(), before);
    ExpectStartError(L"cOrlDbMgLib.Orl_Initialize() failed. [0x80040299]");

    m_library.State().initialize = Success;
    Start();
    EXPECT_NE(m_pProvider, nullptr);
}

TEST_F(DatabaseLibraryTest, AProviderThatCannotBeMadeIsNotTakenEvenWhenItIsGiven)
{
    const long before = LiveModules();
    m_library.State().create = LibraryRefused;
    EXPECT_EQ(m_database.Start(m_pProvider), LibraryRefused);
    EXPECT_EQ(m_pProvider, nullptr);
    EXPECT_EQ(m_library.Calls(), (Calls{"Orl_Initialize", "Orl_CreateFunction", "Orl_Uninitialize"}));
    EXPECT_EQ(LiveModules(), before);
    ExpectStartError(L"cOrlUtilLib.Orl_CreateFunction() failed. [0x80040299]");
}

TEST_F(DatabaseLibraryTest, AProviderThatIsMadeAndNotGivenIsAFailure)
{
    const long before = LiveModules();
    m_library.State().givesProvider = false;
    EXPECT_EQ(m_database.Start(m_pProvider), static_cast<HRESULT>(0x80040205));
    EXPECT_EQ(m_library.Calls(), (Calls{"Orl_Initialize", "Orl_CreateFunction", "Orl_Uninitialize"}));
    EXPECT_EQ(LiveModules(), before);
    ExpectStartError(L"pIFunctionProvider was invalid.");
}

TEST_F(DatabaseLibraryTest, AProviderThatDoesNotStartIsEndedAndFreed)
{
    const long before = LiveModules();
    m_library.State().providerInitialize = LibraryRefused;
    EXPECT_EQ(m_database.Start(m_pProvider), LibraryRefused);
    EXPECT_EQ(m_pProvider, nullptr);
    EXPECT_EQ(m_library.Calls(), (Calls{"Orl_Initialize", "Orl_CreateFunction", "provider Initialize",
                                        "provider Uninitialize", "Orl_FreeFunction", "Orl_Uninitialize"}));
    EXPECT_EQ(LiveModules(), before);
    ExpectStartError(L"pIFunctionProvider->Initialize() failed. [0x80040299]");
}

TEST_F(DatabaseLibraryTest, TheEndWithoutAProviderIsHarmless)
{
    EXPECT_EQ(m_database.Stop(m_pProvider), Success);
    EXPECT_EQ(m_library.Calls(), Calls{});
    ExpectEndError(L"m_pIDBManagerProvider is NULL.");
}

TEST_F(DatabaseLibraryTest, AProviderThatDoesNotEndIsKept)
{
    Start();
    m_library.State().providerUninitialize = LibraryRefused;
    EXPECT_EQ(m_database.Stop(m_pProvider), LibraryRefused);
    EXPECT_NE(m_pProvider, nullptr);
    EXPECT_EQ(m_library.Calls(), Calls{"provider Uninitialize"});
    ExpectEndError(L"m_pIDBManagerProvider->Uninitialize() failed. [0x80040299]");
}

TEST_F(DatabaseLibraryTest, AProviderWithoutABoundLibraryIsEndedAlone)
{
    {
        CDatabaseLibrary other;
        ASSERT_EQ(other.Start(m_pProvider), Success);
    }
    m_trace.Clear();
    m_library.State().count = 0;
    EXPECT_EQ(m_database.Stop(m_pProvider), Success);
    EXPECT_EQ(m_pProvider, nullptr);
    EXPECT_EQ(m_library.Calls(), Calls{"provider Uninitialize"});
    ExpectEndError(L"cOrlDbMgLib is not initialized.");
}

TEST_F(DatabaseLibraryTest, AProviderThatCannotBeFreedLeavesTheLibraryLoaded)
{
    const long before = LiveModules();
    Start();
    m_library.State().free = LibraryRefused;
    EXPECT_EQ(m_database.Stop(m_pProvider), LibraryRefused);
    EXPECT_EQ(m_pProvider, nullptr);
    EXPECT_EQ(m_library.Calls(), (Calls{"provider Uninitialize", "Orl_FreeFunction"}));
    EXPECT_EQ(LiveModules(), before + 1);
    ExpectEndError(L"cOrlDbMgLib.Orl_FreeFunction() failed. [0x80040299]");
}

TEST_F(DatabaseLibraryTest, ALibraryThatDoesNotUninitializeStaysLoaded)
{
    const long before = LiveModules();
    Start();
    m_library.State().uninitialize = LibraryRefused;
    EXPECT_EQ(m_database.Stop(m_pProvider), LibraryRefused);
    EXPECT_EQ(m_library.Calls(), (Calls{"provider Uninitialize", "Orl_FreeFunction", "Orl_Uninitialize"}));
    EXPECT_EQ(LiveModules(), before + 1);
    ExpectEndError(L"cOrlDbMgLib.Orl_Uninitialize() failed. [0x80040299]");
}

namespace
{

BOOL WINAPI RefuseToFree(HMODULE)
{
    SetLastError(ERROR_BUSY);
    return FALSE;
}

} // namespace

extern "C" decltype(&::FreeLibrary) __imp_FreeLibrary;

TEST_F(DatabaseLibraryTest, ALibraryThatCannotBeUnloadedIsTracedAlone)
{
    Start();
    const ImportPatch busy(__imp_FreeLibrary, &RefuseToFree);
    EXPECT_EQ(m_database.Stop(m_pProvider), Success);
    EXPECT_EQ(m_trace.Errors(),
              (Texts{L"*** LibOrlDbMg::Uninitialize() - UnInitializeLibrary() failed. [0x000000aa]",
                     L"*** CEventLogProvider::UnInitializeOrlDbMgLibrary() - cOrlDbMgLib.Uninitialize() failed."}));
}
