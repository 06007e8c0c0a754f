#pragma once

#include "tests/e2e/RegistryValue.h"
#include "tests/e2e/Service.h"
#include "tests/e2e/ServiceSession.h"

#include <gtest/gtest.h>

inline constexpr wchar_t EventLogKey[] =
    L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";

inline constexpr std::uint32_t VirusPurgeType = 1;

// One of the two purge settings as the registry has it; 0xFFFFFFFF when it is no number there.
inline std::uint32_t PurgeSetting(const wchar_t* name)
{
    DWORD value = 0xFFFFFFFF;
    DWORD size = sizeof value;
    RegGetValueW(HKEY_LOCAL_MACHINE, EventLogKey, name, RRF_RT_REG_DWORD, nullptr, &value, &size);
    return value;
}

using Events = std::vector<std::string>;
inline constexpr char PurgeDone[] = "4 22 1";

// In a single-threaded apartment, as the viewer is.
class ServiceFixture : public ::testing::Test
{
protected:
    ServiceFixture() { EXPECT_EQ(CoInitialize(nullptr), S_OK); }

    ~ServiceFixture() override { CoUninitialize(); }

    // Nothing is purged but by order.
    const RegistryValue m_purgeFlag{EventLogKey, L"EventLogPurgeFlag", 0};
    const RegistryValue m_purgeDays{EventLogKey, L"EventLogPurgeFre", 30};
    const Service m_service;
};
