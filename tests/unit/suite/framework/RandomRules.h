#pragma once

#include "suite/framework/Value.h"

#include <cstddef>
#include <random>
#include <string>

// Firewall rules with anything in their elements, the same for each seed. Some are short and like those of people, so
// that names and usual values occur as well.
class RandomRuleSource
{
public:
    explicit RandomRuleSource(unsigned seed) : m_random(seed) {}

    Framework::List Rule()
    {
        return {Bool(),   Word(), Text(), Word(), Text(),    Word(),    Word(),    Word(),
                Word(),   Text(), Text(), Word(), Number(),  Number(),  Bytes(16), Bytes(16),
                Number(), Word(), Text(), Bool(), Bytes(20), Bytes(16), Bytes(16)};
    }

private:
    unsigned Below(unsigned count) { return static_cast<unsigned>(m_random()) % count; }

    bool Bool() { return Below(2) == 0; }

    std::uint16_t Word() { return static_cast<std::uint16_t>(Bool() ? Below(3) : Below(0x10000)); }

    std::uint32_t Number() { return Bool() ? (Bool() ? 0x10000 : Below(60)) : static_cast<std::uint32_t>(m_random()); }

    // Any units but the terminator, or the letters that mean something in a text of rules.
    std::wstring Text()
    {
        constexpr std::wstring_view letters = L"ab-\"% \t#=\\,Я日";
        std::wstring text(Below(50) == 0 ? Below(300) : Below(12), L' ');
        const bool isPlain = Bool();
        for (wchar_t& unit : text)
        {
            unit = isPlain ? letters[Below(letters.size())] : static_cast<wchar_t>(1 + Below(0xFFFF));
        }
        return text;
    }

    Framework::List Bytes(std::size_t count)
    {
        Framework::List bytes(count, std::uint8_t{0});
        if (Bool())
        {
            for (Framework::Value& byte : bytes)
            {
                byte = static_cast<std::uint8_t>(m_random());
            }
        }
        return bytes;
    }

    std::mt19937 m_random;
};

inline Framework::List RandomRules(std::size_t count, unsigned seed)
{
    RandomRuleSource source(seed);
    Framework::List rules;
    for (std::size_t i = 0; i < count; ++i)
    {
        rules.emplace_back(source.Rule());
    }
    return rules;
}
