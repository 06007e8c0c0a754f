#pragma once

#include "suite/common/KernelHandle.h"

#include <cstdint>
#include <string>

// What a second process writes: lines "NAME NUMBER TEXT" from number 0 on into the log Trace.log of a folder.
struct WritingOrder
{
    std::wstring folder;
    std::wstring name;
    int lines;
    std::uint64_t limit;
};

// The line with this number, without its end: lines of different lengths.
std::string TraceLine(const std::string& name, int number);

// What several processes wait for before they write.
class StartingGun
{
public:
    StartingGun();

    const std::wstring& Name() const { return m_strName; }

    void Fire() { SetEvent(m_event.get()); }

private:
    std::wstring m_strName;
    Suite::KernelHandle m_event;
};

// A second process of this test program. Its end is waited for, or it is ended, at the latest by the destructor.
class TraceWriter
{
public:
    // Starts the process and waits until it has opened the log and waits for the gun.
    TraceWriter(const WritingOrder& order, const StartingGun& gun);
    TraceWriter(const TraceWriter&) = delete;
    TraceWriter& operator=(const TraceWriter&) = delete;
    ~TraceWriter();

    // Waits for the end; whether all lines were accepted.
    bool End();

    // Ends the process wherever it is.
    void Kill();

private:
    Suite::KernelHandle m_ready;
    Suite::KernelHandle m_process;
};
