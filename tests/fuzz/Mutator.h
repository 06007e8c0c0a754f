#pragma once

#include "tests/fuzz/Harness.h"

#include <cstdint>
#include <random>

namespace Fuzz
{

// Makes inputs from others: pieces between separators are emptied, doubled, exchanged and replaced by words of the
// harness and by hostile tokens; bytes become numbers at which sizes and counts change their sign or wrap; ranges go,
// come twice or come from another input. The same for the same seed and inputs.
class Mutator
{
public:
    Mutator(const Harness& harness, std::uint32_t seed);

    // A changed copy of one of these, of which there must be one at least.
    std::wstring Next(const std::vector<std::wstring>& inputs);

private:
    void ChangeOnce(std::wstring& text, const std::wstring& other);
    void ChangeNumber(std::wstring& bytes);
    std::pair<std::size_t, std::size_t> Part(const std::wstring& text); // where it begins, and its length
    std::wstring Counterpart(const std::wstring& text, std::size_t begin);
    const std::wstring& Word();
    wchar_t UnitOfChance();

    std::size_t Below(std::size_t limit) { return m_random() % limit; }

    bool IsSeparator(wchar_t unit) const { return m_harness.separators.find(unit) != std::wstring_view::npos; }

    bool OneIn(std::size_t count) { return Below(count) == 0; }

    const Harness& m_harness;
    std::vector<std::wstring> m_words; // in units, as the tokens
    std::vector<std::wstring> m_hostileTokens;
    std::mt19937 m_random;
};

} // namespace Fuzz
