#include "suite/samples/Month.h"

#include "suite/common/Failure.h"
#include "tests/unit/suite/samples/SampleFiles.h"

#include <algorithm>
#include <map>

namespace Samples
{

namespace
{

constexpr std::size_t NoDate = 99;

// What a line looks like: its possible numbers of tokens, none when they are not told, and which of them are its date
// and its time.
struct Shape
{
    std::wstring_view extension;
    std::set<std::size_t> tokenCounts;
    std::size_t date = 0;
    std::size_t time = 1;

    // All lines of a kind whose numbers of tokens are not told have that of the first.
    bool Allows(const Record& record)
    {
        if (tokenCounts.empty())
        {
            tokenCounts.insert(record.size());
        }
        return tokenCounts.contains(record.size());
    }
};

const Shape Shapes[] = {
    {L"VLG", {11, 12, 13}, 0, 1}, {L"UPG", {8}, 0, 1},    {L"UFG", {8}, 0, 1},
    {L"PFG", {16}, NoDate, 0},    {L"PTG", {4, 5}, 0, 1}, {L"PPG", {8}, 0, 1},
    {L"HLG", {8}, 0, 1},          {L"VAG", {6}, 0, 1},    {L"SPG", {9, 10, 14, 15, 16}, 0, 1},
    {L"SCG", {14}, 0, 1},         {L"STC", {7}, 0, 1},    {L"SCI", {13}, 0, 1},
    {L"SKP", {6}, 2, 3},
};

Shape ShapeOf(const Kind& kind)
{
    const auto found = std::ranges::find(Shapes, kind.extension, &Shape::extension);
    return found == std::end(Shapes) ? Shape{kind.extension, {}} : *found;
}

std::vector<const Kind*> EveryKind()
{
    std::vector<const Kind*> kinds;
    for (const Kind& kind : AllKinds())
    {
        kinds.push_back(&kind);
    }
    return kinds;
}

// File names and bytes of a folder.
using Content = std::map<std::filesystem::path, std::string>;

Content ReadFolder(const std::filesystem::path& folder)
{
    Content content;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
    {
        content[entry.path().filename()] = ReadBytes(entry.path());
    }
    return content;
}

Content WriteAndRead(std::span<const Kind* const> kinds, Date end, unsigned days, std::uint64_t seed)
{
    const TemporaryFolder folder;
    WriteMonth(folder.Path(), kinds, end, days, seed);
    return ReadFolder(folder.Path());
}

Content OfKind(const Content& content, std::wstring_view extension)
{
    Content found;
    std::ranges::copy_if(content, std::inserter(found, found.end()),
                         [&](const auto& file) { return file.first.extension().wstring().substr(1) == extension; });
    return found;
}

// The date in a file's name, or one far away when the name isn't a date and an extension.
Date DateOfName(const std::filesystem::path& name)
{
    using namespace std::chrono;
    const std::wstring text = name.wstring();
    if (text.size() != 12 || text.find_first_not_of(L"0123456789") != 8 || text[8] != L'.')
    {
        return Date::max();
    }
    const year_month_day date(year(std::stoi(text.substr(0, 4))), month(std::stoi(text.substr(4, 2))),
                              day(std::stoi(text.substr(6, 2))));
    return date.ok() ? Date(date) : Date::max();
}

} // namespace

TEST(MonthTest, TheSameSeedAndEndGiveTheSameBytes)
{
    const Content first = WriteAndRead(EveryKind(), TestEnd(), 30, 7);
    EXPECT_GT(first.size(), 200u);
    EXPECT_EQ(first, WriteAndRead(EveryKind(), TestEnd(), 30, 7));
}

TEST(MonthTest, AnotherSeedGivesOtherBytesInEveryKind)
{
    const Content first = WriteAndRead(EveryKind(), TestEnd(), 30, 7);
    const Content second = WriteAndRead(EveryKind(), TestEnd(), 30, 8);
    for (const Kind& kind : AllKinds())
    {
        EXPECT_NE(OfKind(first, kind.extension), OfKind(second, kind.extension))
            << std::filesystem::path(kind.extension);
    }
}

TEST(MonthTest, AKindIsTheSameWithAndWithoutTheOthers)
{
    const Content all = WriteAndRead(EveryKind(), TestEnd(), 30, 7);
    for (const Kind* kind : EveryKind())
    {
        EXPECT_EQ(WriteAndRead({&kind, 1}, TestEnd(), 30, 7), OfKind(all, kind->extension))
            << std::filesystem::path(kind->extension);
    }
}

TEST(MonthTest, FileNamesAreDatesOfTheThirtyDaysWithAKindBehindThem)
{
    for (const auto& [name, bytes] : WriteAndRead(EveryKind(), TestEnd(), 30, 1))
    {
        const Date date = DateOfName(name);
        EXPECT_GT(date, TestEnd() - std::chrono::days(30)) << name;
        EXPECT_LE(date, TestEnd()) << name;
        EXPECT_NE(FindKind(name.extension().wstring().substr(1)), nullptr) << name;
    }
}

TEST(MonthTest, DaysGoBackOverTheEndsOfMonthsAndYears)
{
    using namespace std::chrono;
    const Kind* const kind = FindKind(L"PFG");
    std::set<Date> dates;
    for (const auto& [name, bytes] : WriteAndRead({&kind, 1}, year(2024) / March / 1, 70, 1))
    {
        dates.insert(DateOfName(name));
    }
    EXPECT_LT(*dates.begin(), Date(year(2024) / January / 1));
    EXPECT_TRUE(dates.contains(year(2024) / February / 29));
    EXPECT_EQ(*dates.rbegin(), Date(year(2024) / March / 1));
}

class KindMonthTest : public SampleMonthTest
{
};

TEST_P(KindMonthTest, EveryKindHasALastDayAndNoEmptyFile)
{
    for (const Kind& kind : AllKinds())
    {
        const SampleMonth month(kind.extension, GetParam());
        const std::vector<SampleDay>& days = month.Days();
        ASSERT_FALSE(days.empty());
        EXPECT_EQ(days.back().name.stem().wstring(), DateText(TestEnd()));
        for (const SampleDay& day : days)
        {
            EXPECT_FALSE(day.records.empty()) << day.name;
        }
    }
}

TEST_P(KindMonthTest, SomeKindsHaveDaysWithoutAFile)
{
    EXPECT_LT(SampleMonth(L"SKP", GetParam()).Days().size(), 30u);
    EXPECT_LT(SampleMonth(L"VAG", GetParam()).Days().size(), 30u);
}

TEST_P(KindMonthTest, LinesHaveTheTokensOfTheirKindWithDateAndTimeAscending)
{
    for (const Kind& kind : AllKinds())
    {
        Shape shape = ShapeOf(kind);
        const SampleMonth month(kind.extension, GetParam());
        for (const SampleDay& day : month.Days())
        {
            std::wstring_view before = L"000000";
            for (const Record& record : day.records)
            {
                ASSERT_TRUE(shape.Allows(record)) << day.name << " " << record.size();
                EXPECT_TRUE(shape.date == NoDate || record[shape.date] == day.name.stem().wstring()) << day.name;
                EXPECT_TRUE(IsTime(record[shape.time])) << day.name;
                EXPECT_GE(record[shape.time], before) << day.name;
                before = record[shape.time];
            }
        }
    }
}

TEST_P(KindMonthTest, LinesFitIntoTheReadersBuffer)
{
    const TemporaryFolder folder;
    WriteMonth(folder.Path(), EveryKind(), TestEnd(), 30, GetParam());
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
    {
        const std::wstring text = ReadUtf16(entry.path());
        for (const std::wstring_view line : Lines(text))
        {
            EXPECT_LE(line.size(), 2044u) << entry.path();
            EXPECT_EQ(std::ranges::count_if(line, [](wchar_t c) { return c < L' ' || c == L'\t'; }), 0) << entry.path();
        }
    }
}

TEST_P(KindMonthTest, WorkingDaysAreBusierThanWeekends)
{
    std::map<bool, std::pair<std::size_t, std::size_t>> daysAndRecords;
    const SampleMonth month(L"VLG", GetParam());
    for (const SampleDay& day : month.Days())
    {
        const std::chrono::weekday weekday(DateOfName(day.name));
        if (DateOfName(day.name) != TestEnd())
        {
            auto& [days, records] = daysAndRecords[weekday == std::chrono::Saturday || weekday == std::chrono::Sunday];
            days += 1;
            records += day.records.size();
        }
    }
    EXPECT_GT(daysAndRecords[false].second * daysAndRecords[true].first,
              daysAndRecords[true].second * daysAndRecords[false].first);
}

EACH_SEED(KindMonthTest);

TEST(MonthTest, OtherFilesInTheFolderStay)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"notes.txt"), "mine");
    const Kind* const kind = FindKind(L"VLG");
    WriteMonth(folder.Path(), {&kind, 1}, TestEnd(), 1, 1);
    EXPECT_EQ(ReadBytes(folder.Path() / "notes.txt"), "mine");
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "20261121.VLG"));
}

