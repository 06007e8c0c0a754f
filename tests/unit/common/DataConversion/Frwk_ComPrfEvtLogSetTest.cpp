#include "common/DataConversion/Frwk_ComPrfEvtLogSet.h"

#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireArray.h"

namespace
{

using Frwk::DataTypes::ComPrfEvtLogSet;

using PurgeSettings = FrameworkValues;

TEST_F(PurgeSettings, AreFrequencyAndFlag)
{
    ComPrfEvtLogSet array;
    ASSERT_TRUE(array.CreateArray(2));
    EXPECT_TRUE(array.SetPrfEvtLogtSet(0x1E, 0xFEDCBA98));
    EXPECT_EQ(Wire::Bytes(array.GetSafeArray(), 0, 4), (std::vector<BYTE>{19, 0, 0x1E, 0, 0, 0}));
    EXPECT_EQ(Wire::Bytes(array.GetSafeArray(), 1, 4), (std::vector<BYTE>{19, 0, 0x98, 0xBA, 0xDC, 0xFE}));
    EXPECT_TRUE(array.DestroyArray());
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(PurgeSettings, ElementThatCannotBeSetIsTracedOnceByTheOperation)
{
    ComPrfEvtLogSet array;
    EXPECT_FALSE(array.SetPrfEvtLogtSet(1, 1));
    EXPECT_EQ(Errors(), (Traces{L"*** VariantArray::SetElement() - this->m_lpSafeArray was invalid.",
                                L"ComPrfEvtLogSet::SetPrfEvtLogtSet() failed."}));
    ASSERT_TRUE(array.CreateArray(1));
    EXPECT_FALSE(array.SetPrfEvtLogtSet(1, 1));
    EXPECT_EQ(Errors(), (Traces{L"*** VariantArray::PutElement() - ::SafeArrayPutElement() failed. [8002000b]",
                                L"ComPrfEvtLogSet::SetPrfEvtLogtSet() failed."}));
    EXPECT_TRUE(array.DestroyArray());
}

} // namespace
