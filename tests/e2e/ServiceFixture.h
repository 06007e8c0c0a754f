#pragma once

#include "tests/e2e/RegistryValue.h"
#include "tests/e2e/Service.h"
#include "tests/e2e/ServiceSession.h"

#include <gtest/gtest.h>

inline constexpr wchar_t EventLogKey[] =
    L"Software\\Veldrane\\Zeptara\\17\\ServiceFramework\\EnforceLayer\\Common\\EventLog";

inline constexpr std::uint32_t VirusPurgeType = 1;

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