TEST(MonthTest, AFolderThatCannotBeMadeIsToldWithARemedy)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"taken"), "a file");
    const Kind* const kind = FindKind(L"VLG");
    try
    {
        WriteMonth(folder.Path() / "taken" / "Log", {&kind, 1}, TestEnd(), 1, 1);
        FAIL() << "the folder was made";
    }
    catch (const Suite::Failure& failure)
    {
        const std::string text = failure.what();
        EXPECT_EQ(failure.Code(), Suite::ExitCode::WorkFailed);
        EXPECT_NE(text.find("cannot make the folder"), std::string::npos) << text;
        EXPECT_NE(text.find("Check that its drive exists"), std::string::npos) << text;
    }
}

TEST(LinesTest, AsManyLinesAsAskedForInOneDay)
{
    const TemporaryFolder folder;
    for (const std::uint64_t count : {0, 1, 2, 1000})
    {
        WriteLines(folder.Path() / "a.VLG", *FindKind(L"VLG"), TestEnd(), count, 1);
        std::wstring_view before = L"000000";
        const std::wstring text = ReadUtf16(folder.File(L"a.VLG"));
        const std::vector<std::wstring_view> lines = Lines(text);
        ASSERT_EQ(lines.size(), count);
        for (const std::wstring_view line : lines)
        {
            const Record record = Split(line);
            EXPECT_EQ(record[0], L"20261121");
            EXPECT_GE(record[1], before);
            before = record[1];
        }
        EXPECT_TRUE(count < 1000 || before > L"235700") << std::filesystem::path(before);
    }
}

