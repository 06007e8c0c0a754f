#include "framework/ui/kestrix/logs/ZPTLogVST.h"

#include "tests/support/HeaderOf.h"
#include "tests/support/LogFixture.h"

namespace
{

// The log with the values that no record shows.
class OpenVstLog : public CZPTLogVST
{
public:
    using CZPTLogVST::m_bRecordDone;
    using CZPTLogVST::m_nSource;
    using CZPTLogVST::m_nSourceCode;
    using CZPTLogVST::m_szToken8;
};

class ZPTLogVSTTest : public LogFixture<OpenVstLog>
{
protected:
    static std::wstring LineOf(std::wstring_view kind, std::wstring_view result, std::wstring_view detector)
    {
        return L"x|103015|0x10000000|3|4|C:\\a.exe|" + std::wstring(kind) + L"|item|8|9|name|11|" +
               std::wstring(result) + L"|" + std::wstring(detector);
    }
};

} // namespace

TEST_F(ZPTLogVSTTest, ALineHasNineFieldsAndNoIconOfItsOwn)
{
    const LogRec& record = Put(LineOf(L"2", L"1", L"rules"));
    const std::wstring fields[] = {L"10:30",  Text(299), L"name",   L"item", L"C:\\a.exe",
                                   Text(301), L"name",   Text(571), L"rules"};
    ASSERT_EQ(record.strData.size(), std::size(fields));
    for (std::size_t i = 0; i < std::size(fields); ++i)
    {
        EXPECT_EQ(record.Field(i), fields[i]) << i;
    }
    EXPECT_EQ(record.nImage, 0u);
}

TEST_F(ZPTLogVSTTest, TheSourceIsANumberOfAnyBaseAndOnlyTheBehaviorMonitorHasAText)
{
    for (const wchar_t* const source : {L"0x10000000", L"268435456", L" 0X10000000 ", L"02000000000"})
    {
        EXPECT_EQ(Put(L"x|103015|" + std::wstring(source) + L"|3|4|5|6|7|8|9|10|11|12|13").Field(1), Text(299))
            << source;
        EXPECT_EQ(m_log.m_nSourceCode, 0u);
    }
    EXPECT_EQ(Put(L"x|103015|0x20|3|4|5|6|7|8|9|10|11|12|13").Field(1), L"");
    EXPECT_EQ(m_log.m_nSourceCode, 0x20u);
    EXPECT_EQ(m_log.m_nSource, 0u) << "between records";
}

TEST_F(ZPTLogVSTTest, EveryResultHasItsText)
{
    const std::pair<const wchar_t*, UINT> results[] = {{L"0", 303}, {L"1", 301},  {L"2", 302},          {L"3", 103},
                                                       {L"9", 300}, {L"-1", 300}, {L"4294967297", 300}, {L"", 303}};
    for (const auto& [result, text] : results)
    {
        EXPECT_EQ(Put(LineOf(L"1", result, L"d")).Field(5), Text(text)) << result;
    }
}

TEST_F(ZPTLogVSTTest, ResultCode3HasATextOfItsOwnAndResultCode9TheUnknownOne)
{
    EXPECT_EQ(Put(LineOf(L"1", L"3", L"d")).Field(5), Text(103));
    EXPECT_EQ(Put(LineOf(L"1", L"9", L"d")).Field(5), Text(300));
}

TEST_F(ZPTLogVSTTest, EveryKindHasItsTextAndAnyOtherNone)
{
    const std::pair<const wchar_t*, UINT> kinds[] = {{L"1", 299},  {L"2", 571},  {L"4", 572}, {L"8", 573},
                                                     {L"16", 568}, {L"32", 569}, {L"64", 570}};
    for (const auto& [kind, text] : kinds)
    {
        EXPECT_EQ(Put(LineOf(kind, L"0", L"d")).Field(7), Text(text)) << kind;
    }
    for (const wchar_t* const kind : {L"0", L"3", L"128", L"-1", L""})
    {
        EXPECT_EQ(Put(LineOf(kind, L"0", L"d")).Field(7), L"") << kind;
    }
}

