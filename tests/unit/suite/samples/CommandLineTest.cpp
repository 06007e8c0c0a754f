#include "suite/samples/CommandLine.h"

#include "suite/common/Failure.h"
#include "suite/samples/Kinds.h"

#include <gtest/gtest.h>

namespace Samples
{

namespace
{

using namespace std::chrono;

const Date Today = year(2026) / May / 4;

Options Parse(const std::vector<std::wstring>& arguments)
{
    return ParseCommandLine(arguments, Today);
}

// The text with which the arguments are refused; the running test fails when they are taken.
std::string Refusal(const std::vector<std::wstring>& arguments)
{
    try
    {
        Parse(arguments);
    }
    catch (const Suite::Failure& failure)
    {
        EXPECT_EQ(failure.Code(), Suite::ExitCode::BadCommandLine);
        return failure.what();
    }
    ADD_FAILURE() << "the arguments were taken";
    return {};
}

void ExpectRefusal(const std::vector<std::wstring>& arguments, const std::string& part)
{
    const std::string text = Refusal(arguments);
    EXPECT_NE(text.find(part), std::string::npos) << text;
    EXPECT_NE(text.find("--help"), std::string::npos) << text;
}

// The extensions of all kinds in their order, with blanks between them.
std::string NamesOfKinds()
{
    std::string names;
    for (const Kind& kind : AllKinds())
    {
        names += names.empty() ? "" : " ";
        names.append(kind.extension.begin(), kind.extension.end());
    }
    return names;
}

} // namespace

TEST(CommandLineTest, AFolderAloneMeansThirtyDaysOfAllKindsUpToToday)
{
    const Options options = Parse({L"--folder", L"C:\\Log"});
    EXPECT_EQ(options.folder, L"C:\\Log");
    EXPECT_EQ(options.end, Today);
    EXPECT_EQ(options.days, 30u);
    EXPECT_EQ(options.seed, 1u);
    EXPECT_EQ(options.kinds.size(), AllKinds().size());
    EXPECT_FALSE(options.lines);
    EXPECT_FALSE(options.help);
}

TEST(CommandLineTest, EveryOptionOfAMonthIsTaken)
{
    const Options options = Parse({L"--kind", L"VLG", L"--end", L"20240229", L"--days", L"7", L"--seed",
                                   L"18446744073709551615", L"--kind", L"SKP", L"--folder", L"x"});
    EXPECT_EQ(options.end, Date(year(2024) / February / 29));
    EXPECT_EQ(options.days, 7u);
    EXPECT_EQ(options.seed, UINT64_MAX);
    ASSERT_EQ(options.kinds.size(), 2u);
    EXPECT_EQ(options.kinds[0]->extension, L"VLG");
    EXPECT_EQ(options.kinds[1]->extension, L"SKP");
}

TEST(CommandLineTest, LinesWithKindAndFileAskForOneFile)
{
    const Options options = Parse({L"--lines", L"1000000", L"--kind", L"VLG", L"--file", L"big.VLG"});
    EXPECT_EQ(options.lines, 1'000'000u);
    EXPECT_EQ(options.file, L"big.VLG");
    ASSERT_EQ(options.kinds.size(), 1u);
    EXPECT_EQ(options.kinds[0]->extension, L"VLG");
}

TEST(CommandLineTest, AMonthMayGoIntoADatabaseWithAFolderOrAlone)
{
    const Options alone = Parse({L"--database", L"a.db", L"--kind", L"VLG"});
    EXPECT_EQ(alone.database, L"a.db");
    EXPECT_EQ(alone.folder, L"");
    EXPECT_EQ(alone.kinds.size(), 1u);
    EXPECT_EQ(Parse({L"--database", L"a.db", L"--folder", L"x"}).folder, L"x");
}

TEST(CommandLineTest, AFileOfLinesDoesNotGoIntoADatabase)
{
    ExpectRefusal({L"--lines", L"5", L"--file", L"x", L"--kind", L"VLG", L"--database", L"b"},
                  "no --folder or --database");
    ExpectRefusal({L"--database", L"b", L"--file", L"x"}, "--file");
}

TEST(CommandLineTest, HelpNeedsNothingElse)
{
    EXPECT_TRUE(Parse({L"--help"}).help);
    EXPECT_TRUE(Parse({L"--folder", L"x", L"--help"}).help);
}

TEST(CommandLineTest, HelpNamesEveryOptionAndKind)
{
    const std::string help = HelpText();
    for (const char* word :
         {"--folder", "--database", "--end", "--days", "--seed", "--kind", "--lines", "--file", "--help"})
    {
        EXPECT_NE(help.find(word), std::string::npos) << word;
    }
    EXPECT_NE(help.find(NamesOfKinds()), std::string::npos) << help;
}

TEST(CommandLineTest, AnUnknownOptionIsNamed)
{
    ExpectRefusal({L"--fodler", L"x"}, "no option \"--fodler\"");
    ExpectRefusal({L"C:\\Log"}, "no option \"C:\\Log\"");
}

TEST(CommandLineTest, AnOptionWithoutItsValueIsNamed)
{
    ExpectRefusal({L"--folder", L"x", L"--end"}, "--end needs a value");
}

TEST(CommandLineTest, ADateThatIsNoneIsRefused)
{
    for (const wchar_t* date :
         {L"20250229", L"20251301", L"20250100", L"2025-01-01", L"250101", L"202501011", L"today", L"", L"19101231"})
    {
        ExpectRefusal({L"--folder", L"x", L"--end", date}, "YYYYMMDD");
    }
}

TEST(CommandLineTest, ANumberThatIsNoneOrOutOfItsRangeIsRefused)
{
    for (const wchar_t* days : {L"0", L"3661", L"-1", L"ten", L"", L"7x", L"99999999999999999999"})
    {
        ExpectRefusal({L"--folder", L"x", L"--days", days}, "--days takes a whole number from 1 to 3660");
    }
    ExpectRefusal({L"--folder", L"x", L"--seed", L"18446744073709551616"}, "--seed takes");
    ExpectRefusal({L"--kind", L"VLG", L"--file", L"x", L"--lines", L"100000001"}, "--lines takes");
}

TEST(CommandLineTest, AnUnknownKindIsRefusedWithTheListOfKinds)
{
    ExpectRefusal({L"--folder", L"x", L"--kind", L"XYZ"}, NamesOfKinds());
    ExpectRefusal({L"--folder", L"x", L"--kind", L"vlg"}, "not \"vlg\"");
}

TEST(CommandLineTest, NeitherTaskOrBothAreRefused)
{
    ExpectRefusal({}, "--folder");
    ExpectRefusal({L"--seed", L"2"}, "--folder");
    ExpectRefusal({L"--folder", L""}, "not an empty text");
    ExpectRefusal({L"--folder", L"x", L"--file", L"y"}, "--folder");
    ExpectRefusal({L"--lines", L"5"}, "give it --file and one --kind");
    ExpectRefusal({L"--lines", L"5", L"--file", L"x"}, "give it --file and one --kind");
    ExpectRefusal({L"--lines", L"5", L"--kind", L"VLG"}, "give it --file and one --kind");
    ExpectRefusal({L"--lines", L"5", L"--file", L"x", L"--kind", L"VLG", L"--kind", L"SPG"}, "one --kind");
    ExpectRefusal({L"--lines", L"5", L"--file", L"x", L"--kind", L"VLG", L"--folder", L"y"}, "no --folder");
}

} // namespace Samples
