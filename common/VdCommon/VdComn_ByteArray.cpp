#include "common/VdCommon/VdComn_ByteArray.h"

#include "common/VdCommon/VdComn_ErrorCode.h"

#include <windows.h>

#include <new>
#include <utility>

namespace VdCommon
{

ByteArray::ByteArray(ByteArray&& other) noexcept
    : m_pData(std::move(other.m_pData)), m_nSize(std::exchange(other.m_nSize, 0))
{
}

ByteArray& ByteArray::operator=(ByteArray&& other) noexcept
{
    m_pData = std::move(other.m_pData);
    m_nSize = m_pData == nullptr ? 0 : std::exchange(other.m_nSize, 0);
    return *this;
}

ByteArray::~ByteArray()
{
    Free();
}

bool ByteArray::Allocate(const std::uint64_t& size, std::uint32_t* error)
{
    if (m_pData != nullptr || m_nSize != 0)
    {
        return StoreError(error, ERROR_OBJECT_ALREADY_EXISTS);
    }
    if (size == 0)
    {
        return StoreError(error, ERROR_BAD_ARGUMENTS);
    }
    try
    {
        m_pData = std::make_unique<std::uint8_t[]>(size);
    }
    catch (const std::bad_alloc&)
    {
        return StoreError(error, ERROR_INVALID_HANDLE);
    }
    m_nSize = size;
    return StoreError(error, ERROR_SUCCESS);
}

void ByteArray::Free() noexcept
{
    m_pData.reset();
    m_nSize = 0;
}

} // namespace VdCommon
