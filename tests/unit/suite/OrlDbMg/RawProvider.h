#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

// A provider as a user sees it who knows the binary interface alone: a table of methods, and answers of bytes. Nothing
// here depends on the declarations of the interface.
class RawProvider
{
public:
    explicit RawProvider(void* provider) : m_provider(provider) {}

    HRESULT Initialize() const;
    HRESULT Uninitialize() const;
    HRESULT Query(std::uint32_t kind, std::uint32_t query, std::uint32_t logSubType, void** result, std::uint32_t flags,
                  const void* request) const;

    // The two requests that the viewer makes. The answer is looked at with the functions below.
    HRESULT QueryDay(std::uint32_t logSubType, WORD year, WORD month, WORD day, void** result) const;
    HRESULT QueryDays(std::uint32_t logSubType, void** result) const;

private:
    template <class Method>
    Method Slot(std::size_t number) const;

    void* m_provider;
};

// The record lines of an answer, with each one's length, capacity and place checked against one another.
std::vector<std::wstring> LinesIn(const void* answer);

// The days of an answer as "year-month-day weekday hour:minute:second.millisecond reserved".
std::vector<std::string> DaysIn(const void* answer);
