#pragma once

#include "common/Frwk_VariantArray.h"

namespace Frwk::DataTypes
{

// Whether the machine has an internet connection: one VT_BOOL. The service makes the array, in the place of none; the
// caller destroys it.
class ComPrpChkInternetConn : public VariantArray
{
public:
    bool GetPrpChkInternetConn(bool& connected) const;
};

} // namespace Frwk::DataTypes
