#include "suite/framework/FirewallRules.h"

#include "suite/framework/RuleText.h"
#include "suite/framework/Trace.h"
#include "suite/framework/Utf8.h"

#include <string>

namespace Framework
{

namespace
{

using enum Element;

constexpr Element Shape[] = {Bool,   Word,   Text,    Word,    Text,   Word, Word, Word, Word,    Text,    Text,   Word,
                             Number, Number, Bytes16, Bytes16, Number, Word, Text, Bool, Bytes20, Bytes16, Bytes16};
static_assert(std::size(Shape) == 23);

constexpr std::wstring_view FirstRules = LR"(
allow any ICMPv6 0 -           *            *             "Neighbour discovery" -
allow any ICMP   0 -           *            *             "Echo and errors"     -
allow any IGMP   0 -           192.0.2.0/24 *             -                     -
allow out any    1 53          *            *             "Names of hosts"      -
allow out 50     0 -           *            198.51.100.40 "Tunnel to the office" -
allow any TCP    1 445         192.0.2.0/24 192.0.2.0/24  "File sharing in the local network" -
block any 47     0 -           *            *             "Unknown tunnels"     -
allow out TCP    1 80,443,8080 *            *             "Web browsing"        "C:\Program Files\Pinecone Browser\pinecone.exe"
block out UDP    1 443         *            *             "Web browsing"        "C:\Program Files\Pinecone Browser\pinecone.exe"
allow out TCP    1 25,993      *            *             Mail                  "C:\Program Files\Brightleaf Mail\blmail.exe"
block any any    0 -           *            *             Mail                  "C:\Program Files\Brightleaf Mail\blmail.exe"
block in  TCP    0 -           *            *             netsvchost64          C:\Windows\System32\netsvchost64.exe
block in  UDP    1 5353        *            *             netsvchost64          C:\Windows\System32\netsvchost64.exe
allow in  TCP    1 49152-65535 192.0.2.0/24 *             synchelper            "C:\Program Files (x86)\Tinker Box\Sync Helper\synchelper.exe"
block any UDP    0 -           *            *             synchelper            "C:\Program Files (x86)\Tinker Box\Sync Helper\synchelper.exe"
allow any any    0 -           *            *             writer                "C:\Program Files\Orchard Office\writer.exe"
block any any    0 -           *            *             unpack7               C:\Users\maria\AppData\Local\Temp\~installer\unpack7.exe
block out TCP    0 -           *            *             maze                  "D:\Games\Marble Maze\maze.exe"
block any any    0 -           *            *             "Правило 7"           C:\Users\Алексей\Загрузки\установка.exe
block out TCP    0 -           *            *             写真整理              "C:\Program Files\さくら工房\写真整理.exe"
block in  any    0 -           *            *             "Everything else"     -
)";

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

List FirstFirewallRules()
{
    return ParseRules(Narrow(FirstRules));
}

} // namespace Framework
