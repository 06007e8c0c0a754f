#include "suite/framework/CommandLine.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Framework;
using namespace std::chrono_literals;

namespace
{

Options Parse(const std::vector<std::wstring>& arguments)
{
    return ParseCommandLine(arguments);
}

} // namespace

TEST(CommandLineTest, NoArgumentAndWhatTheSystemAddsServe)
{
    EXPECT_EQ(Parse({}).task, Task::Serve);
    EXPECT_EQ(Parse({L"-Embedding"}).task, Task::Serve);
    EXPECT_EQ(Parse({L"/Embedding"}).idle, 5000ms);
}

TEST(CommandLineTest, TasksHaveEitherMarkAndAnyCase)
{
    EXPECT_EQ(Parse({L"/RegServer"}).task, Task::Register);
    EXPECT_EQ(Parse({L"-UNREGSERVER"}).task, Task::Unregister);
    EXPECT_EQ(Parse({L"/exit"}).task, Task::Exit);
    EXPECT_EQ(Parse({L"/?"}).task, Task::Help);
}

TEST(CommandLineTest, RulesArePrintedOrLoadedFromTheFileThatFollows)
{
    EXPECT_EQ(Parse({L"/Rules"}).task, Task::Rules);
    EXPECT_TRUE(Parse({L"/rules"}).rules.empty());
    EXPECT_EQ(Parse({L"/Rules", L"my rules.txt"}).rules, L"my rules.txt");
    EXPECT_EQ(Parse({L"-RULES", L"/lists/rules.txt"}).rules, L"/lists/rules.txt");
    EXPECT_THROW(Parse({L"rules.txt", L"/Rules"}), BadCommandLine);
    EXPECT_THROW(Parse({L"/Rules", L"one.txt", L"two.txt"}), BadCommandLine);
    EXPECT_THROW(Parse({L"/Rules", L""}), BadCommandLine);
    EXPECT_THROW(Parse({L"/Exit", L"rules.txt"}), BadCommandLine);
}

// "/Rules rules.txt /Exit" loaded no rules, ended the service and said nothing of it.
TEST(CommandLineTest, ASecondTaskIsRefused)
{
    EXPECT_THROW(Parse({L"/Rules", L"rules.txt", L"/Exit"}), BadCommandLine);
    EXPECT_THROW(Parse({L"/RegServer", L"/UnregServer"}), BadCommandLine);
    EXPECT_EQ(Parse({L"/Exit", L"-exit"}).task, Task::Exit);
}

TEST(CommandLineTest, TheIdleTimeIsMilliseconds)
{
    const Options options = Parse({L"/RegServer", L"/Idle:250"});
    EXPECT_EQ(options.task, Task::Register);
    EXPECT_EQ(options.idle, 250ms);
    EXPECT_EQ(Parse({L"/idle:99999999"}).idle, 99'999'999ms);
}

TEST(CommandLineTest, WhatIsNoArgumentIsRefused)
{
    for (const wchar_t* const argument : {L"", L"/", L"RegServer", L"/RegSever", L"/Idle", L"/Idle:", L"/Idle:-1",
                                          L"/Idle:5s", L"/Idle:100000000", L"/RegServer2"})
    {
        EXPECT_THROW(Parse({argument}), BadCommandLine) << argument;
    }
}

TEST(CommandLineTest, TheServicesCommandLineHasTheQuotedPathAndAnIdleTimeThatDiffers)
{
    EXPECT_EQ(ServiceCommandLine(L"C:\\a b\\s.exe", {}), L"\"C:\\a b\\s.exe\"");
    EXPECT_EQ(ServiceCommandLine(L"s.exe", {Task::Register, 1ms}), L"\"s.exe\" /idle:1");
}
