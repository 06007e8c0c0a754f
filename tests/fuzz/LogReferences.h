#pragma once

#include "tests/support/CategoryService.h"
#include "tests/support/HostileDay.h"

#include <cstdint>
#include <string>
#include <vector>

// What must become of the lines of every kind of log, a second time and plainly.
namespace Fuzz
{

inline constexpr wchar_t LocalAddress[] = L"192.0.2.77";

// The plain reading of the lines of a log of this type that has just been made. Throws std::out_of_range for a type
// that has no log.
LogReference ReferenceOf(std::uint32_t type, bool fromDatabase, const CategoryService::Groups& groups);

using Fields = std::vector<std::wstring>;

// Which of two records of the type stands first by this column: negative, 0 or positive. Up or down are two orders,
// since one of them is not the other's reverse for every type.
int PlainOrder(std::uint32_t type, const Fields& first, const Fields& second, std::size_t column, bool isUp);

// The lines of an export file for these records, after the one of the labels.
std::wstring PlainExport(std::uint32_t type, const std::vector<Fields>& records);

} // namespace Fuzz
