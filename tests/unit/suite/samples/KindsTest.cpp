#include "suite/samples/Kinds.h"

#include "suite/database/LogKinds.h"

#include <gtest/gtest.h>

using namespace Samples;

TEST(KindsTest, EveryKindOfLogHasSamples)
{
    for (const EventLog::LogKind& kind : EventLog::AllLogKinds())
    {
        EXPECT_NE(FindKind(kind.extension), nullptr) << std::wstring(kind.extension);
    }
}

TEST(KindsTest, NothingButAKindOfLogHasSamples)
{
    for (const Kind& kind : AllKinds())
    {
        EXPECT_NE(EventLog::FindKindOfExtension(kind.extension), nullptr) << std::wstring(kind.extension);
    }
}
