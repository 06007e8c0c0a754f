#include <gtest/gtest.h>

#include <windows.h>

#include <cstdio>

// Ends without the clean-up of the system's libraries: what Wine's threads for calls between processes hold there can
// stop a program for good that has passed all its tests. See docs/decisions/0089-calls-that-wine-loses.md.
int wmain(int argc, wchar_t** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(result));
    return result;
}
