#include "suite/framework/FirewallRules.h"

#include "suite/framework/RuleText.h"
#include "suite/framework/TextFile.h"
#include "suite/framework/Trace.h"
#include "suite/framework/Utf8.h"

#include <optional>
#include <string>

namespace Framework
{

namespace
{

using enum Element;

constexpr Element Shape[] = {Bool,   Word,   Text,    Word,    Text,   Word, Word, Word, Word,    Text,    Text,   Word,
                             Number, Number, Bytes16, Bytes16, Number, Word, Text, Bool, Bytes20, Bytes16, Bytes16};
static_assert(std::size(Shape) == 23);

List Zeros(std::size_t count)
{
    return List(count, std::uint8_t{0});
}

Value Zero(Element element)
{
    switch (element)
    {
    case Bool:
        return false;
    case Word:
        return std::uint16_t{0};
    case Number:
        return std::uint32_t{0};
    case Text:
        return std::wstring();
    case Bytes16:
        return Zeros(16);
    case Bytes20:
        return Zeros(20);
    }
    return false;
}

} // namespace

std::span<const Element> RuleShape()
{
    return Shape;
}

List UsualRule()
{
    List rule;
    for (const Element element : Shape)
    {
        rule.push_back(Zero(element));
    }
    rule[0] = true;
    rule[3] = std::uint16_t{1};
    return rule;
}

bool AreFirewallRules(const List& list)
{
    const std::size_t misfit = FirstMisfit(list, Shape);
    if (misfit < list.size())
    {
        Trace("Number " + std::to_string(misfit + 1) + " of " + std::to_string(list.size()) +
              " firewall rules has another form than a rule.");
    }
    return misfit == list.size();
}

List FirstFirewallRules(const std::filesystem::path& folder)
{
    const std::optional<std::string> text = ReadTextFile(folder / FirstRulesName);
    if (!text)
    {
        return {};
    }
    try
    {
        return ParseRules(*text);
    }
    catch (const BadRules& bad)
    {
        Trace("There are no first rules: " + Narrow(FirstRulesName) + " has lines that are none. " + bad.what());
        return {};
    }
}

} // namespace Framework
