// What the firewall log makes of lines.

#include "framework/ui/kestrix/logs/ZPTLogPFW.h"

#include "framework/ui/kestrix/logs/PFWOutput.h"
#include "tests/support/LogFixture.h"
#include "tests/support/TraceRecorder.h"

#include <array>

namespace
{

class OpenFirewallLog : public CZPTLogPFW
{
public:
    using CZPTLogPFW::m_pOutput;
    using CZPTLogPFW::m_Selection;
};

class ZPTLogPFWTest : public LogFixture<OpenFirewallLog>
{
protected:
    using Tokens = std::array<std::wstring, 16>;

    // A complete line; a test changes the tokens that it is about.
    static Tokens Good()
    {
        return {L"103015",       L"4",      L"1",   L"2",   L"x", L"6",          L"2",
                L"192.0.2.10",   L"49152",  L"::1", L"443", L"",  L"event text", L"C:\\a.exe",
                L"Web browsing", L"message"};
    }

    const LogRec& PutTokens(const Tokens& tokens)
    {
        std::wstring line;
        for (const std::wstring& token : tokens)
        {
            line += (&token == tokens.data() ? L"" : L"|") + token;
        }
        return Put(line);
    }

    const LogRec& PutWith(std::initializer_list<std::pair<std::size_t, std::wstring>> changes)
    {
        Tokens tokens = Good();
        for (const auto& [number, token] : changes)
        {
            tokens[number] = token;
        }
        return PutTokens(tokens);
    }

    static std::wstring Formatted(UINT text, std::wstring_view number)
    {
        std::wstring formatted = Text(text);
        formatted.replace(formatted.find(L"%d"), 2, number);
        return formatted;
    }
};

} // namespace

TEST_F(ZPTLogPFWTest, ALineHasElevenFieldsAndAnIcon)
{
    const LogRec& record = PutTokens(Good());
    const std::wstring fields[] = {Text(490), L"10:30:15",  Text(495),       L"2",     L"192.0.2.10", L"49152", L"::1",
                                   L"443",    L"C:\\a.exe", L"Web browsing", Text(370)};
    ASSERT_EQ(record.strData.size(), std::size(fields));
    for (std::size_t i = 0; i < std::size(fields); ++i)
    {
        EXPECT_EQ(record.Field(i), fields[i]) << i;
    }
    EXPECT_EQ(record.nImage, 0u);
    EXPECT_FALSE(m_log.m_pOutput) << "between records";
}

TEST_F(ZPTLogPFWTest, TheTimeEndsWhereItsTokenEnds)
{
    const std::pair<std::wstring, const wchar_t*> times[] = {{L"103015", L"10:30:15"},
                                                             {L"1030159", L"10:30:15"},
                                                             {L"10301", L"10:30:1"},
                                                             {L"1030", L"10:30:"},
                                                             {L"103", L"10:3"},
                                                             {L"10", L"10:"},
                                                             {L"1", L"1"},
                                                             {L"", L"00:00:00"},
                                                             {std::wstring(L"10\0"
                                                                           L"015",
                                                                           6),
                                                              L"10:"},
                                                             {std::wstring(1, L'\0'), L"00:00:00"}};
    for (const auto& [token, text] : times)
    {
        EXPECT_EQ(PutWith({{0, token}}).Field(1), text) << text;
    }
}

TEST_F(ZPTLogPFWTest, EveryEventHasItsOutcomeAndIcon)
{
    struct
    {
        const wchar_t* event;
        const wchar_t* kind;
        UINT text;
        std::uint32_t icon;
    } const cases[] = {{L"4", L"2", 490, 0},  {L"4", L"1", 342, 3},  {L"4", L"0", 342, 3},  {L"5", L"2", 491, 2},
                       {L"6", L"1", 490, 0},  {L"7", L"2", 491, 2},  {L"7", L"7", 342, 3},  {L"8", L"2", 490, 0},
                       {L"8", L"3", 342, 3},  {L"10", L"2", 490, 0}, {L"15", L"7", 492, 1}, {L"18", L"7", 342, 3},
                       {L"18", L"2", 491, 2}, {L"0", L"2", 338, 4},  {L"3", L"0", 338, 4},  {L"9", L"0", 338, 4},
                       {L"-4", L"2", 338, 4}, {L"", L"", 338, 4},    {L"19", L"7", 338, 4}, {L"4", L"", 342, 3}};

    for (const auto& each : cases)
    {
        const LogRec& record = PutWith({{1, each.event}, {6, each.kind}});
        EXPECT_EQ(record.Field(0), Text(each.text)) << each.event << L" " << each.kind;
        EXPECT_EQ(record.nImage, each.icon) << each.event << L" " << each.kind;
    }
}

