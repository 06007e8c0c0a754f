// The Export button with long paths and with files that cannot be written.

#include "tests/support/WriteDouble.h"
#include "tests/ui/framework/ui/kestrix/app/ExportFormTest.h"

#include <optional>

namespace
{

using namespace std::string_literals;
using Texts = std::vector<std::wstring>;

class LogFormExportFailureTest : public ExportFormTest
{
protected:
    // A path of so many characters in a folder of the test, which is there.
    std::wstring PathOfLength(std::size_t length) const
    {
        const std::filesystem::path folder = m_folder.Path() / std::wstring(60, L'f');
        std::filesystem::create_directories(folder);
        const std::wstring path = folder.wstring() + L"\\";
        return path + std::wstring(length - path.size() - 4, L'n') + L".CSV";
    }
};

} // namespace

TEST_F(LogFormExportFailureTest, APathOf259CharactersIsTakenWithoutAWord)
{
    const std::wstring path = PathOfLength(259);
    m_dialog.AnswerWith(path);
    Export();
    EXPECT_TRUE(Boxes().empty());
    EXPECT_TRUE(ReadUtf16(path).starts_with(L"\"" + Text(143)));
}

TEST_F(LogFormExportFailureTest, APathThatReaches260CharactersByItsExtensionIsAskedAbout)
{
    const std::wstring path = PathOfLength(260);
    m_dialog.AnswerWith(path.substr(0, 256));
    Export();
    EXPECT_EQ(Boxes(), Texts{Text(62)});
}

TEST_F(LogFormExportFailureTest, ALongPathIsAskedAboutAndYesGoesOnWithIt)
{
    for (const std::size_t length : {260u, 300u})
    {
        const MessageBoxRecorder yes(IDYES);
        const std::wstring path = PathOfLength(length);
        m_dialog.AnswerWith(path);
        Export();
        ASSERT_EQ(yes.Boxes().size(), 1u) << "neither a failure";
        EXPECT_EQ(yes.Boxes()[0].text, Text(62));
        EXPECT_EQ(yes.Boxes()[0].flags, static_cast<UINT>(MB_YESNO));
        EXPECT_TRUE(ReadUtf16(L"\\\\?\\" + path).starts_with(L"\"" + Text(143))) << length;
    }
    EXPECT_EQ(m_dialog.Requests().size(), 2u);
}

TEST_F(LogFormExportFailureTest, NoToALongPathShowsTheDialogAgain)
{
    const MessageBoxRecorder no(IDNO);
    m_dialog.AnswerWith(PathOfLength(260));
    m_dialog.AnswerWith(PathOfLength(300));
    m_dialog.AnswerWith(m_path);
    Export();
    EXPECT_EQ(m_dialog.Requests().size(), 3u);
    EXPECT_EQ(no.Boxes().size(), 2u);
    EXPECT_TRUE(std::filesystem::exists(m_path));
    EXPECT_FALSE(std::filesystem::exists(PathOfLength(260)));
}

TEST_F(LogFormExportFailureTest, NoToALongPathAndThenCancelWritesNothing)
{
    const MessageBoxRecorder no(IDNO);
    m_dialog.AnswerWith(L"C:\\" + std::wstring(297, L'x'));
    Export();
    EXPECT_EQ(m_dialog.Requests().size(), 2u);
    EXPECT_EQ(FileCount(), 1u);
    EXPECT_TRUE(m_focus.empty());
}

TEST_F(LogFormExportFailureTest, AFullDiskIsToldAndLeavesNoFile)
{
    m_dialog.AnswerWith(m_path);
    std::optional<FullDisk> full;
    Export([&] { full.emplace(); });
    EXPECT_EQ(Boxes(), Texts{Text(63)});
    EXPECT_EQ(m_boxes.Boxes()[0].flags, static_cast<UINT>(MB_OK));
    EXPECT_EQ(m_focus, FocusOnTheList(2));
    EXPECT_FALSE(std::filesystem::exists(m_path));
}

TEST_F(LogFormExportFailureTest, AFileThatCannotBeMadeIsToldAndNothingIsLeft)
{
    WriteBytes(m_path, "precious");
    const UniqueFile user(
        ::CreateFileW(m_path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    for (const std::wstring& path : {m_path, m_folder.Path().wstring(), m_folder.File(L"missing\\name.csv"),
                                     L"\\\\.\\NUL"s, m_folder.File(L"NUL")})
    {
        m_dialog.AnswerWith(path, 4);
        Export();
        ASSERT_EQ(Boxes().size(), m_dialog.Requests().size()) << std::filesystem::path(path);
        EXPECT_EQ(Boxes().back(), Text(64));
        EXPECT_EQ(m_boxes.Boxes().back().flags, static_cast<UINT>(MB_OK));
        EXPECT_EQ(m_focus, FocusOnTheList(2));
    }
    EXPECT_EQ(ReadBytes(m_path), "precious");
    EXPECT_EQ(FileCount(), 2u);
}
