#include "common/DataConversion/Frwk_ComCmdEvtLgAction.h"

#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireArray.h"

namespace
{

using namespace Frwk::DataTypes;

using PurgeRequest = FrameworkValues;

constexpr CmdEvtLgAction Morning = {{2026, 11, 6, 14, 6, 12, 4, 999}, 0x01020304};

TEST_F(PurgeRequest, Of14November2026At061204Gives20261114And61204AndTheKindOfLog)
{
    ComCmdEvtLgAction array;
    ASSERT_TRUE(array.CreateArray(3));
    EXPECT_TRUE(array.SetCmdEvtLgAction(Morning));
    const SAFEARRAY* const wire = array.GetSafeArray();
    EXPECT_EQ(Wire::Bytes(wire, 0, 4), (std::vector<BYTE>{19, 0, 0xFA, 0x28, 0x35, 0x01})); // 20261114
    EXPECT_EQ(Wire::Bytes(wire, 1, 4), (std::vector<BYTE>{19, 0, 0x14, 0xEF, 0x00, 0x00})); // 61204
    EXPECT_EQ(Wire::Bytes(wire, 2, 4), (std::vector<BYTE>{19, 0, 0x04, 0x03, 0x02, 0x01}));
    EXPECT_TRUE(array.DestroyArray());
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(PurgeRequest, NumbersOfTheLastMomentOfADayAndOfItsFirst)
{
    const auto written = [](const SYSTEMTIME& time)
    {
        ComCmdEvtLgAction array;
        std::uint32_t date = 0;
        std::uint32_t clock = 1;
        EXPECT_TRUE(array.CreateArray(3) && array.SetCmdEvtLgAction({time, 0}));
        EXPECT_TRUE(array.GetValue(date, 0) && array.GetValue(clock, 1) && array.DestroyArray());
        return std::pair(date, clock);
    };
    EXPECT_EQ(written({1999, 12, 0, 31, 23, 59, 59, 0}), std::pair(19991231u, 235959u));
    EXPECT_EQ(written({2000, 1, 0, 1, 0, 0, 0, 1}), std::pair(20000101u, 0u));
}

TEST_F(PurgeRequest, ArrayThatIsTooShortOrMissingFails)
{
    ComCmdEvtLgAction array;
    EXPECT_FALSE(array.SetCmdEvtLgAction(Morning));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::SetElement() - this->m_lpSafeArray was invalid."});
    ASSERT_TRUE(array.CreateArray(2));
    EXPECT_FALSE(array.SetCmdEvtLgAction(Morning));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::PutElement() - ::SafeArrayPutElement() failed. [8002000b]"});
    EXPECT_TRUE(array.DestroyArray());
}

} // namespace
