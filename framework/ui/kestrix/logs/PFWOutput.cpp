#include "framework/ui/kestrix/logs/PFWOutput.h"

#include "common/VdCommon/VdComn_FormatText.h"
#include "framework/ui/kestrix/logs/CodeTexts.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"

#include <algorithm>
#include <iterator>
#include <string>

// The types of a protocol, and the text for one that has no name.
struct IcmpKind
{
    std::uint32_t protocol;
    std::span<const CodeText> types;
    UINT other;
};

namespace
{

enum Protocol : std::uint32_t
{
    ProtocolIcmp = 1,
    ProtocolTcp = 6,
    ProtocolUdp = 17,
    ProtocolIcmpv6 = 58,
};

constexpr CodeText Protocols[] = {
    {ProtocolIcmp, IDS_PFW_ICMP},     {2, IDS_PFW_IGMP}, {ProtocolTcp, IDS_PFW_TCP}, {ProtocolUdp, IDS_PFW_UDP},
    {ProtocolIcmpv6, IDS_PFW_ICMPV6},
};
static_assert(IsSorted(Protocols));

constexpr std::uint32_t ReasonedEvent = 10; // described by its reason, whatever the protocol
constexpr std::uint32_t NoDirection = 0;    // in the tables below: any kind of direction that has no row before it

// What came of an event. Of two rows of an event the first is for one kind of direction, the second for the others.
struct EventOutcome
{
    std::uint32_t event;
    std::uint32_t directionKind;
    UINT text;
    std::uint32_t image;
};

constexpr EventOutcome UnknownOutcome = {0, NoDirection, IDS_PFW_UNKNOWN, 4};

constexpr EventOutcome Outcomes[] = {
    {4, 2, IDS_PFW_BLOCKED, 0},
    {4, NoDirection, IDS_PFW_ALLOWED, 3},
    {5, NoDirection, IDS_PFW_ALERT, 2},
    {6, NoDirection, IDS_PFW_BLOCKED, 0},
    {7, 2, IDS_PFW_ALERT, 2},
    {7, NoDirection, IDS_PFW_ALLOWED, 3},
    {8, 2, IDS_PFW_BLOCKED, 0},
    {8, NoDirection, IDS_PFW_ALLOWED, 3},
    {ReasonedEvent, NoDirection, IDS_PFW_BLOCKED, 0},
    {15, NoDirection, IDS_PFW_ATTACK, 1},
    {18, 7, IDS_PFW_ALLOWED, 3},
    {18, NoDirection, IDS_PFW_ALERT, 2},
};

constexpr CodeText IcmpTypes[] = {
    {0, IDS_PFW_ICMP_ECHO_REPLY},       {3, IDS_PFW_ICMP_UNREACHABLE},          {4, IDS_PFW_ICMP_SOURCE_QUENCH},
    {5, IDS_PFW_ICMP_REDIRECT},         {8, IDS_PFW_ICMP_ECHO_REQUEST},         {9, IDS_PFW_ICMP_ROUTER_ADVERTISEMENT},
    {11, IDS_PFW_ICMP_TIME_EXCEEDED},   {12, IDS_PFW_ICMP_PARAMETER_PROBLEM},   {13, IDS_PFW_ICMP_TIMESTAMP_REQUEST},
    {14, IDS_PFW_ICMP_TIMESTAMP_REPLY}, {15, IDS_PFW_ICMP_INFORMATION_REQUEST}, {16, IDS_PFW_ICMP_INFORMATION_REPLY},
    {17, IDS_PFW_ICMP_MASK_REQUEST},    {18, IDS_PFW_ICMP_MASK_REPLY},
};
static_assert(IsSorted(IcmpTypes));

constexpr CodeText Icmpv6Types[] = {
    {128, IDS_PFW_ICMPV6_ECHO_REQUEST},
    {129, IDS_PFW_ICMPV6_ECHO_REPLY},
    {130, IDS_PFW_ICMPV6_LISTENER_QUERY},
    {131, IDS_PFW_ICMPV6_LISTENER_REPORT},
    {132, IDS_PFW_ICMPV6_LISTENER_DONE},
    {133, IDS_PFW_ICMPV6_ROUTER_SOLICITATION},
    {134, IDS_PFW_ICMPV6_ROUTER_ADVERTISEMENT},
    {135, IDS_PFW_ICMPV6_NEIGHBOR_SOLICITATION},
    {136, IDS_PFW_ICMPV6_NEIGHBOR_ADVERTISEMENT},
    {137, IDS_PFW_ICMPV6_REDIRECT},
    {138, IDS_PFW_ICMPV6_RENUMBERING},
    {139, IDS_PFW_ICMPV6_NODE_QUERY},
    {140, IDS_PFW_ICMPV6_NODE_RESPONSE},
    {141, IDS_PFW_ICMPV6_INVERSE_SOLICITATION},
    {142, IDS_PFW_ICMPV6_INVERSE_ADVERTISEMENT},
    {143, IDS_PFW_ICMPV6_LISTENER_REPORT_2},
    {144, IDS_PFW_ICMPV6_HOME_AGENT_REQUEST},
    {145, IDS_PFW_ICMPV6_HOME_AGENT_REPLY},
    {146, IDS_PFW_ICMPV6_PREFIX_SOLICITATION},
    {147, IDS_PFW_ICMPV6_PREFIX_ADVERTISEMENT},
    {148, IDS_PFW_ICMPV6_PATH_SOLICITATION},
    {149, IDS_PFW_ICMPV6_PATH_ADVERTISEMENT},
    {150, IDS_PFW_ICMPV6_MOBILITY},
    {151, IDS_PFW_ICMPV6_MULTICAST_ADVERTISEMENT},
    {152, IDS_PFW_ICMPV6_MULTICAST_SOLICITATION},
    {153, IDS_PFW_ICMPV6_MULTICAST_TERMINATION},
};
static_assert(IsSorted(Icmpv6Types));

constexpr CodeText Reasons[] = {
    {1, IDS_PFW_REASON_IP_HEADER},   {2, IDS_PFW_REASON_TCP_HEADER}, {3, IDS_PFW_REASON_UDP_HEADER},
    {4, IDS_PFW_REASON_ICMP_HEADER}, {5, IDS_PFW_REASON_OVERLAP},    {6, IDS_PFW_REASON_LARGE_FRAGMENT},
    {7, IDS_PFW_REASON_SYN_FLOOD},   {8, IDS_PFW_REASON_ARP},        {9, IDS_PFW_REASON_FORGED_ADDRESS},
    {10, IDS_PFW_REASON_PORT_SCAN},
};
static_assert(IsSorted(Reasons));

constexpr IcmpKind IcmpKinds[] = {
    {ProtocolIcmp, IcmpTypes, IDS_PFW_ICMP_OTHER},
    {ProtocolIcmpv6, Icmpv6Types, IDS_PFW_ICMPV6_OTHER},
};

} // namespace

