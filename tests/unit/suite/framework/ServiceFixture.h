#pragma once

#include "suite/framework/Apartment.h"
#include "suite/framework/Controller.h"
#include "suite/framework/Service.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// Notes what is to be deleted, of which there are 3 events each time, and fails on demand.
class EventLogsDouble : public Framework::EventLogs
{
public:
    using Deletions = std::vector<std::pair<std::uint32_t, std::uint32_t>>; // kind and day

    std::uint64_t DeleteThrough(std::uint32_t kind, std::uint32_t day) override
    {
        const std::unique_lock running(mayRun);
        const std::lock_guard guard(m_mutex);
        m_deletions.emplace_back(kind, day);
        if (fails || kind == failingKind)
        {
            throw std::runtime_error("as the test wants it");
        }
        return 3;
    }

    Deletions Done() const
    {
        const std::lock_guard guard(m_mutex);
        return m_deletions;
    }

    std::atomic<bool> fails = false;
    std::atomic<std::uint32_t> failingKind = 0; // the one that fails also when the others do not
    std::mutex mayRun;                          // a deletion waits for it

private:
    mutable std::mutex m_mutex;
    Deletions m_deletions;
};

struct FixedCalendar : Framework::Calendar
{
    std::chrono::year_month_day Today() const override { return today; }

    std::chrono::year_month_day today{std::chrono::year(2026), std::chrono::month(11), std::chrono::day(20)};
};

// The service inside the test, on doubles of what lies around it.
class ServiceFixture : public ::testing::Test
{
protected:
    Suite::ComPtr<IVdFrwkLocalController> MakeController()
    {
        return Suite::ComPtr<IVdFrwkLocalController>::Attach(new Framework::Controller(m_service));
    }

    // Waits for the work that was taken, which holds a lock until it is done.
    bool WaitUntilIdle() const
    {
        while (!m_objects.UnusedSince())
        {
            if (WaitForSingleObject(m_objects.Changed(), 30'000) != WAIT_OBJECT_0)
            {
                return false;
            }
        }
        return true;
    }

    // The lines of the journal without their times.
    std::vector<std::string> JournalLines() const
    {
        constexpr std::size_t time = sizeof "YYYY-MM-DD HH:MM:SS"; // with the blank after it
        std::ifstream file(m_folder.Path() / Framework::Journal::FileName);
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);)
        {
            lines.push_back(line.substr(std::min(time, line.size())));
        }
        return lines;
    }

    const Framework::Apartment m_apartment;
    const RegistrySandbox m_registry;
    const TemporaryFolder m_folder;
    Framework::ObjectTable m_objects;
    Framework::ValueStore m_store{m_folder.Path()};
    EventLogsDouble m_logs;
    FixedCalendar m_calendar;
    const Framework::Journal m_journal{m_folder.Path()};
    Framework::Service m_service{m_objects, m_store, m_logs, m_calendar, m_journal};
};
