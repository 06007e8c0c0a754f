#include "framework/ui/kestrix/app/ExportTarget.h"

#include "tests/support/ImportPatch.h"
#include "tests/support/ProcedureDouble.h"
#include "tests/support/RegistrySandbox.h"

#include <gtest/gtest.h>

#include <shlobj.h>

extern "C" decltype(&::RegOpenKeyExW) __imp_RegOpenKeyExW;

namespace
{

constexpr wchar_t ShellFolders[] = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

HMODULE WINAPI LoadNothing(const wchar_t*)
{
    return nullptr;
}

// A library without the function.
HMODULE WINAPI LoadAnother(const wchar_t*)
{
    return ::LoadLibraryW(L"lz32.dll");
}

int g_nOpened = 0; // keys

LSTATUS WINAPI OpenNoKey(HKEY, LPCWSTR, DWORD, REGSAM, HKEY*)
{
    ++g_nOpened;
    return ERROR_FILE_NOT_FOUND;
}

// The shell's function for the folder, while the object lives: it knows none and notes what it was asked.
class NoDocumentsFolder
{
public:
    NoDocumentsFolder()
    {
        s_folder = 0;
        s_makes = TRUE;
    }

    static inline int s_folder = 0;
    static inline BOOL s_makes = FALSE; // whether a folder that is missing would be made

private:
    static BOOL WINAPI TellNone(HWND, wchar_t* path, int folder, BOOL makes)
    {
        wcscpy(path, L"left over");
        s_folder = folder;
        s_makes = makes;
        return FALSE;
    }

    const ProcedureDouble m_procedure{"SHGetSpecialFolderPathW", &TellNone};
};

} // namespace

TEST(ExportTarget, TheDocumentsFolderIsTheOneThatTheShellKnows)
{
    wchar_t folder[MAX_PATH] = {};
    ASSERT_TRUE(::SHGetSpecialFolderPathW(nullptr, folder, CSIDL_PERSONAL, FALSE));
    EXPECT_STRNE(folder, L"");
    EXPECT_EQ(DocumentsFolder(), folder);
}

TEST(ExportTarget, ADocumentsFolderThatIsMissingIsNotMadeAndHasNoName)
{
    const RegistrySandbox registry;
    registry.SetText(ShellFolders, L"Personal", L"X:\\papers");
    const NoDocumentsFolder shell;
    EXPECT_EQ(DocumentsFolder(), L"") << "the registry is for a system whose shell cannot be asked";
    EXPECT_EQ(shell.s_folder, CSIDL_PERSONAL);
    EXPECT_FALSE(shell.s_makes);
}

TEST(ExportTarget, WithoutTheLibraryOrTheFunctionTheDocumentsFolderComesFromTheRegistry)
{
    const RegistrySandbox registry;
    EXPECT_EQ(DocumentsFolder(&LoadNothing), L"");
    registry.SetText(ShellFolders, L"Personal", L"X:\\papers");
    EXPECT_EQ(DocumentsFolder(&LoadNothing), L"X:\\papers");
    EXPECT_EQ(DocumentsFolder(&LoadAnother), L"X:\\papers");
    EXPECT_NE(DocumentsFolder(), L"X:\\papers") << "the shell is asked first";
}

TEST(ExportTarget, AFolderThatTheRegistryDoesNotTellIsAskedForASecondTime)
{
    const ImportPatch<decltype(&::RegOpenKeyExW)> noKey(__imp_RegOpenKeyExW, &OpenNoKey);
    g_nOpened = 0;
    EXPECT_EQ(DocumentsFolder(&LoadNothing), L"");
    EXPECT_EQ(g_nOpened, 2);
}

TEST(ExportTarget, TheDocumentsFolderHasAtMost259Characters)
{
    const RegistrySandbox registry;
    for (const std::size_t length : {259u, 260u, 300u})
    {
        registry.SetText(ShellFolders, L"Personal", std::wstring(length, L'x'));
        EXPECT_EQ(DocumentsFolder(&LoadNothing), std::wstring(259, L'x'));
    }
}

TEST(ExportTarget, LookingForTheDocumentsFolderKeepsNoLibraryLoaded)
{
    ASSERT_EQ(::GetModuleHandleW(L"lz32.dll"), nullptr);
    DocumentsFolder(&LoadAnother);
    EXPECT_EQ(::GetModuleHandleW(L"lz32.dll"), nullptr);
}

TEST(ExportTarget, ANameWithoutExtensionGetsThatOfTheFilter)
{
    EXPECT_EQ(WithFilterExtension(L"C:\\a\\name", 1), L"C:\\a\\name.CSV");
    EXPECT_EQ(WithFilterExtension(L"C:\\a\\name", 2), L"C:\\a\\name.TXT");
    EXPECT_EQ(WithFilterExtension(L"C:\\a\\name", 3), L"C:\\a\\name.CSV");
}

TEST(ExportTarget, AnIndexThatNoFilterHasAddsNothing)
{
    for (const DWORD index : {0u, 4u, 5u, 0xFFFFFFFFu})
    {
        EXPECT_EQ(WithFilterExtension(L"C:\\a\\name", index), L"C:\\a\\name") << index;
    }
}

TEST(ExportTarget, ANameThatHasAnyExtensionKeepsItUnderEveryIndex)
{
    for (const wchar_t* const path :
         {L"C:\\a\\n.csv", L"C:\\a\\n.TXT", L"C:\\a\\n.doc", L"C:\\a\\n.a.b", L"C:\\a\\n.", L"C:\\a\\.n", L"C:/a/n.x"})
    {
        for (DWORD index = 0; index <= 4; ++index)
        {
            EXPECT_EQ(WithFilterExtension(path, index), path) << index;
        }
    }
}

TEST(ExportTarget, APointInAFolderIsNoExtension)
{
    EXPECT_EQ(WithFilterExtension(L"C:\\a.b\\name", 2), L"C:\\a.b\\name.TXT");
    EXPECT_EQ(WithFilterExtension(L"C:/a.b/name", 2), L"C:/a.b/name.TXT");
}

// The system's dialog adds the filter's extension first, and an export came out as .csv or .txt.
TEST(ExportTarget, TheExtensionOfTheFilterIsSpeltAsTheFilterSpellsIt)
{
    EXPECT_EQ(WithExtensionSpelt(L"C:\\a\\n.csv", 1), L"C:\\a\\n.CSV");
    EXPECT_EQ(WithExtensionSpelt(L"C:\\a\\n.tXt", 2), L"C:\\a\\n.TXT");
    EXPECT_EQ(WithExtensionSpelt(L"C:\\a\\n.csv", 3), L"C:\\a\\n.CSV");
    EXPECT_EQ(WithExtensionSpelt(L"C:\\a.csv\\n.csv.csv", 1), L"C:\\a.csv\\n.csv.CSV");
}

TEST(ExportTarget, EveryOtherExtensionKeepsItsLetters)
{
    for (const wchar_t* const path : {L"C:\\a\\n.doc", L"C:\\a\\n", L"C:\\a\\ncsv", L"csv", L"C:\\a.csv\\n", L""})
    {
        for (DWORD index = 0; index <= 4; ++index)
        {
            EXPECT_EQ(WithExtensionSpelt(path, index), path) << index;
        }
    }
    EXPECT_EQ(WithExtensionSpelt(L"n.txt", 1), L"n.txt");
    EXPECT_EQ(WithExtensionSpelt(L"n.csv", 2), L"n.csv");
    EXPECT_EQ(WithExtensionSpelt(L"n.csv", 4), L"n.csv");
}
