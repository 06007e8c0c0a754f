#include "common/VdCommon/VdComn_MuiResource.h"

#include "tests/support/DebuggerOutput.h"
#include "tests/unit/common/VdCommon/MuiFiles.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using namespace MuiFiles;
using VdCommon::Library::MuiResource;

std::wstring g_program; // the full path that the program is told to have

// As GetModuleFileName: a path that fills the room is cut, and its length is then the room's.
DWORD WINAPI ModulePath(HMODULE module, wchar_t* room, DWORD size)
{
    EXPECT_EQ(module, nullptr);
    EXPECT_EQ(size, 260u);
    const DWORD length = static_cast<DWORD>(g_program.copy(room, size));
    room[length < size ? length : size - 1] = L'\0';
    return length;
}

class MuiResourceLoad : public ::testing::Test
{
protected:
    MuiResourceLoad() { g_program = m_folder.Path() / L"Kestrix.exe"; }

    std::filesystem::path First(const wchar_t* language = L"en-US") const
    {
        return m_folder.Path() / L"resource" / language / L"Kestrix.exe.mui";
    }

    std::filesystem::path Second() const { return m_folder.Path() / L"Kestrix.exe.mui"; }

    MuiFolder m_folder;
    MuiResource m_resource{ModulePath};
};

TEST_F(MuiResourceLoad, FirstPlaceEndsInEnUsUnlessALanguageIsSet)
{
    WritePlain(First(), 1);
    WritePlain(Second(), 2);
    EXPECT_TRUE(m_resource.Load());
    EXPECT_EQ(PlaceOf(m_resource.Module()), 1);
}

TEST_F(MuiResourceLoad, LanguageNamesTheSubFolder)
{
    WritePlain(First(), 1);
    WritePlain(First(L"de-DE"), 2);
    m_resource.SetLanguage(L"de-DE");
    EXPECT_TRUE(m_resource.Load());
    EXPECT_EQ(PlaceOf(m_resource.Module()), 2);
}

TEST_F(MuiResourceLoad, FolderCanBeAnother)
{
    WritePlain(First(), 1);
    WritePlain(m_folder.Path() / L"texts" / L"en-US" / L"Kestrix.exe.mui", 2);
    m_resource.SetFolder(L"texts");
    EXPECT_TRUE(m_resource.Load());
    EXPECT_EQ(PlaceOf(m_resource.Module()), 2);
}

TEST_F(MuiResourceLoad, FileBesideTheProgramServesWhenTheFirstPlaceIsMissing)
{
    WritePlain(Second(), 2);
    EXPECT_TRUE(m_resource.Load());
    EXPECT_EQ(PlaceOf(m_resource.Module()), 2);
}

TEST_F(MuiResourceLoad, BothMissingGivesFalse)
{
    EXPECT_FALSE(m_resource.Load());
    EXPECT_EQ(m_resource.Module(), nullptr);
}

TEST_F(MuiResourceLoad, SecondPlaceIsNotTriedWithoutFallback)
{
    WritePlain(Second(), 2);
    m_resource.SetUseFallback(false);
    EXPECT_FALSE(m_resource.Load());
    EXPECT_EQ(m_resource.Module(), nullptr);
}

TEST_F(MuiResourceLoad, EachPlaceTriedGoesToTheDebuggerOutput)
{
    const DebuggerOutput output;
    m_resource.Load();
    EXPECT_EQ(output.Texts(), (std::vector<std::string>{First().string(), Second().string()}));
}

TEST_F(MuiResourceLoad, SecondPlaceIsNotNamedWhenTheFirstServes)
{
    WritePlain(First(), 1);
    const DebuggerOutput output;
    m_resource.Load();
    EXPECT_EQ(output.Texts(), std::vector<std::string>{First().string()});
}

TEST_F(MuiResourceLoad, LanguageOfMoreThan84CharactersIsCut)
{
    const std::wstring kept(84, L'x');
    m_resource.SetLanguage(kept);
    EXPECT_EQ(m_resource.Language(), kept);
    m_resource.SetLanguage(kept + L"yz");
    EXPECT_EQ(m_resource.Language(), kept);

    const DebuggerOutput output;
    m_resource.Load();
    ASSERT_FALSE(output.Texts().empty());
    EXPECT_EQ(output.Texts()[0], First(kept.c_str()).string());
}

