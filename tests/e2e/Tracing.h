#pragma once

#include "platform/dialog/UniqueHandle.h"
#include "tests/support/TemporaryFolder.h"

#include <windows.h>

#include <filesystem>
#include <stdexcept>
#include <string>

// Tracing of every program that starts while this object lives, all levels, into one file of the folder.
class Tracing
{
public:
    explicit Tracing(const std::filesystem::path& folder) : m_file(folder / L"zptgolden.log")
    {
        // The settings go with the session at the latest. The keys above them are made first, and lasting, since there
        // can be no lasting key in one that goes.
        MakeKey(ParentKey, REG_OPTION_NON_VOLATILE);
        const UniqueRegistryKey key = MakeKey(SettingsKey, REG_OPTION_VOLATILE);
        SetNumber(key.get(), L"Enable", 1);
        SetNumber(key.get(), L"Level", 0x111);
        SetNumber(key.get(), L"LogProcess", 0);
        SetNumber(key.get(), L"LogUnitType", 0);
        SetText(key.get(), L"LogFolder", folder.wstring());
        SetText(key.get(), L"LogPrefix", L"zpt");
        SetText(key.get(), L"LogFile", L"golden");
    }

    ~Tracing() { RegDeleteTreeW(HKEY_LOCAL_MACHINE, SettingsKey); }

    Tracing(const Tracing&) = delete;
    Tracing& operator=(const Tracing&) = delete;

    // Throws std::runtime_error when nothing was traced yet.
    std::string Text() const { return ReadBytes(m_file.wstring()); }

    // Whether a line holds the text.
    bool Has(const std::string& text) const
    {
        return std::filesystem::exists(m_file) && Text().find(text) != std::string::npos;
    }

private:
    static constexpr wchar_t ParentKey[] = L"Software\\Veldrane\\Zeptara\\17\\DebugLog";
    static constexpr wchar_t SettingsKey[] = L"Software\\Veldrane\\Zeptara\\17\\DebugLog\\InteractiveSession";

    static UniqueRegistryKey MakeKey(const wchar_t* path, DWORD options)
    {
        UniqueRegistryKey key;
        if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, path, 0, nullptr, options, KEY_SET_VALUE, nullptr, key.put(),
                            nullptr) != ERROR_SUCCESS)
        {
            throw std::runtime_error("the settings of the trace cannot be written");
        }
        return key;
    }

    static void SetNumber(HKEY key, const wchar_t* name, DWORD value)
    {
        RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
    }

    static void SetText(HKEY key, const wchar_t* name, const std::wstring& value)
    {
        RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                       static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    }

    const std::filesystem::path m_file;
};