TEST_F(ZPTLogPFWTest, AProtocolIsShownByItsNameOrItsUnsignedNumber)
{
    const std::pair<const wchar_t*, std::wstring> protocols[] = {
        {L"1", Text(493)},  {L"2", Text(494)},  {L"6", Text(495)}, {L"17", Text(496)},
        {L"58", Text(357)}, {L"47", L"47"},     {L"0", L"0"},      {L"-1", L"4294967295"},
        {L"", L"0"},        {L"6x", Text(495)}, {L"word", L"0"}};
    for (const auto& [token, text] : protocols)
    {
        EXPECT_EQ(PutWith({{5, token}}).Field(2), text) << token;
    }
    EXPECT_EQ(PutWith({{3, L"-1"}}).Field(3), L"4294967295");
}

TEST_F(ZPTLogPFWTest, PortsAreShownForTcpAndUdpAlone)
{
    for (const wchar_t* const protocol : {L"6", L"17"})
    {
        const LogRec& record = PutWith({{5, protocol}, {8, L"80"}, {10, L""}});
        EXPECT_EQ(record.Field(5), L"80") << protocol;
        EXPECT_EQ(record.Field(7), Text(489)) << protocol;
    }
    for (const wchar_t* const protocol : {L"1", L"58", L"47", L""})
    {
        const LogRec& record = PutWith({{5, protocol}, {8, L"80"}, {10, L"81"}});
        EXPECT_EQ(record.Field(5), Text(489)) << protocol;
        EXPECT_EQ(record.Field(7), Text(489)) << protocol;
    }
}

TEST_F(ZPTLogPFWTest, TheMarkerOfTheLocalAddressIsReplacedWhereThatIsKnown)
{
    EXPECT_EQ(PutWith({{7, L"LIP"}}).Field(4), L"LIP");
    m_log.SetLocalAddress(L"192.0.2.77");
    EXPECT_EQ(PutWith({{7, L"LIP"}}).Field(4), L"192.0.2.77");
    EXPECT_EQ(PutWith({{7, L"lip"}}).Field(4), L"lip");
    EXPECT_EQ(PutWith({{7, L"10.0.0.1"}}).Field(4), L"10.0.0.1");
    EXPECT_EQ(PutWith({{9, L"LIP"}}).Field(6), L"LIP") << "the other address is the other machine's";
}

TEST_F(ZPTLogPFWTest, EmptyTokensHaveTextsOfTheirOwn)
{
    const LogRec& record = PutWith({{7, L""}, {9, L""}, {13, L""}, {14, L""}, {1, L"5"}, {15, L""}});
    EXPECT_EQ(record.Field(4), Text(176));
    EXPECT_EQ(record.Field(6), Text(176));
    EXPECT_EQ(record.Field(8), Text(343));
    EXPECT_EQ(record.Field(9), Text(345));
    EXPECT_EQ(record.Field(10), Text(371));
}

TEST_F(ZPTLogPFWTest, TheDescriptionOfOtherProtocolsFollowsFromTheEvent)
{
    struct
    {
        const wchar_t* event;
        const wchar_t* kind;
        std::wstring text;
    } const cases[] = {{L"4", L"2", Text(370)},  {L"4", L"1", L"message"}, {L"8", L"2", Text(370)},
                       {L"8", L"1", L"message"}, {L"5", L"2", L"message"}, {L"7", L"2", L"message"},
                       {L"6", L"1", Text(370)},  {L"10", L"2", Text(497)}, {L"15", L"2", L"event text"},
                       {L"18", L"7", Text(370)}, {L"18", L"2", Text(371)}, {L"3", L"2", L"message"},
                       {L"-1", L"2", L"message"}};

    for (const auto& each : cases)
    {
        EXPECT_EQ(PutWith({{1, each.event}, {6, each.kind}}).Field(10), each.text) << each.event << L" " << each.kind;
    }
    EXPECT_EQ(PutWith({{1, L"15"}, {12, L""}}).Field(10), Text(371));
}

TEST_F(ZPTLogPFWTest, EveryIcmpTypeHasItsTextAndAnyOtherItsNumber)
{
    const std::pair<std::size_t, UINT> types[] = {{0, 503},  {3, 504},  {4, 505},  {5, 506},  {8, 507},
                                                  {9, 508},  {11, 509}, {12, 510}, {13, 511}, {14, 512},
                                                  {15, 513}, {16, 514}, {17, 515}, {18, 516}};
    for (const auto& [type, text] : types)
    {
        EXPECT_EQ(PutWith({{5, L"1"}, {11, std::to_wstring(type)}}).Field(10), Text(text)) << type;
    }
    for (const wchar_t* const type : {L"1", L"2", L"10", L"19", L"-7", L"128"})
    {
        EXPECT_EQ(PutWith({{5, L"1"}, {11, type}}).Field(10), Formatted(517, type)) << type;
    }
    EXPECT_EQ(PutWith({{5, L"1"}, {11, L""}}).Field(10), Formatted(517, L"-1"));
}

