#include "framework/ui/kestrix/logs/ZPTLogUpdate.h"

#include "tests/support/TraceRecorder.h"
#include "tests/unit/framework/ui/kestrix/logs/LogClassTest.h"
#include "tests/unit/framework/ui/kestrix/logs/UpdateNumbers.h"

namespace
{

class ZPTLogUpdateTest : public LogClassTest<CZPTLogUpdate>
{
protected:
    // Codes above 0x7FFFFFFF stand in lines as negative numbers.
    static std::wstring Number(std::uint32_t code) { return std::to_wstring(static_cast<std::int32_t>(code)); }

    static std::wstring Line(int group, std::uint32_t event, int kind = 1, std::uint32_t code = 0)
    {
        return L"x|103015|" + std::to_wstring(group) + L"|" + Number(event) + L"|" + std::to_wstring(kind) + L"|" +
               Number(code) + L"|before|after";
    }

    std::wstring EventOf(int group, std::uint32_t event) { return std::wstring(Put(Line(group, event)).Field(1)); }
};

} // namespace

TEST_F(ZPTLogUpdateTest, EveryEventOfAGroupHasItsText)
{
    for (const UpdateEvent& event : UpdateEvents)
    {
        EXPECT_EQ(EventOf(event.group, event.code), Text(event.text)) << event.group << ' ' << event.code;
    }
    EXPECT_EQ(EventOf(2, 201), Text(623));
}

TEST_F(ZPTLogUpdateTest, AnEventOfAnotherGroupOrOfNoneHasAnEmptyText)
{
    for (const UpdateEvent& event : UpdateEvents)
    {
        for (const int group : {-1, 0, 9, 0x7FFFFFFF})
        {
            EXPECT_EQ(EventOf(group, event.code), L"") << group << ' ' << event.code;
        }
    }
    EXPECT_EQ(EventOf(1, 201), L"");
    EXPECT_EQ(EventOf(7, 226), L"");
    EXPECT_EQ(EventOf(5, 512), L"");
}

TEST_F(ZPTLogUpdateTest, TheGapsOfGroup6HaveEmptyTexts)
{
    for (const std::uint32_t gap :
         {0x48040000u, 0x48040001u, 0x4804000Au, 0x4804000Fu, 0x48040016u, 0x4804001Au, 0x4804001Bu, 0x4804001Cu,
          0x4804001Du, 0x4804001Eu, 0x4804001Fu, 0x48040021u, 0x48040024u})
    {
        EXPECT_EQ(EventOf(6, gap), L"") << gap;
    }
}

TEST_F(ZPTLogUpdateTest, EveryResultKindHasItsTextAndIconAndKind5AnEmptyOneAndImage1)
{
    const std::wstring event = Text(622);
    const auto fields = [&](const std::wstring& result) { return Texts{L"10:30", event, result, L"before", L"after"}; };
    Expect({{Line(1, 200, 1), fields(Text(763)), 0},
            {Line(1, 200, 2), fields(Text(406)), 0},
            {Line(1, 200, 3, 0), fields(Text(408)), 2},
            {Line(1, 200, 13, 0), fields(Text(762)), 2},
            {Line(1, 200, 13, 1), fields(Text(760)), 2},
            {Line(1, 200, 13, 2), fields(Text(761)), 2},
            {Line(1, 200, 13, 3), fields(Text(761)), 2},
            {Line(1, 200, 13, 4), fields(Text(762)), 2},
            {Line(1, 200, 13, 0xFFFFFFFF), fields(Text(762)), 2},
            {Line(1, 200, 5), fields(L""), 1},
            {Line(1, 200, 0), fields(L""), 1},
            {Line(1, 200, -1), fields(L""), 1}});
}

TEST_F(ZPTLogUpdateTest, ResultKind3WithCode0IsAnUnsuccessfulUpdateWithImage2)
{
    Expect({{Line(1, 200, 3, 0), {L"10:30", Text(622), Text(408), L"before", L"after"}, 2}});
}

TEST_F(ZPTLogUpdateTest, AProductErrorIsTheResultAndItsCode0TheUnknownError)
{
    Expect({{Line(1, 200, 13, 0), {L"10:30", Text(622), Text(762), L"before", L"after"}, 2}});
}

TEST_F(ZPTLogUpdateTest, AnEngineErrorTakesThePlaceOfTheEvent)
{
    for (const UpdateErrors& errors : EngineErrors)
    {
        const std::wstring text = errors.text == 0 ? std::wstring() : Text(errors.text);
        for (const std::uint32_t code : errors.codes)
        {
            Expect({{Line(1, 200, 11, code), {L"10:30", text, Text(760), L"before", L"after"}, 2}});
        }
    }
}

