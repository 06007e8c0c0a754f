#pragma once

#include <atomic>
#include <memory>
#include <vector>

// What can be made to fail: calls of the system and of the SQLite library, and those that go to a service.
enum class FaultKind
{
    None,
    Allocation,
    File,
    Registry,
    Gdi,
    Com,
    Sqlite,
};

// Lets one call of this program fail, by any thread. One at a time; FaultPoints.cpp has the table of calls.
class FaultPoints
{
public:
    FaultPoints();

    ~FaultPoints() { Disarm(); }

    FaultPoints(const FaultPoints&) = delete;
    FaultPoints& operator=(const FaultPoints&) = delete;

    // From now on the calls of the kind count, from 1; the one with the number fails.
    void Arm(FaultKind kind, int number)
    {
        s_nCalls = 0;
        s_nNumber = number;
        s_kind = kind;
    }

    // Nothing counts or fails any more. Returns how many calls there were.
    int Disarm()
    {
        s_kind = FaultKind::None;
        return s_nCalls;
    }

    // Counts a call of the system or the library, and tells whether it fails.
    static bool Fails(FaultKind kind) noexcept { return s_nPauses == 0 && CallFails(kind); }

    // The same for a call that reaches a double of the test.
    static bool CallFails(FaultKind kind) noexcept { return s_kind == kind && ++s_nCalls == s_nNumber; }

    // What a double of the test needs for itself while this lives neither counts nor fails.
    class Pause
    {
    public:
        Pause() { ++s_nPauses; }

        ~Pause() { --s_nPauses; }

        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;
    };

private:
    std::vector<std::shared_ptr<const void>> m_points; // of the system's functions
    inline static std::atomic<FaultKind> s_kind{FaultKind::None};
    inline static std::atomic<int> s_nCalls{0};
    inline static std::atomic<int> s_nNumber{0};
    inline static std::atomic<int> s_nPauses{0};
};
