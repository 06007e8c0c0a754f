#pragma once

#include "tests/fuzz/Harness.h"

// The harnesses.
namespace Fuzz
{

extern const Harness BitmapHarness;
extern const Harness CommandLineHarness;
extern const Harness DayFileHarness;
extern const Harness ImportHarness;
extern const Harness ImportCommandHarness;
extern const Harness LanguageHarness;
extern const Harness LineHarness;
extern const Harness ProviderHarness;
extern const Harness ReportHarness;
extern const Harness RuleTextHarness;
extern const Harness ServiceCommandHarness;
extern const Harness TokenHarness;
extern const Harness TraceSettingsHarness;
extern const Harness ValueFileHarness;
extern const Harness VariantHarness;

// Pieces of lines that the logs tell apart.
inline constexpr std::wstring_view LogWords =
    L"0 1 2 3 4 5 7 8 25 99 101 201 0x100000 1048577 1048579 01 0x10000000 268435456 80 | |||| \r\n \n "
    L"103015 2026/11/20 192.0.2.10 10.0.0.2 2001:db8::1 LIP a%Ib%%c 100%s \"quoted\" a\tb 03 48 -- 128 153 "
    L"__ZPT_SELF_PROTECT__ __ZPT_USER_DEFINED__";

} // namespace Fuzz
