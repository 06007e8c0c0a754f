#include "common/DataConversion/Frwk_ComPrfReportSet.h"

#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireArray.h"

namespace
{

using namespace Frwk::DataTypes;

using ReportSettings = FrameworkValues;

// Reads into members that held 70, 80 and 90.
std::pair<bool, std::vector<std::uint32_t>> ReadSettings(const OwnedArray& wire)
{
    ComPrfReportSet array;
    EXPECT_TRUE(array.Attach(wire.Get()));
    PrfReportSet settings{70, 80, 90};
    const bool read = array.GetPrfReportSet(settings);
    return {read, {settings.frequency, settings.alertFlag, settings.unused}};
}

TEST_F(ReportSettings, AreReadFromThreeElements)
{
    EXPECT_EQ(ReadSettings(OwnedArray{Wire::Number(7), Wire::Number(1), Wire::Number(0xFFFFFFFF)}),
              (std::pair{true, std::vector<std::uint32_t>{7, 1, 0xFFFFFFFF}}));
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(ReportSettings, FailedReadLeavesItsMemberAndSkipsTheLaterOnes)
{
    const Traces wrongType{L"*** VariantArray::GetValue() - Specified element was not VT_UI4."};
    const VARIANT wrong = Wire::Value(VT_I4, 1);
    EXPECT_EQ(ReadSettings(OwnedArray{wrong, Wire::Number(1), Wire::Number(2)}),
              (std::pair{false, std::vector<std::uint32_t>{70, 80, 90}}));
    EXPECT_EQ(Errors(), wrongType);
    EXPECT_EQ(ReadSettings(OwnedArray{Wire::Number(7), wrong, Wire::Number(2)}),
              (std::pair{false, std::vector<std::uint32_t>{7, 80, 90}}));
    EXPECT_EQ(Errors(), wrongType);
    EXPECT_EQ(ReadSettings(OwnedArray{Wire::Number(7), Wire::Number(1), wrong}),
              (std::pair{false, std::vector<std::uint32_t>{7, 1, 90}}));
    EXPECT_EQ(Errors(), wrongType);
}

TEST_F(ReportSettings, ShorterArrayFailsBehindItsEnd)
{
    EXPECT_EQ(ReadSettings(OwnedArray{Wire::Number(7), Wire::Number(1)}),
              (std::pair{false, std::vector<std::uint32_t>{7, 1, 90}}));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [8002000b]"});
}

TEST_F(ReportSettings, LongerArrayIsReadAsFarAsItIsKnown)
{
    EXPECT_TRUE(ReadSettings(OwnedArray{Wire::Number(7), Wire::Number(1), Wire::Number(2), Wire::Text(L"more")}).first);
    EXPECT_EQ(Errors(), NoTraces);
}

// As the service leaves it when it does not know the value.
TEST_F(ReportSettings, ArrayOfEmptyElementsFails)
{
    EXPECT_FALSE(ReadSettings(OwnedArray(VT_VARIANT, {{3, 0}})).first);
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetValue() - Specified element was not VT_UI4."});
}

} // namespace
