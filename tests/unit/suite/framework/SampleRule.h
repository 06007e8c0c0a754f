#pragma once

#include "suite/framework/Value.h"

// A block of bytes, one element each.
inline Framework::List SampleBytes(std::size_t count)
{
    Framework::List list;
    for (std::size_t i = 0; i < count; ++i)
    {
        list.emplace_back(static_cast<std::uint8_t>(200 + i));
    }
    return list;
}

// A firewall rule with something else in every element.
inline Framework::List SampleRule(const std::wstring& name)
{
    const auto word = [](int value) { return static_cast<std::uint16_t>(value); };
    return {true,
            word(1),
            name,
            word(3),
            std::wstring(),
            word(5),
            word(1),
            word(7),
            word(8),
            std::wstring(L"1.2.3.4"),
            std::wstring(L"*"),
            word(11),
            12u,
            13u,
            SampleBytes(16),
            SampleBytes(16),
            0x10000u,
            word(17),
            std::wstring(L"80"),
            false,
            SampleBytes(20),
            SampleBytes(16),
            SampleBytes(16)};
}
