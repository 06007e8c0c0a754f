#include "tests/bench/BareScan.h"

#include "platform/dialog/UniqueHandle.h"
#include "tests/bench/Bench.h"

#include <algorithm>
#include <vector>

// The bare scan: the file in blocks of one megabyte, every character looked at once, in the plain loop that knows
// where lines end and how long they are. A loop that only counts line feeds would be half as long, since the compiler
// turns it into one over eight characters at a time, but it is nobody's way to find lines.
ScanResult ScanFile(const std::wstring& path)
{
    const UniqueFile file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    Require(static_cast<bool>(file), "the file of the bench cannot be opened");
    std::vector<wchar_t> block(1024 * 1024 / sizeof(wchar_t));
    ScanResult result;
    std::size_t length = 0;
    DWORD bytes = 0;
    while (ReadFile(file.get(), block.data(), static_cast<DWORD>(block.size() * sizeof(wchar_t)), &bytes, nullptr) &&
           bytes != 0)
    {
        for (std::size_t i = 0; i < bytes / sizeof(wchar_t); ++i)
        {
            ++length;
            if (block[i] == L'\n')
            {
                ++result.lines;
                result.longest = std::max(result.longest, length);
                length = 0;
            }
        }
    }
    return result;
}
