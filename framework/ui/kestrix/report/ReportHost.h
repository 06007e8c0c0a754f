#pragma once

#include <cstdint>

// What the report page needs of the form around it.
class CReportHost
{
public:
    // Shows the log of this type on the viewer's tab.
    virtual void ShowLog(std::uint32_t logType) = 0;

protected:
    ~CReportHost() = default;
};
