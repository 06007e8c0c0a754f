#include "suite/database/EventDatabase.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/unit/suite/database/DatabaseFiles.h"

#include <gtest/gtest.h>

namespace EventLog
{

namespace
{

class EventDatabaseTest : public ::testing::Test
{
protected:
    const TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(DatabaseFileName);
    EventDatabase m_database = EventDatabase::Create(m_path);
};

} // namespace

TEST_F(EventDatabaseTest, ANewOneHasNoDaysAndNoLines)
{
    EXPECT_EQ(m_database.Days(Virus), std::vector<Day>{});
    EXPECT_EQ(LinesOf(m_database, Virus, 10101, 99991231), Strings{});
}

TEST_F(EventDatabaseTest, LinesOfADayComeInTheOrderInWhichTheyWereAdded)
{
    const Strings lines = {L"20260101|120000|a", L"20260101|130000|b", L"20260101|110000|clock set back"};
    m_database.Append(Virus, 20260101, lines);
    m_database.Append(Virus, 20260101, Strings{L"20260101|100000|last"});
    EXPECT_EQ(LinesOf(m_database, Virus, 20260101, 20260101),
              (Strings{lines[0], lines[1], lines[2], L"20260101|100000|last"}));
}

TEST_F(EventDatabaseTest, DaysOfAPeriodComeOldestFirst)
{
    m_database.Append(Virus, 20260102, Strings{L"x|000000|second"});
    m_database.Append(Virus, 20260101, Strings{L"x|000000|first"});
    m_database.Append(Virus, 20260103, Strings{L"x|000000|behind the period"});
    m_database.Append(Virus, 20251231, Strings{L"x|000000|before the period"});
    EXPECT_EQ(LinesOf(m_database, Virus, 20260101, 20260102), (Strings{L"x|000000|first", L"x|000000|second"}));
}

TEST_F(EventDatabaseTest, APeriodIncludesBothOfItsMoments)
{
    m_database.Append(Virus, 20260101, Strings{L"x|115959|early", L"x|120000|first"});
    m_database.Append(Virus, 20260102, Strings{L"x|000000|midnight"});
    m_database.Append(Virus, 20260103, Strings{L"x|130000|last", L"x|130001|late"});
    EXPECT_EQ(LinesOf(m_database, Virus, {{20260101, 120000}, {20260103, 130000}}),
              (Strings{L"x|120000|first", L"x|000000|midnight", L"x|130000|last"}));
    EXPECT_EQ(LinesOf(m_database, Virus, {{20260103, 130001}, {20260103, 130001}}), Strings{L"x|130001|late"});
}

TEST_F(EventDatabaseTest, KindsDoNotSeeOneAnother)
{
    m_database.Append(Virus, 20260101, Strings{L"x|000000|virus"});
    m_database.Append(Firewall, 20260102, Strings{L"000000|firewall"});
    EXPECT_EQ(LinesOf(m_database, Virus, 20260101, 20260102), Strings{L"x|000000|virus"});
    EXPECT_EQ(m_database.Days(Firewall), std::vector<Day>{20260102});
}

TEST_F(EventDatabaseTest, DaysAreNewestFirstAndEachOnce)
{
    for (const Day day : {20251231u, 20260301u, 20260101u})
    {
        m_database.Append(Virus, day, Strings{L"x|000000|a", L"x|000001|b"});
    }
    EXPECT_EQ(m_database.Days(Virus), (std::vector<Day>{20260301, 20260101, 20251231}));
}

TEST_F(EventDatabaseTest, LinesStayAfterItWasClosed)
{
    m_database.Append(Virus, 20260101, Strings{L"x|000000|kept"});
    m_database = EventDatabase::Open(m_path);
    EXPECT_EQ(LinesOf(m_database, Virus, 20260101, 20260101), Strings{L"x|000000|kept"});
}

TEST_F(EventDatabaseTest, MakingOneThatIsThereKeepsItsLines)
{
    m_database.Append(Virus, 20260101, Strings{L"x|000000|kept"});
    EXPECT_EQ(LinesOf(EventDatabase::Create(m_path), Virus, 20260101, 20260101), Strings{L"x|000000|kept"});
}

TEST_F(EventDatabaseTest, ALineOfThreeMillionCharactersStaysWhatItIs)
{
    std::wstring line(3'000'000, L'\x4E2D');
    line.back() = L'.';
    m_database.Append(Virus, 20260101, Strings{L"x|000000|before", line, L"x|000000|behind"});
    EXPECT_EQ(LinesOf(m_database, Virus, 20260101, 20260101), (Strings{L"x|000000|before", line, L"x|000000|behind"}));
}

TEST_F(EventDatabaseTest, EveryCharacterStaysWhatItIs)
{
    using namespace std::string_literals;
    const Strings lines = {L"x|000000|a\0b\0"s, L"\0"s, L""s, L"\xFEFFmark"s, L"\xD800 lone surrogate \xDC00"s, L"'"s};
    m_database.Append(Virus, 20260101, lines);
    EXPECT_EQ(LinesOf(m_database, Virus, 20260101, 20260101), lines);
}

TEST_F(EventDatabaseTest, ALineWithoutATimeBelongsToTheFirstMomentOfItsDay)
{
    m_database.Append(Virus, 20260101, Strings{L"no bars", L"x|noon|b"});
    EXPECT_EQ(LinesOf(m_database, Virus, {{20260101, 0}, {20260101, 0}}).size(), 2u);
}

TEST_F(EventDatabaseTest, ReplacingADayLeavesOtherDaysAndKinds)
{
    for (const Day day : {20260101u, 20260102u})
    {
        m_database.Append(Virus, day, Strings{L"x|000000|old", L"x|000000|old too"});
        m_database.Append(Firewall, day, Strings{L"000000|firewall"});
    }
    m_database.ReplaceDay(Virus, 20260101, Strings{L"x|000000|new"});
    EXPECT_EQ(LinesOf(m_database, Virus, 20260101, 20260101), Strings{L"x|000000|new"});
    EXPECT_EQ(LinesOf(m_database, Virus, 20260102, 20260102).size(), 2u);
    EXPECT_EQ(LinesOf(m_database, Firewall, 20260101, 20260102).size(), 2u);
    m_database.ReplaceDay(Virus, 20260101, {});
    EXPECT_EQ(m_database.Days(Virus), std::vector<Day>{20260102});
}

TEST_F(EventDatabaseTest, DeletingTakesTheDayItselfAndAllBeforeItOfThatKindAlone)
{
    for (const Day day : {20260101u, 20260102u, 20260103u})
    {
        m_database.Append(Virus, day, Strings{L"x|000000|a", L"x|235959|b"});
        m_database.Append(Firewall, day, Strings{L"000000|firewall"});
    }
    EXPECT_EQ(m_database.DeleteThrough(Virus, 20260102), 4u);
    EXPECT_EQ(m_database.Days(Virus), std::vector<Day>{20260103});
    EXPECT_EQ(m_database.Days(Firewall).size(), 3u);
    EXPECT_EQ(m_database.DeleteThrough(Virus, 20260102), 0u);
}

TEST_F(EventDatabaseTest, WhatTheReceiverOfLinesThrowsArrivesAndLocksNothing)
{
    m_database.Append(Virus, 20260101, Strings{L"x|000000|a", L"x|000000|b"});
    int taken = 0;
    const auto take = [&](std::wstring_view)
    {
        ++taken;
        throw std::runtime_error("enough");
    };
    EXPECT_THROW(m_database.ReadPeriod(Virus, DaysBetween(20260101, 20260101), take), std::runtime_error);
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(EventDatabase::Open(m_path, ShortTimeout).DeleteThrough(Virus, 20260101), 2u);
}

} // namespace EventLog
