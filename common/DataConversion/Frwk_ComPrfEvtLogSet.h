#pragma once

#include "common/Frwk_VariantArray.h"

namespace Frwk::DataTypes
{

// When the service purges the event logs, a setting of the profile: the frequency and a flag, each VT_UI4.
class ComPrfEvtLogSet : public VariantArray
{
public:
    // Traces its own failure; the caller has nothing to add.
    bool SetPrfEvtLogtSet(std::uint32_t frequency, std::uint32_t flag);
};

} // namespace Frwk::DataTypes
