// How the process starts and ends: its command line and its language file.

#include "resource/resource.h"
#include "tests/e2e/RegistryValue.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{

constexpr wchar_t NoLog[] = L"LocalLog%|6%|%|%|%|0"; // the form with an empty page

// The program alone in a folder of its own.
class StartTest : public ::testing::Test
{
protected:
    StartTest() { std::filesystem::copy_file(ProgramFolder() + L"Kestrix.exe", m_strProgram); }

    void CopyLanguageFileTo(const std::filesystem::path& path) const
    {
        std::filesystem::create_directories(path.parent_path());
        std::filesystem::copy_file(ProgramFolder() + L"resource\\en-US\\Kestrix.exe.mui", path);
    }

    // The form comes up, with its texts, and can be closed.
    void ExpectToStart() const
    {
        const Viewer viewer(NoLog, m_strProgram);
        ASSERT_NE(viewer.Form(), nullptr);
        EXPECT_EQ(viewer.TextOf(IDC_HEADING_DATES), Text(IDS_HEADING_DATES));
        EXPECT_EQ(viewer.Close(), 0u);
    }

    std::string FirstPlace() const { return m_folder.Path().string() + "\\resource\\en-US\\Kestrix.exe.mui"; }

    std::string SecondPlace() const { return m_folder.Path().string() + "\\Kestrix.exe.mui"; }

    const LanguageFile m_language;
    const TemporaryFolder m_folder;
    const std::wstring m_strProgram = m_folder.File(L"Kestrix.exe");
};

// The program is installed in German.
class GermanStartTest : public StartTest
{
    const RegistryValue m_language{L"Software\\Veldrane\\Zeptara", L"LangName", L"de-DE"};
};

constexpr char FailureText[] = "Failed to load MUI resource";

} // namespace

TEST_F(StartTest, AnEmptyCommandLineEndsWithoutAWindow)
{
    const DebuggerOutput output(ProgramFolder() + L"Kestrix.exe");
    EXPECT_TRUE(output.ended);
    EXPECT_FALSE(output.hadWindow);
    EXPECT_FALSE(output.Has(FailureText));
}

TEST_F(StartTest, ACommandLineOfFourSeparatorsEndsWithoutAWindow)
{
    const DebuggerOutput output(ProgramFolder() + L"Kestrix.exe", L"LocalLog%|1%|%|%|");
    EXPECT_TRUE(output.ended);
    EXPECT_FALSE(output.hadWindow);
    EXPECT_FALSE(output.Has(FailureText));
}

TEST_F(StartTest, ACommandLineThatDoesNotFitIsNoErrorOfTheProcess)
{
    EXPECT_EQ(Process(ProgramFolder() + L"Kestrix.exe").ExitCode(), 0u);
    EXPECT_EQ(Process(ProgramFolder() + L"Kestrix.exe", L"LocalLog%|1%|%|%|").ExitCode(), 0u);
}

TEST_F(StartTest, ACodeWithoutALogOpensTheFormWithAnEmptyPage)
{
    const Viewer viewer(NoLog);
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_TRUE(viewer.Dates().empty());
    EXPECT_EQ(viewer.RowCount(), 0);
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(StartTest, WithoutALanguageFileItTriesBothPlacesAndEndsWithoutAWindow)
{
    const DebuggerOutput output(m_strProgram, NoLog);
    EXPECT_TRUE(output.ended);
    EXPECT_FALSE(output.hadWindow);
    EXPECT_EQ(output.lines, (std::vector<std::string>{FirstPlace(), SecondPlace(), FailureText}));
}

TEST_F(StartTest, TheLanguageFileInItsFolderIsTheFirstChoice)
{
    CopyLanguageFileTo(FirstPlace());
    WriteBytes(m_folder.File(L"Kestrix.exe.mui"), "no language file");
    ExpectToStart();
}

TEST_F(StartTest, TheLanguageFileBesideTheProgramIsTheSecondChoice)
{
    CopyLanguageFileTo(SecondPlace());
    ExpectToStart();
}

TEST_F(StartTest, AFileThatIsNoLanguageFileIsPassedOver)
{
    std::filesystem::create_directories(m_folder.File(L"resource\\en-US"));
    WriteBytes(m_folder.File(L"resource\\en-US\\Kestrix.exe.mui"), "no language file");
    CopyLanguageFileTo(SecondPlace());
    ExpectToStart();
}

TEST_F(GermanStartTest, TheLanguageOfTheInstallationIsShown)
{
    const LanguageFile german(L"resource\\de-DE\\Kestrix.exe.mui");
    const Viewer viewer(NoLog);
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_EQ(viewer.TextOf(IDC_HEADING_DATES), L"&Tage");
    EXPECT_EQ(viewer.TextOf(IDC_FORM_CLOSE), L"&Schlie\u00dfen");
    EXPECT_EQ(viewer.Close(), 0u);
}

TEST_F(GermanStartTest, WithoutItsFolderTheLanguageFileBesideTheProgramIsShown)
{
    CopyLanguageFileTo(FirstPlace());
    CopyLanguageFileTo(SecondPlace());
    ExpectToStart();
}

TEST_F(GermanStartTest, WithoutItsFolderTheFolderOfAnotherLanguageIsNotLookedInto)
{
    CopyLanguageFileTo(FirstPlace());
    const DebuggerOutput output(m_strProgram, NoLog);
    EXPECT_TRUE(output.ended);
    EXPECT_FALSE(output.hadWindow);
    const std::string german = m_folder.Path().string() + "\\resource\\de-DE\\Kestrix.exe.mui";
    EXPECT_EQ(output.lines, (std::vector<std::string>{german, SecondPlace(), FailureText}));
}
