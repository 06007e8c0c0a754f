#pragma once

#include <string>

// Where the suite is installed and how it speaks, as its installer wrote it into the registry. No operation throws for
// an installation that is not there: it looks like an empty text, and the reason is traced.
namespace Frwk::Utility
{

// The suite's folder, as it was written: with or without a "\" at its end.
std::wstring GetInstalledFolder();

// The language name of the installed user interface, such as "en-US".
std::wstring GetLangName();

// The folder of the logs, with a "\" at its end; "Log\" below the current folder without an installation.
std::wstring GetLogFolder();

} // namespace Frwk::Utility
