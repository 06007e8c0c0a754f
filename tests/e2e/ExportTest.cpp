// The export of the real program through the system's own save dialog, driven by keys.

#include "resource/resource.h"
#include "tests/e2e/SaveDialog.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{

class ExportTest : public ::testing::Test
{
protected:
    ExportTest()
    {
        WriteUtf16(m_day, L"x|0900|1048576|x|0|0|beta|C:\\beta.exe|4|1|0|0\r\n"
                          L"x|1030|1048576|x|0|0|\"delta\"|C:\\delta.exe|4|1|0|0\r\n");
        std::filesystem::create_directory(m_target);
    }

    static void PressExport(const Viewer& viewer) { PostMessageW(viewer.Item(IDC_FORM_EXPORT), BM_CLICK, 0, 0); }

    // Exports to a name in the folder of the test under this filter, and gives the files that are there then.
    std::vector<std::wstring> ExportAs(const std::wstring& name, int filterIndex)
    {
        const Viewer viewer(FileCommandLine(1, m_day));
        PressExport(viewer);
        const SaveDialog dialog;
        EXPECT_TRUE(dialog.IsOpen());
        dialog.ChooseType(filterIndex);
        dialog.Type((m_target / name).wstring());
        dialog.Press(VK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return !dialog.IsOpen() && !Files().empty(); }));
        EXPECT_EQ(viewer.RowCount(), 2) << "the viewer answers again";
        EXPECT_EQ(viewer.Close(), 0u);
        return Files();
    }

    std::vector<std::wstring> Files() const
    {
        std::vector<std::wstring> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_target))
        {
            names.push_back(entry.path().filename().wstring());
        }
        return names;
    }

    // The file that the export is to make, as it is to be.
    void ExpectRecords(const std::wstring& name) const
    {
        const std::wstring text = ReadUtf16((m_target / name).wstring());
        EXPECT_TRUE(text.starts_with(L"\"" + Text(IDS_TITLE_VIRUS) + L"\"\t"));
        EXPECT_NE(text.find(L"\t\"beta\"\t\"C:\\beta.exe\"\t"), text.npos);
        EXPECT_NE(text.find(L"\t\"\"\"delta\"\"\"\t\"C:\\delta.exe\"\t"), text.npos);
        EXPECT_TRUE(text.ends_with(L"\"\r\n"));
    }

    const LanguageFile m_language;
    const TemporaryFolder m_folder;
    const std::wstring m_day = m_folder.File(L"20261120.VLG");
    const std::filesystem::path m_target = m_folder.Path() / L"a folder";
};

} // namespace

// The system's dialog adds the filter's extension before the program can: Windows as the pattern spells it, Wine in
// small letters. The exports of the first two filters once came out as .csv and .txt.
TEST_F(ExportTest, ANameWithoutExtensionUnderTheFirstFilterBecomesCsv)
{
    ASSERT_EQ(ExportAs(L"name", 1), std::vector<std::wstring>{L"name.CSV"});
    ExpectRecords(L"name.CSV");
}

TEST_F(ExportTest, ANameWithoutExtensionUnderTheSecondFilterBecomesTxt)
{
    ASSERT_EQ(ExportAs(L"name", 2), std::vector<std::wstring>{L"name.TXT"});
    ExpectRecords(L"name.TXT");
}

TEST_F(ExportTest, ANameWithoutExtensionUnderTheThirdFilterBecomesCsv)
{
    ASSERT_EQ(ExportAs(L"name", 3), std::vector<std::wstring>{L"name.CSV"});
    ExpectRecords(L"name.CSV");
}

TEST_F(ExportTest, AnExtensionThatTheUserTypedStays)
{
    ASSERT_EQ(ExportAs(L"name.doc", 2), std::vector<std::wstring>{L"name.doc"});
    ExpectRecords(L"name.doc");
}

TEST_F(ExportTest, EscapeLeavesTheDialogWithNothingWritten)
{
    const Viewer viewer(FileCommandLine(1, m_day));
    PressExport(viewer);
    const SaveDialog dialog;
    ASSERT_TRUE(dialog.IsOpen());
    dialog.Type((m_target / L"name").wstring());
    dialog.Press(VK_ESCAPE);
    EXPECT_TRUE(WaitUntil([&] { return !dialog.IsOpen(); }));
    EXPECT_EQ(viewer.RowCount(), 2);
    EXPECT_EQ(viewer.Close(), 0u);
    EXPECT_TRUE(Files().empty());
}
