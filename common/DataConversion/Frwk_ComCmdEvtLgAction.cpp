#include "common/DataConversion/Frwk_ComCmdEvtLgAction.h"

namespace Frwk::DataTypes
{

namespace
{

// The decimal number that reads as the date does: 20261114.
std::uint32_t DateNumber(const SYSTEMTIME& time) noexcept
{
    return time.wYear * 10000u + time.wMonth * 100u + time.wDay;
}

// The same of the time of day: 61204 is 06:12:04.
std::uint32_t TimeNumber(const SYSTEMTIME& time) noexcept
{
    return time.wHour * 10000u + time.wMinute * 100u + time.wSecond;
}

} // namespace

bool ComCmdEvtLgAction::SetCmdEvtLgAction(const CmdEvtLgAction& action)
{
    return SetValue(DateNumber(action.time), 0) && SetValue(TimeNumber(action.time), 1) && SetValue(action.kind, 2);
}

} // namespace Frwk::DataTypes
