// What the firewall log shows of its records, how it sorts them, and what it keeps of the one that is shown.

#include "framework/ui/kestrix/logs/ZPTLogPFW.h"

#include "tests/support/HeaderOf.h"
#include "tests/support/LogFixture.h"
#include "tests/support/TraceRecorder.h"

#include <algorithm>
#include <vector>

namespace
{

class ShownFirewallLog : public CZPTLogPFW
{
public:
    using CZPTLogPFW::m_Selection;
};

class ZPTLogPFWViewTest : public LogFixture<ShownFirewallLog>
{
protected:
    static std::wstring LineOf(std::wstring_view program, std::wstring_view event = L"4|1|2|x|6|2")
    {
        return L"103015|" + std::wstring(event) + L"|192.0.2.10|49152|192.0.2.20|443||e|" + std::wstring(program) +
               L"|rule|message";
    }

    const LogRec& PutEnds(std::wstring_view local, std::wstring_view localPort, std::wstring_view remote = L"",
                          std::wstring_view remotePort = L"")
    {
        return Put(L"103015|4|1|2|x|6|2|" + std::wstring(local) + L"|" + std::wstring(localPort) + L"|" +
                   std::wstring(remote) + L"|" + std::wstring(remotePort) + L"||e|p|r|m");
    }

    void ExpectBefore(const LogRec& first, const LogRec& second, int column)
    {
        EXPECT_LT(CompareUp(first, second, column), 0) << column;
        EXPECT_GT(CompareUp(second, first, column), 0) << column;
        EXPECT_GT(CompareDown(first, second, column), 0) << column;
        EXPECT_LT(CompareDown(second, first, column), 0) << column;
    }

    void ExpectEqual(const LogRec& first, const LogRec& second, int column)
    {
        EXPECT_EQ(CompareUp(first, second, column), 0) << column;
        EXPECT_EQ(CompareDown(first, second, column), 0) << column;
    }
};

} // namespace

TEST_F(ZPTLogPFWViewTest, SixColumnsShowTimeProtocolAndBothEnds)
{
    const LogRec& record = PutEnds(L"10.0.0.1", L"1", L"10.0.0.2", L"2");
    const std::wstring cells[] = {L"10:30:15", Text(495), L"10.0.0.1", L"1", L"10.0.0.2", L"2", L"before"};
    for (std::size_t column = 0; column < std::size(cells); ++column)
    {
        EXPECT_EQ(Cell(record, static_cast<int>(column)), cells[column]) << column;
    }
}

TEST_F(ZPTLogPFWViewTest, TimeAndProtocolSortAsTexts)
{
    const LogRec& early = Put(L"090000|4|1|2|x|17|2|::1|1|::1|2||e|p|r|m");
    const LogRec& late = Put(L"103015|4|1|2|x|47|2|::1|1|::1|2||e|p|r|m");
    ExpectBefore(early, late, 0);
    ExpectBefore(late, early, 1);
    ExpectEqual(early, early, 0);
}

TEST_F(ZPTLogPFWViewTest, PortsSortAsNumbersAndATextThatIsNoneAs0)
{
    ExpectBefore(PutEnds(L"", L"80"), PutEnds(L"", L"443"), 3);
    ExpectBefore(PutEnds(L"", L""), PutEnds(L"", L"1"), 3);
    ExpectBefore(PutEnds(L"", L"-1"), PutEnds(L"", L""), 3);
    ExpectEqual(PutEnds(L"", L"0"), PutEnds(L"", L""), 3);
    ExpectBefore(PutEnds(L"", L"", L"", L"9"), PutEnds(L"", L"", L"", L"10"), 5);
    ExpectEqual(PutEnds(L"", L"", L"", L"4294967295"), PutEnds(L"", L"", L"", L"2147483647"), 5);
}

TEST_F(ZPTLogPFWViewTest, AddressesSortByTheirOctetsAndThoseWithAColonAfterThem)
{
    for (const int column : {2, 4})
    {
        const LogRec& two = PutEnds(L"10.0.0.2", L"1", L"10.0.0.2");
        const LogRec& ten = PutEnds(L"10.0.0.10", L"1", L"10.0.0.10");
        const LogRec& colon = PutEnds(L"::1", L"1", L"::1");
        ExpectBefore(two, ten, column);
        ExpectBefore(ten, colon, column);
        ExpectBefore(two, colon, column);
        ExpectEqual(colon, PutEnds(L"::1", L"1", L"::1"), column);
        ExpectBefore(colon, PutEnds(L"::2", L"1", L"::2"), column);
        ExpectEqual(PutEnds(L"", L"", L""), PutEnds(L"255.255.255.255", L"", L"255.255.255.255"), column);
        ExpectBefore(PutEnds(L" ", L"", L" "), two, column);
    }
}

TEST_F(ZPTLogPFWViewTest, TheLocalAddressSortsAsTheRecordShowsIt)
{
    const LogRec& marker = PutEnds(L"LIP", L"1");
    m_log.SetLocalAddress(L"10.0.0.2");
    const LogRec& local = PutEnds(L"LIP", L"1");
    const LogRec& ten = PutEnds(L"10.0.0.10", L"1");
    ExpectBefore(local, ten, 2);
    ExpectBefore(ten, marker, 2);
}

