// Tries each reader of foreign data: with the kept inputs of its harness, and with new ones.

#include "tests/fuzz/GuardedBlock.h"
#include "tests/fuzz/KeptInputs.h"
#include "tests/fuzz/Mutator.h"
#include "tests/support/CrashWatch.h"
#include "tests/support/Seed.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <ostream>
#include <set>

namespace Fuzz
{

// The list of the tests tells it.
void PrintTo(const Harness& harness, std::ostream* to)
{
    *to << harness.reads;
}

namespace
{

using Clock = std::chrono::steady_clock;

// Of the inputs from which others are made: small ones take less time, and say as much.
constexpr std::size_t MostInputs = 2000;
constexpr std::size_t MostUnits = 2048;

class FuzzTest : public ::testing::TestWithParam<Harness>
{
protected:
    void TryKnown()
    {
        std::vector<KeptInput> known = KeptInputs(m_harness);
        for (const std::wstring& sample : m_reader->Samples())
        {
            known.push_back({"good-sample", sample});
        }
        for (const KeptInput& input : known)
        {
            Try(input.units, "the input " + input.name, input.name.starts_with("good-"));
            m_inputs.push_back(input.units);
        }
    }

    // Up to the first finding: for this time, without one as many inputs as the harness says.
    void TryNew(const char* seconds)
    {
        const auto isEnd = [&](std::size_t count)
        { return seconds == nullptr ? count >= m_harness.inputs : Seconds() >= std::strtod(seconds, nullptr); };
        for (std::size_t count = 0; !isEnd(count) && !HasFailure(); ++count)
        {
            Try(m_mutator.Next(m_inputs), "a new input");
        }
    }

    void End() const
    {
        std::filesystem::remove(m_crash);
        std::cout << m_harness.name << ": " << m_nRead << " inputs in " << static_cast<std::uint64_t>(Seconds())
                  << " s, " << static_cast<std::uint64_t>(static_cast<double>(m_nRead) / Seconds()) << " a second, "
                  << m_outcomes.size() << " outcomes" << std::endl;
    }

private:
    double Seconds() const { return std::chrono::duration<double>(Clock::now() - m_start).count(); }

    // A finding is made small, told and left.
    void Try(const std::wstring& input, const std::string& which, bool isGood = false)
    {
        if (const std::optional<std::string> fault = FaultOf(input, isGood))
        {
            const std::wstring small = Smaller(input);
            ADD_FAILURE() << which << " (" << small.size() << " units), left in " << LeaveInput(m_harness, small)
                          << "\n"
                          << FaultOf(small).value_or(*fault);
        }
    }

    // What is wrong when the input is read. Others are made from one that took a new way.
    std::optional<std::string> FaultOf(const std::wstring& input, bool isGood = false)
    {
        try
        {
            ++m_nRead;
            const std::string_view bytes = m_block.Put(InputOf(input, m_harness.form));
            m_watch.Begin(m_harness.name, bytes);
            const std::size_t outcome = m_reader->Read(bytes);
            Expect(outcome != 0 || !isGood, "a good input is refused");
            const bool isNew = m_outcomes.insert(outcome).second;
            if (isNew && m_inputs.size() < MostInputs && input.size() <= MostUnits)
            {
                m_inputs.push_back(input);
            }
            return std::nullopt;
        }
        catch (const std::exception& fault)
        {
            return fault.what();
        }
    }

    // What is left of the input when everything is taken away that is not needed for a finding.
    std::wstring Smaller(std::wstring input)
    {
        for (std::size_t step = input.size() / 2; step > 0; step /= 2)
        {
            for (std::size_t at = 0; at < input.size();)
            {
                const std::wstring shorter = std::wstring(input).erase(at, step);
                const bool isFinding = FaultOf(shorter).has_value();
                input = isFinding ? shorter : input;
                at += isFinding ? 0 : step;
            }
        }
        return input;
    }

    static std::uint32_t SeedOfRun()
    {
        static const std::uint32_t seed = Seed();
        return seed;
    }

    const Clock::time_point m_start = Clock::now();
    const Harness& m_harness = GetParam();
    Mutator m_mutator{m_harness, SeedOfRun()};
    GuardedBlock m_block;
    const std::unique_ptr<Reader> m_reader = m_harness.make();
    const std::filesystem::path m_crash = TakeCrash(m_harness);
    CrashWatch m_watch{m_crash};
    std::vector<std::wstring> m_inputs;
    std::set<std::size_t> m_outcomes;
    std::uint64_t m_nRead = 0;
};

} // namespace

// An input that crashes, or takes longer than any may, ends the program, and is left by the next run.
TEST_P(FuzzTest, FindsNothing)
{
    TryKnown();
    TryNew(std::getenv("KESTRIX_FUZZ_SECONDS"));
    End();
}

INSTANTIATE_TEST_SUITE_P(Every, FuzzTest, ::testing::ValuesIn(Harnesses()),
                         [](const auto& test) { return test.param.name; });

} // namespace Fuzz