TEST(LinesTest, EveryKindCanFillAFile)
{
    const TemporaryFolder folder;
    for (const Kind& kind : AllKinds())
    {
        Shape shape = ShapeOf(kind);
        WriteLines(folder.Path() / "a", kind, TestEnd(), 300, 1);
        const std::wstring text = ReadUtf16(folder.File(L"a"));
        const std::vector<std::wstring_view> lines = Lines(text);
        EXPECT_EQ(lines.size(), 300u);
        for (const std::wstring_view line : lines)
        {
            EXPECT_TRUE(shape.Allows(Split(line))) << std::filesystem::path(line);
        }
    }
}

TEST(LinesTest, TheSameSeedGivesTheSameFileAndAnotherAnother)
{
    const TemporaryFolder folder;
    for (const auto& [name, seed] : {std::pair("a", 1), {"b", 1}, {"c", 2}})
    {
        WriteLines(folder.Path() / name, *FindKind(L"VLG"), TestEnd(), 100, static_cast<std::uint64_t>(seed));
    }
    EXPECT_EQ(ReadBytes(folder.Path() / "a"), ReadBytes(folder.Path() / "b"));
    EXPECT_NE(ReadBytes(folder.Path() / "a"), ReadBytes(folder.Path() / "c"));
}

TEST(LinesTest, AVirusRecordTakesAbout206Bytes)
{
    const TemporaryFolder folder;
    WriteLines(folder.Path() / "a.VLG", *FindKind(L"VLG"), TestEnd(), 5000, 1);
    EXPECT_NEAR(static_cast<double>(std::filesystem::file_size(folder.Path() / "a.VLG")) / 5000, 206, 6);
}

} // namespace Samples