TEST_F(ZPTLogUpdateTest, ACodeAbove0x7FFFFFFFWrittenUnsignedIsTheLargestSignedNumber)
{
    EXPECT_EQ(Put(L"x|1030|1|200|11|3271557122|b|a").Field(1), Text(757));
    EXPECT_EQ(Put(L"x|1030|1|200|11|-1023410174|b|a").Field(1), Text(750));
}

TEST_F(ZPTLogUpdateTest, TextInANumberCountsAs0AndTokensBehindTheLastAreIgnored)
{
    Expect({{L"||||||||more", {L":", L"", L"", L"", L""}, 1},
            {L"x|10|one|two|three|four|b|a", {L"10:", L"", L"", L"b", L"a"}, 1},
            {L"x|1030|1x|200.5|1 1|z|b%I|a%%", {L"10:30", Text(622), Text(763), L"b%I", L"a%%"}, 0}});
}

TEST_F(ZPTLogUpdateTest, ALineWithoutToken7IsRefused)
{
    EXPECT_FALSE(Accepts(L"x|1030|1|200|1|0|before"));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

// What the line left is seen by a caller of MakeRecode alone: the next line has a token 3 of its own.
TEST_F(ZPTLogUpdateTest, ALineCutAfterToken3IsNoRecordAndLeavesItsEventForTheWholeProcess)
{
    EXPECT_FALSE(Accepts(L"x|1030|2|201"));
    CZPTLogUpdate other;
    LogRec record(std::pmr::new_delete_resource());
    other.MakeRecode(5, L"0", record);
    EXPECT_EQ(record.Field(0), Text(623));
    EXPECT_EQ(EventOf(9, 201), L"");
    EXPECT_EQ(EventOf(1, 200), Text(622));
}

TEST_F(ZPTLogUpdateTest, TheGroupOfALineIsKeptByItsOwnLogAlone)
{
    EXPECT_FALSE(Accepts(L"x|1030|2"));
    CZPTLogUpdate other;
    LogRec record(std::pmr::new_delete_resource());
    other.MakeRecode(3, L"201", record);
    other.MakeRecode(5, L"0", record);
    EXPECT_EQ(record.Field(0), L"");
}

TEST_F(ZPTLogUpdateTest, BothErrorTextsAreTracedWithTheirCode)
{
    const TraceRecorder trace;
    Put(Line(1, 200, 11, 0xFFFFFFFF));
    Put(Line(1, 200, 13, 2));
    EXPECT_EQ(trace.Texts(VdCommon::TraceLevel::Info),
              (Texts{L"ErrorMessage: " + Text(757) + L" (-1)", L"ErrorMessage: " + Text(761) + L" (2)"}));
    const Texts all = trace.Texts();
    for (const wchar_t* const name : {L"LoadAuErrorMessage", L"LoadProductErrorMessage"})
    {
        for (const wchar_t* const where : {L"[Enter] ", L"[Leave] "})
        {
            const std::wstring text = where + (L"CZPTLogUpdate::" + std::wstring(name)) + L"()...";
            EXPECT_EQ(std::ranges::count(all, text), 1) << name;
        }
    }
}

TEST_F(ZPTLogUpdateTest, TheColumnsShowAndSortByTimeResultAndEvent)
{
    ExpectColumns({{39, 80}, {38, 120}, {384, 1280}});
    ASSERT_LT(Text(406), Text(763));
    ASSERT_LT(Text(623), Text(622));
    const LogRec& first = Put(Line(1, 200, 2));
    const LogRec& second = Put(L"x|1100|2|201|1|0|b|a");
    EXPECT_EQ(Cells(first), (Texts{L"10:30", Text(406), Text(622), L"before"}));
    EXPECT_TRUE(IsBefore(first, second, 0));
    EXPECT_TRUE(IsBefore(first, second, 1));
    EXPECT_TRUE(IsBefore(second, first, 2));
    EXPECT_TRUE(IsBefore(second, first, 3));
    EXPECT_EQ(CompareUp(first, second, 5), 0);
}

TEST_F(ZPTLogUpdateTest, TwoRowsShowTheVersionsWhole)
{
    ExpectCaptions({416, 417});
    const std::wstring version(200, L'8');
    Show(L"x|1030|1|200|1|0|" + version + L"|a");
    EXPECT_EQ(m_pane[0].text, version);
    EXPECT_EQ(m_pane[0].toolTip, L"");
    EXPECT_FALSE(m_pane[0].isLink);
    EXPECT_EQ(m_pane[1].text, L"a");
    EXPECT_FALSE(m_pane[2].isSet);
}

TEST_F(ZPTLogUpdateTest, WithoutARecordOrAPageNothingIsShown)
{
    ExpectNothingShownWithoutRecordOrPage(Line(1, 200));
}

TEST_F(ZPTLogUpdateTest, TheExportHasFiveLabels)
{
    ExpectExportLabels({Text(591), Text(592), Text(593), Text(595), Text(596)});
}
