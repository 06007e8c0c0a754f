#include "suite/framework/ProfileValues.h"

#include "suite/framework/FirewallRules.h"
#include "suite/framework/PurgeSettings.h"
#include "suite/framework/RuleText.h"
#include "tests/support/DebugScale.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/suite/framework/RandomRules.h"
#include "tests/unit/suite/framework/SampleRule.h"

#include <gtest/gtest.h>

using namespace Framework;

namespace
{

constexpr ValueKey Rules{48, 5};
constexpr ValueKey Report{112, 1};
constexpr ValueKey Purge{113, 2};

class ProfileValuesTest : public ::testing::Test
{
protected:
    List Get(const ValueKey& key) const
    {
        List list;
        EXPECT_EQ(m_values.Query(key, list), Success);
        return list;
    }

    const RegistrySandbox m_registry;
    const TemporaryFolder m_folder;
    ValueStore m_store{m_folder.Path()};
    ProfileValues m_values{m_store};
};

} // namespace

TEST_F(ProfileValuesTest, TheFirstValues)
{
    EXPECT_EQ(Get(Rules), List());
    EXPECT_EQ(Get(Report), (List{7u, 0u, 0u}));
    EXPECT_EQ(Get(Purge), (List{30u, 1u}));
    EXPECT_EQ(m_store.Get(Rules), std::nullopt) << "nothing is written that nobody has set";
}

TEST_F(ProfileValuesTest, RulesOfAFileHoldUntilSomebodySetsSome)
{
    WriteBytes(m_folder.File(FirstRulesName), "block any TCP 0 - * * a C:\\a.exe\r\n");
    EXPECT_EQ(Get(Rules).size(), 1u);
    EXPECT_EQ(Get(Rules), ParseRules("block any TCP 0 - * * a C:\\a.exe\n"));
    const List rules{SampleRule(L"a"), SampleRule(L"b")};
    EXPECT_EQ(m_values.Set(Rules, rules), Success);
    EXPECT_EQ(Get(Rules), rules);
}

TEST_F(ProfileValuesTest, AFileWithALineThatIsNoRuleHasNone)
{
    WriteBytes(m_folder.File(FirstRulesName), "block any TCP 0 - * * a C:\\a.exe\r\nblock\r\n");
    EXPECT_EQ(Get(Rules), List());
}

TEST_F(ProfileValuesTest, WhatIsSetIsThere)
{
    const List rules{SampleRule(L"a"), SampleRule(L"b")};
    EXPECT_EQ(m_values.Set(Rules, rules), Success);
    EXPECT_EQ(m_values.Set(Report, {1u, 2u, 3u}), Success);
    EXPECT_EQ(m_values.Set(Purge, {14u, 0u}), Success);
    EXPECT_EQ(Get(Rules), rules);
    EXPECT_EQ(Get(Report), (List{1u, 2u, 3u}));
    EXPECT_EQ(ReadPurgeSettings(), (PurgeSettings{14, 0}));
}

TEST_F(ProfileValuesTest, ARuleListThatSomebodyHasEmptiedStaysEmpty)
{
    EXPECT_EQ(m_values.Set(Rules, {}), Success);
    EXPECT_EQ(Get(Rules), List());
    EXPECT_EQ(ValueStore(m_folder.Path()).Get(Rules), List());
}

TEST_F(ProfileValuesTest, FiveThousandRulesComeBackFromTheFileElementByElementInTheirOrder)
{
    const List rules = RandomRules(Scaled(5000), 48);
    EXPECT_EQ(m_values.Set(Rules, rules), Success);
    ValueStore again(m_folder.Path());
    List read;
    EXPECT_EQ(ProfileValues(again).Query(Rules, read), Success);
    EXPECT_TRUE(read == rules); // without printing them
}

TEST_F(ProfileValuesTest, EveryElementOfARuleMustHaveItsType)
{
    for (std::size_t i = 0; i < 23; ++i)
    {
        List rule = SampleRule(L"a");
        rule[i] = std::uint8_t{1};
        EXPECT_EQ(m_values.Set(Rules, {rule}), E_INVALIDARG) << i;
    }
    EXPECT_EQ(m_store.Get(Rules), std::nullopt);
}

TEST_F(ProfileValuesTest, BlocksOfARuleMustHaveTheirLength)
{
    for (const std::size_t i : {14u, 15u, 20u, 21u, 22u})
    {
        List rule = SampleRule(L"a");
        std::get<List>(rule[i]).pop_back();
        EXPECT_EQ(m_values.Set(Rules, {rule}), E_INVALIDARG) << i;
    }
}

TEST_F(ProfileValuesTest, ListsOfAnotherLengthOrTypeChangeNothing)
{
    EXPECT_EQ(m_values.Set(Report, {1u, 2u}), E_INVALIDARG);
    EXPECT_EQ(m_values.Set(Report, {1u, 2u, 3u, 4u}), E_INVALIDARG);
    EXPECT_EQ(m_values.Set(Purge, {1u, false}), E_INVALIDARG);
    EXPECT_EQ(m_values.Set(Rules, {1u}), E_INVALIDARG);
    EXPECT_EQ(Get(Report), (List{7u, 0u, 0u}));
    EXPECT_EQ(Get(Purge), (List{30u, 1u}));
}

TEST_F(ProfileValuesTest, AllPurgeSettingsThatTheViewerOffersAreTaken)
{
    for (const std::uint32_t days : {7u, 14u, 30u, 45u, 60u})
    {
        for (const std::uint32_t flag : {0u, 1u})
        {
            EXPECT_EQ(m_values.Set(Purge, {days, flag}), Success);
            EXPECT_EQ(ReadPurgeSettings(), (PurgeSettings{days, flag}));
        }
    }
}

TEST_F(ProfileValuesTest, PurgeSettingsThatMakeNoSenseAreRefusedAndNotStored)
{
    EXPECT_EQ(m_values.Set(Purge, {45u, 1u}), Success);
    const List refused[] = {{0u, 1u},          {0u, 0u},  {36'526u, 1u},     {0xFFFFFFFFu, 1u},
                            {0xFFFFFFFFu, 0u}, {30u, 2u}, {30u, 0xFFFFFFFFu}};
    for (const List& list : refused)
    {
        EXPECT_EQ(m_values.Set(Purge, list), E_INVALIDARG);
        EXPECT_EQ(ReadPurgeSettings(), (PurgeSettings{45, 1}));
    }
    EXPECT_EQ(m_values.Set(Purge, {1u, 1u}), Success);
    EXPECT_EQ(m_values.Set(Purge, {36'525u, 1u}), Success);
}

TEST_F(ProfileValuesTest, OtherTypesAndSubTypesAreUnknown)
{
    List list{5u};
    for (const ValueKey& key : {ValueKey{112, 2}, ValueKey{113, 1}, ValueKey{48, 4}, ValueKey{0, 1}})
    {
        EXPECT_EQ(m_values.Query(key, list), Unknown);
        EXPECT_EQ(m_values.Set(key, {1u}), Unknown);
    }
    EXPECT_EQ(list, (List{5u}));
}
