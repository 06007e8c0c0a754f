#pragma once

#include "tests/e2e/Service.h"
#include "tests/e2e/ServiceSession.h"

#include <gtest/gtest.h>

inline constexpr wchar_t EventLogKey[] =
    L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";

inline constexpr std::uint32_t VirusPurgeType = 1;

using Events = std::vector<std::string>;
inline constexpr char PurgeDone[] = "4 22 1";

// The flag that keeps the service from purging by itself; at the end the machine has no purge settings.
class PurgeSettingsScope
{
public:
    PurgeSettingsScope()
    {
        const DWORD off = 0;
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, EventLogKey, L"EventLogPurgeFlag", REG_DWORD, &off, sizeof off);
    }

    ~PurgeSettingsScope()
    {
        RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, EventLogKey, L"EventLogPurgeFlag");
        RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, EventLogKey, L"EventLogPurgeFre");
    }

    PurgeSettingsScope(const PurgeSettingsScope&) = delete;
    PurgeSettingsScope& operator=(const PurgeSettingsScope&) = delete;
};

// In a single-threaded apartment, as the viewer is.
class ServiceFixture : public ::testing::Test
{
protected:
    ServiceFixture() { EXPECT_EQ(CoInitialize(nullptr), S_OK); }

    ~ServiceFixture() override { CoUninitialize(); }

    const PurgeSettingsScope m_settings;
    const Service m_service;
};