TEST_F(MuiResourceLoad, FolderOfMoreThan260CharactersIsCut)
{
    m_resource.SetFolder(std::wstring(261, L'f'));
    const DebuggerOutput output;
    m_resource.Load();
    ASSERT_FALSE(output.Texts().empty());
    EXPECT_EQ(output.Texts()[0], m_folder.Path().string() + "\\" + std::string(260, 'f') + "\\en-US\\Kestrix.exe.mui");
}

TEST_F(MuiResourceLoad, ProgramPathOf259CharactersIsLookedAt)
{
    g_program = L"C:\\" + std::wstring(256, L'p');
    const DebuggerOutput output;
    EXPECT_FALSE(m_resource.Load());
    ASSERT_EQ(output.Texts().size(), 2u);
    EXPECT_EQ(output.Texts()[1], std::filesystem::path(g_program).string() + ".mui");
}

TEST_F(MuiResourceLoad, ProgramPathOf260CharactersOrMoreFailsAtOnce)
{
    for (const std::size_t length : {260u, 261u, 400u})
    {
        g_program = L"C:\\" + std::wstring(length - 3, L'p');
        const DebuggerOutput output;
        EXPECT_FALSE(m_resource.Load());
        EXPECT_TRUE(output.Texts().empty()) << length;
    }
}

TEST_F(MuiResourceLoad, ProgramPathThatCannotBeHadFailsAtOnce)
{
    g_program.clear();
    const DebuggerOutput output;
    EXPECT_FALSE(m_resource.Load());
    EXPECT_TRUE(output.Texts().empty());
}

TEST_F(MuiResourceLoad, ProgramPathWithoutBackslashFailsAtOnce)
{
    g_program = L"Kestrix.exe";
    const DebuggerOutput output;
    EXPECT_FALSE(m_resource.Load());
    EXPECT_TRUE(output.Texts().empty());
}

TEST_F(MuiResourceLoad, SecondLoadFreesTheFirstFile)
{
    WritePlain(First(), 1);
    ASSERT_TRUE(m_resource.Load());
    WritePlain(First(L"de-DE"), 2);
    m_resource.SetLanguage(L"de-DE");
    ASSERT_TRUE(m_resource.Load());
    EXPECT_EQ(PlaceOf(m_resource.Module()), 2);
    EXPECT_TRUE(std::filesystem::remove(First()));
}

TEST_F(MuiResourceLoad, FailedLoadHoldsNothing)
{
    WritePlain(First(), 1);
    ASSERT_TRUE(m_resource.Load());
    m_resource.SetLanguage(L"none");
    EXPECT_FALSE(m_resource.Load());
    EXPECT_EQ(m_resource.Module(), nullptr);
    EXPECT_TRUE(std::filesystem::remove(First()));
}

TEST_F(MuiResourceLoad, DestructorReleasesTheFile)
{
    WritePlain(First(), 1);
    {
        MuiResource resource(ModulePath);
        ASSERT_TRUE(resource.Load());
        std::error_code inUse;
        EXPECT_FALSE(std::filesystem::remove(First(), inUse));
    }
    EXPECT_TRUE(std::filesystem::remove(First()));
}

TEST_F(MuiResourceLoad, DestructorReleasesTheModuleOnceOnly)
{
    struct Holding : MuiResource
    {
        explicit Holding(HMODULE module) { m_hModule.reset(module); }
    };

    constexpr wchar_t Counted[] = L"lz32.dll"; // the platform counts how often it was loaded
    {
        const UniqueModule other(::LoadLibraryW(Counted));
        {
            const Holding resource(::LoadLibraryW(Counted));
        }
        EXPECT_EQ(::GetModuleHandleW(Counted), other.get());
    }
    EXPECT_EQ(::GetModuleHandleW(Counted), nullptr);
}

TEST_F(MuiResourceLoad, OwnPathOfTheProgramIsTheDefault)
{
    wchar_t program[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    const DebuggerOutput output;
    EXPECT_FALSE(MuiResource().Load());
    ASSERT_EQ(output.Texts().size(), 2u);
    EXPECT_EQ(output.Texts()[1], std::filesystem::path(program).string() + ".mui");
}

} // namespace