CPFWOutput::CPFWOutput(std::wstring_view time)
{
    constexpr std::size_t digits = 6;
    wchar_t* end = szTime.data();
    for (const wchar_t c : time.substr(0, std::min(time.find(L'\0'), digits)))
    {
        *end++ = c;
        if (end == &szTime[2] || end == &szTime[5])
        {
            *end++ = L':';
        }
    }
}

void CPFWOutput::AppendOutcome(LogRec& record) const
{
    const auto isOfEvent = [this](const EventOutcome& row)
    { return row.event == nEvent && (row.directionKind == nDirectionKind || row.directionKind == NoDirection); };
    const auto found = std::ranges::find_if(Outcomes, isOfEvent);
    const EventOutcome* outcome = found == std::end(Outcomes) ? &UnknownOutcome : found;
    if (LoadText(outcome->text).empty())
    {
        outcome = &UnknownOutcome;
    }
    record.nImage = outcome->image;
    record.AppendLasting(LoadText(outcome->text));
}

void CPFWOutput::AppendProtocol(LogRec& record) const
{
    const auto row = std::ranges::find(Protocols, nProtocol, &CodeText::code);
    if (row == std::end(Protocols))
    {
        record.Append(DecimalText(nProtocol));
        return;
    }
    const std::wstring_view text = LoadText(row->text);
    record.AppendLasting(text.empty() ? std::wstring_view(L"0") : text);
}

bool CPFWOutput::HasPorts() const
{
    return nProtocol == ProtocolTcp || nProtocol == ProtocolUdp;
}

void CPFWOutput::AppendDescription(LogRec& record) const
{
    const auto kind = std::ranges::find(IcmpKinds, nProtocol, &IcmpKind::protocol);
    const bool isIcmp = kind != std::end(IcmpKinds) && nEvent != ReasonedEvent;
    std::wstring unnamed;
    const Description description = isIcmp ? IcmpDescription(*kind, unnamed) : EventDescription();
    if (description.text.empty())
    {
        record.AppendLasting(LoadText(IDS_PFW_NO_DESCRIPTION));
    }
    else if (description.isLasting)
    {
        record.AppendLasting(description.text);
    }
    else
    {
        record.Append(description.text);
    }
}

CPFWOutput::Description CPFWOutput::IcmpDescription(const IcmpKind& kind, std::wstring& unnamed) const
{
    const auto row = std::ranges::find(kind.types, static_cast<std::uint32_t>(nIcmpType), &CodeText::code);
    if (row != kind.types.end())
    {
        return {LoadText(row->text), true};
    }
    unnamed = VdCommon::String::FormatText(LoadText(kind.other), {nIcmpType});
    return {unnamed, false};
}

CPFWOutput::Description CPFWOutput::EventDescription() const
{
    const Description matched = {LoadText(IDS_PFW_MATCHED_RULE), true};
    const Description message = {strMessage, false};
    switch (nEvent)
    {
    case 4:
    case 8:
        return nDirectionKind == 2 ? matched : message;
    case 6:
        return matched;
    case ReasonedEvent:
        return {TextOfCode(Reasons, nReason, IDS_PFW_NO_DESCRIPTION), true};
    case 15:
        return {strEventText, false};
    case 18:
        return nDirectionKind == 7 ? matched : Description{};
    default:
        return message;
    }
}

std::uint32_t ProtocolFromText(std::wstring_view text)
{
    const auto row =
        std::ranges::find_if(Protocols, [text](const CodeText& protocol) { return text == LoadText(protocol.text); });
    return row == std::end(Protocols) ? 0 : row->code;
}
