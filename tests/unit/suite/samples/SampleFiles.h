#pragma once

#include "suite/samples/Kinds.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Samples
{

inline constexpr std::uint64_t Seeds[] = {1, 2, UINT64_MAX};

// The last day of the tests' months, a Saturday.
Date TestEnd();

// The lines of a log file's text, without line ends. A missing CR LF at its end and a stray CR or LF fail the running
// test. Here and below, pieces of a text are views: debug builds guard each block of memory with pages of its own, and
// a string for each token of a month would use up all that the system grants.
std::vector<std::wstring_view> Lines(std::wstring_view text);

// The tokens of a line, split at each bar.
using Record = std::vector<std::wstring_view>;
Record Split(std::wstring_view line);

// A token in decimal, or in hexadecimal with "0x" before it.
int Number(std::wstring_view token);

// "%%" and "%I" taken back. Any other use of "%" fails the running test.
std::wstring Unescape(std::wstring_view text);

// One daily file.
struct SampleDay
{
    std::filesystem::path name;
    std::span<const Record> records;
};

// The daily files of one kind for the 30 days that end with TestEnd, oldest first.
class SampleMonth
{
public:
    SampleMonth(std::wstring_view extension, std::uint64_t seed);
    SampleMonth(const SampleMonth&) = delete;
    SampleMonth& operator=(const SampleMonth&) = delete;

    const std::vector<SampleDay>& Days() const { return m_arrDay; }

    const std::vector<Record>& Records() const { return m_arrRecord; }

private:
    std::vector<std::wstring> m_arrText;
    std::vector<Record> m_arrRecord;
    std::vector<SampleDay> m_arrDay;
};

// The different values of one token, over the records that have it.
std::set<std::wstring> Values(const std::vector<Record>& records, std::size_t token);
std::set<int> Numbers(const std::vector<Record>& records, std::size_t token);

// The records for which `test` holds.
template <class Test>
std::vector<Record> Where(std::span<const Record> records, Test test)
{
    std::vector<Record> found;
    for (const Record& record : records)
    {
        if (test(record))
        {
            found.push_back(record);
        }
    }
    return found;
}

// Whether the token is a time, HHMMSS.
bool IsTime(std::wstring_view token);

// A test that runs once for each seed of the table.
class SampleMonthTest : public testing::TestWithParam<std::uint64_t>
{
};

} // namespace Samples

#define EACH_SEED(suite) INSTANTIATE_TEST_SUITE_P(Seeds, suite, testing::ValuesIn(Samples::Seeds))
