#include "suite/framework/RuleText.h"

#include "suite/framework/FirewallRules.h"

#include <gtest/gtest.h>

using namespace Framework;

namespace
{

constexpr char Line[] = "block in TCP 1 80,443 * 192.0.2.7 \"A name\" C:\\a.exe";

// The rule of that line.
List Rule()
{
    List rule = UsualRule();
    rule[RuleAction] = std::uint16_t{1};
    rule[RuleDirection] = std::uint16_t{1};
    rule[RuleProtocol] = 6u;
    rule[RulePortKind] = std::uint16_t{1};
    rule[RulePorts] = std::wstring(L"80,443");
    rule[RuleSource] = std::wstring(L"*");
    rule[RuleDestination] = std::wstring(L"192.0.2.7");
    rule[RuleName] = std::wstring(L"A name");
    rule[RuleProgram] = std::wstring(L"C:\\a.exe");
    return rule;
}

// The table alone, without the comment on top.
std::string TableOf(const List& rules)
{
    const std::string text = RulesText(rules);
    return text.substr(text.find("\n\n") + 2);
}

std::string FaultsOf(const std::string& text)
{
    try
    {
        ParseRules(text);
        return {};
    }
    catch (const BadRules& faults)
    {
        return faults.what();
    }
}

} // namespace

TEST(RuleTextTest, TheTableHasAlignedColumnsAndWhatIsNotAsUsualAfterThem)
{
    List other = UsualRule();
    other[0] = false;
    other[RuleDirection] = std::uint16_t{7};
    other[RuleProtocol] = 0x10000u;
    other[13] = 70'000u;
    std::get<List>(other[14])[15] = std::uint8_t{0xAB};
    EXPECT_EQ(TableOf({Rule(), other}),
              "# action direction protocol port-kind ports  source destination name     program\n"
              "  block  in        TCP      1         80,443 *      192.0.2.7   \"A name\" C:\\a.exe\n"
              "  allow  7         any      0         -      -      -           -        -        0=0 13=70000 "
              "14=000000000000000000000000000000AB\n");
}

TEST(RuleTextTest, WithoutRulesThereIsTheCommentAndItLoadsAsNone)
{
    EXPECT_TRUE(RulesText({}).starts_with("# The firewall rules"));
    EXPECT_EQ(ParseRules(RulesText({})), List());
    EXPECT_EQ(ParseRules(""), List());
}

TEST(RuleTextTest, TheCommentTellsWhatEachColumnAndElementMayHold)
{
    const std::string text = RulesText({});
    for (const char* const line : {"\n#   direction               out, in, any or a number up to 65535\n",
                                   "\n#   program                 a text\n", "\n#   0, 19                   0 or 1\n",
                                   "\n#   14, 15, 21, 22          32 hexadecimal digits\n"})
    {
        EXPECT_NE(text.find(line), text.npos) << line << text;
    }
}

TEST(RuleTextTest, APersonMayWriteNumbersNamesInAnyCaseCommentsAndEitherEndOfALine)
{
    const std::string text = std::string("\xEF\xBB\xBF# mine\r\n\r\n \t\n  ") + Line +
                             "\r\n1 1 6 1\t80,443 * 192.0.2.7 \"A name\" C:\\a.exe 0=1\n"
                             "BLOCK IN tcp 1 80,443 \"*\" 192.0.2.7 A%0020name C:\\a.exe";
    EXPECT_EQ(ParseRules(text), (List{Rule(), Rule(), Rule()}));
}

TEST(RuleTextTest, ALineThatIsWrongIsToldWithItsNumberAndItsFault)
{
    struct Fault
    {
        std::string line;
        const char* told;
    };

    const std::string good = Line;
    const Fault faults[] = {
        {"deny in TCP 1 80 * * n p", "the action is allow, block or a number up to 65535, and not deny"},
        {"block 65536 TCP 1 80 * * n p", "the direction is out, in, any or a number up to 65535, and not 65536"},
        {"block in -1 1 80 * * n p", "the protocol is any, ICMP, IGMP, TCP, UDP, ICMPv6 or a number up to 4294967295, "
                                     "and not -1"},
        {"block in 4294967296 1 80 * * n p", "and not 4294967296"},
        {"block in 99999999999 1 80 * * n p", "and not 99999999999"},
        {"block in TCP - 80 * * n p", "the port-kind is a number up to 65535, and not -"},
        {"block in TCP 1 80 * * n", "here are 8 of them"},
        {good + " 0=2", "element 0 is 0 or 1, and not 2"},
        {good + " 1=65536", "element 1 is a number up to 65535, and not 65536"},
        {good + " 12=x", "element 12 is a number up to 4294967295, and not x"},
        {good + " 14=00", "element 14 is 32 hexadecimal digits, and not 00"},
        {good + " 20=000000000000000000000000000000000000000G", "element 20 is 40 hexadecimal digits"},
        {good + " 23=0", "after the columns stands 23=0, which names no other element"},
        {good + " 2=name", "stands 2=name"},
        {good + " more", "stands more"},
        {good + " 14", "stands 14"},
        {"block in TCP 1 80 * * \"n p", "the quote that ends a text is missing"},
        {"block in TCP 1 80 * * 100% p", "% must be followed by"},
        {"block in TCP 1 80 * * n\xE4me p", "the line is no UTF-8"},
    };
    for (const Fault& fault : faults)
    {
        const std::string told = FaultsOf("# comment\n" + good + "\n" + fault.line + "\n" + good + "\n");
        EXPECT_NE(told.find("\nline 3: "), told.npos) << told;
        EXPECT_NE(told.find(fault.told), told.npos) << fault.line << ": " << told;
    }
}

// The last value of such an element was loaded, and nobody was told of the first.
TEST(RuleTextTest, ALineThatNamesAnElementTwiceIsRefused)
{
    const std::string told = FaultsOf(std::string(Line) + " 12=1 13=1 12=1");
    EXPECT_NE(told.find("line 1: element 12 stands there twice"), told.npos) << told;
}

TEST(RuleTextTest, TheFirstTenWrongLinesAreToldAndTheOthersCounted)
{
    std::string text;
    for (int i = 0; i < 12; ++i)
    {
        text += "wrong\n";
    }
    const std::string told = FaultsOf(text);
    EXPECT_NE(told.find("\nline 1: "), told.npos) << told;
    EXPECT_NE(told.find("\nline 10: "), told.npos) << told;
    EXPECT_EQ(told.find("\nline 11: "), told.npos) << told;
    EXPECT_TRUE(told.ends_with("\nand 2 more")) << told;
}
