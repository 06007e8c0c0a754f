// Holds all counts of running viewers, as other viewers would, until its standard input ends; it writes "held" when it
// has them. So the message about their limit can be looked at.
//
// usage: HoldCount MAXIMUM

#include "platform/dialog/Semaphore.h"

#include <cstdio>
#include <cstdlib>

int main(int count, char** arguments)
{
    const long maximum = count == 2 ? std::atol(arguments[1]) : 0;
    if (maximum < 1)
    {
        std::fputs("usage: HoldCount MAXIMUM\n", stderr);
        return 2;
    }
    CSemaphore viewers(maximum, maximum, L"Kestrix");
    while (viewers.Lock(0))
    {
    }
    std::puts("held");
    std::fflush(stdout);
    while (std::getchar() != EOF)
    {
    }
    return 0;
}
