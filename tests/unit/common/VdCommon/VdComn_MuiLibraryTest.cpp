#include "common/VdCommon/VdComn_MuiLibrary.h"

#include "platform/dialog/UniqueHandle.h"
#include "tests/unit/common/VdCommon/MuiFiles.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using namespace MuiFiles;
using VdCommon::Library::FreeMUILibrary;
using VdCommon::Library::LoadMUILibrary;
using VdCommon::Library::MuiCandidates;
using VdCommon::Library::UiLanguages;
using Paths = std::vector<std::wstring>;

constexpr LANGID French = 0x040C;
constexpr LANGID German = 0x0407;
constexpr LANGID Spanish = 0x0C0A;
constexpr UiLanguages FrenchOnGerman{French, German};
constexpr std::uint8_t Ours = 0x22;
constexpr std::uint8_t Other = 0x33;

// A language neutral file in a folder of its own, and another folder as the current one.
class MuiLibrary : public ::testing::Test
{
protected:
    MuiLibrary()
    {
        wchar_t before[MAX_PATH] = {};
        ::GetCurrentDirectoryW(MAX_PATH, before);
        m_before = before;
        ::SetCurrentDirectoryW(m_current.Path().c_str());
        WriteConfigured(Neutral(), 99, Ours);
    }

    ~MuiLibrary() override { ::SetCurrentDirectoryW(m_before.c_str()); }

    std::filesystem::path Beside() const { return m_beside.Path(); }

    std::filesystem::path Current() const { return m_current.Path(); }

    std::filesystem::path Neutral() const { return Beside() / L"file.dll"; }

    // The place of what is loaded for the neutral file; -1 for nothing.
    int Loaded(DWORD convention = MUI_LANGUAGE_NAME, LANGID language = 0) const
    {
        const UniqueModule module(LoadMUILibrary(Neutral().c_str(), convention, language, FrenchOnGerman));
        return module ? PlaceOf(module.get()) : -1;
    }

private:
    MuiFolder m_beside;
    MuiFolder m_current;
    std::filesystem::path m_before;
};

TEST_F(MuiLibrary, FileWithoutConfigurationIsTakenAsItStands)
{
    const auto file = Beside() / L"plain.dll";
    WritePlain(file, 7);
    WriteConfigured(Beside() / L"fr-FR" / L"plain.dll.mui", 8, Ours);
    const UniqueModule module(LoadMUILibrary(file.c_str(), MUI_LANGUAGE_NAME, 0, FrenchOnGerman));
    EXPECT_EQ(PlaceOf(module.get()), 7);
}

TEST_F(MuiLibrary, MissingFileGivesNullAndThePlatformsError)
{
    EXPECT_EQ(LoadMUILibrary((Beside() / L"none.dll").c_str(), MUI_LANGUAGE_NAME, 0), nullptr);
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST_F(MuiLibrary, WrongArgumentsAreRefusedWith87)
{
    const std::wstring file = Neutral().wstring();
    EXPECT_EQ(LoadMUILibrary(nullptr, MUI_LANGUAGE_NAME, 0), nullptr);
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    for (const DWORD convention : {0u, 1u, 12u})
    {
        ::SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(LoadMUILibrary(file.c_str(), convention, 0), nullptr);
        EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_PARAMETER}) << convention;
    }
}

TEST_F(MuiLibrary, CandidatesStandInTheirOrderByLanguageName)
{
    EXPECT_EQ(
        MuiCandidates(L"C:\\app\\file.dll", MUI_LANGUAGE_NAME, 0, FrenchOnGerman),
        (Paths{L"C:\\app\\fr-FR\\file.dll.mui", L"C:\\app\\file.dll.mui", L".\\fr-FR\\file.dll.mui", L".\\file.dll.mui",
               L"C:\\app\\de-DE\\file.dll.mui", L"C:\\app\\file.dll.mui", L".\\de-DE\\file.dll.mui", L".\\file.dll.mui",
               L"C:\\app\\en-US\\file.dll.mui", L"C:\\app\\file.dll.mui", L".\\en-US\\file.dll.mui", L".\\file.dll.mui",
               L"C:\\app\\file.dll.mui", L".\\file.dll.mui"}));
}

TEST_F(MuiLibrary, FoldersByLanguageIdentifierHaveFourHexadecimalDigits)
{
    EXPECT_EQ(MuiCandidates(L"C:\\f.dll", MUI_LANGUAGE_ID, Spanish, FrenchOnGerman),
              (Paths{L"C:\\0C0A\\f.dll.mui", L"C:\\f.dll.mui", L".\\0C0A\\f.dll.mui", L".\\f.dll.mui", L"C:\\f.dll.mui",
                     L".\\f.dll.mui"}));
}

TEST_F(MuiLibrary, FileNameWithoutFolderIsLookedForInTheCurrentFolder)
{
    EXPECT_EQ(MuiCandidates(L"f.dll", MUI_LANGUAGE_NAME, German, FrenchOnGerman).front(), L".\\de-DE\\f.dll.mui");
}

