#include "tests/fuzz/Watch.h"

#include "tests/fuzz/KeptInputs.h"
#include "tests/support/TemporaryFolder.h"

#include <windows.h>

#include <cstdio>
#include <iostream>

namespace Fuzz
{

Watch::Watch(const Harness& harness)
    : m_harness(harness),
      m_crashPath(FindingsFolder() / (std::string(harness.name) + ".crash")),
      m_crashFile((TakeLastCrash(), Suite::OwnFile(CreateFileW(m_crashPath.c_str(), GENERIC_WRITE, 0, nullptr,
                                                               CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr))))
{
}

Watch::~Watch()
{
    m_crashFile.reset();
    std::error_code none;
    std::filesystem::remove(m_crashPath, none);
}

// An empty file is that of a watch that was ended with its program.
void Watch::TakeLastCrash() const
{
    std::error_code none;
    if (std::filesystem::file_size(m_crashPath, none) > 0 && !none)
    {
        std::cout << m_harness.name << ": the last run crashed; the input is in "
                  << LeaveInput(m_harness, ReadBytes(m_crashPath.wstring())).string() << std::endl;
    }
}

void Watch::Begin(std::string_view input)
{
    m_input = input;
    m_watch.Begin();
}

// Without the heap, in which the crash may have happened.
void Watch::Tell(const char* what) const
{
    DWORD written = 0;
    WriteFile(m_crashFile.get(), m_input.data(), static_cast<DWORD>(m_input.size()), &written, nullptr);
    char line[200];
    const int length =
        std::snprintf(line, sizeof line, "%.40s: %s; the next run leaves the input in the build folder\n",
                      m_harness.name.data(), what);
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), line, static_cast<DWORD>(length), &written, nullptr);
}

} // namespace Fuzz
