// The service in its own process: its values and commands.

#include "suite/framework/FirewallRules.h"
#include "suite/framework/RuleText.h"
#include "suite/framework/SafeArray.h"
#include "suite/framework/ValueSource.h"
#include "suite/samples/UrlCategories.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/unit/suite/framework/SampleRule.h"

namespace
{

using Framework::List;
using Framework::ValueKey;

constexpr ValueKey RulesKey{48, 5};
constexpr ValueKey ReportKey{112, 1};
constexpr ValueKey PurgeKey{113, 2};
constexpr ValueKey CategoriesKey{3, 2};
constexpr ValueKey ConnectionKey{39, 4};

void FillThreeDays(const EventLogs& logs)
{
    for (const EventLog::Day day : {20261118, 20261119, 20261120})
    {
        logs.Append(VirusSubType, day, {L"one|", L"two|"});
    }
}

using ServiceTest = ServiceFixture;

} // namespace

TEST_F(ServiceTest, ReportSettingsAreReadAndWrittenAndFoundAgainAfterARestart)
{
    EXPECT_EQ(QueryProfile(*Connect().Get(), ReportKey), (List{7u, 0u, 0u}));
    EXPECT_EQ(SetProfile(*Connect().Get(), ReportKey, List{30u, 1u, 5u}), Framework::Success);
    ASSERT_TRUE(Service::HasEnded());
    EXPECT_EQ(QueryProfile(*Connect().Get(), ReportKey), (List{30u, 1u, 5u}));
}

TEST_F(ServiceTest, ValuesSurviveAServiceThatIsKilled)
{
    EXPECT_EQ(SetProfile(*Connect().Get(), ReportKey, List{14u, 1u, 0u}), Framework::Success);
    Service::Kill();
    EXPECT_EQ(QueryProfile(*Connect().Get(), ReportKey), (List{14u, 1u, 0u}));
}

TEST_F(ServiceTest, FirewallRulesComeBackUnchangedInTheirOrderAfterARestart)
{
    EXPECT_EQ(QueryProfile(*Connect().Get(), RulesKey), Framework::FirstFirewallRules(m_service.Installed().Path()));
    const List rules{SampleRule(L"first"), SampleRule(L""), SampleRule(L"\x00E4\x65E5")};
    EXPECT_EQ(SetProfile(*Connect().Get(), RulesKey, rules), Framework::Success);
    ASSERT_TRUE(Service::HasEnded());
    EXPECT_EQ(QueryProfile(*Connect().Get(), RulesKey), rules);
}

TEST_F(ServiceTest, APersonPrintsTheRulesChangesThemAndLoadsThem)
{
    const TemporaryFolder& folder = m_service.Installed();
    const std::wstring table = folder.File(L"rules.txt");
    const std::wstring output = folder.File(L"output.txt");
    const List first = Framework::FirstFirewallRules(folder.Path());
    const auto controller = Connect(); // keeps the service: who comes in the moment in which it ends is refused by Wine
    EXPECT_EQ(Service::Run(L"/Rules", table), 0u);
    EXPECT_EQ(Framework::ParseRules(ReadBytes(table)), first);

    const std::string changed = ReadBytes(table) + "block any TCP 0 - * * \"One more\" C:\\more.exe\r\n";
    WriteBytes(table, changed);
    EXPECT_EQ(Service::Run(L"/Rules \"" + table + L"\"", output), 0u);
    EXPECT_EQ(ReadBytes(output), "");
    const List rules = QueryProfile(*controller.Get(), RulesKey);
    EXPECT_EQ(rules.size(), first.size() + 1);
    EXPECT_EQ(rules, Framework::ParseRules(changed));

    WriteBytes(table, "block any TCP 0 - * * good -\r\nblock any TCP wrong\r\n");
    EXPECT_EQ(Service::Run(L"/Rules \"" + table + L"\"", output), 1u);
    EXPECT_NE(ReadBytes(output).find("\nline 2: "), std::string::npos) << ReadBytes(output);
    EXPECT_EQ(Service::Run(L"/Rules \"" + folder.File(L"missing.txt") + L"\"", output), 1u);
    EXPECT_EQ(QueryProfile(*controller.Get(), RulesKey), rules);
}

