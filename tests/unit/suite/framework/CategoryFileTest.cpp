#include "suite/framework/CategoryFile.h"

#include "suite/samples/UrlCategories.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace Framework;

namespace
{

class CategoryFileTest : public ::testing::Test
{
protected:
    static List Defaults()
    {
        List groups;
        for (const Samples::UrlCategory& category : Samples::UrlCategories)
        {
            groups.push_back(List{std::wstring(category.key), std::wstring(category.name)});
        }
        return groups;
    }

    List Groups() const { return CategoryFile(m_folder.Path()).Groups(); }

    const TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(CategoryFile::FileName);
};

} // namespace

TEST_F(CategoryFileTest, AMissingFileIsMadeWithTheCategoriesOfTheSampleLogsAndACommentOnTop)
{
    EXPECT_EQ(Groups(), Defaults());
    const std::string text = ReadBytes(m_path);
    EXPECT_TRUE(text.starts_with("# ")) << text;
    EXPECT_NE(text.find("\r\n03 = Adult content\r\n"), text.npos) << text;
    EXPECT_EQ(Groups(), Defaults()) << "read back";
}

TEST_F(CategoryFileTest, AChangeOfTheFileHoldsFromTheNextQuestionOn)
{
    const CategoryFile file(m_folder.Path());
    file.Groups();
    WriteBytes(
        m_path,
        "# nothing but\n 7\t=  \xD0\x98\xD0\xB3\xD1\x80\xD1\x8B \r\nA b = c = d\n#8=no\n\nno sign\n = \n7=again");
    EXPECT_EQ(file.Groups(),
              (List{List{std::wstring(L"7"), std::wstring(L"Игры")}, List{std::wstring(L"A b"), std::wstring(L"c = d")},
                    List{std::wstring(), std::wstring()}, List{std::wstring(L"7"), std::wstring(L"again")}}));
}

TEST_F(CategoryFileTest, AByteOrderMarkIsNoPartOfTheFirstKeyAndAnEmptyFileHasNoGroups)
{
    WriteBytes(m_path, "\xEF\xBB\xBF"
                       "1=one");
    EXPECT_EQ(Groups(), (List{List{std::wstring(L"1"), std::wstring(L"one")}}));
    WriteBytes(m_path, "");
    EXPECT_EQ(Groups(), List());
}

TEST_F(CategoryFileTest, TheCategoriesOfTheSampleLogsStandInForAFileThatCannotBeMadeOrRead)
{
    EXPECT_EQ(CategoryFile(m_folder.File(L"no such folder")).Groups(), Defaults());
    std::filesystem::create_directory(m_path);
    EXPECT_EQ(Groups(), Defaults());
}