TEST_F(ZPTLogVSTTest, AMarkerOfTheProductIsReplacedByItsTextAndTheRecordKeepsNineFields)
{
    EXPECT_EQ(Put(LineOf(L"1", L"0", L"__ZPT_SELF_PROTECT__")).Field(8), Text(767));
    const LogRec& record = Put(LineOf(L"1", L"0", L"__ZPT_USER_DEFINED__"));
    EXPECT_EQ(record.Field(8), Text(768));
    EXPECT_EQ(record.strData.size(), 9u);
}

TEST_F(ZPTLogVSTTest, AMarkerIsComparedExactlyAndWhole)
{
    for (const std::wstring detector :
         {L"__zpt_user_defined__", L"__ZPT_USER_DEFINED__ ", L"__ZPT_USER_DEFINED_", L"__ZPT_SELF_PROTECT__x", L""})
    {
        EXPECT_EQ(Put(LineOf(L"1", L"0", detector)).Field(8), detector);
    }
}

TEST_F(ZPTLogVSTTest, Token8IsDecoded)
{
    Put(L"x|103015|1|3|4|5|6|7|a%Ib|9|10|11|12|13");
    EXPECT_EQ(m_log.m_szToken8, L"a|b");
}

TEST_F(ZPTLogVSTTest, TextsAreCutAtTheRoomOfTheirWriter)
{
    const std::wstring longer(400, L'x');
    const LogRec& record = Put(L"x|103015|1|3|" + longer + L"|" + longer + L"|6|" + longer + L"|" + longer + L"|" +
                               longer + L"|" + longer + L"|11|12|" + longer);
    const std::pair<std::size_t, std::size_t> limits[] = {{2, 260}, {3, 388}, {4, 260}, {6, 260}, {8, 260}};
    for (const auto& [field, characters] : limits)
    {
        EXPECT_EQ(record.Field(field), longer.substr(0, characters)) << field;
    }
    EXPECT_EQ(m_log.m_szToken8.size(), 260u);
}

TEST_F(ZPTLogVSTTest, ALineOf13TokensIsRefusedInBothForms)
{
    constexpr std::wstring_view line = L"x|103015|1|3|4|5|6|7|8|9|10|11|12";
    EXPECT_FALSE(Accepts(line));
    UseFiles();
    EXPECT_FALSE(Accepts(line));
    EXPECT_TRUE(Accepts(std::wstring(line) + L"|"));
}

TEST_F(ZPTLogVSTTest, TokensAfterTheLastAreIgnored)
{
    EXPECT_EQ(Put(LineOf(L"1", L"0", L"d") + L"|more|and more").strData.size(), 9u);
}

// The next line is read from its beginning, other than in the spyware log.
TEST_F(ZPTLogVSTTest, ALineThatWasCutLeavesNothingToTheNextRecord)
{
    EXPECT_FALSE(Accepts(L"x|2359|0x10000000|3|4|old|1|old|8|9|old|11"));
    const LogRec& record = Put(L"x|103015|1|||||||||||");
    EXPECT_EQ(record.Field(0), L"10:30");
    EXPECT_EQ(record.Field(1), L"");
    for (const std::size_t field : {2, 3, 4, 6, 7, 8})
    {
        EXPECT_EQ(record.Field(field), L"") << field;
    }
}

TEST_F(ZPTLogVSTTest, TheFormOfTheBehaviorMonitorIsTakenWhereItIsAskedFor)
{
    LogRec record(std::pmr::new_delete_resource());
    record.AppendLasting(L"10:30");
    record.AppendLasting({});
    m_log.m_nSource = 1;
    UseFiles();
    const wchar_t* const tokens[] = {L"", L"", L"", L"", L"2", L"", L"", L"", L"program", L"2", L"", L"", L"4", L""};
    for (std::size_t i = 0; i < std::size(tokens); ++i)
    {
        m_log.MakeRecodeMBD(i, tokens[i], record);
    }
    EXPECT_EQ(std::vector<std::wstring_view>(record.strData.begin(), record.strData.end()),
              (std::vector<std::wstring_view>{L"10:30", L"", Text(306), L"program", Text(311), Text(301)}));
    EXPECT_EQ(m_log.m_nSource, 1u);
    m_log.MakeRecodeMBD(14, L"", record);
    EXPECT_EQ(m_log.m_nSource, 0u);
}

