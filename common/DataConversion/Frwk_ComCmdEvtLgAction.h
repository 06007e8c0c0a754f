#pragma once

#include "common/Frwk_VariantArray.h"

#include <windows.h>

namespace Frwk::DataTypes
{

// A request to purge an event log up to a moment.
struct CmdEvtLgAction
{
    SYSTEMTIME time;    // day of the week and milliseconds are not sent
    std::uint32_t kind; // the framework's number of the event log
};

// The request as three elements: the date, the time and the kind of log, each VT_UI4.
class ComCmdEvtLgAction : public VariantArray
{
public:
    bool SetCmdEvtLgAction(const CmdEvtLgAction& action);
};

} // namespace Frwk::DataTypes