TEST_F(ZPTLogPFWTest, EveryIcmpv6TypeHasItsTextAndAnyOtherItsNumber)
{
    for (std::size_t type = 128; type <= 153; ++type)
    {
        const std::size_t text = type == 128 ? 359 : type == 129 ? 358 : type == 130 ? 360 : 518 + type - 131;
        EXPECT_EQ(PutWith({{5, L"58"}, {11, std::to_wstring(type)}}).Field(10), Text(static_cast<UINT>(text))) << type;
    }
    for (const wchar_t* const type : {L"127", L"154", L"0", L"-1"})
    {
        EXPECT_EQ(PutWith({{5, L"58"}, {11, type}}).Field(10), Formatted(541, type)) << type;
    }
}

TEST_F(ZPTLogPFWTest, TheTypeOfAnIcmpv6PacketComesBeforeItsEvent)
{
    EXPECT_EQ(PutWith({{1, L"5"}, {5, L"58"}, {11, L"128"}}).Field(10), Text(359));
}

TEST_F(ZPTLogPFWTest, AReasonComesBeforeTheTypeOfAnIcmpPacket)
{
    EXPECT_EQ(PutWith({{1, L"10"}, {2, L"7"}, {5, L"1"}, {11, L"0"}}).Field(10), Text(363));
    EXPECT_EQ(PutWith({{1, L"10"}, {2, L"7"}, {5, L"58"}, {11, L"128"}}).Field(10), Text(363));
}

TEST_F(ZPTLogPFWTest, EveryReasonHasItsText)
{
    for (UINT reason = 1; reason <= 10; ++reason)
    {
        EXPECT_EQ(PutWith({{1, L"10"}, {2, std::to_wstring(reason)}}).Field(10),
                  Text(reason <= 6 ? 496 + reason : 356 + reason))
            << reason;
    }
    for (const wchar_t* const reason : {L"0", L"11", L"-1", L""})
    {
        EXPECT_EQ(PutWith({{1, L"10"}, {2, reason}}).Field(10), Text(371)) << reason;
    }
}

TEST_F(ZPTLogPFWTest, ALineOf15TokensIsRefusedInBothForms)
{
    constexpr std::wstring_view line = L"103015|4|1|2|x|6|2|192.0.2.10|1|::1|2||e|p|r";
    for (const bool fromDatabase : {true, false})
    {
        m_log.m_bUseDBMgr = fromDatabase;
        TraceRecorder trace;
        EXPECT_FALSE(Accepts(line));
        EXPECT_EQ(trace.Errors(),
                  std::vector<std::wstring>{L"CZPTLogBase::PutRecode() - Parsed Result: Log format is invalid!"});
        EXPECT_TRUE(Accepts(std::wstring(line) + L"|"));
    }
}

TEST_F(ZPTLogPFWTest, ALineThatWasCutLeavesNothingToTheNextRecord)
{
    EXPECT_FALSE(Accepts(L"235959|10|7|1|x|1|7|old|old|old|old|8|old|old|old"));
    const LogRec& record = Put(L"103015||||||||||||||||||");
    const std::wstring fields[] = {Text(338), L"10:30:15", L"0",      L"0",      Text(176), Text(489),
                                   Text(176), Text(489),   Text(343), Text(345), Text(371)};
    ASSERT_EQ(record.strData.size(), std::size(fields));
    for (std::size_t i = 0; i < std::size(fields); ++i)
    {
        EXPECT_EQ(record.Field(i), fields[i]) << i;
    }
}

TEST_F(ZPTLogPFWTest, AProtocolIsFoundAgainByItsNameAlone)
{
    const std::pair<UINT, std::uint32_t> names[] = {{357, 58}, {493, 1}, {494, 2}, {495, 6}, {496, 17}};
    for (const auto& [text, protocol] : names)
    {
        EXPECT_EQ(ProtocolFromText(Text(text)), protocol);
    }
    for (const wchar_t* const text : {L"", L"0", L"6", L"47", L"tcp", L"TCP "})
    {
        EXPECT_EQ(ProtocolFromText(text), 0u) << text;
    }
}
