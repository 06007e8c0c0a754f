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
    std::string Next(const std::vector<std::string>& inputs);

private:
    template <class Text>
    Text Mutated(const std::vector<std::string>& inputs);

    template <class Text>
    void ChangeOnce(Text& text, const Text& other);

    template <class Text>
    void ChangePiece(Text& text, const Text& other);

    template <class Text>
    void ChangeRange(Text& text, const Text& other);

    void ChangeNumber(std::string& bytes);

    template <class Text>
    std::pair<std::size_t, std::size_t> Piece(const Text& text); // where it begins, and its length

    template <class Text>
    Text Word();

    template <class Unit>
    Unit UnitOfChance();

    std::size_t Below(std::size_t limit) { return m_random() % limit; }

    bool OneIn(std::size_t count) { return Below(count) == 0; }

    const Harness& m_harness;
    std::vector<std::wstring_view> m_words;
    std::mt19937 m_random;
};

} // namespace Fuzz
