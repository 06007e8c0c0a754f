#include "common/DataConversion/Frwk_ComPrfReportSet.h"

namespace Frwk::DataTypes
{

bool ComPrfReportSet::GetPrfReportSet(PrfReportSet& settings) const
{
    return GetValue(settings.frequency, 0) && GetValue(settings.alertFlag, 1) && GetValue(settings.unused, 2);
}

} // namespace Frwk::DataTypes
