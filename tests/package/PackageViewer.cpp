// A user at the viewer of an installed or unpacked package. The environment says where that is and what to expect:
// KESTRIX_START_ENTRY the entry of the start menu, KESTRIX_PROGRAM the viewer, KESTRIX_DAY a daily file of one virus,
// KESTRIX_TARGET a file that an export makes.

#include "platform/dialog/ComPtr.h"
#include "resource/resource.h"
#include "tests/e2e/SaveDialog.h"
#include "tests/e2e/ViewerDialog.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/OleApartment.h"

#include <gtest/gtest.h>

#include <shlobj.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <stdexcept>

namespace
{

using Texts = std::vector<std::wstring>;

std::wstring Said(const wchar_t* variable)
{
    const wchar_t* const value = _wgetenv(variable);
    return value != nullptr ? value : L"";
}

// What an entry of the start menu starts.
struct StartEntry
{
    explicit StartEntry(const std::wstring& path)
    {
        const OleApartment apartment;
        CComPtr<IShellLinkW> link;
        CComPtr<IPersistFile> file;
        if (FAILED(link.CoCreateInstance(CLSID_ShellLink)) || FAILED(file.QueryFrom(link.get())) ||
            FAILED(file->Load(path.c_str(), STGM_READ)))
        {
            throw std::runtime_error("the entry of the start menu cannot be read");
        }
        // Wine's link keeps its path in letters of the code page too, and hands out those; the list of items is exact.
        PIDLIST_ABSOLUTE items = nullptr;
        link->GetIDList(&items);
        std::array<wchar_t, 1024> text{};
        SHGetPathFromIDListW(items, text.data());
        CoTaskMemFree(items);
        program = text.data();
        link->GetArguments(text.data(), static_cast<int>(text.size()));
        arguments = text.data();
        link->GetWorkingDirectory(text.data(), static_cast<int>(text.size()));
        folder = text.data();
    }

    std::wstring program;
    std::wstring arguments;
    std::wstring folder;
};

class PackageViewer : public ::testing::Test
{
protected:
    void StartFromMenu()
    {
        const StartEntry entry(Said(L"KESTRIX_START_ENTRY"));
        std::filesystem::current_path(entry.folder);
        m_viewer.emplace(entry.arguments, entry.program);
        ASSERT_NE(m_viewer->Form(), nullptr);
    }

    void TearDown() override
    {
        if (m_viewer)
        {
            EXPECT_EQ(m_viewer->Close(), 0u);
        }
    }

    void ExpectPage(const Texts& threats, std::size_t dates) const
    {
        EXPECT_TRUE(WaitUntil([&] { return m_viewer->Column(2) == threats && m_viewer->Dates().size() == dates; }));
    }

    void SetPurge() const
    {
        m_viewer->Click(IDC_SETTING);
        const ViewerDialog dialog(*m_viewer, IDC_SETTINGS_FREQUENCY);
        dialog.ChooseByClick(IDC_SETTINGS_FREQUENCY, 0); // 7 days
        dialog.Click(IDOK);
        EXPECT_TRUE(dialog.WaitUntilClosed());
    }

    void Export(const std::filesystem::path& target) const
    {
        PostMessageW(m_viewer->Item(IDC_FORM_EXPORT), BM_CLICK, 0, 0);
        const SaveDialog dialog;
        ASSERT_TRUE(dialog.IsOpen());
        dialog.Type(target.wstring());
        dialog.Press(VK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return !dialog.IsOpen() && std::filesystem::exists(target); }));
    }

    void DeleteThrough(int date) const
    {
        m_viewer->Click(IDC_FORM_DELETE);
        const ViewerDialog dialog(*m_viewer, IDC_DELETE_DATE);
        dialog.ChooseByClick(IDC_DELETE_DATE, date);
        dialog.Click(IDOK);
        ViewerDialog(*m_viewer, IDYES).Click(IDYES);
        EXPECT_TRUE(dialog.WaitUntilClosed());
    }

    const LanguageFile m_language;
    std::optional<Viewer> m_viewer;
};

} // namespace

TEST_F(PackageViewer, TheStartMenuShowsTheVirusLogWhichIsExportedAndDeletedInPart)
{
    StartFromMenu();
    ExpectPage({L"newest"}, 3);
    Export(Said(L"KESTRIX_TARGET"));
    SetPurge();
    DeleteThrough(1);
    ExpectPage({L"newest"}, 1);
}

TEST_F(PackageViewer, TheStartMenuShowsTheVirusLog)
{
    StartFromMenu();
    ExpectPage({L"newest"}, 3);
}

TEST_F(PackageViewer, TheStartMenuShowsNothingOfADatabaseThatCannotBeRead)
{
    StartFromMenu();
    ExpectPage({}, 0);
}

TEST_F(PackageViewer, ADailyFileIsShown)
{
    const std::filesystem::path program = Said(L"KESTRIX_PROGRAM");
    std::filesystem::current_path(program.parent_path());
    m_viewer.emplace(FileCommandLine(1, Said(L"KESTRIX_DAY")), program.wstring());
    ASSERT_NE(m_viewer->Form(), nullptr);
    ExpectPage({L"newest"}, 1);
}
