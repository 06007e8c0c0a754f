#include "common/VdCommon/VdComn_Library.h"

#include <gtest/gtest.h>

namespace
{

using VdCommon::Export;

// A small library that the test program itself does not need, so that its unloading can be seen.
constexpr wchar_t UnusedLibrary[] = L"lz32.dll";
constexpr std::uint32_t FormerNumber = 12345;

bool IsUnusedLoaded()
{
    return ::GetModuleHandleW(UnusedLibrary) != nullptr;
}

HMODULE BadModule()
{
    return reinterpret_cast<HMODULE>(std::intptr_t{0x12340000});
}

class Held : public VdCommon::Library::Base
{
public:
    explicit Held(HMODULE module) { m_hModule.reset(module); }

    using Base::Free;
};

// Binds two exports of the library and, for the tests of failures, one or two more by these names.
class Lz32 : public VdCommon::Library::Wrapper
{
public:
    explicit Lz32(const wchar_t* third = L"LZInit", const wchar_t* fourth = L"LZSeek")
        : m_third(third), m_fourth(fourth)
    {
    }

    using Wrapper::InitializeLibrary;
    using Wrapper::UnInitializeLibrary;

    bool Bind(bool load, std::uint32_t* error) override
    {
        return BindLibrary(load, error, Export{L"LZClose", &m_pfnClose}, Export{m_third, &m_pfnThird},
                           Export{m_fourth, &m_pfnFourth}, Export{L"LZRead", &m_pfnRead});
    }

    void Hold(HMODULE module)
    {
        static_cast<void>(m_hModule.release());
        m_hModule.reset(module);
    }

