#include "tests/fuzz/Run.h"

#include "tests/fuzz/GuardedBlock.h"
#include "tests/fuzz/KeptInputs.h"
#include "tests/fuzz/Mutator.h"
#include "tests/support/CrashWatch.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <iostream>
#include <set>

namespace Fuzz
{

namespace
{

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// Of the inputs from which others are made: small ones take less time, and say as much.
constexpr std::size_t MostInputs = 2000;
constexpr std::size_t MostUnits = 2048;

// Where the bytes of an input are left at which the program crashes, or that is read longer than any may take.
fs::path CrashOf(const Harness& harness)
{
    return FindingsFolder() / (std::string(harness.name) + ".crash");
}

// Leaves the input of the last crash as others. An empty file is that of a run that was ended with its program.
void TakeLastCrash(const Harness& harness)
{
    std::error_code none;
    if (fs::file_size(CrashOf(harness), none) > 0 && !none)
    {
        const std::wstring input = UnitsOf(ReadBytes(CrashOf(harness).wstring()), harness.form);
        std::cout << harness.name << ": the last run crashed; the input is in " << LeaveInput(harness, input).string()
                  << std::endl;
    }
}

class Runner
{
public:
    Runner(const Harness& harness, std::uint32_t seed)
        : m_harness(harness), m_nSeed(seed), m_mutator(harness, seed), m_reader(harness.make())
    {
    }

    bool Run(std::optional<std::chrono::seconds> time)
    {
        const Clock::time_point start = Clock::now();
        const bool isGood = TryKnown() && TryNew(start, time);
        const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
        std::cout << m_harness.name << ": " << m_nRead << " inputs in " << static_cast<std::uint64_t>(seconds) << " s, "
                  << static_cast<std::uint64_t>(static_cast<double>(m_nRead) / seconds) << " a second, "
                  << m_outcomes.size() << " outcomes" << std::endl;
        return isGood;
    }

private:
    bool TryKnown()
    {
        std::vector<KeptInput> known = KeptInputs(m_harness);
        for (const std::wstring& sample : m_reader->Samples())
        {
            known.push_back({"good-sample", sample});
        }
        for (const KeptInput& input : known)
        {
            if (!Try(input.units, "the input " + input.name, input.name.starts_with("good-")))
            {
                return false;
            }
            m_inputs.push_back(input.units);
        }
        return true;
    }

    bool TryNew(Clock::time_point start, std::optional<std::chrono::seconds> time)
    {
        const auto isEnd = [&](std::size_t count)
        { return time ? Clock::now() - start >= *time : count >= m_harness.inputs; };
        for (std::size_t count = 0; !isEnd(count); ++count)
        {
            if (!Try(m_mutator.Next(m_inputs), "a new input"))
            {
                return false;
            }
        }
        return true;
    }

    bool Try(const std::wstring& input, const std::string& which, bool isGood = false)
    {
        const std::optional<std::string> fault = FaultOf(input, isGood);
        if (fault)
        {
            const std::wstring small = Smaller(input);
            std::cout << m_harness.name << ": " << which << " (" << small.size() << " units, seed " << m_nSeed
                      << "), left in " << LeaveInput(m_harness, small).string() << "\n"
                      << FaultOf(small).value_or(*fault) << std::endl;
        }
        return !fault;
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

    const Harness& m_harness;
    const std::uint32_t m_nSeed;
    Mutator m_mutator;
    GuardedBlock m_block;
    const std::unique_ptr<Reader> m_reader;
    CrashWatch m_watch{CrashOf(m_harness)};
    std::vector<std::wstring> m_inputs;
    std::set<std::size_t> m_outcomes;
    std::uint64_t m_nRead = 0;
};

} // namespace

bool Run(const Harness& harness, std::uint32_t seed, std::optional<std::chrono::seconds> time)
{
    TakeLastCrash(harness);
    const bool isGood = Runner(harness, seed).Run(time);
    fs::remove(CrashOf(harness));
    return isGood;
}

} // namespace Fuzz
