#include "tests/unit/resource/BuiltFile.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace
{

constexpr unsigned TextsResource = 1;
constexpr std::size_t LanguageColumn = 4;

std::vector<std::string> Split(std::string_view text, char separator)
{
    std::vector<std::string> parts;
    for (std::size_t end = 0; end != std::string_view::npos; text.remove_prefix(std::min(end + 1, text.size())))
    {
        end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
    }
    return parts;
}

std::wstring Wide(const std::string& utf8)
{
    const int bytes = static_cast<int>(utf8.size());
    std::wstring text(utf8.size(), L'\0');
    text.resize(MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), bytes, text.data(), bytes));
    return text;
}

// All texts of resource/texts.tsv, which the build puts into this program.
std::map<unsigned, std::wstring> TableOfTexts()
{
    const auto bytes = ResourceBytes(GetModuleHandleW(nullptr), TextsResource, MAKEINTRESOURCEW(10));
    const auto lines = Split({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, '\n');
    std::map<unsigned, std::wstring> texts;
    for (std::size_t line = 1; line + 1 < lines.size(); ++line)
    {
        const auto cells = Split(lines[line], '\t');
        texts.emplace(std::stoul(cells.at(0)), Wide(cells.at(LanguageColumn)));
    }
    return texts;
}

} // namespace

TEST(Texts, NoneOfTheFirst468TextsIsMissing)
{
    EXPECT_LE(468u, TableOfTexts().size());
}

TEST(Texts, EveryTextOfTheTableLoadsFromTheLanguageFile)
{
    for (const auto& [number, text] : TableOfTexts())
    {
        EXPECT_EQ(text, LanguageText(number)) << number;
    }
}

TEST(Texts, TheLanguageFileHoldsNoOther)
{
    const auto table = TableOfTexts();
    for (unsigned number = 0; number <= 0xFFFF; ++number)
    {
        if (!table.contains(number))
        {
            EXPECT_EQ(L"", LanguageText(number)) << number;
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
