#pragma once

#include <string>

namespace VdDbg
{

// Makes the folder and those above it, where they are missing. False, with the reason in GetLastError, when that
// failed.
bool MakeFolder(const std::wstring& folder);

} // namespace VdDbg
