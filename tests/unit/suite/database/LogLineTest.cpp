#include "suite/database/LogLine.h"

#include "suite/database/LogKinds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace EventLog
{

namespace
{

std::uint32_t SubType(std::wstring_view extension)
{
    return FindKindOfExtension(extension)->subType;
}

std::wstring Form(std::wstring_view extension, std::wstring_view line)
{
    return DatabaseForm(SubType(extension), line);
}

// A line of so many tokens whose token 2 is the source.
std::wstring LineOf(std::wstring_view source, int tokens)
{
    std::wstring line = L"20260101|120000|" + std::wstring(source);
    for (int i = 3; i < tokens; ++i)
    {
        line += L"|t";
    }
    return line;
}

// A line of a file with the first number of tokens is whole; the database has the second number.
void ExpectCompletedFrom(std::wstring_view extension, std::wstring_view source, int fileTokens, int databaseTokens)
{
    SCOPED_TRACE(std::wstring(extension) + L" " + std::wstring(source));
    const std::wstring shorter = LineOf(source, fileTokens - 1);
    EXPECT_EQ(Form(extension, shorter), shorter);
    for (int tokens = fileTokens; tokens <= databaseTokens + 1; ++tokens)
    {
        const std::wstring line = LineOf(source, tokens);
        EXPECT_EQ(Form(extension, line),
                  line + std::wstring(static_cast<std::size_t>(std::max(0, databaseTokens - tokens)), L'|'));
    }
}

} // namespace

TEST(LogLineTest, LinesOfAFileGetTheLastTokenOfTheDatabase)
{
    ExpectCompletedFrom(L"VLG", L"1", 11, 12);
    ExpectCompletedFrom(L"VLG", L"3", 11, 12);
    ExpectCompletedFrom(L"VLG", L"1048576", 12, 13);
    ExpectCompletedFrom(L"VLG", L"0", 12, 13);
    ExpectCompletedFrom(L"SPG", L"2", 9, 10);
    ExpectCompletedFrom(L"SPG", L"0x100000", 14, 15);
    ExpectCompletedFrom(L"UFG", L"1", 8, 9);
    ExpectCompletedFrom(L"PTG", L"name", 4, 5);
}

// A record of the behavior monitor may end three tokens earlier in a file. Such lines stayed as they were, and the
// database refused to show their day.
TEST(LogLineTest, LinesOfTheBehaviorMonitorGetAllTheTokensThatTheyLack)
{
    ExpectCompletedFrom(L"SPG", L"0x10000000", 13, 16);
    ExpectCompletedFrom(L"SPG", L"268435456", 13, 16);
}

TEST(LogLineTest, LinesOfOtherKindsAreTheSameInBothForms)
{
    const std::set<std::wstring_view> twoForms = {L"VLG", L"SPG", L"UFG", L"PTG"};
    for (const LogKind& kind : AllLogKinds())
    {
        for (int tokens = 3; tokens < 20 && !twoForms.contains(kind.extension); ++tokens)
        {
            const std::wstring line = LineOf(L"1", tokens);
            EXPECT_EQ(DatabaseForm(kind.subType, line), line) << std::wstring(kind.extension) << tokens;
        }
    }
    EXPECT_EQ(DatabaseForm(99, L"a|b"), L"a|b");
    EXPECT_EQ(Form(L"VLG", L""), L"");
}

TEST(LogLineTest, TheTimeIsTheSecondTokenAndTheFirstOneOfTheFirewall)
{
    EXPECT_EQ(TimeOfLine(SubType(L"VLG"), L"20260101|093015|1"), 93015u);
    EXPECT_EQ(TimeOfLine(SubType(L"PFG"), L"235959|1"), 235959u);
    EXPECT_EQ(TimeOfLine(SubType(L"VLG"), L"x|000001"), 1u);
}

// All lines of this log once stood at the first moment of their day.
TEST(LogLineTest, TheTimeOfASkippedTaskIsTheFourthToken)
{
    EXPECT_EQ(TimeOfLine(SubType(L"SKP"), L"26||20261121|180000|1|0"), 180000u);
}

TEST(LogLineTest, ATimeThatIsNoneIsTheFirstMomentOfTheDay)
{
    for (const wchar_t* line : {L"", L"x", L"x|", L"x|12345|", L"x|12:30:00|", L"x|-12345|", L"x| 12345|"})
    {
        EXPECT_EQ(TimeOfLine(SubType(L"VLG"), line), 0u) << line;
    }
}

TEST(LogLineTest, ATimeBeyondTheDayIsItsLastMoment)
{
    EXPECT_EQ(TimeOfLine(SubType(L"VLG"), L"x|990000|"), 235959u);
}

} // namespace EventLog