TEST_F(MuiLibrary, EachPlaceIsTakenOnlyWhenAllBeforeItAreMissing)
{
    const std::wstring name = L"file.dll.mui";
    const std::vector<std::filesystem::path> places{
        Beside() / L"fr-FR" / name,  Beside() / name,
        Current() / L"fr-FR" / name, Current() / name,
        Beside() / L"de-DE" / name,  Current() / L"de-DE" / name,
        Beside() / L"en-US" / name,  Current() / L"en-US" / name,
    };
    for (std::size_t i = 0; i < places.size(); ++i)
    {
        WriteConfigured(places[i], static_cast<int>(i), Ours);
    }
    for (std::size_t i = 0; i < places.size(); ++i)
    {
        EXPECT_EQ(Loaded(), static_cast<int>(i));
        ASSERT_TRUE(std::filesystem::remove(places[i])) << "still open: " << i;
    }
    EXPECT_EQ(Loaded(), -1);
}

TEST_F(MuiLibrary, LanguageIdentifierFoldersAreFound)
{
    WriteConfigured(Beside() / L"fr-FR" / L"file.dll.mui", 1, Ours);
    WriteConfigured(Beside() / L"0407" / L"file.dll.mui", 2, Ours);
    EXPECT_EQ(Loaded(MUI_LANGUAGE_ID), 2);
    EXPECT_EQ(Loaded(MUI_LANGUAGE_NAME), 1);
}

TEST_F(MuiLibrary, GivenLanguageIsTheOnlyOne)
{
    WriteConfigured(Beside() / L"fr-FR" / L"file.dll.mui", 1, Ours);
    EXPECT_EQ(Loaded(MUI_LANGUAGE_NAME, Spanish), -1);
    WriteConfigured(Beside() / L"es-ES" / L"file.dll.mui", 2, Ours);
    EXPECT_EQ(Loaded(MUI_LANGUAGE_NAME, Spanish), 2);
}

TEST_F(MuiLibrary, CandidateWithAnotherChecksumIsPassedOver)
{
    WriteConfigured(Beside() / L"fr-FR" / L"file.dll.mui", 1, Other);
    WriteConfigured(Beside() / L"de-DE" / L"file.dll.mui", 2, Ours);
    EXPECT_EQ(Loaded(), 2);
}

TEST_F(MuiLibrary, ServiceChecksumDoesNotCount)
{
    WriteConfigured(Beside() / L"fr-FR" / L"file.dll.mui", 1, Ours, Other);
    EXPECT_EQ(Loaded(), 1);
}

TEST_F(MuiLibrary, CandidateWithoutConfigurationIsPassedOver)
{
    WritePlain(Beside() / L"fr-FR" / L"file.dll.mui", 1);
    EXPECT_EQ(Loaded(), -1);
}

TEST_F(MuiLibrary, CandidateWithAnotherSignatureIsPassedOver)
{
    WriteWrongSignature(Beside() / L"fr-FR" / L"file.dll.mui", 1, Ours);
    EXPECT_EQ(Loaded(), -1);
}

TEST_F(MuiLibrary, CandidateWithTooShortAConfigurationIsPassedOver)
{
    WriteShortConfiguration(Beside() / L"fr-FR" / L"file.dll.mui", 1, Ours);
    EXPECT_EQ(Loaded(), -1);
}

TEST_F(MuiLibrary, FileWhoseOwnConfigurationIsNoneFitsNoCandidate)
{
    WriteConfigured(Beside() / L"fr-FR" / L"file.dll.mui", 1, Ours);
    ASSERT_EQ(Loaded(), 1);
    WriteWrongSignature(Neutral(), 99, Ours);
    EXPECT_EQ(Loaded(), -1);
    WriteShortConfiguration(Neutral(), 99, Ours);
    EXPECT_EQ(Loaded(), -1);
}

TEST_F(MuiLibrary, NoCandidateGivesError15100AndLeavesTheFileClosed)
{
    EXPECT_EQ(LoadMUILibrary(Neutral().c_str(), MUI_LANGUAGE_NAME, 0, FrenchOnGerman), nullptr);
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_MUI_FILE_NOT_FOUND});
    EXPECT_TRUE(std::filesystem::remove(Neutral()));
}

TEST_F(MuiLibrary, FoundCandidateLeavesTheLanguageNeutralFileClosed)
{
    WriteConfigured(Beside() / L"file.dll.mui", 1, Ours);
    const UniqueModule module(LoadMUILibrary(Neutral().c_str(), MUI_LANGUAGE_NAME, 0, FrenchOnGerman));
    ASSERT_TRUE(module);
    EXPECT_TRUE(std::filesystem::remove(Neutral()));
    std::error_code inUse;
    EXPECT_FALSE(std::filesystem::remove(Beside() / L"file.dll.mui", inUse));
}

TEST_F(MuiLibrary, DefaultLanguagesAreThoseOfTheSystem)
{
    const UiLanguages languages = VdCommon::Library::DefaultUiLanguages();
    EXPECT_EQ(languages.user, ::GetUserDefaultUILanguage());
    EXPECT_EQ(languages.system, ::GetSystemDefaultUILanguage());
}

TEST_F(MuiLibrary, FreeingClosesTheFile)
{
    const auto file = Beside() / L"plain.dll";
    WritePlain(file, 7);
    const HMODULE module = LoadMUILibrary(file.c_str(), MUI_LANGUAGE_NAME, 0);
    ASSERT_NE(module, nullptr);
    EXPECT_TRUE(FreeMUILibrary(module));
    EXPECT_TRUE(std::filesystem::remove(file));
}

TEST_F(MuiLibrary, FreeingWhatIsNoModuleFails)
{
    EXPECT_FALSE(FreeMUILibrary(reinterpret_cast<HMODULE>(std::intptr_t{0x12340000})));
}

} // namespace
