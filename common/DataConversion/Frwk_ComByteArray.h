#pragma once

#include "common/Frwk_VariantArray.h"
#include "common/VdCommon/VdComn_ByteArray.h"

namespace Frwk::DataTypes
{

// A block of bytes, one VT_UI1 an element. It travels as an element of a larger array.
class ComByteArray : public VariantArray
{
public:
    // Writes each byte at its index, up to the first that fails. False for a null or empty block, and for one of more
    // bytes than an array has indices.
    bool SetByteArray(const VdCommon::ByteArray* bytes);

    // Replaces what the block holds by as many bytes as the array has elements. False for a null block, and with an
    // emptied one for an array of no elements and where the memory is missing. An element that cannot be read ends the
    // reading and leaves 0 in the rest, and is no failure: callers look at the size.
    bool GetByteArray(VdCommon::ByteArray* bytes) const;
};

} // namespace Frwk::DataTypes
