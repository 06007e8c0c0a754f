#include "framework/ui/kestrix/app/page/LogOperations.h"

namespace
{

// Counts the operations that run, exceptions included.
class Running
{
public:
    explicit Running(int& count) : m_nCount(count) { ++m_nCount; }

    ~Running() { --m_nCount; }

    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

private:
    int& m_nCount;
};

} // namespace

void CLogOperations::Run(const std::function<void()>& operation)
{
    try
    {
        const Running running(m_nRunning);
        operation();
    }
    catch (...)
    {
        RefreshIfDue();
        throw;
    }
    RefreshIfDue();
}

void CLogOperations::Refresh()
{
    m_bRefreshDue = true;
    RefreshIfDue();
}

// A refresh is an operation too: a log may ask the service when it is made.
void CLogOperations::RefreshIfDue()
{
    while (m_nRunning == 0 && std::exchange(m_bRefreshDue, false))
    {
        const Running running(m_nRunning);
        m_refresh();
    }
}
