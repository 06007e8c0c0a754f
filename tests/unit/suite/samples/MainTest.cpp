#include "tests/unit/suite/samples/SampleFiles.h"

#include <process.h>

namespace Samples
{

namespace
{

// Runs the program and gives its exit status.
intptr_t RunProgram(const std::vector<std::wstring>& arguments)
{
    const std::wstring program = std::filesystem::path(SAMPLE_LOGS_PROGRAM).make_preferred().wstring();
    std::vector<const wchar_t*> command = {program.c_str()};
    for (const std::wstring& argument : arguments)
    {
        command.push_back(argument.c_str());
    }
    command.push_back(nullptr);
    return _wspawnv(_P_WAIT, program.c_str(), command.data());
}

} // namespace

TEST(MainTest, HelpEndsWithZero)
{
    EXPECT_EQ(RunProgram({L"--help"}), 0);
}

TEST(MainTest, AMonthIsWrittenAndEndsWithZero)
{
    const TemporaryFolder folder;
    EXPECT_EQ(
        RunProgram({L"--folder", folder.Path() / L"Журнал", L"--end", L"20240301", L"--days", L"2", L"--kind", L"PFG"}),
        0);
    EXPECT_NE(ReadUtf16(folder.Path() / L"Журнал" / L"20240301.PFG"), L"");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / L"Журнал" / L"20240301.VLG"));
}

TEST(MainTest, AFileOfLinesIsWrittenAndEndsWithZero)
{
    const TemporaryFolder folder;
    EXPECT_EQ(RunProgram({L"--lines", L"12", L"--kind", L"VLG", L"--file", folder.Path() / L"a.VLG"}), 0);
    EXPECT_EQ(Lines(ReadUtf16(folder.Path() / L"a.VLG")).size(), 12u);
}

TEST(MainTest, AnUnwritableFileEndsWithOne)
{
    const TemporaryFolder folder;
    EXPECT_EQ(RunProgram({L"--lines", L"1", L"--kind", L"VLG", L"--file", folder.Path() / L"no" / L"a.VLG"}), 1);
}

TEST(MainTest, AnUnknownOptionEndsWithTwo)
{
    EXPECT_EQ(RunProgram({L"--fodler", L"x"}), 2);
    EXPECT_EQ(RunProgram({}), 2);
}

} // namespace Samples
