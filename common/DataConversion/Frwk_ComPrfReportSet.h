#pragma once

#include "common/Frwk_VariantArray.h"

namespace Frwk::DataTypes
{

struct PrfReportSet
{
    std::uint32_t frequency = 0; // days that a report covers
    std::uint32_t alertFlag = 0;
    std::uint32_t unused = 0;
};

// The report settings of the profile: the three members in their order, each VT_UI4.
class ComPrfReportSet : public VariantArray
{
public:
    // Reads in order, up to the first member that fails, and leaves that and the later ones as they were.
    bool GetPrfReportSet(PrfReportSet& settings) const;
};

} // namespace Frwk::DataTypes
