// The texts that a person writes for the service: firewall rules and categories of the URL filter.

#include "suite/framework/CategoryFile.h"
#include "suite/framework/FirewallRules.h"
#include "suite/framework/RuleText.h"
#include "suite/framework/RuleWords.h"
#include "suite/framework/TextFile.h"
#include "suite/framework/Utf8.h"
#include "tests/fuzz/Harness.h"

#include <algorithm>
#include <sstream>

using namespace Fuzz;

namespace
{

using namespace Framework;

std::string WithoutBlanks(std::string text)
{
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
    {
        text.pop_back();
    }
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
    {
        text.erase(0, 1);
    }
    return text;
}

// The key and the name of each line that has a "=" and is no comment.
List PlainCategories(std::string text)
{
    text.erase(0, text.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    List categories;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
    {
        line.resize(line.size() - line.ends_with('\r'));
        const std::size_t sign = line.find('=');
        if (sign != line.npos && !WithoutBlanks(line).starts_with('#'))
        {
            categories.push_back(
                List{Wide(WithoutBlanks(line.substr(0, sign))), Wide(WithoutBlanks(line.substr(sign + 1)))});
        }
    }
    return categories;
}

void ExpectNumber(const Value& found, const std::wstring& digits)
{
    if (const auto* const number = std::get_if<std::uint32_t>(&found))
    {
        ExpectSame(std::uint64_t{*number}, std::wcstoull(digits.c_str(), nullptr, 10), "a number of a rule");
    }
    else if (const auto* const word = std::get_if<std::uint16_t>(&found))
    {
        ExpectSame(std::uint64_t{*word}, std::wcstoull(digits.c_str(), nullptr, 10), "a small number of a rule");
    }
}

// Each line that has words is a rule, whose port kind and further elements are the numbers that stand there.
void ExpectRules(const List& rules, std::string_view text)
{
    std::size_t count = 0;
    for (text = WithoutByteOrderMark(text); !text.empty();)
    {
        const std::wstring line = Wide(TakeLine(text));
        const std::vector<std::wstring> words = line.starts_with(L'#') ? std::vector<std::wstring>() : SplitWords(line);
        if (words.empty())
        {
            continue;
        }
        const List& rule = std::get<List>(rules.at(count++));
        ExpectNumber(rule.at(RulePortKind), words.at(3));
        for (std::size_t i = 9; i < words.size(); ++i)
        {
            ExpectNumber(rule.at(std::wcstoul(words[i].c_str(), nullptr, 10)),
                         words[i].substr(words[i].find(L'=') + 1));
        }
    }
    ExpectSame(rules.size(), count, "the count of rules");
}

class RuleTextReader : public Reader
{
    std::size_t Read(std::string_view text) override
    {
        const List groups = ParseCategories(text);
        Expect(groups == PlainCategories(std::string(text)), "the categories are others");
        List rules;
        try
        {
            rules = ParseRules(text);
        }
        catch (const BadRules&)
        {
            return 0;
        }
        Expect(AreFirewallRules(rules), "the rules of a text are none");
        ExpectRules(rules, text);
        Expect(ParseRules(RulesText(rules)) == rules, "the rules are others after they were written and read");
        return 1 + rules.size() * 10 + std::min<std::size_t>(groups.size(), 9);
    }
};

const Registration<RuleTextReader> RuleText(
    {.name = "rules",
     .reads = "texts of firewall rules and categories",
     .form = Form::Utf8,
     .inputs = 5'000,
     .separators = L" \n",
     .words =
         L"allow block in out any TCP ICMPv6 65535 65536 - \"\" \" \"-\" %0041 %% %000 %0000 %D800 # = 0=1 "
         L"14=00 12=4294967295 12=4294967296 1=65536 19=1 20=0000000000000000000000000000000000000001 03=Adult \r\n"});

} // namespace
