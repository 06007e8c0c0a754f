#include "common/DataConversion/Frwk_ComPrpChkInternetConn.h"

#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireArray.h"

namespace
{

using Frwk::DataTypes::ComPrpChkInternetConn;

using InternetConnection = FrameworkValues;

TEST_F(InternetConnection, IsReadFromTheArrayThatTheServiceMakes)
{
    for (const bool connected : {true, false})
    {
        ComPrpChkInternetConn array;
        ASSERT_EQ(*array.GetSafeArrayAddress(), nullptr);
        *array.GetSafeArrayAddress() = OwnedArray{Wire::Value(VT_BOOL, connected ? 0xFFFF : 0)}.Release();
        bool answer = !connected;
        EXPECT_TRUE(array.GetPrpChkInternetConn(answer));
        EXPECT_EQ(answer, connected);
        EXPECT_TRUE(array.DestroyArray());
    }
    EXPECT_EQ(Errors(), Traces());
}

TEST_F(InternetConnection, WithoutAnArrayFails)
{
    ComPrpChkInternetConn array;
    bool answer = true;
    EXPECT_FALSE(array.GetPrpChkInternetConn(answer));
    EXPECT_TRUE(answer);
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetElement() - this->m_lpSafeArray was invalid."});
}

TEST_F(InternetConnection, OfAnotherTypeFails)
{
    const OwnedArray wire{Wire::Number(1)};
    ComPrpChkInternetConn array;
    ASSERT_TRUE(array.Attach(wire.Get()));
    bool answer = false;
    EXPECT_FALSE(array.GetPrpChkInternetConn(answer));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetValue() - Specified element was not VT_BOOL."});
}

} // namespace
