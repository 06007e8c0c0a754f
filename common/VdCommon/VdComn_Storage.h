#pragma once

#include "common/VdCommon/VdComn_ByteArray.h"
#include "common/VdCommon/VdComn_Exception.h"

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

// Named values below a location, in the registry or in an INI file.
namespace VdCommon::Storage
{

// Code 6: the object is not open, or memory is missing; 13: a value has the wrong type or size, or changed while it was
// read; 160: a null root, an empty name of an INI file, section or value; else the platform's code.
class Exception : public VdCommon::Exception::Coded
{
public:
    using Coded::Coded;
};

// Names a location. The texts that it points to must outlive it; null stands for an empty one.
struct Key
{
    // Values of `kind`.
    static constexpr std::uint32_t Registry = 0;
    static constexpr std::uint32_t IniFile = 1;
    static constexpr std::uint32_t RegistryToo = 4;

    std::uint32_t kind;
    std::uintptr_t root; // the root key's handle; the folder (const wchar_t*) of an INI file
    const wchar_t* path; // the key's path below the root; the name of the INI file

    static Key InRegistry(HKEY root, const wchar_t* path) noexcept
    {
        return {Registry, reinterpret_cast<std::uintptr_t>(root), path};
    }

    static Key InIniFile(const wchar_t* folder, const wchar_t* fileName) noexcept
    {
        return {IniFile, reinterpret_cast<std::uintptr_t>(folder), fileName};
    }
};

// One open location, for the thread that made the object. An operation without NoThrow in its name returns true or the
// value, and throws Exception* on a failure. One that a kind of storage does not have returns false or the default.
class Base
{
public:
    Base() = default;
    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;
    virtual ~Base() = default;

    // `subPath`: the sub-key below the key, or the section of the INI file. A failed opening leaves the object as it
    // is.
    virtual bool OpenRead(const Key& key, const std::wstring& subPath) = 0;
    virtual bool OpenCreate(const Key& key, const std::wstring& subPath) = 0;
    virtual bool OpenWrite(const Key& key, const std::wstring& subPath);
    virtual bool OpenEnumerate(const Key& key, const std::wstring& subPath);
    virtual bool Close(const bool& flush) = 0;
    virtual bool Flush() = 0;

    // A NoThrow read stores the code of an Exception in `error`, which may be null and is left alone by a success.
    // `bytes` must be empty (else code 5010), and may hold a block after a failure.
    virtual bool QueryBinaryNoThrow(const std::wstring& name, ByteArray& bytes, std::uint32_t* error);
    virtual bool QueryBinary(const std::wstring& name, ByteArray& bytes);
    virtual std::wstring QueryStringNoThrow(const std::wstring& name, const std::wstring& defaultValue,
                                            std::uint32_t* error);
    virtual std::wstring QueryString(const std::wstring& name, const std::wstring& defaultValue) = 0;
    virtual std::uint32_t QueryNumberNoThrow(const std::wstring& name, std::uint32_t defaultValue,
                                             std::uint32_t* error);
    virtual std::uint32_t QueryNumber(const std::wstring& name, std::uint32_t defaultValue) = 0;

    virtual bool SetBinary(const std::wstring& name, const ByteArray& bytes);
    virtual bool SetString(const std::wstring& name, const std::wstring& value) = 0;
    virtual bool SetQword(const std::wstring& name, std::uint64_t value);
    virtual bool SetNumber(const std::wstring& name, std::uint32_t value) = 0;

    // Deletes the open key or section itself.
    virtual bool DeleteLocation() = 0;
    // The same as the one below; null stands for the empty name.
    virtual bool DeleteValue(const wchar_t* name) = 0;
    virtual bool DeleteValue(const std::wstring& name) = 0;

    // Append the names to the list.
    virtual bool ListKeys(std::vector<std::wstring>& names);
    virtual bool ListValues(std::vector<std::wstring>& names);
};

// Reading one value below a root key. Null for a path or a name stands for the empty text.

// The stored number; the default (write 0u for zero) on a storage failure of any kind.
std::uint32_t QueryValue(HKEY root, const wchar_t* path, const wchar_t* name, std::uint32_t defaultValue);

// The stored text; the default (null is empty) on a storage failure of any kind.
std::wstring QueryValue(HKEY root, const wchar_t* path, const wchar_t* name, const wchar_t* defaultValue);

// QueryValue of bytes: the failure that is none of the storage's. As STG_E_UNKNOWN of the platform.
constexpr std::uint32_t UnknownFailure = 0x800300FD;

// Reads into `bytes`, which must be empty, and returns whether that worked. The code goes to `error` (may be null): 0
// for success, that of the Exception, or UnknownFailure. `reserved` has no meaning.
bool QueryValue(HKEY root, const wchar_t* path, const wchar_t* name, ByteArray& bytes, std::uint32_t reserved,
                std::uint32_t* error) noexcept;

} // namespace VdCommon::Storage