TEST_F(ZPTLogPFWViewTest, AColumnAbove5ComparesEqual)
{
    ExpectEqual(PutEnds(L"10.0.0.1", L"1"), PutEnds(L"10.0.0.2", L"2"), 6);
    ExpectEqual(PutEnds(L"10.0.0.1", L"1"), PutEnds(L"10.0.0.2", L"2"), -1);
}

TEST_F(ZPTLogPFWViewTest, TheDetailPaneHasFourRows)
{
    const std::wstring longer(250, L'x');
    const InfoPaneDouble& pane =
        Show(L"103015|5|1|2|x|6|2|::1|1|::1|2||e|p" + longer + L"|r" + longer + L"|m" + longer);
    const InfoPaneDouble::Row rows[] = {
        {Text(478), Text(491), L"", true, false, true, false},
        {Text(486), m_log.TruncateText(L"p" + longer), L"p" + longer, true, false, true, false},
        {Text(487), m_log.TruncateText(L"r" + longer), L"r" + longer, true, false, true, false},
        {Text(488), m_log.TruncateText(L"m" + longer), L"m" + longer, true, false, true, false},
        {L"", L"", L"", false, false, false, false},
        {L"", L"", L"", false, false, false, false},
        {L"", L"", L"", false, false, false, false},
    };
    for (std::size_t row = 0; row < std::size(rows); ++row)
    {
        EXPECT_EQ(pane[row], rows[row]) << row;
    }
}

TEST_F(ZPTLogPFWViewTest, TheShownRecordIsTheSelectionUntilTheNextOne)
{
    EXPECT_TRUE(m_log.m_Selection.szAppPath.empty());
    TraceRecorder trace;
    Show(LineOf(L"C:\\a.exe"));
    EXPECT_EQ(m_log.m_Selection.szAppPath, L"C:\\a.exe");
    EXPECT_EQ(m_log.m_Selection.nDirection, 2u);
    EXPECT_EQ(m_log.m_Selection.nProtocol, 6u);
    const auto traces = trace.Texts(VdCommon::TraceLevel::Info);
    EXPECT_TRUE(std::ranges::count(traces, L"CZPTLogPFW::SetLogInfo Protocol[6], Direction[2], AppPath[C:\\a.exe]"));
    Put(LineOf(L"C:\\b.exe"));
    EXPECT_EQ(m_log.m_Selection.szAppPath, L"C:\\a.exe");
    Show(LineOf(L"", L"4|1|1|x|47|2"));
    EXPECT_EQ(m_log.m_Selection.szAppPath, L"");
    EXPECT_EQ(m_log.m_Selection.nDirection, 1u);
    EXPECT_EQ(m_log.m_Selection.nProtocol, 0u) << "the record shows a bare number";
}

TEST_F(ZPTLogPFWViewTest, TheSelectionKeeps259CharactersOfAPath)
{
    const std::wstring path = L"C:\\" + std::wstring(400, L'x');
    Show(LineOf(path));
    EXPECT_EQ(m_log.m_Selection.szAppPath, path.substr(0, 259));
}

TEST_F(ZPTLogPFWViewTest, ABlockedProgramCanBeAllowed)
{
    EXPECT_EQ(m_pane.AllowRule(), std::nullopt);
    Show(LineOf(L"C:\\a.exe"));
    EXPECT_EQ(m_pane.AllowRule(), true);
}

TEST_F(ZPTLogPFWViewTest, WithoutAProgramThereIsNothingToAllow)
{
    Show(LineOf(L""));
    EXPECT_EQ(m_pane[1].text, Text(343));
    EXPECT_EQ(m_log.m_Selection.szAppPath, L"");
    EXPECT_EQ(m_pane.AllowRule(), false);
    std::wstring inCapitals = Text(343);
    CharUpperW(inCapitals.data());
    Show(LineOf(inCapitals));
    EXPECT_EQ(m_log.m_Selection.szAppPath, L"");
    EXPECT_EQ(m_pane.AllowRule(), false);
}

TEST_F(ZPTLogPFWViewTest, TheSystemCannotBeAllowedHoweverItIsWritten)
{
    for (const wchar_t* const program : {L"system", L"System", L"SYSTEM"})
    {
        Show(LineOf(program));
        EXPECT_EQ(m_pane.AllowRule(), false) << program;
    }
    Show(LineOf(L"System32"));
    EXPECT_EQ(m_pane.AllowRule(), true);
}

TEST_F(ZPTLogPFWViewTest, WhatIsAllowedAlreadyHasNoButton)
{
    Show(LineOf(L"C:\\a.exe", L"4|1|2|x|6|1"));
    EXPECT_EQ(m_pane[0].text, Text(342));
    EXPECT_EQ(m_pane.AllowRule(), false);
}

TEST_F(ZPTLogPFWViewTest, WithoutARecordOrAPageNothingIsShownNorSelected)
{
    m_log.SetLogInfo(nullptr);
    LogRec& record = Put(LineOf(L"C:\\a.exe"));
    m_log.SetInfoDialog(nullptr);
    m_log.SetLogInfo(&record);
    EXPECT_TRUE(m_pane.IsUntouched());
    EXPECT_TRUE(m_log.m_Selection.szAppPath.empty());
}

TEST_F(ZPTLogPFWViewTest, TheExportHasALabelForEachFieldButTheDirection)
{
    EXPECT_EQ(LabelLine(), HeaderOfTexts({294, 608, 612, 482, 483, 484, 485, 615, 616, 617}));
}
