#pragma once

#include <windows.h>

#include <iosfwd>
#include <string>
#include <vector>

// One entry of a discretionary access list, as it stands.
struct AccessEntry
{
    std::string account; // as S-1-...
    ACCESS_MASK mask;
    int type = ACCESS_ALLOWED_ACE_TYPE;
    int flags = 0;

    bool operator==(const AccessEntry&) const = default;
};

std::ostream& operator<<(std::ostream& out, const AccessEntry& entry);

// The entries of the descriptor's own access list, in their order; a missing or a default list fails the test.
std::vector<AccessEntry> AccessListOf(PSECURITY_DESCRIPTOR descriptor);

// The same of a kernel object, whose handle has READ_CONTROL.
std::vector<AccessEntry> AccessListOfObject(HANDLE object);
