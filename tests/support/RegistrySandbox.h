#pragma once

#include "platform/dialog/UniqueHandle.h"

#include <windows.h>

#include <stdexcept>
#include <string>
#include <vector>

// A registry of its own for a test: while it lives, HKEY_LOCAL_MACHINE of this process is an empty key below
// HKEY_CURRENT_USER, which goes with all in it. One at a time. Paths are those below HKEY_LOCAL_MACHINE; the empty path
// is the root. The setters make the keys on the way, and throw std::runtime_error when that is not possible.
class RegistrySandbox
{
public:
    RegistrySandbox()
    {
        ::RegDeleteTreeW(HKEY_CURRENT_USER, m_strPath.c_str()); // of a test that was killed under this process number
        Require(::RegCreateKeyExW(HKEY_CURRENT_USER, m_strPath.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                  KEY_ALL_ACCESS, nullptr, m_root.put(), nullptr));
        Require(::RegOverridePredefKey(HKEY_LOCAL_MACHINE, m_root.get()));
    }

    ~RegistrySandbox()
    {
        ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        m_root.reset();
        ::RegDeleteTreeW(HKEY_CURRENT_USER, m_strPath.c_str());
    }

    RegistrySandbox(const RegistrySandbox&) = delete;
    RegistrySandbox& operator=(const RegistrySandbox&) = delete;

    void MakeKey(const std::wstring& path) const { Open(path); }

    void SetNumber(const std::wstring& path, const std::wstring& name, DWORD value) const
    {
        Set(path, name, REG_DWORD, &value, sizeof value);
    }

    // With its terminator.
    void SetText(const std::wstring& path, const std::wstring& name, const std::wstring& value) const
    {
        Set(path, name, REG_SZ, value.c_str(), (value.size() + 1) * sizeof(wchar_t));
    }

    void SetBytes(const std::wstring& path, const std::wstring& name, const std::vector<BYTE>& bytes) const
    {
        Set(path, name, REG_BINARY, bytes.data(), bytes.size());
    }

    // Any type, and exactly these bytes.
    void Set(const std::wstring& path, const std::wstring& name, DWORD type, const void* data, std::size_t size) const
    {
        // The system looks after a text without a terminator for one: let it find none, and not leave the block.
        std::vector<BYTE> padded(static_cast<const BYTE*>(data), static_cast<const BYTE*>(data) + size);
        padded.insert(padded.end(), sizeof(wchar_t), BYTE{0xFF});
        Require(::RegSetValueExW(Open(path).get(), name.c_str(), 0, type, padded.data(), static_cast<DWORD>(size)));
    }

    // The type of a value, and its bytes in `bytes`; REG_NONE when there is no such value.
    DWORD Get(const std::wstring& path, const std::wstring& name, std::vector<BYTE>& bytes) const
    {
        DWORD type = REG_NONE;
        DWORD size = 0;
        const UniqueRegistryKey key = Open(path);
        if (::RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
        {
            return REG_NONE;
        }
        bytes.resize(size);
        Require(::RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, bytes.data(), &size));
        return type;
    }

    bool HasKey(const std::wstring& path) const
    {
        UniqueRegistryKey key;
        return ::RegOpenKeyExW(m_root.get(), path.c_str(), 0, KEY_QUERY_VALUE, key.put()) == ERROR_SUCCESS;
    }

    // The key that stands for HKEY_LOCAL_MACHINE; belongs to the sandbox.
    HKEY Root() const { return m_root.get(); }

private:
    UniqueRegistryKey Open(const std::wstring& path) const
    {
        UniqueRegistryKey key;
        Require(::RegCreateKeyExW(m_root.get(), path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                                  nullptr, key.put(), nullptr));
        return key;
    }

    static void Require(LSTATUS result)
    {
        if (result != ERROR_SUCCESS)
        {
            throw std::runtime_error("the registry of the test failed with code " + std::to_string(result));
        }
    }

    const std::wstring m_strPath = L"Software\\KestrixTest-" + std::to_wstring(::GetCurrentProcessId());
    UniqueRegistryKey m_root;
};
