#include "framework/ui/kestrix/logs/ZPTLogURL.h"

#include "tests/support/CategoryService.h"
#include "tests/support/DebugScale.h"
#include "tests/support/TraceRecorder.h"
#include "tests/unit/framework/ui/kestrix/logs/LogClassTest.h"

namespace
{

// The service comes first: a log asks it when it is made.
class ZPTLogURLTest : private WithCategoryService, public LogClassTest<CZPTLogURL>
{
protected:
    using WithCategoryService::m_service;

    ~ZPTLogURLTest() override { EXPECT_EQ(m_service.Controller().References(), 0); }

    // The category that a log made now shows for a key.
    static std::wstring CategoryOf(const std::wstring& key)
    {
        CZPTLogURL log;
        EXPECT_TRUE(log.PutRecode(L"x|1030|x|x|Blocked|0|address|" + key, CZPTLogBase::AnyLine));
        return std::wstring(log.GetLogText(0, 4));
    }
};

} // namespace

TEST_F(ZPTLogURLTest, Result0LooksTheCategoryUpAndAKeyThatIsNotThereIsUnknown)
{
    Expect(
        {{L"x|103015|x|1F|Blocked|0|http://a/|03", {L"10:30", L"Blocked", Text(422), L"http://a/", L"Adult content"}},
         {L"x|103015|x|1F|Blocked|0|http://a/|97", {L"10:30", L"Blocked", Text(422), L"http://a/", Text(339)}},
         {L"x|103015|x|1F|Blocked|0|http://a/|", {L"10:30", L"Blocked", Text(422), L"http://a/", Text(339)}},
         {L"x|103015|x|1F|Blocked|0|http://a/|03 ", {L"10:30", L"Blocked", Text(422), L"http://a/", Text(339)}}});
}

TEST_F(ZPTLogURLTest, Result1IsAListedAddressWithAnyKey)
{
    for (const wchar_t* const key : {L"03", L"97", L""})
    {
        Expect({{L"x|103015|x|1F|Warned|1|a|" + std::wstring(key), {L"10:30", L"Warned", Text(423), L"a", Text(340)}}});
    }
}

TEST_F(ZPTLogURLTest, Result2HasAnEmptyTextAndLooksTheCategoryUp)
{
    Expect({{L"x|103015|x|1F|Warned|2|a|03", {L"10:30", L"Warned", L"", L"a", L"Adult content"}},
            {L"x|103015|x|1F|Warned|-1|a|97", {L"10:30", L"Warned", L"", L"a", Text(339)}}});
}

TEST_F(ZPTLogURLTest, AKeyThatDiffersInCaseDoesNotMatch)
{
    m_service.Offer({{L"aB", L"found"}});
    EXPECT_EQ(CategoryOf(L"aB"), L"found");
    EXPECT_EQ(CategoryOf(L"ab"), Text(339));
    EXPECT_EQ(CategoryOf(L"AB"), Text(339));
}

TEST_F(ZPTLogURLTest, AnAddressIsDecodedAndTheActionIsNot)
{
    Expect({{L"x|103015|x|1F|a%Ib|0|a%Ib%%|03", {L"10:30", L"a%Ib", Text(422), L"a|b%", L"Adult content"}}});
}

TEST_F(ZPTLogURLTest, AnEmptyAddressIsThatOfTheLineBeforeInWhateverLog)
{
    Put(L"x|1030|x|1F|Blocked|0|old|03");
    EXPECT_EQ(Put(L"x|1030|x|1F|Blocked|0||03").Field(3), L"old");
    EXPECT_FALSE(Accepts(L"x|1030|x|1F|Blocked|0|cut"));
    CZPTLogURL other;
    ASSERT_TRUE(other.PutRecode(L"x|1030|x|1F|Blocked|0||03", CZPTLogBase::AnyLine));
    EXPECT_EQ(other.GetLogText(0, 3), L"cut");
}

// The next line brings its own; only a caller of MakeRecode can see what the one before left.
TEST_F(ZPTLogURLTest, ActionAndResultAreKeptForTheWholeProcess)
{
    EXPECT_FALSE(Accepts(L"x|1030|x|1F|Warned|1|a"));
    CZPTLogURL other;
    LogRec record(std::pmr::new_delete_resource());
    other.MakeRecode(7, L"03", record);
    EXPECT_EQ(record.Field(0), L"Warned");
    EXPECT_EQ(record.Field(1), Text(423));
}

TEST_F(ZPTLogURLTest, ALineNeedsToken7AndTheTokenOfAProviderRecordAddsNothing)
{
    EXPECT_FALSE(Accepts(L"x|1030|x|1F|Blocked|0|a"));
    Expect({{L"x|1|x|1F|Blocked|0|a|03|end|more", {L"1:", L"Blocked", Text(422), L"a", L"Adult content"}}});
}

TEST_F(ZPTLogURLTest, TheSecondColumnShowsTheActionAndIsSortedByTheResult)
{
    ExpectColumns({{39, 50}, {56, 100}, {421, 120}, {420, 275}});
    ASSERT_LT(Text(422), Text(423));
    const LogRec& first = Put(L"x|1030|x|1F|Warned|0|b|03");
    const LogRec& second = Put(L"x|1100|x|1F|Blocked|1|a|03");
    EXPECT_EQ(Cells(first), (Texts{L"10:30", L"Warned", Text(422), L"b", L"before"}));
    EXPECT_TRUE(IsBefore(first, second, 0));
    EXPECT_TRUE(IsBefore(first, second, 1));
    EXPECT_TRUE(IsBefore(first, second, 2));
    EXPECT_TRUE(IsBefore(second, first, 3));
    EXPECT_TRUE(IsBefore(first, second, 4)) << "by the category";
    EXPECT_EQ(CompareUp(first, second, 5), 0);
}

