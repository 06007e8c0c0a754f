// What the spyware log makes of lines, and its columns and labels.

#include "framework/ui/kestrix/logs/ZPTLogSpyware.h"

#include "tests/support/HeaderOf.h"
#include "tests/support/LogFixture.h"

#include <vector>

namespace
{

using Fields = std::vector<std::wstring_view>;

constexpr wchar_t ScanLine[] = L"x|103015|0x100000|3|4|a.exe|C:\\dir|7|8|9|Adware|11|1|Toolbar|detail";

class OpenSpywareLog : public CZPTLogSpyware
{
public:
    using CZPTLogSpyware::m_nSource;
    using CZPTLogSpyware::m_nSourceCode;
    using CZPTLogSpyware::m_szToken7;
};

class ZPTLogSpywareTest : public LogFixture<OpenSpywareLog>
{
protected:
    static Fields FieldsOf(const LogRec& record) { return {record.strData.begin(), record.strData.end()}; }

    static std::wstring ScanLineOf(std::wstring_view source, std::wstring_view result)
    {
        return L"x|103015|" + std::wstring(source) + L"|3|4|a.exe|C:\\dir|7|8|9|Adware|11|" + std::wstring(result) +
               L"|Toolbar|detail";
    }

    static std::wstring ProxyLineOf(std::wstring_view source, std::wstring_view action, std::wstring_view result)
    {
        return L"x|103015|" + std::wstring(source) + L"|3|name|text|item|" + std::wstring(action) + L"|" +
               std::wstring(result) + L"|detail";
    }

    static std::wstring BehaviorLineOf(std::wstring_view kind, std::wstring_view count, std::wstring_view target,
                                       std::wstring_view outcome)
    {
        return L"x|103015|0x10000000|3|" + std::wstring(kind) + L"|5|6|7|program|" + std::wstring(count) + L"|10|" +
               std::wstring(target) + L"|" + std::wstring(outcome) + L"|13|14|rule";
    }

    // The first nine tokens are in all forms alike: words without a meaning.
    bool AcceptsTokens(std::wstring_view source, std::size_t count)
    {
        std::wstring line = L"x|103015|" + std::wstring(source);
        for (std::size_t token = 3; token < count; ++token)
        {
            line += L"|t";
        }
        return Accepts(line);
    }
};

} // namespace

TEST_F(ZPTLogSpywareTest, AScanFormLine)
{
    const LogRec& record = Put(ScanLine);
    EXPECT_EQ(FieldsOf(record), (Fields{L"10:30", L"", L"Adware", L"C:\\dir", L"a.exe", Text(316), L"Adware", Text(147),
                                        L"Toolbar", L"detail"}));
    EXPECT_EQ(record.nImage, 4u);
    EXPECT_EQ(m_log.m_nSource, 0u);
    EXPECT_EQ(m_log.m_nSourceCode, 0x100000u);
}

TEST_F(ZPTLogSpywareTest, AProxyFormLineOfEachSource)
{
    EXPECT_EQ(FieldsOf(Put(ProxyLineOf(L"1", L"4", L"1"))),
              (Fields{L"10:30", L"", L"name", L"item", L"text", Text(800), L"name", Text(144), Text(152), L"detail"}));
    EXPECT_EQ(FieldsOf(Put(ProxyLineOf(L"2", L"4", L"0"))),
              (Fields{L"10:30", L"", L"name", L"item", L"text", Text(801), L"name", Text(145), Text(152), L"detail"}));
    EXPECT_EQ(FieldsOf(Put(ProxyLineOf(L"3", L"101", L"1"))),
              (Fields{L"10:30", L"", L"name", L"", L"text", Text(808), L"name", Text(146), Text(153), L"detail"}));
    EXPECT_EQ(m_log.GetLogRecord(2)->nImage, 0u);
    EXPECT_EQ(m_log.m_nSource, 0u);
}

TEST_F(ZPTLogSpywareTest, ALineOfTheBehaviorMonitor)
{
    const LogRec& record = Put(BehaviorLineOf(L"4", L"2", L"", L"1"));
    EXPECT_EQ(FieldsOf(record), (Fields{L"10:30", Text(299), Text(307), L"program", Text(311), Text(302), L"rule"}));
    EXPECT_EQ(record.nImage, 0u);
    EXPECT_EQ(m_log.m_nSource, 0u);
    EXPECT_EQ(m_log.m_nSourceCode, 0u);
}

