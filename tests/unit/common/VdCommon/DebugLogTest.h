// What the tests of the trace facility share.
#pragma once

#include "common/VdCommon/VdComn_DebugLog.h"
#include "common/VdCommon/VdComn_Storage.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TraceLibraryDouble.h"

#include <gtest/gtest.h>

using VdCommon::DebugLog;
using VdCommon::TraceLevel;
using VdCommon::Storage::Key;

inline constexpr wchar_t SettingsKey[] = L"Software\\Test\\DebugLog";
inline constexpr wchar_t InteractiveKey[] = L"Software\\Test\\DebugLog\\InteractiveSession";
inline constexpr wchar_t ServiceKey[] = L"Software\\Test\\DebugLog\\ServiceSession";
inline constexpr std::uint32_t AllLevels = 0x111;

inline std::wstring FolderOf(const std::wstring& form)
{
    return L"..\\tests\\trace-" + form;
}

// A debug log with settings of its own and a library that stays loaded for as long as the test looks at it.
class DebugLogTest : public testing::Test
{
protected:
    void Enable(std::uint32_t levels = AllLevels)
    {
        m_registry.SetNumber(InteractiveKey, L"Enable", 1);
        m_registry.SetNumber(InteractiveKey, L"Level", levels);
    }

    void SetTheRest()
    {
        m_registry.SetNumber(InteractiveKey, L"LogProcess", 3);
        m_registry.SetNumber(InteractiveKey, L"LogUnitType", 4);
        m_registry.SetText(InteractiveKey, L"LogFolder", L"C:\\Trace");
        m_registry.SetText(InteractiveKey, L"LogPrefix", L"pre");
        m_registry.SetText(InteractiveKey, L"LogFile", L"file");
        m_registry.SetText(InteractiveKey, L"LogExtension", L"txt");
        m_registry.SetNumber(InteractiveKey, L"Robust", 7);
        m_registry.SetNumber(InteractiveKey, L"Debugger", 8);
    }

    bool Initialize(const std::wstring& form = L"good", const std::wstring& folderEnd = {})
    {
        m_module.reset(LoadLibraryW((FolderOf(form) + L"\\VdDbg64.dll").c_str()));
        EXPECT_EQ(static_cast<bool>(m_module), form != L"nowhere") << "the library of the form was not built";
        if (m_module)
        {
            const auto function = GetProcAddress(m_module.get(), "FreshTraceCalls");
            m_calls = &reinterpret_cast<TraceCallsFunction*>(reinterpret_cast<void (*)()>(function))();
        }
        return m_log.Initialize(L"Kestrix", Key::InRegistry(HKEY_LOCAL_MACHINE, SettingsKey),
                                FolderOf(form) + folderEnd);
    }

    bool Trace(TraceLevel level, const wchar_t* text = L"text") { return m_log.Trace("a.cpp", 1, level, L"%s", text); }

    const RegistrySandbox m_registry;
    UniqueModule m_module;
    DebugLog m_log;
    TraceCalls* m_calls = nullptr;
};
