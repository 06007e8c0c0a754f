#pragma once

#include "tests/fuzz/Harness.h"

// The harnesses, each in the file of its name.
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

} // namespace Fuzz