TEST_F(ServiceTest, PurgeSettingsGoIntoTheTwoRegistryValues)
{
    EXPECT_EQ(SetProfile(*Connect().Get(), PurgeKey, List{45u, 0u}), Framework::Success);
    EXPECT_EQ(PurgeSetting(L"EventLogPurgeFre"), 45u);
    EXPECT_EQ(PurgeSetting(L"EventLogPurgeFlag"), 0u);
    EXPECT_EQ(QueryProfile(*Connect().Get(), PurgeKey), (List{45u, 0u}));
}

TEST_F(ServiceTest, PurgeSettingsThatMakeNoSenseAreRefusedAndLeaveTheRegistryAsItWas)
{
    EXPECT_EQ(SetProfile(*Connect().Get(), PurgeKey, List{0u, 1u}), E_INVALIDARG);
    EXPECT_EQ(SetProfile(*Connect().Get(), PurgeKey, List{0xFFFFFFFFu, 1u}), E_INVALIDARG);
    EXPECT_EQ(PurgeSetting(L"EventLogPurgeFre"), 30u);
    EXPECT_EQ(PurgeSetting(L"EventLogPurgeFlag"), 0u);
}

TEST_F(ServiceTest, ThePropertyTellsTheConnectionAndTheCategoryGroups)
{
    const auto controller = Connect();
    const List connection = QueryProperty(*controller.Get(), ConnectionKey);
    ASSERT_EQ(connection.size(), 1u);
    EXPECT_TRUE(std::holds_alternative<bool>(connection[0]));

    const List categories = QueryProperty(*controller.Get(), CategoriesKey);
    ASSERT_EQ(categories.size(), 1u);
    const List& groups = std::get<List>(categories[0]);
    ASSERT_EQ(groups.size(), std::size(Samples::UrlCategories));
    EXPECT_EQ(groups[0], Framework::Value(List{std::wstring(L"03"), std::wstring(L"Adult content")}));
}

TEST_F(ServiceTest, APurgeDeletesUpToAndIncludingTheDayAndThenTellsTheClientInItsApartment)
{
    const EventLogs logs(m_service.Installed());
    FillThreeDays(logs);
    ServiceSession session;
    EXPECT_EQ(OrderPurge(session.Controller(), VirusPurgeType, 20261119), Framework::Success);
    EXPECT_TRUE(PumpUntil([&] { return !session.events.empty(); }));
    EXPECT_EQ(session.events, Events{PurgeDone});
    EXPECT_TRUE(session.cameInOwnThread);
    EXPECT_EQ(logs.VirusDays(), std::vector<EventLog::Day>{20261120});
}

TEST_F(ServiceTest, APurgeWithoutADatabaseTellsItsEndAllTheSame)
{
    ServiceSession session;
    EXPECT_EQ(OrderPurge(session.Controller(), VirusPurgeType, 20261119), Framework::Success);
    EXPECT_TRUE(PumpUntil([&] { return !session.events.empty(); }));
    EXPECT_EQ(session.events, Events{PurgeDone});
}

TEST_F(ServiceTest, APurgeGoesOnWhenItsClientLeaves)
{
    const EventLogs logs(m_service.Installed());
    FillThreeDays(logs);
    EXPECT_EQ(OrderPurge(*Connect().Get(), VirusPurgeType, 20261120), Framework::Success);
    EXPECT_TRUE(Service::HasEnded());
    EXPECT_TRUE(logs.VirusDays().empty());
}