    void(WINAPI* m_pfnClose)(INT) = nullptr;
    INT(WINAPI* m_pfnRead)(INT, LPSTR, INT) = nullptr;
    void (*m_pfnThird)() = nullptr;
    void (*m_pfnFourth)() = nullptr;

private:
    const wchar_t* m_third;
    const wchar_t* m_fourth;
};

TEST(LibraryBase, DestructorFreesTheModule)
{
    {
        const Held held(::LoadLibraryW(UnusedLibrary));
        EXPECT_EQ(held.Module(), ::GetModuleHandleW(UnusedLibrary));
        EXPECT_TRUE(IsUnusedLoaded());
    }
    EXPECT_FALSE(IsUnusedLoaded());
}

TEST(LibraryBase, FreeClearsTheHandle)
{
    Held held(::LoadLibraryW(UnusedLibrary));
    EXPECT_TRUE(held.Free());
    EXPECT_EQ(held.Module(), nullptr);
    EXPECT_FALSE(IsUnusedLoaded());
    EXPECT_TRUE(held.Free()); // nothing held
}

TEST(LibraryBase, HandleStaysWhenThePlatformRefuses)
{
    Held held(BadModule());
    EXPECT_FALSE(held.Free());
    EXPECT_EQ(held.Module(), BadModule());
}

TEST(LibraryWrapper, LoadsAndBindsEveryExport)
{
    Lz32 library;
    std::uint32_t error = FormerNumber;
    EXPECT_TRUE(library.InitializeLibrary(UnusedLibrary, &error));
    EXPECT_EQ(error, 0u);
    EXPECT_TRUE(library.IsBound());
    ASSERT_NE(library.m_pfnClose, nullptr);
    ASSERT_NE(library.m_pfnRead, nullptr);
    EXPECT_EQ(library.m_pfnRead(-1, nullptr, 0), -1); // LZERROR_BADINHANDLE: the function itself was reached
}

TEST(LibraryWrapper, DestructionFreesABoundLibrary)
{
    {
        Lz32 library;
        ASSERT_TRUE(library.InitializeLibrary(UnusedLibrary, nullptr));
    }
    EXPECT_FALSE(IsUnusedLoaded());
}

TEST(LibraryWrapper, SecondLoadFailsWith5010)
{
    Lz32 library;
    std::uint32_t error = FormerNumber;
    ASSERT_TRUE(library.InitializeLibrary(UnusedLibrary, nullptr));
    EXPECT_FALSE(library.InitializeLibrary(UnusedLibrary, &error));
    EXPECT_EQ(error, 5010u);
    EXPECT_TRUE(library.IsBound());
}

TEST(LibraryWrapper, EmptyPathFailsWith160)
{
    Lz32 library;
    std::uint32_t error = FormerNumber;
    EXPECT_FALSE(library.InitializeLibrary(L"", &error));
    EXPECT_EQ(error, 160u);
}

TEST(LibraryWrapper, MissingFileGivesThePlatformsError)
{
    Lz32 library;
    std::uint32_t error = FormerNumber;
    EXPECT_FALSE(library.InitializeLibrary(L"C:\\no-such-library.dll", &error));
    EXPECT_EQ(error, 126u);
    EXPECT_EQ(library.Module(), nullptr);
}

TEST(LibraryWrapper, MissingExportLeavesItUnboundAndLoadedAndTheOthersAreLookedUp)
{
    Lz32 library(L"NoSuchExport");
    std::uint32_t error = FormerNumber;
    EXPECT_FALSE(library.InitializeLibrary(UnusedLibrary, &error));
    EXPECT_EQ(error, 127u); // though the last look-up succeeded
    EXPECT_FALSE(library.IsBound());
    EXPECT_TRUE(IsUnusedLoaded());
    EXPECT_NE(library.m_pfnRead, nullptr);
    EXPECT_EQ(library.m_pfnThird, nullptr);
    EXPECT_FALSE(library.InitializeLibrary(UnusedLibrary, &error));
    EXPECT_EQ(error, 5010u);
}

TEST(LibraryWrapper, ErrorOfTheLastMissingExportStands)
{
    Lz32 library(L"NoSuchExport", nullptr);
    std::uint32_t error = FormerNumber;
    EXPECT_FALSE(library.InitializeLibrary(UnusedLibrary, &error));
    EXPECT_EQ(error, 160u);

    Lz32 reversed(nullptr, L"NoSuchExport");
    EXPECT_FALSE(reversed.InitializeLibrary(UnusedLibrary, &error));
    EXPECT_EQ(error, 127u);
}

TEST(LibraryWrapper, BindingWithoutAModuleFailsWith6)
{
    Lz32 library;
    std::uint32_t error = FormerNumber;
    EXPECT_FALSE(library.Bind(true, &error));
    EXPECT_EQ(error, 6u);
    EXPECT_FALSE(library.IsBound());
}

TEST(LibraryWrapper, UnbindingZeroesThePointersAndAlwaysSucceeds)
{
    Lz32 library;
    std::uint32_t error = FormerNumber;
    EXPECT_TRUE(library.Bind(false, &error));
    EXPECT_EQ(error, 0u);
    ASSERT_TRUE(library.InitializeLibrary(UnusedLibrary, nullptr));
    EXPECT_TRUE(library.Bind(false, nullptr));
    EXPECT_FALSE(library.IsBound());
    EXPECT_EQ(library.m_pfnClose, nullptr);
    EXPECT_EQ(library.m_pfnRead, nullptr);
    EXPECT_TRUE(IsUnusedLoaded());
}

TEST(LibraryWrapper, UnloadingFreesAndUnbinds)
{
    Lz32 library;
    std::uint32_t error = FormerNumber;
    ASSERT_TRUE(library.InitializeLibrary(UnusedLibrary, nullptr));
    EXPECT_TRUE(library.UnInitializeLibrary(&error));
    EXPECT_EQ(error, 0u);
    EXPECT_FALSE(IsUnusedLoaded());
    EXPECT_EQ(library.Module(), nullptr);
    EXPECT_FALSE(library.IsBound());
    EXPECT_EQ(library.m_pfnClose, nullptr);
}

TEST(LibraryWrapper, UnloadingWhatIsNotBoundOrNotLoadedFailsWith6)
{
    Lz32 library;
    std::uint32_t error = FormerNumber;
    EXPECT_FALSE(library.UnInitializeLibrary(&error));
    EXPECT_EQ(error, 6u);

    Lz32 unbound(L"NoSuchExport");
    ASSERT_FALSE(unbound.InitializeLibrary(UnusedLibrary, nullptr));
    error = FormerNumber;
    EXPECT_FALSE(unbound.UnInitializeLibrary(&error));
    EXPECT_EQ(error, 6u);
    EXPECT_NE(unbound.Module(), nullptr);
}

TEST(LibraryWrapper, RefusedUnloadingGivesThePlatformsErrorAndStaysBound)
{
    Lz32 library;
    std::uint32_t error = FormerNumber;
    ASSERT_TRUE(library.InitializeLibrary(UnusedLibrary, nullptr));
    const HMODULE module = library.Module();
    library.Hold(BadModule());
    EXPECT_FALSE(library.UnInitializeLibrary(&error));
    EXPECT_EQ(error, 126u);
    EXPECT_TRUE(library.IsBound());
    EXPECT_NE(library.m_pfnClose, nullptr);
    EXPECT_EQ(library.Module(), BadModule());
    library.Hold(module);
}

TEST(LibraryWrapper, GetProcedureFindsAnExport)
{
    Lz32 library;
    std::uint32_t error = FormerNumber;
    void(WINAPI * close)(INT) = nullptr;
    ASSERT_TRUE(library.InitializeLibrary(UnusedLibrary, nullptr));
    EXPECT_TRUE(library.GetProcedure(&close, L"LZClose", &error));
    EXPECT_EQ(error, 0u);
    EXPECT_EQ(close, library.m_pfnClose);
}

TEST(LibraryWrapper, GetProcedureWithANullNameOrOutputGives160)
{
    Lz32 library;
    std::uint32_t error = FormerNumber;
    void (*found)() = []() {};
    EXPECT_FALSE(library.GetProcedure(&found, nullptr, &error)); // counts before the missing module
    EXPECT_EQ(error, 160u);
    EXPECT_EQ(found, nullptr);

    error = FormerNumber;
    EXPECT_FALSE(library.GetProcedure<void()>(nullptr, L"LZClose", &error));
    EXPECT_EQ(error, 160u);
}

TEST(LibraryWrapper, GetProcedureWithoutAModuleGives6)
{
    const Lz32 library;
    std::uint32_t error = FormerNumber;
    void (*found)() = []() {};
    EXPECT_FALSE(library.GetProcedure(&found, L"LZClose", &error));
    EXPECT_EQ(error, 6u);
    EXPECT_EQ(found, nullptr);
}

TEST(LibraryWrapper, GetProcedureOfAMissingNameGivesThePlatformsError)
{
    Lz32 library;
    std::uint32_t error = FormerNumber;
    void (*found)() = []() {};
    ASSERT_TRUE(library.InitializeLibrary(UnusedLibrary, nullptr));
    EXPECT_FALSE(library.GetProcedure(&found, L"NoSuchExport", &error));
    EXPECT_EQ(error, 127u);
    EXPECT_EQ(found, nullptr);
}

TEST(LibraryWrapper, GetProcedureOfANameBeyondAnyLengthFails)
{
    Lz32 library;
    std::uint32_t error = 0;
    void (*found)() = nullptr;
    ASSERT_TRUE(library.InitializeLibrary(UnusedLibrary, nullptr));
    EXPECT_FALSE(library.GetProcedure(&found, std::wstring(10000, L'x').c_str(), &error));
    EXPECT_EQ(error, 122u);
}

} // namespace
