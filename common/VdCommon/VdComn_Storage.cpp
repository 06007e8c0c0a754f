#include "common/VdCommon/VdComn_Storage.h"

#include "common/VdCommon/VdComn_ErrorCode.h"
#include "common/VdCommon/VdComn_Registry.h"
#include "common/VdCommon/VdComn_StorageText.h"

namespace VdCommon::Storage
{

namespace
{

// Returns what read(registry) returns for the opened location.
template <class Read>
auto ReadBelow(HKEY root, const wchar_t* path, Read read)
{
    Registry registry;
    registry.OpenRead(Key::InRegistry(root, path), {});
    auto value = read(registry);
    registry.Close(false);
    return value;
}

} // namespace

bool Base::OpenWrite(const Key&, const std::wstring&)
{
    return false;
}

bool Base::OpenEnumerate(const Key&, const std::wstring&)
{
    return false;
}

bool Base::QueryBinaryNoThrow(const std::wstring&, ByteArray&, std::uint32_t*)
{
    return false;
}

bool Base::QueryBinary(const std::wstring&, ByteArray&)
{
    return false;
}

std::wstring Base::QueryStringNoThrow(const std::wstring&, const std::wstring& defaultValue, std::uint32_t*)
{
    return defaultValue;
}

std::uint32_t Base::QueryNumberNoThrow(const std::wstring&, std::uint32_t defaultValue, std::uint32_t*)
{
    return defaultValue;
}

bool Base::SetBinary(const std::wstring&, const ByteArray&)
{
    return false;
}

bool Base::SetQword(const std::wstring&, std::uint64_t)
{
    return false;
}

bool Base::ListKeys(std::vector<std::wstring>&)
{
    return false;
}

bool Base::ListValues(std::vector<std::wstring>&)
{
    return false;
}

std::uint32_t QueryValue(HKEY root, const wchar_t* path, const wchar_t* name, std::uint32_t defaultValue)
{
    try
    {
        return ReadBelow(root, path,
                         [&](Registry& registry) { return registry.QueryNumber(TextOf(name), defaultValue); });
    }
    catch (Exception* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
        return defaultValue;
    }
}

std::wstring QueryValue(HKEY root, const wchar_t* path, const wchar_t* name, const wchar_t* defaultValue)
{
    try
    {
        return ReadBelow(root, path, [&](Registry& registry) { return registry.QueryString(TextOf(name), {}); });
    }
    catch (Exception* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
        return TextOf(defaultValue);
    }
}

bool QueryValue(HKEY root, const wchar_t* path, const wchar_t* name, ByteArray& bytes, std::uint32_t,
                std::uint32_t* error) noexcept
{
    try
    {
        ReadBelow(root, path, [&](Registry& registry) { return registry.QueryBinary(TextOf(name), bytes); });
        return StoreError(error, ERROR_SUCCESS);
    }
    catch (Exception* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
        return StoreError(error, caught->Code());
    }
    catch (VdCommon::Exception::Base* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
    }
    catch (...)
    {
        // Told by the code alone, as every failure of this operation.
    }
    return StoreError(error, UnknownFailure);
}

} // namespace VdCommon::Storage
