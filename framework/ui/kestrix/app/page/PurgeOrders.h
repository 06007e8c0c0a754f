#pragma once

#include "framework/ui/kestrix/app/page/DayNumber.h"

#include <cstdint>
#include <string>

// What the service is asked to do about old entries. It does its work after the call, and tells of it by an event.

// A day as a list of dates has it.
struct ListedDay
{
    std::wstring text;
    DayNumber number = NoDay; // where the entry carries none, the text tells the day
};

// The start of the day that a text names in the form of the user's region. False for a null text, and for one that is
// no date there.
bool GetPurgeSystemTime(const wchar_t* text, SYSTEMTIME& out);

// Has the service keep entries for this many days from now on, and delete older ones by itself when the flag is 1. A
// failure is traced and leaves the settings as they were.
void StorePurgeSettings(std::uint32_t frequency, std::uint32_t flag);

// Has the service delete the entries of a log, named by its purge type, up to and including a day. False when the day
// cannot be read, and nothing is asked then. A service that cannot be reached or refuses is traced.
bool OrderPurge(std::uint32_t purgeType, const ListedDay& day);
