#pragma once

#include "tests/support/ProviderDouble.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

// A database library with days and records of the test: one answer to every query for days, one to every query for
// records. What it was asked is kept.
class DatabaseDouble : public ProviderDouble
{
public:
    DatabaseDouble() { m_requestSize = 32; }

    // A day as the library gives it, its fields in any order of value.
    void AddDay(WORD year, WORD month, WORD day);

    void RemoveDays() { m_days.clear(); }

    void SetLines(std::initializer_list<std::wstring> lines);

    HRESULT QueryValue(std::uint32_t kind, std::uint32_t query, std::uint32_t logSubType, void** result,
                       std::uint32_t flags, const void* request) override;

    int CountOf(std::uint32_t query) const;

    // The first moment that the last query for records asked for.
    SYSTEMTIME AskedFrom() const;

    HRESULT m_daysStatus = 0x00040200; // the success of the suite
    HRESULT m_linesStatus = 0x00040200;
    bool m_givesNoDays = false; // no vector at all

private:
    std::vector<OrlDayEntry> m_days;
    OrlVector<OrlDayEntry> m_daysHead{};
    ProviderAnswer m_lines;
};
