#include "tests/support/Pieces.h"
#include "tests/unit/resource/BuiltFile.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace
{

constexpr unsigned TextsResource = 1;
constexpr std::size_t FirstLanguageColumn = 4;

std::wstring Wide(const std::string& utf8)
{
    const int bytes = static_cast<int>(utf8.size());
    std::wstring text(utf8.size(), L'\0');
    text.resize(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), bytes, text.data(), bytes));
    return text;
}

using Table = std::map<unsigned, std::wstring>;

// All numbered texts of resource/texts.tsv, which the build puts into this program, by their language.
std::map<std::wstring, Table> TablesOfTexts()
{
    const auto bytes = ResourceBytes(GetModuleHandleW(nullptr), TextsResource, MAKEINTRESOURCEW(10));
    const auto lines = Pieces<char>({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, '\n');
    const auto names = Pieces<char>(lines.at(0), '\t');
    std::map<std::wstring, Table> tables;
    for (std::size_t line = 1; line + 1 < lines.size(); ++line)
    {
        const auto cells = Pieces<char>(lines[line], '\t');
        const bool isNumbered = cells.at(0).find_first_not_of("0123456789") == std::string::npos;
        for (std::size_t column = FirstLanguageColumn; isNumbered && column < names.size(); ++column)
        {
            tables[Wide(names[column])].emplace(std::stoul(cells[0]), Wide(cells.at(column)));
        }
    }
    return tables;
}

} // namespace

TEST(Texts, NoneOfTheFirst468TextsIsMissing)
{
    EXPECT_LE(468u, TablesOfTexts().at(English).size());
}

TEST(Texts, EachLanguageOfTheTableHasAFileAndNoOtherHas)
{
    std::vector<std::wstring> languages;
    for (const auto& [language, texts] : TablesOfTexts())
    {
        languages.push_back(language);
    }
    languages.emplace_back(PseudoLanguage);
    EXPECT_EQ(languages, BuiltLanguages());
}

TEST(Texts, EveryTextOfTheTableLoadsFromTheLanguageFile)
{
    for (const auto& [language, texts] : TablesOfTexts())
    {
        for (const auto& [number, text] : texts)
        {
            EXPECT_EQ(text, LanguageText(number, language)) << number;
        }
    }
}

TEST(Texts, TheLanguageFileHoldsNoOther)
{
    for (const auto& [language, texts] : TablesOfTexts())
    {
        for (unsigned number = 0; number <= 0xFFFF; ++number)
        {
            if (!texts.contains(number))
            {
                EXPECT_EQ(L"", LanguageText(number, language)) << number;
            }
        }
    }
}

TEST(Texts, LeadingAndTrailingBlanksStay)
{
    for (const unsigned number : {126, 128, 130, 131, 228, 233, 234})
    {
        EXPECT_TRUE(LanguageText(number).starts_with(L' ')) << number;
    }
    EXPECT_TRUE(LanguageText(129).ends_with(L' '));
}

TEST(Texts, PercentSignsAndBarsComeThroughTheResourceCompiler)
{
    EXPECT_EQ(L"%Y-%m-%d", LanguageText(82));
    EXPECT_EQ(L"CSV files (*.csv)|*.CSV|Text files (*.txt)|*.TXT|All files (*.*)|*.*||", LanguageText(61));
}