TEST_F(ServiceTest, AnOrderThatIsNoneIsRefused)
{
    const auto controller = Connect();
    EXPECT_EQ(OrderPurge(*controller.Get(), VirusPurgeType, 20261131), E_INVALIDARG);
    EXPECT_EQ(OrderPurge(*controller.Get(), 6, 20261119), E_INVALIDARG);
    ULONG word = 1;
    ULONG result = 0;
    EXPECT_EQ(controller->DoCommand(22, 1, 0, 0, &word, &result, nullptr), E_INVALIDARG);
    EXPECT_EQ(controller->DoCommand(22, 2, 0, 0, &word, &result, Framework::MakeArray({}).get()), Framework::Unknown);
    EXPECT_EQ(controller->Reserved5(), E_NOTIMPL);
    EXPECT_EQ(controller->Reserved13(), E_NOTIMPL);
}

TEST_F(ServiceTest, ArraysThatAreNoneOfItsValuesAreRefusedAndChangeNothing)
{
    const auto controller = Connect();
    List longRule = SampleRule(L"a");
    longRule.emplace_back(0u);
    List shortBlock = SampleRule(L"a");
    shortBlock[20] = SampleBytes(19);
    List otherType = SampleRule(L"a");
    otherType[5] = 2u;
    List terminator = SampleRule(std::wstring(L"a\0b", 3));
    for (const List& rule : {longRule, shortBlock, otherType, terminator})
    {
        EXPECT_EQ(SetProfile(*controller.Get(), RulesKey, List{SampleRule(L"good"), rule}), E_INVALIDARG);
    }
    EXPECT_EQ(SetProfile(*controller.Get(), ReportKey, List{7u, 0u}), E_INVALIDARG);
    EXPECT_EQ(SetProfile(*controller.Get(), PurgeKey, List{7u, true}), E_INVALIDARG);

    const auto refuses = [&](SAFEARRAY* array)
    {
        const Framework::UniqueSafeArray owned(array);
        EXPECT_EQ(SetProfile(*controller.Get(), RulesKey, array), E_INVALIDARG);
    };
    refuses(nullptr);
    refuses(SafeArrayCreateVector(VT_UI4, 0, 3));
    refuses(SafeArrayCreateVector(VT_VARIANT, 1, 0));
    SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
    refuses(SafeArrayCreate(VT_VARIANT, 2, bounds));

    EXPECT_EQ(QueryProfile(*controller.Get(), RulesKey), Framework::FirstFirewallRules(m_service.Installed().Path()));
    EXPECT_EQ(QueryProfile(*controller.Get(), ReportKey), (List{7u, 0u, 0u}));
    EXPECT_EQ(QueryProfile(*controller.Get(), PurgeKey)[1], Framework::Value(0u));
}

TEST_F(ServiceTest, TheConnectionPointsListThemselvesAndTheirSinks)
{
    ServiceSession session;
    Suite::ComPtr<IConnectionPointContainer> container;
    ASSERT_EQ(session.Point().GetConnectionPointContainer(container.Put()), S_OK);
    Suite::ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(container->EnumConnectionPoints(points.Put()), S_OK);
    std::vector<IID> found;
    Suite::ComPtr<IConnectionPoint> point;
    for (ULONG fetched = 0; points->Next(1, point.Put(), &fetched) == S_OK;)
    {
        IID iid{};
        EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
        found.push_back(iid);
    }
    EXPECT_EQ(found, (std::vector<IID>{__uuidof(IVdFrwkLocalEvents), __uuidof(IVdFrwkSessionEvents)}));

    Suite::ComPtr<IEnumConnections> connections;
    ASSERT_EQ(session.Point().EnumConnections(connections.Put()), S_OK);
    CONNECTDATA data{};
    ULONG fetched = 0;
    ASSERT_EQ(connections->Next(1, &data, &fetched), S_OK);
    EXPECT_EQ(data.dwCookie, session.Cookie());
    data.pUnk->Release();
}
