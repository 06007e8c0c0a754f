#include "suite/samples/Names.h"
#include "suite/samples/RecordSource.h"

namespace Samples
{

namespace
{

constexpr int Icmp = 1;
constexpr int Tcp = 6;
constexpr int Udp = 17;
constexpr int Icmpv6 = 58;

// Protocol numbers; 2 is IGMP, 47 and 50 are two that the viewer shows as numbers.
constexpr Card<int> Protocols[] = {{16, Tcp}, {9, Udp}, {3, Icmp}, {3, Icmpv6}, {2, 2}, {1, 47}, {1, 50}};

constexpr int ReasonedEvent = 10;
constexpr int AttackEvent = 15;

// What happened, and the kind of direction or decision that goes with it.
struct Event
{
    int event, directionKind;
};

constexpr Card<Event> Events[] = {
    {10, {4, 2}},
    {5, {4, 1}},
    {3, {8, 2}},
    {3, {8, 1}},
    {2, {5, 0}},
    {7, {6, 0}},
    {2, {7, 2}},
    {2, {7, 1}},
    {3, {18, 7}},
    {2, {18, 2}},
    {5, {ReasonedEvent, 0}},
    {2, {AttackEvent, 0}},
    {1, {3, 0}},
};

// Of an event with reasons; 11 is one that has no name.
constexpr int Reasons[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};

// The last row of each is a type that has no name.
constexpr Card<int> IcmpTypes[] = {
    {4, 0},  {4, 3},  {1, 4},  {1, 5},  {8, 8},  {1, 9},  {3, 11}, {1, 12},
    {1, 13}, {1, 14}, {1, 15}, {1, 16}, {1, 17}, {1, 18}, {1, 40},
};
constexpr Card<int> Icmpv6Types[] = {
    {3, 128}, {3, 129}, {1, 130}, {2, 131}, {1, 132}, {3, 133}, {3, 134}, {6, 135}, {6, 136},
    {1, 137}, {1, 138}, {1, 139}, {1, 140}, {1, 141}, {1, 142}, {2, 143}, {1, 144}, {1, 145},
    {1, 146}, {1, 147}, {1, 148}, {1, 149}, {1, 150}, {1, 151}, {1, 152}, {1, 153}, {1, 200},
};

constexpr Card<int> ServicePorts[] = {{6, 443}, {4, 80}, {2, 53}, {2, 445}, {1, 25}, {1, 993}, {1, 5353}, {1, 8080}};

// Programs that wait for others to connect.
constexpr Card<std::wstring_view> Services[] = {
    {3, L"System"},
    {4, L"C:\\Windows\\System32\\netsvchost64.exe"},
    {2, L"C:\\Program Files (x86)\\Tinker Box\\Sync Helper\\synchelper.exe"},
};

constexpr std::wstring_view Attacks[] = {
    L"Many ports asked one after the other",
    L"Oversized echo request",
    L"Login tried again and again",
};

constexpr Card<std::wstring_view> Rules[] = {
    {4, L""}, {3, L"Web browsing"}, {2, L"Mail"}, {2, L"File sharing in the local network"}, {1, L"Правило 7"},
};

constexpr Card<std::wstring_view> Messages[] = {
    {4, L""},
    {3, L"First connection of this program"},
    {2, L"The program has changed since it was allowed"},
};

class FirewallRecords : public RecordSource
{
public:
    explicit FirewallRecords(Random& random)
        : m_random(random),
          m_names(random),
          m_protocols(Protocols, random),
          m_events(Events, random),
          m_reasons(Reasons, random),
          m_icmpTypes(IcmpTypes, random),
          m_icmpv6Types(Icmpv6Types, random),
          m_servicePorts(ServicePorts, random),
          m_services(Services, random),
          m_attacks(Attacks, random),
          m_rules(Rules, random),
          m_messages(Messages, random)
    {
    }

    void Fill(const Moment& moment, Line& line) override
    {
        const int protocol = m_protocols.Draw();
        const Event& event = m_events.Draw();
        const bool incoming = m_random.Chance(45);
        line.Time(moment.secondOfDay).Number(event.event);
        line.Number(event.event == ReasonedEvent ? m_reasons.Draw() : 0);
        line.Number(incoming ? 1 : 2).Empty().Number(protocol).Number(event.directionKind);
        AddAddresses(protocol, incoming, line);
        AddIcmpType(protocol, event.event, line);
        line.Text(event.event == AttackEvent ? m_attacks.Draw() : L"");
        line.Text(ProgramOf(protocol, incoming)).Text(m_rules.Draw()).Text(m_messages.Draw());
    }

private:
    // Local address and port, then those of the other side. "LIP" stands for this machine's own address.
    void AddAddresses(int protocol, bool incoming, Line& line)
    {
        const bool ports = protocol == Tcp || protocol == Udp;
        const bool ipv6 = protocol == Icmpv6 || (ports && m_random.Chance(15));
        line.Text(ipv6 ? L"2001:db8::10" : m_random.Chance(80) ? L"LIP" : m_random.Chance(50) ? L"192.0.2.10" : L"");
        AddPort(ports, incoming, line);
        if (m_random.Chance(3))
        {
            line.Empty();
        }
        else
        {
            line.Text(ipv6 ? m_names.Ipv6() : m_names.Ipv4());
        }
        AddPort(ports, !incoming, line);
    }

    void AddPort(bool ports, bool service, Line& line)
    {
        if (!ports)
        {
            line.Empty();
        }
        else
        {
            line.Number(service ? m_servicePorts.Draw() : static_cast<int>(49152 + m_random.Below(16384)));
        }
    }

    void AddIcmpType(int protocol, int event, Line& line)
    {
        // An event that has a reason is told by that and has no type.
        if (event == ReasonedEvent || (protocol != Icmp && protocol != Icmpv6))
        {
            line.Empty();
        }
        else
        {
            line.Number(protocol == Icmp ? m_icmpTypes.Draw() : m_icmpv6Types.Draw());
        }
    }

    std::wstring_view ProgramOf(int protocol, bool incoming)
    {
        if (m_random.Chance(4))
        {
            return {};
        }
        if (protocol != Tcp && protocol != Udp)
        {
            return L"System";
        }
        return incoming ? m_services.Draw() : m_names.Program();
    }

    Random& m_random;
    Names m_names;
    Deck<int> m_protocols;
    Deck<Event> m_events;
    Deck<int> m_reasons;
    Deck<int> m_icmpTypes;
    Deck<int> m_icmpv6Types;
    Deck<int> m_servicePorts;
    Deck<std::wstring_view> m_services;
    Deck<std::wstring_view> m_attacks;
    Deck<std::wstring_view> m_rules;
    Deck<std::wstring_view> m_messages;
};

} // namespace

std::unique_ptr<RecordSource> MakeFirewallRecords(Random& random)
{
    return std::make_unique<FirewallRecords>(random);
}

} // namespace Samples
