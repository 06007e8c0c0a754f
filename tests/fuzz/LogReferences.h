#pragma once

#include "tests/support/CategoryService.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/LogReference.h"

#include <cstdint>
#include <string>
#include <vector>

// What must become of the lines of every kind of log, a second time and plainly.
namespace Fuzz
{

// The machine's address as logs of this form are told it. Those of files are told none.
constexpr const wchar_t* LocalAddressOf(bool fromDatabase)
{
    return fromDatabase ? L"192.0.2.77" : L"";
}

// Pieces of lines that the logs tell apart.
inline constexpr std::wstring_view LogWords =
    L"0 1 2 3 4 5 7 8 25 99 101 201 0x100000 1048577 1048579 01 0x10000000 268435456 80 | |||| \r\n \n "
    L"103015 2026/11/20 2026/1/2 192.0.2.10 10.0.0.2 2001:db8::1 LIP a%Ib%%c 100%s \"quoted\" a\tb 03 48 -- 128 153 "
    L"__ZPT_SELF_PROTECT__ __ZPT_USER_DEFINED__";

// The plain reading of the lines of a log of this type that has just been made. Throws std::out_of_range for a type
// that has no log.
LogReference ReferenceOf(std::uint32_t type, bool fromDatabase, const CategoryService::Groups& groups);

using Fields = std::vector<std::wstring>;

// Which of two records of the type stands first by this column: negative, 0 or positive. Up or down are two orders,
// since one of them is not the other's reverse for every type.
int PlainOrder(std::uint32_t type, const Fields& first, const Fields& second, std::size_t column, bool isUp);

// The line of an export file for a record.
std::wstring PlainExport(std::uint32_t type, const Fields& record);

} // namespace Fuzz
