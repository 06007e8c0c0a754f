#include "common/Frwk_Utility.h"

#include "tests/support/ImportPatch.h"
#include "tests/support/LiveHandles.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TraceRecorder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <utility>

extern "C" void* (*__imp_malloc)(std::size_t);
extern "C" decltype(&::RegCloseKey) __imp_RegCloseKey;
extern "C" decltype(&::VirtualAlloc) __imp_VirtualAlloc;

namespace
{

using namespace Frwk::Utility;
using UtilityTraces = std::vector<std::wstring>;

constexpr wchar_t Key[] = L"Software\\Veldrane\\Zeptara";

const UtilityTraces NothingTraced;

// The same message for every value.
UtilityTraces Failed(const std::wstring& code)
{
    return {L"*** Frwk::Utility::GetInstalledFolder() -  Got VdCommon::Storage::Exception(). [0x" + code + L"]"};
}

class FrameworkUtility : public ::testing::Test
{
protected:
    UtilityTraces Errors()
    {
        UtilityTraces errors = m_traces.Errors();
        m_traces.Clear();
        return errors;
    }

    RegistrySandbox m_sandbox;

private:
    TraceRecorder m_traces;
};

TEST_F(FrameworkUtility, FolderAndLanguageAreTheValuesOfTheInstallation)
{
    m_sandbox.SetText(Key, L"InstalledFolder", L"C:\\Suite \x0416");
    m_sandbox.SetText(Key, L"LangName", L"en-US");
    EXPECT_EQ(GetInstalledFolder(), L"C:\\Suite \x0416");
    EXPECT_EQ(GetLangName(), L"en-US");
    EXPECT_EQ(Errors(), NothingTraced);
}

TEST_F(FrameworkUtility, MissingKeyGivesEmptyAndOneLineWithThePlatformsNotFoundCode)
{
    EXPECT_EQ(GetInstalledFolder(), L"");
    EXPECT_EQ(Errors(), Failed(L"00000002"));
    EXPECT_EQ(GetLangName(), L"");
    EXPECT_EQ(Errors(), Failed(L"00000002"));
    EXPECT_EQ(GetLogFolder(), L"Log\\");
    EXPECT_EQ(Errors(), Failed(L"00000002"));
}

TEST_F(FrameworkUtility, MissingValueGivesEmptyAndTheSameMessageForBoth)
{
    m_sandbox.MakeKey(Key);
    EXPECT_EQ(GetInstalledFolder(), L"");
    EXPECT_EQ(Errors(), Failed(L"00000002"));
    EXPECT_EQ(GetLangName(), L"");
    EXPECT_EQ(Errors(), Failed(L"00000002"));
}

TEST_F(FrameworkUtility, ValueOfAnotherTypeGivesEmptyAndCode13)
{
    m_sandbox.SetNumber(Key, L"InstalledFolder", 1);
    m_sandbox.SetBytes(Key, L"LangName", {'e', 0, 'n', 0, 0, 0});
    EXPECT_EQ(GetInstalledFolder(), L"");
    EXPECT_EQ(Errors(), Failed(L"0000000d"));
    EXPECT_EQ(GetLangName(), L"");
    EXPECT_EQ(Errors(), Failed(L"0000000d"));
}

TEST_F(FrameworkUtility, EmptyFolderIsNoFailureAndItsLogFolderIsRelative)
{
    m_sandbox.SetText(Key, L"InstalledFolder", L"");
    EXPECT_EQ(GetInstalledFolder(), L"");
    EXPECT_EQ(GetLogFolder(), L"Log\\");
    EXPECT_EQ(Errors(), NothingTraced);
}

TEST_F(FrameworkUtility, FolderWithAndWithoutATrailingBackslashGivesTheSameLogFolder)
{
    m_sandbox.SetText(Key, L"InstalledFolder", L"C:\\Suite");
    EXPECT_EQ(GetLogFolder(), L"C:\\Suite\\Log\\");
    m_sandbox.SetText(Key, L"InstalledFolder", L"C:\\Suite\\");
    EXPECT_EQ(GetInstalledFolder(), L"C:\\Suite\\");
    EXPECT_EQ(GetLogFolder(), L"C:\\Suite\\Log\\");
    m_sandbox.SetText(Key, L"InstalledFolder", L"\\");
    EXPECT_EQ(GetLogFolder(), L"\\Log\\");
}

LSTATUS WINAPI FailToClose(HKEY)
{
    return ERROR_BUSY;
}

TEST_F(FrameworkUtility, KeyThatCannotBeClosedGivesEmptyAndItsCode)
{
    m_sandbox.SetText(Key, L"InstalledFolder", L"C:\\Suite");
    {
        const ImportPatch close(__imp_RegCloseKey, &FailToClose);
        EXPECT_EQ(GetInstalledFolder(), L"");
    }
    EXPECT_EQ(Errors(), Failed(L"000000aa"));
}

// Lets the next block from the plain heap, and from the guarded one of debug builds, fail.
class OneFailingBlock
{
public:
    OneFailingBlock() { s_pThis = this; }

private:
    bool Fails() { return std::exchange(m_bFails, false); }

    static void* Malloc(std::size_t size) { return s_pThis->Fails() ? nullptr : s_pThis->m_malloc.Original()(size); }

    static void* WINAPI Reserve(void* address, SIZE_T size, DWORD type, DWORD protection)
    {
        return s_pThis->Fails() ? nullptr : s_pThis->m_reserve.Original()(address, size, type, protection);
    }

    inline static OneFailingBlock* s_pThis = nullptr;
    bool m_bFails = true;
    const ImportPatch<void* (*)(std::size_t)> m_malloc{__imp_malloc, &Malloc};
    const ImportPatch<decltype(&::VirtualAlloc)> m_reserve{__imp_VirtualAlloc, &Reserve};
};

TEST_F(FrameworkUtility, StorageThatCannotBeMadeGivesEmptyAndItsOwnMessage)
{
    m_sandbox.SetText(Key, L"InstalledFolder", L"C:\\Suite");
    m_sandbox.SetText(Key, L"LangName", L"en-US");
    const UtilityTraces expected{L"*** Frwk::Utility::GetInstalledFolder() -  pStorage was invalid."};
    std::wstring answer = L"before";
    {
        const OneFailingBlock none;
        answer = GetInstalledFolder();
    }
    EXPECT_EQ(answer, L"");
    EXPECT_EQ(Errors(), expected);
    answer = L"before";
    {
        const OneFailingBlock none;
        answer = GetLangName();
    }
    EXPECT_EQ(answer, L"");
    EXPECT_EQ(Errors(), expected);
    EXPECT_EQ(LiveHandles::Of(HandleKind::RegistryKey), 1); // the sandbox's own
}

} // namespace
