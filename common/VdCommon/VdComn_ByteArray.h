#pragma once

#include <cstdint>
#include <memory>

namespace VdCommon
{

// An owned block of bytes, empty until it is allocated.
class ByteArray
{
public:
    ByteArray() = default;
    ByteArray(ByteArray&& other) noexcept;
    ByteArray& operator=(ByteArray&& other) noexcept;
    virtual ~ByteArray();

    // Makes a zeroed block. Returns false, and leaves the object as it is, with these codes in `error` (may be null):
    // 5010 there is a block already, 160 a size of 0, 6 no memory. Success stores 0.
    bool Allocate(const std::uint64_t& size, std::uint32_t* error = nullptr);

    // Empties the object, so that it can be allocated again.
    void Free() noexcept;

    // The block, owned by this object; null when empty.
    std::uint8_t* Data() noexcept { return m_pData.get(); }

    const std::uint8_t* Data() const noexcept { return m_pData.get(); }

    std::uint64_t Size() const noexcept { return m_nSize; }

private:
    std::unique_ptr<std::uint8_t[]> m_pData;
    std::uint64_t m_nSize = 0;
};

} // namespace VdCommon
