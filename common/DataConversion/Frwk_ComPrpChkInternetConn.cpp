#include "common/DataConversion/Frwk_ComPrpChkInternetConn.h"

namespace Frwk::DataTypes
{

bool ComPrpChkInternetConn::GetPrpChkInternetConn(bool& connected) const
{
    return GetValue(connected, 0);
}

} // namespace Frwk::DataTypes
