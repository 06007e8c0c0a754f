#include "suite/framework/RuleText.h"

#include "suite/framework/FirewallRules.h"
#include "suite/framework/RuleCell.h"
#include "suite/framework/RuleWords.h"
#include "suite/framework/TextFile.h"
#include "suite/framework/Utf8.h"

#include <algorithm>
#include <set>
#include <vector>

namespace Framework
{

namespace
{

constexpr NumberName Actions[] = {{L"allow", 0}, {L"block", 1}};
constexpr NumberName Directions[] = {{L"out", 0}, {L"in", 1}, {L"any", 2}};
constexpr NumberName Protocols[] = {{L"any", 0x10000}, {L"ICMP", 1}, {L"IGMP", 2},
                                    {L"TCP", 6},       {L"UDP", 17}, {L"ICMPv6", 58}};

struct Column
{
    std::wstring_view title;
    RuleElement element;
    NumberNames names;
};

constexpr Column Columns[] = {
    {L"action", RuleAction, Actions},
    {L"direction", RuleDirection, Directions},
    {L"protocol", RuleProtocol, Protocols},
    {L"port-kind", RulePortKind, {}},
    {L"ports", RulePorts, {}},
    {L"source", RuleSource, {}},
    {L"destination", RuleDestination, {}},
    {L"name", RuleName, {}},
    {L"program", RuleProgram, {}},
};

constexpr char AboutLines[] = "# The firewall rules of the active profile, in their order. VdFrwkSvc /Rules FILE loads "
                              "such a list in their place,\n"
                              "# from a file in UTF-8. A line is a rule, with blanks between its columns:\n"
                              "#\n";
constexpr char AboutTexts[] =
    "#\n"
    "# A text with a blank stands in quotes, where \"\" is a quote; - is an empty text. %% is a percent sign, and "
    "%XXXX the\n"
    "# UTF-16 unit of these hexadecimal digits. A line that begins with # is a comment, and the order of lines is that "
    "of\n"
    "# the rules. An element of a rule without a column follows the columns as NUMBER=VALUE when it is not as usual:\n"
    "#\n";

constexpr wchar_t CommentMark = L'#';
constexpr std::size_t MostFaults = 10; // that are told of a text

using Words = std::vector<std::wstring>;

bool HasColumn(std::size_t element)
{
    return std::ranges::find(Columns, element, &Column::element) != std::end(Columns);
}

std::string CommentLine(std::string name, const std::string& allowed)
{
    constexpr std::size_t width = 24;
    name.resize(std::max(name.size() + 1, width), ' ');
    return "#   " + name + allowed + "\n";
}

// The numbers of the elements that are this and have no column.
std::string OthersOf(Element element)
{
    std::string numbers;
    for (std::size_t i = 0; i < RuleShape().size(); ++i)
    {
        if (RuleShape()[i] == element && !HasColumn(i))
        {
            numbers.append(numbers.empty() ? "" : ", ").append(std::to_string(i));
        }
    }
    return numbers;
}

std::string Comment()
{
    std::string comment = AboutLines;
    for (const Column& column : Columns)
    {
        comment += CommentLine(Narrow(column.title), AllowedInCell(RuleShape()[column.element], column.names));
    }
    comment += AboutTexts;
    for (const Element element : {Element::Bool, Element::Word, Element::Number, Element::Bytes16, Element::Bytes20})
    {
        comment += CommentLine(OthersOf(element), AllowedInCell(element, {}));
    }
    return comment + "\n";
}

Words TitleWords()
{
    Words words;
    for (const Column& column : Columns)
    {
        words.emplace_back(column.title);
    }
    return words;
}

Words WordsOf(const List& rule, const List& usual)
{
    Words words;
    for (const Column& column : Columns)
    {
        words.push_back(CellOf(rule[column.element], column.names));
    }
    for (std::size_t i = 0; i < rule.size(); ++i)
    {
        if (!HasColumn(i) && rule[i] != usual[i])
        {
            words.push_back(std::to_wstring(i) + L"=" + CellOf(rule[i], {}));
        }
    }
    return words;
}

// How wide the columns must be for all rows.
std::vector<std::size_t> WidthsOf(const std::vector<Words>& rows)
{
    std::vector<std::size_t> widths(std::size(Columns));
    for (const Words& row : rows)
    {
        for (std::size_t i = 0; i < widths.size(); ++i)
        {
            widths[i] = std::max(widths[i], WidthOf(row[i]));
        }
    }
    return widths;
}

std::string Line(const Words& row, const std::vector<std::size_t>& widths)
{
    std::wstring line;
    for (std::size_t i = 0; i < row.size(); ++i)
    {
        const std::size_t width = i < widths.size() && i + 1 < row.size() ? widths[i] : 0;
        line += L" " + row[i] + std::wstring(width - std::min(width, WidthOf(row[i])), L' ');
    }
    return Narrow(line) + "\n";
}

std::string Titles()
{
    std::string titles;
    for (const Column& column : Columns)
    {
        titles.append(titles.empty() ? "" : ", ").append(Narrow(column.title));
    }
    return titles;
}

void ReadElement(List& rule, std::size_t element, const std::wstring& word, NumberNames names, const std::string& what)
{
    std::optional<Value> value = ReadCell(word, RuleShape()[element], names);
    if (!value)
    {
        throw BadLine(what + " is " + AllowedInCell(RuleShape()[element], names) + ", and not " + Narrow(WordOf(word)));
    }
    rule[element] = std::move(*value);
}

// named: the elements that the line has named so far.
void ReadOther(List& rule, const std::wstring& word, std::set<std::size_t>& named)
{
    const std::size_t sign = word.find(L'=');
    const std::wstring number = word.substr(0, sign);
    for (std::size_t i = 0; i < rule.size(); ++i)
    {
        if (sign != word.npos && !HasColumn(i) && std::to_wstring(i) == number)
        {
            if (!named.insert(i).second)
            {
                throw BadLine("element " + std::to_string(i) + " stands there twice");
            }
            return ReadElement(rule, i, word.substr(sign + 1), {}, "element " + std::to_string(i));
        }
    }
    throw BadLine("after the columns stands " + Narrow(WordOf(word)) + ", which names no other element");
}

List ReadRule(const Words& words, const List& usual)
{
    if (words.size() < std::size(Columns))
    {
        throw BadLine("a rule has " + Titles() + "; here are " + std::to_string(words.size()) + " of them");
    }
    List rule = usual;
    for (std::size_t i = 0; i < std::size(Columns); ++i)
    {
        const Column& column = Columns[i];
        ReadElement(rule, column.element, words[i], column.names, "the " + Narrow(column.title));
    }
    std::set<std::size_t> named;
    for (std::size_t i = std::size(Columns); i < words.size(); ++i)
    {
        ReadOther(rule, words[i], named);
    }
    return rule;
}

// Appends what the line says.
void ReadLine(std::string_view line, const List& usual, List& rules)
{
    const std::optional<std::wstring> wide = WideIfUtf8(line);
    if (!wide)
    {
        throw BadLine("the line is no UTF-8");
    }
    const Words words = wide->starts_with(CommentMark) ? Words() : SplitWords(*wide);
    if (!words.empty())
    {
        rules.emplace_back(ReadRule(words, usual));
    }
}

} // namespace

std::string RulesText(const List& rules)
{
    const List usual = UsualRule();
    std::vector<Words> rows{TitleWords()};
    for (const Value& rule : rules)
    {
        rows.push_back(WordsOf(std::get<List>(rule), usual));
    }
    const std::vector<std::size_t> widths = WidthsOf(rows);
    std::string text = Comment();
    for (const Words& row : rows)
    {
        text += &row == &rows.front() ? '#' : ' ';
        text += Line(row, widths);
    }
    return text;
}

List ParseRules(std::string_view text)
{
    text = WithoutByteOrderMark(text);
    const List usual = UsualRule();
    List rules;
    std::string faults;
    std::size_t faultCount = 0;
    for (std::size_t number = 1; !text.empty(); ++number)
    {
        try
        {
            ReadLine(TakeLine(text), usual, rules);
        }
        catch (const BadLine& fault)
        {
            faults += ++faultCount > MostFaults ? "" : "\nline " + std::to_string(number) + ": " + fault.what();
        }
    }
    if (faultCount > MostFaults)
    {
        faults += "\nand " + std::to_string(faultCount - MostFaults) + " more";
    }
    if (faultCount > 0)
    {
        throw BadRules("Nothing is loaded, since lines of it are no rules." + faults);
    }
    return rules;
}

} // namespace Framework
