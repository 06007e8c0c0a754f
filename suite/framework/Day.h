#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace Framework
{

// A local date as YYYYMMDD; such numbers order as the dates do.
constexpr std::uint32_t DayOf(std::chrono::year_month_day date)
{
    return static_cast<std::uint32_t>(static_cast<int>(date.year())) * 10'000 +
           static_cast<unsigned>(date.month()) * 100 + static_cast<unsigned>(date.day());
}

// A day as people read it, YYYY-MM-DD.
inline std::string TextOf(std::uint32_t day)
{
    std::string text = std::to_string(day);
    return text.insert(text.size() - 4, 1, '-').insert(text.size() - 2, 1, '-');
}

// Nothing when the number is no date of the years 1601 to 9999, which are those of the system.
constexpr std::optional<std::chrono::year_month_day> DateOf(std::uint32_t day)
{
    const std::uint32_t year = day / 10'000;
    const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(year)),
                                           std::chrono::month(day / 100 % 100), std::chrono::day(day % 100));
    return year >= 1601 && year <= 9999 && date.ok() ? std::optional(date) : std::nullopt;
}

} // namespace Framework
