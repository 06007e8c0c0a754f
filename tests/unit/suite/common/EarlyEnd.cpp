// Code under test that ends the process with exit code 0 looked to ctest as if every test had passed.

#include <gtest/gtest.h>

#include <windows.h>

TEST(EarlyEnd, DISABLED_SinceItEndsTheProgramWhichUnitEarlyEndExpectsToBeNoticed)
{
    ExitProcess(0);
}
