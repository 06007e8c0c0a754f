#pragma once

#include <functional>
#include <utility>

// The operations of the page that wait for the service and need its log to stay meanwhile. Calls of the service come in
// while one waits; the end of a purge is one of them and has the page make another log: that follows the operation.
class CLogOperations
{
public:
    // refresh puts a new log in the place of the one that is there.
    explicit CLogOperations(std::function<void()> refresh) : m_refresh(std::move(refresh)) {}

    CLogOperations(const CLogOperations&) = delete;
    CLogOperations& operator=(const CLogOperations&) = delete;

    // Runs an operation, in which the log stays; one may run another. A refresh that was asked for meanwhile follows
    // the outermost one, once, and also when that throws.
    void Run(const std::function<void()>& operation);

    // Refreshes; within an operation, or within a refresh, after it.
    void Refresh();

private:
    void RefreshIfDue();

    const std::function<void()> m_refresh;
    int m_nRunning = 0;
    bool m_bRefreshDue = false;
};
