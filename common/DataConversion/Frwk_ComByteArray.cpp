#include "common/DataConversion/Frwk_ComByteArray.h"

#include "common/VdCommon/VdComn_DebugLog.h"

#include <limits>
#include <utility>

namespace Frwk::DataTypes
{

bool ComByteArray::SetByteArray(const VdCommon::ByteArray* bytes)
{
    if (bytes == nullptr || bytes->Data() == nullptr || bytes->Size() > std::numeric_limits<std::uint32_t>::max())
    {
        return false;
    }
    for (std::uint32_t index = 0; index < bytes->Size(); ++index)
    {
        if (!SetValue(bytes->Data()[index], index))
        {
            VD_TRACE(Error, L"*** ComByteArray::SetByteArray() - this->SetValue() failed. [%ld]", index);
            return false;
        }
    }
    return true;
}

bool ComByteArray::GetByteArray(VdCommon::ByteArray* bytes) const
{
    if (bytes == nullptr)
    {
        return false;
    }
    const std::uint32_t count = GetElementCount();
    VdCommon::ByteArray block;
    const bool allocated = block.Allocate(count);
    for (std::uint32_t index = 0; index < block.Size(); ++index)
    {
        if (!GetValue(block.Data()[index], index))
        {
            VD_TRACE(Error, L"*** ComByteArray::GetByteArray() - this->GetValue() failed. [%ld]", index);
            break;
        }
    }
    *bytes = std::move(block);
    return allocated;
}

} // namespace Frwk::DataTypes
