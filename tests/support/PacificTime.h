#pragma once

#include <cstdlib>
#include <ctime>

// The zone of the calendar functions while the object lives, for this process alone: eight hours behind universal time,
// seven in summer, by the rules of the United States.
class PacificTime
{
public:
    PacificTime() { Set(L"PST8PDT"); }

    ~PacificTime() { Set(L""); }

    PacificTime(const PacificTime&) = delete;
    PacificTime& operator=(const PacificTime&) = delete;

private:
    static void Set(const wchar_t* zone)
    {
        ::_wputenv_s(L"TZ", zone); // an empty text leaves the zone of the system
        ::_tzset();
    }
};
