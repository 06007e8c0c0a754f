// The program of ./fuzz, and of the test that tries every harness with a fixed count of inputs.

#include "tests/fuzz/Run.h"
#include "tests/support/Seed.h"

#include <algorithm>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <iterator>

namespace
{

using namespace Fuzz;

struct Arguments
{
    std::vector<Harness> harnesses{};
    std::optional<std::chrono::seconds> time{};
};

// Nothing for a word that is no harness, --list among them.
std::optional<Arguments> Parse(const std::vector<std::string>& words)
{
    Arguments arguments;
    for (std::size_t i = 0; i < words.size(); ++i)
    {
        if (words[i] == "--minutes" && i + 1 < words.size())
        {
            arguments.time = std::chrono::seconds(static_cast<int>(60 * std::strtod(words[++i].c_str(), nullptr)));
        }
        else if (const auto found = std::ranges::find(Harnesses(), words[i], &Harness::name);
                 found != Harnesses().end())
        {
            arguments.harnesses.push_back(*found);
        }
        else
        {
            return std::nullopt;
        }
    }
    if (arguments.harnesses.empty())
    {
        arguments.harnesses = Harnesses();
    }
    return arguments;
}

} // namespace

// The exit status is 0 when nothing was found, 2 for a wrong command line.
int wmain(int argc, wchar_t** argv)
{
    std::ranges::sort(Harnesses(), {}, &Harness::name);
    std::vector<std::string> words;
    std::transform(argv + 1, argv + argc, std::back_inserter(words),
                   [](std::wstring_view word) { return std::string(word.begin(), word.end()); });
    const std::optional<Arguments> arguments = Parse(words);
    if (!arguments)
    {
        std::cout << "The harnesses are\n" << std::left;
        for (const Harness& harness : Harnesses())
        {
            std::cout << "  " << std::setw(16) << harness.name << harness.reads << "\n";
        }
        return 2;
    }
    const std::uint32_t seed = Seed();
    bool isGood = true;
    for (const Harness& harness : arguments->harnesses)
    {
        isGood = Run(harness, seed, arguments->time) && isGood;
    }
    return isGood ? 0 : 1;
}
