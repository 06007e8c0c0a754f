#pragma once

#include "platform/dialog/UniqueHandle.h"
#include "tests/support/CrashWatch.h"
#include "tests/support/FaultPoints.h"
#include "tests/support/MessageBoxRecorder.h"
#include "tests/support/TraceRecorder.h"

#include <functional>
#include <initializer_list>
#include <optional>
#include <set>
#include <string>

// What is there, of any type that can be compared.
class Outcome
{
public:
    using Comparison = std::function<bool()>;

    template <class Look>
    Outcome(Look look) : m_note([=] { return [=, noted = look()] { return look() == noted; }; })
    {
    }

    // Tells later whether it is as it is now.
    Comparison Note() const { return m_note(); }

private:
    std::function<Comparison()> m_note;
};

// What a user can start.
struct Operation
{
    const char* name;
    std::function<void()> prepare; // brings everything to where it begins; nothing fails in it
    std::function<void()> run;
    Outcome outcome;
    std::function<bool()> isWhole = [] { return true; }; // whether the data is, whatever became of the operation
    bool isOldOrNew = false; // whether the outcome may only be what it was before, or the usual one
    std::function<bool()> isTold = [] { return false; }; // in another way than by a box or a trace
};

// Runs operations with their n-th call failing, n from 1 until nothing fails any more. KESTRIX_FAULTS in the
// environment says how many n are tried, 3 without it. After each, the data is whole, as many handles and windows are
// there as before, and the same operation in which nothing fails has its usual outcome. What became of the operations
// is printed, a line for each kind of call.
class Sweep
{
public:
    Sweep();

    void Try(const Operation& operation, std::initializer_list<FaultKind> kinds);

    // For operations that are a part of what they run: nothing fails until GoOn, which counts from 1 again.
    void Hold() { m_faults.Disarm(); }

    void GoOn() { m_faults.Arm(m_kind, m_nNumber); }

private:
    void TryKind(const Operation& operation, FaultKind kind);
    int Run(const Operation& operation, FaultKind kind, int number);
    std::set<std::wstring> BoxTexts() const;

    // Stay loaded: in each that is loaded and used, the run-time library takes one of the process's 1,088 slots for
    // threads' data, and never gives it back.
    const UniqueModule m_database{LoadLibraryW(L"OrlDbMg.dll")};
    const UniqueModule m_tracing{LoadLibraryW(L"..\\tests\\trace-good\\VdDbg64.dll")};
    std::optional<MessageBoxRecorder> m_boxes; // of the last run, as the trace
    std::optional<TraceRecorder> m_trace;
    Outcome::Comparison m_isOld;
    FaultPoints m_faults;
    FaultKind m_kind = FaultKind::None;
    int m_nNumber = 0;
    std::string m_strPoint; // that is tried
    CrashWatch m_watch;
};
