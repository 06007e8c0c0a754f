#pragma once

#include "suite/common/KernelHandle.h"

#include <string>

// Starts the program of the command line, and returns its process. What it prints goes where the test's own goes, or
// into a file that is made of it. The flags are those of CreateProcessW. Throws std::system_error when it cannot start.
Suite::KernelHandle StartProcess(std::wstring commandLine, const std::wstring& output = {}, DWORD flags = 0);

// The path of this program.
std::wstring PathOfThisProgram();
