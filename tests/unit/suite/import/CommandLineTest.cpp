#include "suite/import/CommandLine.h"

#include "suite/common/Failure.h"
#include "suite/database/LogKinds.h"

#include <gtest/gtest.h>

namespace Import
{

namespace
{

using Arguments = std::vector<std::wstring>;

struct RefusalRow
{
    Arguments arguments;
    const char* part;
};

// The text with which the arguments are refused; the running test fails when they are taken.
std::string Refusal(const Arguments& arguments)
{
    try
    {
        ParseCommandLine(arguments);
    }
    catch (const Suite::Failure& failure)
    {
        EXPECT_EQ(failure.Code(), Suite::ExitCode::BadCommandLine);
        return failure.what();
    }
    ADD_FAILURE() << "the arguments were taken";
    return {};
}

} // namespace

TEST(ImportCommandLine, PathsAreCollectedInTheirOrder)
{
    const Arguments arguments = {L"b", L"--database", L"a.db", L"-a"};
    const Options options = ParseCommandLine(arguments);
    EXPECT_EQ(options.paths, (std::vector<std::filesystem::path>{L"b", L"-a"}));
    EXPECT_EQ(options.database, L"a.db");
    EXPECT_FALSE(options.help);
}

TEST(ImportCommandLine, WithoutADatabaseThatOfTheInstallationIsMeant)
{
    const Arguments arguments = {L"b"};
    EXPECT_EQ(ParseCommandLine(arguments).database, L"");
}

TEST(ImportCommandLine, WhatIsWrongIsToldWithTheWayToTheHelp)
{
    const RefusalRow rows[] = {
        {{}, "say which"},
        {{L"--database", L"a.db"}, "say which"},
        {{L"a", L"--database"}, "--database needs"},
        {{L"a", L"--database", L""}, "--database needs"},
        {{L"a", L"--database", L"b", L"--database", L"c"}, "once"},
        {{L"--folder", L"a"}, "no option \"--folder\""},
        {{L""}, "empty"},
    };
    for (const RefusalRow& row : rows)
    {
        const std::string text = Refusal(row.arguments);
        EXPECT_NE(text.find(row.part), std::string::npos) << text;
        EXPECT_NE(text.find("--help"), std::string::npos) << text;
    }
}

TEST(ImportCommandLine, HelpNeedsNothingElse)
{
    for (const Arguments& arguments : {Arguments{L"--help"}, Arguments{L"/?"}, Arguments{L"a", L"--help"}})
    {
        EXPECT_TRUE(ParseCommandLine(arguments).help);
    }
}

TEST(ImportCommandLine, HelpNamesOptionsExitStatusAndEveryKind)
{
    const std::string help = HelpText();
    for (const char* word : {"PATH", "--database", "--help", "exit status"})
    {
        EXPECT_NE(help.find(word), std::string::npos) << word;
    }
    for (const EventLog::LogKind& kind : EventLog::AllLogKinds())
    {
        EXPECT_NE(help.find(Suite::Utf8(kind.extension) + "  " + std::string(kind.title)), std::string::npos) << help;
    }
}

} // namespace Import
