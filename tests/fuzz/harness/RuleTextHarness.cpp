// The texts that a person writes for the service: firewall rules and categories of the URL filter.

#include "suite/framework/CategoryFile.h"
#include "suite/framework/FirewallRules.h"
#include "suite/framework/RuleText.h"
#include "tests/fuzz/harness/Harnesses.h"

#include <algorithm>

namespace Fuzz
{

namespace
{

using namespace std::string_view_literals;

using namespace Framework;

constexpr std::wstring_view Words =
    L"allow block in out any TCP ICMPv6 65535 65536 - \"\" \" \"-\" %0041 %% %000 %0000 %D800 # = 0=1 "
    L"14=00 12=4294967295 19=1 20=0000000000000000000000000000000000000001 03=Adult \r\n"sv;

constexpr std::string_view SomeRules = R"(
allow any ICMP   0 -           *            *             "Echo and errors"     -
allow out 50     0 -           *            198.51.100.40 "Tunnel to the office" -
allow out TCP    1 80,443,8080 *            *             "Web browsing"        "C:\Program Files\Web\web.exe"
block in  UDP    1 5353        *            *             netsvchost64          C:\Windows\System32\netsvchost64.exe
allow in  TCP    1 49152-65535 192.0.2.0/24 *             synchelper            C:\sync.exe
block any any    0 -           *            *             "Правило 7" -
)"sv;

class RuleTextReader : public Reader
{
    std::vector<std::string> Samples() const override
    {
        return {RulesText(ParseRules(SomeRules)),
                "allow in TCP 1 80 * * \"a b\" - 0=0 14=00112233445566778899aabbccddeeff\r\n",
                "# comment\r\n03 = Adult content\r\nkey=name=more\r\n"};
    }

    std::size_t Read(std::string_view text) override
    {
        const List groups = ParseCategories(text);
        const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
        Expect(groups.size() <= lines, "there are more categories than lines");
        return ReadRules(text) * 10 + std::min<std::size_t>(groups.size(), 9);
    }

    static std::size_t ReadRules(std::string_view text)
    {
        List rules;
        try
        {
            rules = ParseRules(text);
        }
        catch (const BadRules& faults)
        {
            return 1000 + std::string_view(faults.what()).size();
        }
        Expect(AreFirewallRules(rules), "the rules of a text are none");
        Expect(ParseRules(RulesText(rules)) == rules, "the rules are others after they were written and read");
        return rules.size();
    }
};

} // namespace

constinit const Harness RuleTextHarness{.name = "rules",
                                        .reads = "texts of firewall rules and categories",
                                        .form = Form::Utf8,
                                        .inputs = 4'000,
                                        .separators = L" \n",
                                        .words = Words,
                                        .make = &Make<RuleTextReader>};

} // namespace Fuzz
