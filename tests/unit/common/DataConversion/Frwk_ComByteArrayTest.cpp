#include "common/DataConversion/Frwk_ComByteArray.h"

#include "tests/support/AllocationWatch.h"
#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireArray.h"

#include <algorithm>

namespace
{

using Frwk::DataTypes::ComByteArray;
using VdCommon::ByteArray;

using BytesOnTheWire = FrameworkValues;

ByteArray Block(std::initializer_list<BYTE> content)
{
    ByteArray bytes;
    EXPECT_TRUE(bytes.Allocate(content.size()));
    std::copy(content.begin(), content.end(), bytes.Data());
    return bytes;
}

std::vector<BYTE> Content(const ByteArray& bytes)
{
    return std::vector<BYTE>(bytes.Data(), bytes.Data() + bytes.Size());
}

// What GetByteArray gives, and the block afterwards, which held two bytes before.
std::pair<bool, std::vector<BYTE>> ReadBytes(const OwnedArray& wire)
{
    ComByteArray array;
    EXPECT_TRUE(array.Attach(wire.Get()));
    ByteArray bytes = Block({7, 7});
    const bool read = array.GetByteArray(&bytes);
    return {read, Content(bytes)};
}

TEST_F(BytesOnTheWire, AreOneElementEach)
{
    ComByteArray array;
    ASSERT_TRUE(array.CreateArray(3));
    const ByteArray bytes = Block({0xFF, 0, 0x80});
    EXPECT_TRUE(array.SetByteArray(&bytes));
    EXPECT_EQ(Wire::Bytes(array.GetSafeArray(), 0, 1), (std::vector<BYTE>{17, 0, 0xFF}));
    EXPECT_EQ(Wire::Bytes(array.GetSafeArray(), 1, 1), (std::vector<BYTE>{17, 0, 0}));
    EXPECT_EQ(Wire::Bytes(array.GetSafeArray(), 2, 1), (std::vector<BYTE>{17, 0, 0x80}));
    EXPECT_TRUE(array.DestroyArray());
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(BytesOnTheWire, LeaveLaterElementsOfALongerArray)
{
    const OwnedArray wire{Wire::Number(1), Wire::Number(2)};
    ComByteArray array;
    ASSERT_TRUE(array.Attach(wire.Get()));
    const ByteArray bytes = Block({9});
    EXPECT_TRUE(array.SetByteArray(&bytes));
    EXPECT_EQ(Wire::Bytes(wire.Get(), 0, 1), (std::vector<BYTE>{17, 0, 9}));
    EXPECT_EQ(Wire::Bytes(wire.Get(), 1, 1), (std::vector<BYTE>{19, 0, 2}));
}

TEST_F(BytesOnTheWire, NullOrUnfilledBlockIsNotWritten)
{
    ComByteArray array;
    ASSERT_TRUE(array.CreateArray(1));
    const ByteArray unfilled;
    EXPECT_FALSE(array.SetByteArray(nullptr));
    EXPECT_FALSE(array.SetByteArray(&unfilled));
    EXPECT_EQ(Wire::Bytes(array.GetSafeArray(), 0, 1), (std::vector<BYTE>{0, 0, 0}));
    EXPECT_TRUE(array.DestroyArray());
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(BytesOnTheWire, FirstWriteThatFailsEndsTheWriting)
{
    ComByteArray array;
    ASSERT_TRUE(array.CreateArray(2));
    const ByteArray bytes = Block({1, 2, 3, 4});
    EXPECT_FALSE(array.SetByteArray(&bytes));
    EXPECT_EQ(Errors(), (Traces{L"*** VariantArray::PutElement() - ::SafeArrayPutElement() failed. [8002000b]",
                                L"*** ComByteArray::SetByteArray() - this->SetValue() failed. [2]"}));
    EXPECT_EQ(Wire::Bytes(array.GetSafeArray(), 1, 1), (std::vector<BYTE>{17, 0, 2}));
    EXPECT_TRUE(array.DestroyArray());
}

TEST_F(BytesOnTheWire, ReplaceTheBlock)
{
    EXPECT_EQ(ReadBytes(OwnedArray{Wire::Value(VT_UI1, 5), Wire::Value(VT_UI1, 0xFF), Wire::Value(VT_UI1, 0)}),
              (std::pair{true, std::vector<BYTE>{5, 0xFF, 0}}));
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(BytesOnTheWire, NullBlockFails)
{
    const OwnedArray wire{Wire::Value(VT_UI1, 5)};
    ComByteArray array;
    ASSERT_TRUE(array.Attach(wire.Get()));
    EXPECT_FALSE(array.GetByteArray(nullptr));
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(BytesOnTheWire, ArrayWithNoElementsEmptiesTheBlockAndFails)
{
    EXPECT_EQ(ReadBytes(OwnedArray(VT_VARIANT, {{0, 0}})), (std::pair{false, std::vector<BYTE>()}));
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(BytesOnTheWire, MissingArrayEmptiesTheBlockAndFails)
{
    const ComByteArray array;
    ByteArray bytes = Block({7});
    EXPECT_FALSE(array.GetByteArray(&bytes));
    EXPECT_EQ(bytes.Size(), 0u);
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetElementCount() - this->m_lpSafeArray was invalid."});
}

TEST_F(BytesOnTheWire, ReadThatFailsEndsTheReadingAndTheBlockIsCopiedAsItStands)
{
    EXPECT_EQ(ReadBytes(OwnedArray{Wire::Value(VT_UI1, 5), Wire::Value(VT_I1, 6), Wire::Value(VT_UI1, 7)}),
              (std::pair{true, std::vector<BYTE>{5, 0, 0}}));
    EXPECT_EQ(Errors(), (Traces{L"*** VariantArray::GetValue() - Specified element was not VT_UI1.",
                                L"*** ComByteArray::GetByteArray() - this->GetValue() failed. [1]"}));
}

TEST_F(BytesOnTheWire, ArrayOfBareBytesIsNotRead)
{
    EXPECT_EQ(ReadBytes(OwnedArray(VT_UI1, {{3, 0}})), (std::pair{true, std::vector<BYTE>{0, 0, 0}}));
    EXPECT_EQ(Errors(), (Traces{L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [80020005]",
                                L"*** ComByteArray::GetByteArray() - this->GetValue() failed. [0]"}));
}

// Callers look at the size alone: a block from before must not pass for the one that was asked for.
TEST_F(BytesOnTheWire, BlockThatThereIsNoMemoryForIsEmptyAndFails)
{
    const OwnedArray wire(VT_VARIANT, {{5000, 0}});
    ComByteArray array;
    ASSERT_TRUE(array.Attach(wire.Get()));
    ByteArray bytes = Block({7});
    {
        AllocationWatch heap;
        heap.FailAbove(4999);
        EXPECT_FALSE(array.GetByteArray(&bytes));
    }
    EXPECT_EQ(bytes.Size(), 0u);
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(BytesOnTheWire, BlockOf20BytesTravelsInsideALargerArray)
{
    ByteArray sent;
    ASSERT_TRUE(sent.Allocate(20));
    std::generate_n(sent.Data(), 20, [byte = BYTE{100}]() mutable { return byte++; });
    ComByteArray inner;
    Frwk::DataTypes::VariantArray outer;
    ASSERT_TRUE(inner.CreateArray(20) && inner.SetByteArray(&sent) && outer.CreateArray(1));
    ASSERT_TRUE(outer.SetValueArray(inner.GetSafeArray(), 0) && inner.DestroyArray());
    ASSERT_TRUE(outer.GetValueArray(inner.GetSafeArrayAddress(), 0));
    ByteArray received;
    EXPECT_TRUE(inner.GetByteArray(&received));
    EXPECT_EQ(Content(received), Content(sent));
    EXPECT_TRUE(inner.DestroyArray() && outer.DestroyArray());
    EXPECT_EQ(Errors(), NoTraces);
}

} // namespace
