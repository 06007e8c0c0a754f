#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>
#include <vector>

// A value below HKEY_LOCAL_MACHINE for the life of the object, in the registry that all programs see; then it is again
// what it was. Keys that are made on the way stay.
class RegistryValue
{
public:
    // Both throw std::runtime_error when the value cannot be set.
    RegistryValue(std::wstring key, std::wstring name, DWORD number) : RegistryValue(std::move(key), std::move(name))
    {
        Set(REG_DWORD, &number, sizeof number);
    }

    RegistryValue(std::wstring key, std::wstring name, const std::wstring& text)
        : RegistryValue(std::move(key), std::move(name))
    {
        Set(REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }

    ~RegistryValue()
    {
        if (m_dwTypeBefore == REG_NONE)
        {
            RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, m_strKey.c_str(), m_strName.c_str());
            return;
        }
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, m_strKey.c_str(), m_strName.c_str(), m_dwTypeBefore, m_before.data(),
                        static_cast<DWORD>(m_before.size()));
    }

    RegistryValue(const RegistryValue&) = delete;
    RegistryValue& operator=(const RegistryValue&) = delete;

private:
    // Notes what the value is now.
    RegistryValue(std::wstring key, std::wstring name) : m_strKey(std::move(key)), m_strName(std::move(name))
    {
        DWORD size = 0;
        if (Get(nullptr, size) != ERROR_SUCCESS)
        {
            return;
        }
        m_before.resize(size);
        if (Get(m_before.data(), size) != ERROR_SUCCESS)
        {
            throw std::runtime_error("a value of the registry cannot be read");
        }
    }

    LSTATUS Get(void* data, DWORD& size)
    {
        return RegGetValueW(HKEY_LOCAL_MACHINE, m_strKey.c_str(), m_strName.c_str(), RRF_RT_ANY | RRF_NOEXPAND,
                            &m_dwTypeBefore, data, &size);
    }

    void Set(DWORD type, const void* data, std::size_t size) const
    {
        if (RegSetKeyValueW(HKEY_LOCAL_MACHINE, m_strKey.c_str(), m_strName.c_str(), type, data,
                            static_cast<DWORD>(size)) != ERROR_SUCCESS)
        {
            throw std::runtime_error("a value of the registry cannot be set");
        }
    }

    const std::wstring m_strKey;
    const std::wstring m_strName;
    DWORD m_dwTypeBefore = REG_NONE; // of a value that was there
    std::vector<BYTE> m_before;
};
