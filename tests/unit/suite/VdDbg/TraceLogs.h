#pragma once

#include "common/VdDbg.h"
#include "suite/VdDbg/LogName.h"
#include "tests/support/TemporaryFolder.h"

#include <string>
#include <string_view>
#include <vector>

// Settings that name a log: folder\prefix + file.extension.
struct LogPlace
{
    std::wstring folder;
    std::wstring prefix;
    std::wstring file;
    std::wstring extension;
    std::wstring module;
};

DebugLogConfig ConfigOf(const LogPlace& place);

// The name of the log "Trace.log" in a folder, with nothing before it.
VdDbg::LogName NameIn(const std::filesystem::path& folder);

SYSTEMTIME At(WORD year, WORD month, WORD day, WORD hour = 12);

inline SYSTEMTIME Noon()
{
    return At(2011, 3, 5);
}

// The lines of a text, without their ends, as parts of it; a last piece without an end fails the test.
std::vector<std::string_view> SplitLines(std::string_view text);

// The lines of a file, in the same way. None when there is no file.
std::vector<std::string> LinesOf(const std::wstring& path);

// The names of all files of a folder, in the order of the alphabet.
std::vector<std::wstring> FilesIn(const std::filesystem::path& folder);

// Whether nobody has the file open: it can be opened without sharing.
bool IsFree(const std::wstring& path);
