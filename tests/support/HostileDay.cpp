#include "tests/support/HostileDay.h"

#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "tests/support/DebugScale.h"
#include "tests/support/Seed.h"
#include "tests/support/VisibleText.h"

#include <gtest/gtest.h>

#include <string_view>

namespace
{

constexpr std::size_t Lines = Scaled(20'000);
constexpr std::size_t LongestShown = 2000; // characters

std::string Cut(std::wstring_view text)
{
    return text.size() <= LongestShown
               ? Visible(text)
               : Visible(text.substr(0, LongestShown)) + "... (" + std::to_string(text.size()) + " characters)";
}

std::string Story(const std::optional<ExpectedRecord>& record)
{
    if (!record)
    {
        return "refused\n";
    }
    std::string story = "icon " + std::to_string(record->icon) + "\n";
    for (std::size_t field = 0; field < record->fields.size(); ++field)
    {
        story += "  " + std::to_string(field) + " " + Cut(record->fields[field]) + "\n";
    }
    return story;
}

std::optional<ExpectedRecord> Put(CZPTLogBase& log, std::wstring_view line)
{
    const std::size_t before = log.GetLogCount();
    const bool put = log.PutRecode(line, CZPTLogBase::AnyLine);
    EXPECT_EQ(log.GetLogCount(), before + (put ? 1 : 0));
    if (!put)
    {
        return std::nullopt;
    }
    const LogRec& record = *log.GetLogRecord(before);
    return ExpectedRecord{record.nImage, {record.strData.begin(), record.strData.end()}};
}

bool IsSame(const std::optional<ExpectedRecord>& left, const std::optional<ExpectedRecord>& right)
{
    return left.has_value() == right.has_value() &&
           (!left || (left->icon == right->icon && left->fields == right->fields));
}

} // namespace

void ExpectHostileDay(CZPTLogBase& log, const LogReference& reference, const LineShape& shape)
{
    const std::uint32_t seed = Seed();
    HostileLines lines(seed, shape);
    std::size_t records = 0;
    for (std::size_t number = 1; number <= Lines; ++number)
    {
        const std::wstring line = lines.Next();
        const std::optional<ExpectedRecord> found = Put(log, line);
        const std::optional<ExpectedRecord> expected = reference(line);
        ASSERT_TRUE(IsSame(found, expected)) << "line " << number << " of KESTRIX_SEED=" << seed << ": " << Cut(line)
                                             << "\nthe log: " << Story(found) << "the reference: " << Story(expected);
        records += found ? 1 : 0;
    }
    EXPECT_GT(records, Lines / 4) << "with so few lines that become records the day says little";
    EXPECT_LT(records, Lines) << "no line was refused";
}