TEST_F(ZPTLogSpywareTest, TheSourceOfTheBehaviorMonitorSelectsItsFormAndSource0LeavesTheLineInvalid)
{
    EXPECT_EQ(Put(BehaviorLineOf(L"1", L"0", L"", L"1")).Field(1), Text(299));
    std::wstring decimal = BehaviorLineOf(L"1", L"0", L"", L"1");
    decimal.replace(decimal.find(L"0x10000000"), 10, L"268435456");
    EXPECT_EQ(Put(decimal).Field(1), Text(299));
    for (const wchar_t* const source : {L"0", L"", L"word", L"0x"})
    {
        EXPECT_FALSE(AcceptsTokens(source, 20)) << source;
    }
}

TEST_F(ZPTLogSpywareTest, EveryResultOfAScanHasItsTextAndIcon)
{
    struct
    {
        const wchar_t* code;
        UINT text;
        std::uint32_t icon;
    } const cases[] = {{L"1", 316, 4}, {L"2", 812, 1}, {L"3", 813, 3}};

    for (const auto& each : cases)
    {
        const LogRec& record = Put(ScanLineOf(L"0x100000", each.code));
        EXPECT_EQ(record.Field(5), Text(each.text)) << each.code;
        EXPECT_EQ(record.nImage, each.icon) << each.code;
    }
    for (const wchar_t* const code : {L"0", L"4", L"-1", L"", L"99999999999"})
    {
        const LogRec& record = Put(ScanLineOf(L"0x100000", code));
        EXPECT_EQ(record.Field(5), L"") << code;
        EXPECT_EQ(record.nImage, 3u) << code;
    }
}

TEST_F(ZPTLogSpywareTest, ScanResult2IsTheTextOfARemovalWithIcon1)
{
    const LogRec& record = Put(ScanLineOf(L"0x100001", L"2"));
    EXPECT_EQ(record.Field(5), Text(812));
    EXPECT_EQ(record.nImage, 1u);
}

TEST_F(ZPTLogSpywareTest, EveryScannerHasItsTextAndAnUnknownOneTwoBlanks)
{
    const std::pair<const wchar_t*, std::wstring> sources[] = {
        {L"0x100000", Text(147)}, {L"1048577", Text(148)}, {L"0x100003", Text(149)}, {L"4", L"  "}, {L"-1", L"  "}};
    for (const auto& [source, text] : sources)
    {
        EXPECT_EQ(Put(ScanLineOf(source, L"1")).Field(7), text) << source;
    }
}

TEST_F(ZPTLogSpywareTest, EveryActionOfAProxyHasATextForItsResult)
{
    struct
    {
        const wchar_t* code;
        UINT done;
        UINT failed;
    } const actions[] = {{L"0", 317, 317}, {L"3", 806, 807}, {L"4", 800, 801}, {L"101", 808, 809}, {L"201", 810, 811}};

    for (const auto& action : actions)
    {
        for (const wchar_t* const source : {L"1", L"2"})
        {
            EXPECT_EQ(Put(ProxyLineOf(source, action.code, L"1")).Field(5), Text(action.done)) << action.code;
            EXPECT_EQ(Put(ProxyLineOf(source, action.code, L"0")).Field(5), Text(action.failed)) << action.code;
            EXPECT_EQ(Put(ProxyLineOf(source, action.code, L"2")).Field(5), Text(action.failed)) << action.code;
        }
    }
    for (const wchar_t* const code : {L"1", L"2", L"5", L"200", L"-1"})
    {
        EXPECT_EQ(Put(ProxyLineOf(L"1", code, L"1")).Field(5), L"") << code;
    }
}

// Whether a download was stopped is told by the result of the last mail.
TEST_F(ZPTLogSpywareTest, Action201OfTheWebTakesItsResultFromTheMailRecordBeforeIt)
{
    EXPECT_EQ(Put(ProxyLineOf(L"3", L"201", L"1")).Field(5), Text(811)) << "no mail yet";
    Put(ProxyLineOf(L"1", L"0", L"1"));
    EXPECT_EQ(Put(ProxyLineOf(L"3", L"201", L"0")).Field(5), Text(810));
    Put(ProxyLineOf(L"2", L"0", L"0"));
    EXPECT_EQ(Put(ProxyLineOf(L"3", L"201", L"1")).Field(5), Text(811));
    EXPECT_EQ(Put(ProxyLineOf(L"3", L"101", L"1")).Field(5), Text(808)) << "other actions have their own result";
}

TEST_F(ZPTLogSpywareTest, AnotherLogKnowsNothingOfTheMailBeforeIt)
{
    Put(ProxyLineOf(L"1", L"0", L"1"));
    EXPECT_FALSE(AcceptsTokens(L"0x10000000", 5));
    OpenSpywareLog other;
    EXPECT_TRUE(other.PutRecode(ProxyLineOf(L"3", L"201", L"1"), CZPTLogBase::AnyLine));
    EXPECT_EQ(other.GetLogText(0, 0), L"10:30");
    EXPECT_EQ(other.GetLogText(0, 5), Text(811));
}