TEST_F(ZPTLogURLTest, TheOneRowShowsTheCategory)
{
    ExpectCaptions({419});
    Show(L"x|1030|x|1F|Warned|0|b|03");
    EXPECT_EQ(m_pane[0].text, L"Adult content");
    EXPECT_EQ(m_pane[0].toolTip, L"");
    EXPECT_FALSE(m_pane[0].isLink);
}

TEST_F(ZPTLogURLTest, WithoutARecordOrAPageNothingIsShown)
{
    ExpectNothingShownWithoutRecordOrPage(L"x|1030|x|1F|Warned|0|b|03");
}

TEST_F(ZPTLogURLTest, TheExportHasFiveLabels)
{
    ExpectExportLabels({Text(418), Text(56), Text(421), Text(420), Text(419)});
}

TEST_F(ZPTLogURLTest, EachNewLogAsksTheServiceOnceForItsCategoryGroups)
{
    ControllerDouble& controller = m_service.Controller();
    controller.m_calls.clear();
    EXPECT_EQ(CategoryOf(L"03"), L"Adult content");
    EXPECT_EQ(controller.m_calls, (Texts{L"CreateInstance", L"GetProperty", L"QueryValue 3 2 0 0 0 of 1"}));
}

TEST_F(ZPTLogURLTest, AChangeOfTheListIsSeenByTheNextLogOnly)
{
    m_service.Offer({{L"03", L"new"}});
    EXPECT_EQ(Put(L"x|1030|x|1F|Blocked|0|a|03").Field(4), L"Adult content");
    EXPECT_EQ(CategoryOf(L"03"), L"new");
}

TEST_F(ZPTLogURLTest, TheFirstGroupOfAKeyThatIsThereTwiceWinsAndAnEmptyKeyIsAKey)
{
    m_service.Offer({{L"7", L"first"}, {L"", L"empty"}, {L"7", L"second"}, {L"", L"empty again"}, {L"8", L""}});
    EXPECT_EQ(CategoryOf(L"7"), L"first");
    EXPECT_EQ(CategoryOf(L""), L"empty");
    EXPECT_EQ(CategoryOf(L"8"), L"");
    EXPECT_EQ(CategoryOf(L"9"), Text(339));
}

// A walk over the list for each line would compare texts two thousand million times.
TEST_F(ZPTLogURLTest, AListOf100000GroupsIsReadAndDoesNotSlowDownEachLine)
{
    constexpr std::size_t count = Scaled(100'000);
    constexpr std::size_t lines = count / 5;
    CategoryService::Groups groups;
    for (std::size_t i = 0; i < count; ++i)
    {
        groups.emplace_back(std::to_wstring(i), L"group " + std::to_wstring(i));
    }
    m_service.Offer(groups);
    CZPTLogURL log;
    for (std::size_t i = 0; i < lines; ++i)
    {
        const std::wstring key = std::to_wstring(count - lines + i);
        ASSERT_TRUE(log.PutRecode(L"x|1030|x|1F|Blocked|0|a|" + key, CZPTLogBase::AnyLine));
        ASSERT_EQ(log.GetLogText(i, 4), L"group " + key);
    }
}

TEST_F(ZPTLogURLTest, WithoutTheServiceTheLogLoadsWithUnknownCategoriesAndTracesWhy)
{
    using Step = ControllerDouble::Step;
    const std::pair<Step, std::wstring> steps[] = {{Step::Create, L"  Failed to CoCreateInstance: "},
                                                   {Step::Property, L"  Failed to GetProperty: "},
                                                   {Step::Query, L"  Failed to DoCommand: "}};
    for (const auto& [step, text] : steps)
    {
        m_service.Controller().Fail(step, HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE));
        const TraceRecorder trace;
        EXPECT_EQ(CategoryOf(L"03"), Text(339));
        EXPECT_EQ(trace.Errors(), (Texts{text + L"[0x800706ba]"}));
        m_service.Controller().Work(step);
    }
    m_service.Controller().GiveNothing(Step::Property);
    EXPECT_EQ(CategoryOf(L"03"), Text(339));
}

TEST_F(ZPTLogURLTest, TheGroupsAreTracedByTheirNumber)
{
    const TraceRecorder trace;
    EXPECT_EQ(CategoryOf(L"03"), L"Adult content");
    const Texts flow = trace.Texts(VdCommon::TraceLevel::Flow);
    ASSERT_GE(flow.size(), 3u);
    EXPECT_EQ(Texts(flow.begin(), flow.begin() + 3),
              (Texts{L"[Enter] CZPTLogURL::GetURLFilterCategoryList",
                     L"Get UrlCategoryGroup [" + std::to_wstring(m_service.Offered().size()) + L"]",
                     L"[Leave] CZPTLogURL::GetURLFilterCategoryList"}));
}

TEST_F(ZPTLogURLTest, AnAnswerOfAnotherShapeOrOfAServiceThatHangsUpLeavesTheCategoriesUnknown)
{
    for (const CategoryService::BadAnswer& answer : CategoryService::BadAnswers())
    {
        m_service.Answer(answer.answer);
        EXPECT_EQ(CategoryOf(L"03"), Text(339)) << answer.name;
    }
}

TEST_F(ZPTLogURLTest, TheGroupsBeforeOneThatCannotBeReadCount)
{
    m_service.AnswerGroupsAndOneOfNumbers({{L"1", L"one"}});
    EXPECT_EQ(CategoryOf(L"1"), L"one");
    EXPECT_EQ(CategoryOf(L"2"), Text(339));
}
