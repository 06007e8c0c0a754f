#pragma once

#include "suite/VdDbg/LogName.h"

namespace VdDbg
{

// How many old files are kept beside the current one.
inline constexpr unsigned OldFilesKept = 5;

// Makes the current file the old file number 1; each older one gets the next number, and the oldest goes when there are
// as many as are kept. Only one caller at a time, whichever process it is in.
// False when a reader holds one of the files so that it cannot be renamed: then the current file stays where it is, no
// file is lost, and the next call goes on where this one ended.
bool RetireCurrent(const LogName& name);

} // namespace VdDbg