TEST_F(ZPTLogSpywareTest, EveryKindCountAndOutcomeOfTheBehaviorMonitorHasItsText)
{
    const std::pair<const wchar_t*, UINT> kinds[] = {{L"1", 305},  {L"2", 306},  {L"4", 307},  {L"8", 308},
                                                     {L"16", 309}, {L"32", 310}, {L"64", 182}, {L"0", 300},
                                                     {L"3", 300},  {L"", 300},   {L"-1", 300}, {L"128", 300}};
    for (const auto& [kind, text] : kinds)
    {
        EXPECT_EQ(Put(BehaviorLineOf(kind, L"0", L"", L"1")).Field(2), Text(text)) << kind;
    }
    const std::pair<const wchar_t*, UINT> counts[] = {{L"0", 304}, {L"2", 311}, {L"3", 300}, {L"-1", 300}, {L"", 304}};
    for (const auto& [count, text] : counts)
    {
        EXPECT_EQ(Put(BehaviorLineOf(L"1", count, L"", L"1")).Field(4), Text(text)) << count;
    }
    const std::pair<const wchar_t*, UINT> outcomes[] = {
        {L"1", 302}, {L"2", 303}, {L"4", 301}, {L"0", 300}, {L"3", 300}};
    for (const auto& [outcome, text] : outcomes)
    {
        EXPECT_EQ(Put(BehaviorLineOf(L"1", L"0", L"", outcome)).Field(5), Text(text)) << outcome;
    }
}

TEST_F(ZPTLogSpywareTest, OneTargetIsNamed)
{
    std::wstring expected = Text(312);
    ASSERT_NE(expected.find(L"%s"), expected.npos);
    expected.replace(expected.find(L"%s"), 2, L"hosts 100%s");
    EXPECT_EQ(Put(BehaviorLineOf(L"1", L"1", L"hosts 100%s", L"1")).Field(4), expected);
}

TEST_F(ZPTLogSpywareTest, OneTargetWithoutANameIsNoTarget)
{
    const LogRec& record = Put(BehaviorLineOf(L"1", L"1", L"", L"1"));
    EXPECT_EQ(record.Field(4), Text(304));
    EXPECT_EQ(record.Field(5), Text(302));
}

TEST_F(ZPTLogSpywareTest, WithoutATargetItsNameAppendsNothing)
{
    const LogRec& record = Put(BehaviorLineOf(L"1", L"0", L"hosts", L"1"));
    EXPECT_EQ(record.Field(4), Text(304));
    EXPECT_EQ(record.Field(5), Text(302));
    EXPECT_EQ(record.strData.size(), 7u);
}

TEST_F(ZPTLogSpywareTest, TextsAreCutAtTheRoomOfTheirWriter)
{
    const std::wstring longer(600, L'x');
    const auto length = [](const LogRec& record, std::size_t field) { return record.Field(field).size(); };
    const LogRec& scan = Put(L"x|103015|4|3|" + longer + L"|" + longer + L"|" + longer + L"|" + longer + L"|" + longer +
                             L"|9|" + longer + L"|11|1|" + longer + L"|" + longer);
    EXPECT_EQ(length(scan, 2), 260u);
    EXPECT_EQ(length(scan, 3), 388u);
    EXPECT_EQ(length(scan, 4), 260u);
    EXPECT_EQ(length(scan, 8), 260u);
    EXPECT_EQ(length(scan, 9), 600u) << "the detail is whole";
    EXPECT_EQ(m_log.m_szToken7.size(), 260u);

    const std::size_t itemLimits[] = {127, 511, 0};
    const std::size_t textLimits[] = {511, 511, 512};
    for (std::size_t source = 1; source <= 3; ++source)
    {
        const LogRec& proxy = Put(L"x|103015|" + std::to_wstring(source) + L"|3|" + longer + L"|" + longer + L"|" +
                                  longer + L"|4|1|" + longer);
        EXPECT_EQ(length(proxy, 2), 127u) << source;
        EXPECT_EQ(length(proxy, 3), itemLimits[source - 1]) << source;
        EXPECT_EQ(length(proxy, 4), textLimits[source - 1]) << source;
        EXPECT_EQ(length(proxy, 6), 127u) << source;
        EXPECT_EQ(length(proxy, 9), 600u) << source;
    }
}

TEST_F(ZPTLogSpywareTest, Token7OfTheScanFormIsDecoded)
{
    Put(L"x|103015|4|3|4|5|6|a%Ib|8|9|10|11|1|13|14");
    EXPECT_EQ(m_log.m_szToken7, L"a|b");
}

