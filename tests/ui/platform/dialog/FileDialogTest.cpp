// What the system is asked for when a file to write is wanted. The dialog itself is not shown here.

#include "platform/dialog/FileDialog.h"

#include "tests/support/SaveDialogDouble.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using namespace std::string_literals;

class FileDialogTest : public ::testing::Test
{
protected:
    SaveDialogDouble m_system;
    CFileDialog m_dialog{L"CSV", OFN_OVERWRITEPROMPT, L"One (*.a)|*.a|Two|*.b;*.c||", ::GetDesktopWindow()};
};

} // namespace

TEST_F(FileDialogTest, AsksWithAllThatWasSetAndNoName)
{
    m_dialog.m_strTitle = L"the title";
    m_dialog.m_strInitialFolder = L"C:\\a folder";
    m_dialog.DoModal();
    ASSERT_EQ(m_system.Requests().size(), 1u);
    const SaveDialogDouble::Request& request = m_system.Requests()[0];
    EXPECT_EQ(request.owner, ::GetDesktopWindow());
    EXPECT_EQ(request.filter, L"One (*.a)\0*.a\0Two\0*.b;*.c\0"s);
    EXPECT_EQ(request.filterIndex, 1u);
    EXPECT_EQ(request.name, L"");
    EXPECT_EQ(request.folder, L"C:\\a folder");
    EXPECT_EQ(request.title, L"the title");
    EXPECT_EQ(request.defaultExtension, L"CSV");
    EXPECT_EQ(request.flags, static_cast<DWORD>(OFN_OVERWRITEPROMPT));
}

TEST_F(FileDialogTest, ACancelledDialogGivesNoPath)
{
    EXPECT_EQ(m_dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(m_dialog.GetPathName(), L"");
}

TEST_F(FileDialogTest, GivesThePathAndTheNumberOfTheFilter)
{
    m_system.AnswerWith(L"C:\\a folder\\name", 2);
    EXPECT_EQ(m_dialog.DoModal(), IDOK);
    EXPECT_EQ(m_dialog.GetPathName(), L"C:\\a folder\\name");
    EXPECT_EQ(m_dialog.GetFilterIndex(), 2u);
}

TEST_F(FileDialogTest, HasRoomForTheLongestPathOfTheSystem)
{
    const std::wstring path = L"C:\\" + std::wstring(32764, L'x');
    m_system.AnswerWith(path);
    EXPECT_EQ(m_dialog.DoModal(), IDOK);
    EXPECT_TRUE(m_dialog.GetPathName() == path);
}

TEST_F(FileDialogTest, ASecondRunKeepsTheFilterAndForgetsTheName)
{
    m_system.AnswerWith(L"C:\\first", 3);
    m_dialog.DoModal();
    m_system.AnswerWith(L"C:\\second", 1);
    EXPECT_EQ(m_dialog.DoModal(), IDOK);
    EXPECT_EQ(m_system.Requests()[1].filterIndex, 3u);
    EXPECT_EQ(m_system.Requests()[1].name, L"");
    EXPECT_EQ(m_dialog.GetPathName(), L"C:\\second");
    EXPECT_EQ(m_dialog.GetFilterIndex(), 1u);
}