TEST_F(ZPTLogVSTTest, TheOutcomeOfTheBehaviorMonitorCompletesARecordOfAFileAlone)
{
    LogRec record(std::pmr::new_delete_resource());
    m_log.m_bRecordDone = false;
    m_log.MakeRecodeMBD(12, L"1", record);
    EXPECT_FALSE(m_log.m_bRecordDone);
    UseFiles();
    m_log.MakeRecodeMBD(11, L"", record);
    EXPECT_FALSE(m_log.m_bRecordDone);
    m_log.MakeRecodeMBD(12, L"1", record);
    EXPECT_TRUE(m_log.m_bRecordDone);
}

TEST_F(ZPTLogVSTTest, TheColumnsShowTimeResultAndProgramAndSortByThem)
{
    const LogRec& early = Put(L"x|0900|1|3|4|Zeta|6|7|8|9|10|11|0|13");
    const LogRec& late = Put(L"x|1030|1|3|4|alpha|6|7|8|9|10|11|1|13");
    EXPECT_EQ(Cell(late, 0), L"10:30");
    EXPECT_EQ(Cell(late, 1), Text(301));
    EXPECT_EQ(Cell(late, 2), L"alpha");
    EXPECT_EQ(Cell(late, 3), L"before");
    EXPECT_TRUE(IsBefore(early, late, 0));
    ASSERT_LT(Text(303), Text(301));
    EXPECT_TRUE(IsBefore(early, late, 1));
    EXPECT_TRUE(IsBefore(early, late, 2)) << "capital letters come first";
    EXPECT_EQ(CompareUp(early, late, 9), 0);
}

TEST_F(ZPTLogVSTTest, TheDetailPaneHasFiveRowsWithToolTipsWhereTextsAreCut)
{
    const std::wstring longer(200, L'x');
    const std::wstring cut = m_log.TruncateText(longer);
    ASSERT_NE(cut, longer);
    const InfoPaneDouble& pane = Show(L"x|103015|1|3|4|p" + longer + L"|2|i" + longer + L"|8|9|10|11|0|d" + longer);
    const InfoPaneDouble::Row rows[] = {
        {Text(427), Text(571), L"", true, false, true},
        {Text(765), m_log.TruncateText(L"i" + longer), L"i" + longer, true, false, true},
        {Text(173), m_log.TruncateText(L"p" + longer), L"p" + longer, true, false, true},
        {Text(574), m_log.TruncateText(L"d" + longer), L"d" + longer, true, false, true},
        {Text(431), Text(303), L"", true, false, true},
        {Text(431), L"", L"", false, false, false},
        {L"", L"", L"", false, false, false},
    };
    for (std::size_t row = 0; row < std::size(rows); ++row)
    {
        EXPECT_EQ(pane[row], rows[row]) << row;
    }
    EXPECT_EQ(m_log.GetInfoText(), L"p" + longer);
}

TEST_F(ZPTLogVSTTest, AKindThatIsNoneAndAnEmptyItemAreShownAsNotAvailable)
{
    const InfoPaneDouble& pane = Show(L"x|103015|1|3|4||3||8|9|10|11|0|13");
    EXPECT_EQ(pane[0].text, Text(769));
    EXPECT_EQ(pane[1].text, Text(769));
    EXPECT_EQ(pane[1].toolTip, Text(769));
    EXPECT_EQ(pane[2].text, L"");
}

TEST_F(ZPTLogVSTTest, TheExportHasALabelForEachOfNineFields)
{
    EXPECT_EQ(LabelLine(), HeaderOfTexts({432, 294, 580, 581, 172, 385, 582, 583, 584}));
}