// The last token of each form is that of the provider; a daily file may lack it.
TEST_F(ZPTLogSpywareTest, EachFormIsCompleteAtALastTokenOfItsOwn)
{
    struct
    {
        const wchar_t* source;
        std::size_t fileTokens;
        std::size_t providerTokens;
    } const forms[] = {{L"0x10000000", 13, 16}, {L"1", 9, 10}, {L"2", 9, 10}, {L"3", 9, 10}, {L"0x100000", 14, 15}};

    for (const auto& form : forms)
    {
        for (const bool fromDatabase : {true, false})
        {
            const std::size_t tokens = fromDatabase ? form.providerTokens : form.fileTokens;
            for (const bool isComplete : {false, true})
            {
                m_log.m_nSource = 0;
                m_log.m_bUseDBMgr = fromDatabase;
                EXPECT_EQ(AcceptsTokens(form.source, tokens - (isComplete ? 0 : 1)), isComplete)
                    << form.source << (fromDatabase ? " of the database" : " of a file");
            }
        }
    }
}

// A source that a line left takes the tokens of the next: that has no time, no source and no form of its own.
TEST_F(ZPTLogSpywareTest, ALineThatEndsBeforeItsLastTokenLeavesItsSourceToTheNext)
{
    UseFiles();
    const std::wstring fileLine = L"x|103015|0x100000|3|4|a.exe|C:\\dir|7|8|9|Adware|11|1|Toolbar";
    Put(fileLine);
    EXPECT_EQ(m_log.m_nSource, 0x100000u);
    EXPECT_EQ(FieldsOf(Put(fileLine)),
              (Fields{L"Adware", L"C:\\dir", L"a.exe", Text(316), L"Adware", Text(147), L"Toolbar"}));
    EXPECT_FALSE(Accepts(ProxyLineOf(L"1", L"4", L"1"))) << "read in the scan form, it is too short";
    Put(fileLine + L"|detail");
    EXPECT_EQ(Put(ProxyLineOf(L"1", L"4", L"1")).Field(0), L"10:30");
}

TEST_F(ZPTLogSpywareTest, AnInvalidLineLeavesItsSourceAndItsValues)
{
    EXPECT_FALSE(Accepts(L"x|0900|1|3|old name|old text|old item|4|1"));
    EXPECT_EQ(m_log.m_nSource, 1u);
    EXPECT_EQ(FieldsOf(Put(L"x|103015|3|3|name|text|item|4|0|detail")),
              (Fields{L"name", L"item", L"text", Text(801), L"name", Text(144), Text(152), L"detail"}));
}

TEST_F(ZPTLogSpywareTest, ADetailStaysForProxyLinesOfAFileThatHaveNone)
{
    Put(ScanLine);
    UseFiles();
    EXPECT_EQ(Put(L"x|103015|1|3|name|text|item|4|1").Field(9), L"detail");
    EXPECT_EQ(Put(L"x|103015|1|3|name|text|item|4|1|").Field(9), L"");
}

TEST_F(ZPTLogSpywareTest, TheColumnsShowTimeResultAndThreatAndSortByThem)
{
    const LogRec& early = Put(L"x|0900|4|3|4|5|6|7|8|9|Zeta|11|1|13|14");
    const LogRec& late = Put(L"x|1030|4|3|4|5|6|7|8|9|alpha|11|2|13|14");
    EXPECT_EQ(Cell(late, 0), L"10:30");
    EXPECT_EQ(Cell(late, 1), Text(812));
    EXPECT_EQ(Cell(late, 2), L"alpha");
    EXPECT_EQ(Cell(late, 3), L"before");
    EXPECT_TRUE(IsBefore(early, late, 0));
    ASSERT_LT(Text(316), Text(812));
    EXPECT_TRUE(IsBefore(early, late, 1));
    EXPECT_TRUE(IsBefore(early, late, 2)) << "capital letters come first";
    EXPECT_EQ(CompareUp(early, late, 10), 0);
}

TEST_F(ZPTLogSpywareTest, ARecordOfTheBehaviorMonitorFromAFileHasNoThreatAndRaisesTheRangeError)
{
    UseFiles();
    const LogRec& record = Put(L"x|103015|0x10000000|3|4|5|6|7|program|0|10|11|1");
    EXPECT_EQ(Cell(record, 1), Text(302));
    EXPECT_THROW(Cell(record, 2), std::out_of_range);
}

TEST_F(ZPTLogSpywareTest, TheExportHasALabelForEachOfTenFields)
{
    std::wstring detail = Text(89);
    ASSERT_NE(detail.find(L':'), detail.npos) << "nothing to remove, so the test would say nothing";
    std::erase(detail, L':');
    EXPECT_EQ(LabelLine(), HeaderOf({Text(180), Text(294), Text(81), Text(577), Text(599), Text(298), Text(81),
                                     Text(183), Text(194), detail}));
}
