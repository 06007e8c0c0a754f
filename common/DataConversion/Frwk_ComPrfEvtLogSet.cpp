#include "common/DataConversion/Frwk_ComPrfEvtLogSet.h"

#include "common/VdCommon/VdComn_DebugLog.h"

namespace Frwk::DataTypes
{

bool ComPrfEvtLogSet::SetPrfEvtLogtSet(std::uint32_t frequency, std::uint32_t flag)
{
    if (!SetValue(frequency, 0) || !SetValue(flag, 1))
    {
        VD_TRACE(Error, L"ComPrfEvtLogSet::SetPrfEvtLogtSet() failed.");
        return false;
    }
    return true;
}

} // namespace Frwk::DataTypes
