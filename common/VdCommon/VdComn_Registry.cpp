#include "common/VdCommon/VdComn_Registry.h"

#include "common/VdCommon/VdComn_ErrorCode.h"
#include "common/VdCommon/VdComn_SecurityAttributes.h"
#include "common/VdCommon/VdComn_StorageText.h"

#include <algorithm>
#include <source_location>
#include <utility>

namespace VdCommon::Storage
{

namespace
{

constexpr REGSAM ViewAccess[] = {0, KEY_WOW64_32KEY, KEY_WOW64_64KEY};

constexpr DWORD TextTypes[] = {REG_SZ, REG_EXPAND_SZ, REG_MULTI_SZ};
constexpr DWORD BinaryTypes[] = {REG_BINARY};
constexpr DWORD NumberTypes[] = {REG_DWORD};

// Characters that a listed name has room for, its terminator among them.
constexpr DWORD NameRoom = 255;

void Require(bool holds, std::uint32_t code, const std::source_location& where = std::source_location::current())
{
    if (!holds)
    {
        throw new Exception(code, where);
    }
}

void Check(LSTATUS result, const std::source_location& where = std::source_location::current())
{
    Require(result == ERROR_SUCCESS, static_cast<std::uint32_t>(result), where);
}

LSTATUS OpenKey(HKEY root, const wchar_t* path, REGSAM access, HKEY* opened)
{
    return ::RegOpenKeyExW(root, path, 0, access, opened);
}

LSTATUS CreateKey(HKEY root, const wchar_t* path, REGSAM access, HKEY* opened)
{
    SecurityAttributes attributes(SecurityAttributes::RegistryKey, false);
    return ::RegCreateKeyExW(root, path, 0, nullptr, REG_OPTION_NON_VOLATILE, access, attributes.Get(), opened,
                             nullptr);
}

// What read() returns, or the default when it fails.
template <class Value, class Read>
Value ReadOrDefault(Value defaultValue, std::uint32_t* error, Read read)
{
    try
    {
        return read();
    }
    catch (Exception* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
        StoreError(error, caught->Code());
        return defaultValue;
    }
}

} // namespace

Registry::~Registry()
{
    if (!m_hKey)
    {
        return;
    }
    try
    {
        Registry::Close(false);
    }
    catch (Exception* thrown)
    {
        const VdCommon::Exception::Caught caught(thrown);
    }
}

bool Registry::OpenRead(const Key& key, const std::wstring& subPath)
{
    return Open(key, subPath, KEY_QUERY_VALUE, OpenKey);
}

bool Registry::OpenCreate(const Key& key, const std::wstring& subPath)
{
    return Open(key, subPath, KEY_QUERY_VALUE | KEY_SET_VALUE | KEY_CREATE_SUB_KEY, CreateKey);
}

bool Registry::OpenWrite(const Key& key, const std::wstring& subPath)
{
    return Open(key, subPath, KEY_SET_VALUE | DELETE, OpenKey);
}

bool Registry::OpenEnumerate(const Key& key, const std::wstring& subPath)
{
    return Open(key, subPath, KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS, OpenKey);
}

bool Registry::Open(const Key& key, const std::wstring& subPath, REGSAM access, OpenFunction open)
{
    Require(key.root != 0, ERROR_BAD_ARGUMENTS);
    std::wstring path = JoinPath(key.path, subPath.c_str());
    UniqueRegistryKey opened;
    Check(open(reinterpret_cast<HKEY>(key.root), path.c_str(), access | ViewAccess[static_cast<std::size_t>(m_nView)],
               opened.put()));
    m_nRoot = key.root;
    m_hKey = std::move(opened);
    m_strPath = std::move(path);
    return true;
}

bool Registry::Close(const bool& flush)
{
    RequireOpen();
    if (flush)
    {
        Flush();
    }
    // Past the owner, which would not tell the result. A handle that cannot be closed is of no further use either.
    Check(::RegCloseKey(m_hKey.release()));
    m_nRoot = 0;
    m_strPath.clear();
    return true;
}

bool Registry::Flush()
{
    RequireOpen();
    Check(::RegFlushKey(m_hKey.get()));
    return true;
}

bool Registry::QueryBinaryNoThrow(const std::wstring& name, ByteArray& bytes, std::uint32_t* error)
{
    return ReadOrDefault(false, error, [&] { return QueryBinary(name, bytes); });
}

bool Registry::QueryBinary(const std::wstring& name, ByteArray& bytes)
{
    const DWORD size = Query(name, BinaryTypes, nullptr, 0);
    if (size == 0)
    {
        bytes.Free();
        return true;
    }
    std::uint32_t error = ERROR_SUCCESS;
    const bool allocated = bytes.Allocate(size, &error);
    Require(allocated, error);
    QueryUnchanged(name, BinaryTypes, bytes.Data(), size);
    return true;
}

std::wstring Registry::QueryStringNoThrow(const std::wstring& name, const std::wstring& defaultValue,
                                          std::uint32_t* error)
{
    return ReadOrDefault(defaultValue, error, [&] { return QueryString(name, defaultValue); });
}

std::wstring Registry::QueryString(const std::wstring& name, const std::wstring&)
{
    const DWORD size = Query(name, TextTypes, nullptr, 0);
    const std::size_t length = size / sizeof(wchar_t);
    // An odd last byte needs room and is no character.
    std::wstring text = AllocateText(length + size % sizeof(wchar_t));
    QueryUnchanged(name, TextTypes, text.data(), size);
    text.resize(std::min(text.find(L'\0'), length));
    return text;
}

std::uint32_t Registry::QueryNumberNoThrow(const std::wstring& name, std::uint32_t defaultValue, std::uint32_t* error)
{
    return ReadOrDefault(defaultValue, error, [&] { return QueryNumber(name, defaultValue); });
}

std::uint32_t Registry::QueryNumber(const std::wstring& name, std::uint32_t)
{
    std::uint32_t value = 0;
    QueryUnchanged(name, NumberTypes, &value, sizeof value);
    return value;
}

// The size of the value, whose type must be one of those. With data, room for `size` bytes, the value goes there.
DWORD Registry::Query(const std::wstring& name, Types types, void* data, DWORD size) const
{
    RequireOpen();
    DWORD type = REG_NONE;
    const LSTATUS result =
        ::RegQueryValueExW(m_hKey.get(), name.c_str(), nullptr, &type, static_cast<BYTE*>(data), &size);
    // More data than there is room for means a value of the wrong size.
    Check(result == ERROR_MORE_DATA ? ERROR_INVALID_DATA : result);
    Require(std::find(types.begin(), types.end(), type) != types.end(), ERROR_INVALID_DATA);
    return size;
}

// Reads a value that must have exactly this size.
void Registry::QueryUnchanged(const std::wstring& name, Types types, void* data, DWORD size) const
{
    Require(Query(name, types, data, size) == size, ERROR_INVALID_DATA);
}

bool Registry::SetBinary(const std::wstring& name, const ByteArray& bytes)
{
    return Set(name, REG_BINARY, bytes.Data(), bytes.Size());
}

bool Registry::SetString(const std::wstring& name, const std::wstring& value)
{
    return Set(name, REG_SZ, value.c_str(), (value.size() + 1) * sizeof(wchar_t));
}

bool Registry::SetQword(const std::wstring& name, std::uint64_t value)
{
    return Set(name, REG_QWORD, &value, sizeof value);
}

bool Registry::SetNumber(const std::wstring& name, std::uint32_t value)
{
    return Set(name, REG_DWORD, &value, sizeof value);
}

bool Registry::Set(const std::wstring& name, DWORD type, const void* data, std::size_t size)
{
    RequireOpen();
    Check(::RegSetValueExW(m_hKey.get(), name.c_str(), 0, type, static_cast<const BYTE*>(data),
                           static_cast<DWORD>(size)));
    return true;
}

bool Registry::DeleteLocation()
{
    RequireOpen();
    Check(::RegDeleteKeyW(m_hKey.get(), L""));
    return true;
}

bool Registry::DeleteValue(const wchar_t* name)
{
    return DeleteValue(TextOf(name));
}

bool Registry::DeleteValue(const std::wstring& name)
{
    RequireOpen();
    Check(::RegDeleteValueW(m_hKey.get(), name.c_str()));
    return true;
}

bool Registry::ListKeys(std::vector<std::wstring>& names)
{
    return List(::RegEnumKeyExW, names);
}

bool Registry::ListValues(std::vector<std::wstring>& names)
{
    return List(::RegEnumValueW, names);
}

// enumerate: one of the platform's two functions that return the name at an index.
template <class Enumerate>
bool Registry::List(Enumerate enumerate, std::vector<std::wstring>& names) const
{
    RequireOpen();
    for (DWORD index = 0;; ++index)
    {
        wchar_t name[NameRoom] = {};
        DWORD room = NameRoom;
        const LSTATUS result = enumerate(m_hKey.get(), index, name, &room, nullptr, nullptr, nullptr, nullptr);
        if (result == ERROR_NO_MORE_ITEMS)
        {
            return true;
        }
        Check(result);
        names.emplace_back(name);
    }
}

void Registry::RequireOpen() const
{
    Require(m_nRoot != 0 && m_hKey, ERROR_INVALID_HANDLE);
}

} // namespace VdCommon::Storage
