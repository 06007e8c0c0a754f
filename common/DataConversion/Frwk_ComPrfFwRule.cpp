#include "common/DataConversion/Frwk_ComPrfFwRule.h"

#include "common/DataConversion/Frwk_ComByteArray.h"
#include "common/VdCommon/VdComn_DebugLog.h"

#include <algorithm>
#include <iterator>
#include <variant>

namespace Frwk::DataTypes
{

namespace
{

using Member = std::variant<bool FwRule::*, std::uint16_t FwRule::*, std::uint32_t FwRule::*, std::wstring FwRule::*,
                            FwRule::Block FwRule::*, FwRule::LongBlock FwRule::*>;

// Where a field lies in the array. The type of the element is that of the field; a block is a nested array.
struct FieldPlace
{
    std::uint32_t element;
    Member member;
};

// In the order in which the fields are written and read.
constexpr FieldPlace Layout[] = {
    {0, &FwRule::bFlag0},       {1, &FwRule::nField1},    {2, &FwRule::strName},        {3, &FwRule::nField3},
    {4, &FwRule::strAppPath},   {5, &FwRule::nRuleType},  {6, &FwRule::nAction},        {7, &FwRule::nField7},
    {8, &FwRule::nField8},      {9, &FwRule::strSrcIP},   {10, &FwRule::strDstIP},      {11, &FwRule::nField11},
    {12, &FwRule::nField12},    {13, &FwRule::nField13},  {14, &FwRule::abField14},     {15, &FwRule::abField15},
    {21, &FwRule::abField21},   {22, &FwRule::abField22}, {16, &FwRule::nProtocolType}, {17, &FwRule::nPortType},
    {18, &FwRule::strPortList}, {19, &FwRule::bFlag19},   {20, &FwRule::abField20},
};
static_assert(std::size(Layout) == ComPrfFwRule::ElementCount);

constexpr std::uint32_t OutOfMemory = ERROR_INVALID_HANDLE; // as the foundation calls it

// What is traced when a block cannot be written or read.
struct WriteFailures
{
    const wchar_t* noBuffer;
    const wchar_t* noSource;
    const wchar_t* noArray;
    const wchar_t* notWritten;
    const wchar_t* notStored;
};

struct ReadFailures
{
    const wchar_t* notRead;
    const wchar_t* otherSize;
};

constexpr WriteFailures BlockWriteFailures = {
    L"*** ComPrfFwRule::SetValueArrayBytes() - cArrayOfByte.Create() failed. [0x%08x]",
    L"*** ComPrfFwRule::SetValueArrayBytes() - cArrayOfByte.SetData() failed. [0x%08x]",
    L"*** ComPrfFwRule::SetValueArrayBytes() - cComByteArray.Create() failed.",
    L"*** ComPrfFwRule::SetValueArrayBytes() - cComByteArray.SetByteArray() failed.",
    L"*** ComPrfFwRule::SetValueArrayBytes() - this->SetValueArray() failed.",
};

constexpr WriteFailures LongBlockWriteFailures = {
    L"*** ComPrfFwRule::SetPrfFwRule() - cArrayOfByte.Create() failed. [0x%08x]",
    L"*** ComPrfFwRule::SetPrfFwRule() - cArrayOfByte.SetData() failed. [0x%08x]",
    L"*** ComPrfFwRule::SetPrfFwRule() - cComByteArray.Create() failed.",
    L"*** ComPrfFwRule::SetPrfFwRule() - cComByteArray.SetByteArray() failed.",
    L"*** ComPrfFwRule::SetPrfFwRule() - this->SetValueArray() failed.",
};

constexpr ReadFailures BlockReadFailures = {
    L"*** ComPrfFwRule::GetValueArrayBytes() - cComByteArray.GetByteArray() failed.",
    L"*** ComPrfFwRule::GetValueArrayBytes() - Not support data size. [0x%08x]",
};

constexpr ReadFailures LongBlockReadFailures = {
    L"*** ComPrfFwRule::GetPrfFwRule() - cComByteArray.GetByteArray() failed.",
    L"*** ComPrfFwRule::GetPrfFwRule() - Not support data size. [0x%08x]",
};

// Makes the buffer, which is empty, a copy of the bytes, which may be null.
bool CopyBytes(VdCommon::ByteArray& buffer, const std::uint8_t* bytes, std::uint32_t size,
               const WriteFailures& failures)
{
    std::uint32_t error = 0;
    if (!buffer.Allocate(size, &error))
    {
        VD_TRACE(Error, failures.noBuffer, error);
        return false;
    }
    if (bytes == nullptr)
    {
        VD_TRACE(Error, failures.noSource, OutOfMemory);
        return false;
    }
    std::copy_n(bytes, size, buffer.Data());
    return true;
}

// Puts the bytes into the array, which has no elements yet, and the array into its place.
bool StoreBytes(ComByteArray& nested, const VdCommon::ByteArray& bytes, VariantArray& array, std::uint32_t element,
                const WriteFailures& failures)
{
    if (!nested.CreateArray(static_cast<std::uint32_t>(bytes.Size())))
    {
        VD_TRACE(Error, failures.noArray);
        return false;
    }
    if (!nested.SetByteArray(&bytes))
    {
        VD_TRACE(Error, failures.notWritten);
        return false;
    }
    if (!array.SetValueArray(nested.GetSafeArray(), element))
    {
        VD_TRACE(Error, failures.notStored);
        return false;
    }
    return true;
}

bool WriteBytes(VariantArray& array, const std::uint8_t* bytes, std::uint32_t size, std::uint32_t element,
                const WriteFailures& failures)
{
    VdCommon::ByteArray buffer;
    if (!CopyBytes(buffer, bytes, size, failures))
    {
        return false;
    }
    ComByteArray nested;
    const bool stored = StoreBytes(nested, buffer, array, element, failures);
    nested.DestroyArray();
    return stored;
}

bool ReadBytes(const VariantArray& array, std::uint8_t* bytes, std::uint32_t size, std::uint32_t element,
               const ReadFailures& failures)
{
    ComByteArray nested;
    if (!array.GetValueArray(nested.GetSafeArrayAddress(), element))
    {
        return false;
    }
    VdCommon::ByteArray buffer;
    const bool read = nested.GetByteArray(&buffer);
    nested.DestroyArray();
    if (!read)
    {
        VD_TRACE(Error, failures.notRead);
        return false;
    }
    if (buffer.Size() != size)
    {
        VD_TRACE(Error, failures.otherSize, static_cast<std::uint32_t>(buffer.Size()));
        return false;
    }
    std::copy_n(buffer.Data(), size, bytes);
    return true;
}

constexpr auto BlockSize = static_cast<std::uint32_t>(FwRule::Block().size());
constexpr auto LongBlockSize = static_cast<std::uint32_t>(FwRule::LongBlock().size());

template <ElementValue Value>
bool Write(ComPrfFwRule& array, std::uint32_t element, const Value& value)
{
    return array.SetValue(value, element);
}

bool Write(ComPrfFwRule& array, std::uint32_t element, const FwRule::Block& block)
{
    return array.SetValueArrayBytes(block.data(), BlockSize, element);
}

bool Write(ComPrfFwRule& array, std::uint32_t element, const FwRule::LongBlock& block)
{
    return WriteBytes(array, block.data(), LongBlockSize, element, LongBlockWriteFailures);
}

template <ElementValue Value>
bool Read(const ComPrfFwRule& array, std::uint32_t element, Value& value)
{
    return array.GetValue(value, element);
}

bool Read(const ComPrfFwRule& array, std::uint32_t element, FwRule::Block& block)
{
    return array.GetValueArrayBytes(block.data(), BlockSize, element);
}

bool Read(const ComPrfFwRule& array, std::uint32_t element, FwRule::LongBlock& block)
{
    return ReadBytes(array, block.data(), LongBlockSize, element, LongBlockReadFailures);
}

} // namespace

bool ComPrfFwRule::SetPrfFwRule(const FwRule& rule)
{
    const auto write = [&](const FieldPlace& place)
    { return std::visit([&](auto member) { return Write(*this, place.element, rule.*member); }, place.member); };
    return std::ranges::all_of(Layout, write);
}

bool ComPrfFwRule::GetPrfFwRule(FwRule& rule) const
{
    const auto read = [&](const FieldPlace& place)
    { return std::visit([&](auto member) { return Read(*this, place.element, rule.*member); }, place.member); };
    return std::ranges::all_of(Layout, read);
}

bool ComPrfFwRule::SetValueArrayBytes(const std::uint8_t* bytes, std::uint32_t, std::uint32_t element)
{
    return WriteBytes(*this, bytes, BlockSize, element, BlockWriteFailures);
}

bool ComPrfFwRule::GetValueArrayBytes(std::uint8_t* bytes, std::uint32_t, std::uint32_t element) const
{
    return ReadBytes(*this, bytes, BlockSize, element, BlockReadFailures);
}

} // namespace Frwk::DataTypes
