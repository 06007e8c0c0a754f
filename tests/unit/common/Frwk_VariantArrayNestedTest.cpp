#include "common/Frwk_VariantArray.h"

#include "tests/support/ImportPatch.h"
#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireArray.h"

extern "C" decltype(&::SafeArrayCopy) __imp_SafeArrayCopy;
extern "C" decltype(&::SafeArrayPutElement) __imp_SafeArrayPutElement;

namespace
{

using Frwk::DataTypes::VariantArray;

using NestedArrays = FrameworkValues;

std::uint32_t NumberAt(SAFEARRAY* array, std::uint32_t index)
{
    VariantArray reader;
    std::uint32_t value = 0;
    EXPECT_TRUE(reader.Attach(array) && reader.GetValue(value, index));
    return value;
}

TEST_F(NestedArrays, SetValueArrayLeavesTheSourceAliveAndALaterChangeToItIsNotSeen)
{
    VariantArray source;
    ASSERT_TRUE(source.CreateArray(2));
    ASSERT_TRUE(source.SetValue(std::uint32_t{5}, 1));
    VariantArray outer;
    ASSERT_TRUE(outer.CreateArray(1));
    EXPECT_TRUE(outer.SetValueArray(source.GetSafeArray(), 0));

    EXPECT_EQ(Wire::Bytes(outer.GetSafeArray(), 0, 0), (std::vector<BYTE>{0x0C, 0x20}));
    SAFEARRAY* const inner = Wire::Pointer<SAFEARRAY>(outer.GetSafeArray(), 0);
    EXPECT_NE(inner, source.GetSafeArray());
    EXPECT_EQ(inner->cDims, 1);
    EXPECT_EQ(inner->rgsabound[0].cElements, 2u);
    EXPECT_EQ(Wire::Bytes(inner, 1, 4), (std::vector<BYTE>{19, 0, 5, 0, 0, 0}));

    EXPECT_TRUE(source.SetValue(std::uint32_t{6}, 1));
    EXPECT_EQ(NumberAt(inner, 1), 5u);
    EXPECT_EQ(NumberAt(source.GetSafeArray(), 1), 6u);
    EXPECT_TRUE(source.DestroyArray());
    EXPECT_EQ(NumberAt(inner, 1), 5u);
    EXPECT_TRUE(outer.DestroyArray());
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(NestedArrays, SetValueArrayTakesTheElementTypeOfTheArray)
{
    const OwnedArray bytes(VT_UI1, {{4, 0}});
    VariantArray outer;
    ASSERT_TRUE(outer.CreateArray(1));
    EXPECT_TRUE(outer.SetValueArray(bytes.Get(), 0));
    EXPECT_EQ(Wire::Bytes(outer.GetSafeArray(), 0, 0), (std::vector<BYTE>{0x11, 0x20}));
    EXPECT_TRUE(outer.DestroyArray());
}

TEST_F(NestedArrays, SetValueArrayOfNullFails)
{
    VariantArray outer;
    ASSERT_TRUE(outer.CreateArray(1));
    EXPECT_FALSE(outer.SetValueArray(nullptr, 0));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::SetValueArray() - _lpSafeArray was invalid."});
    EXPECT_TRUE(outer.DestroyArray());
}

// A head alone says no element type.
TEST_F(NestedArrays, SetValueArrayOfAnArrayWithoutElementTypeFails)
{
    SAFEARRAY* untyped = nullptr;
    ASSERT_EQ(::SafeArrayAllocDescriptor(1, &untyped), S_OK);
    VariantArray outer;
    ASSERT_TRUE(outer.CreateArray(1));
    EXPECT_FALSE(outer.SetValueArray(untyped, 0));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::SetValueArray() - ::SafeArrayGetVartype() failed. [0x80070057]"});
    EXPECT_TRUE(outer.DestroyArray());
    EXPECT_EQ(::SafeArrayDestroyDescriptor(untyped), S_OK);
}

HRESULT WINAPI FailToPut(SAFEARRAY*, LONG*, void*)
{
    return E_UNEXPECTED;
}

TEST_F(NestedArrays, SetValueArrayThatFailsLeavesTheSourceAliveToo)
{
    const OwnedArray source{Wire::Number(5)};
    VariantArray outer;
    EXPECT_FALSE(outer.SetValueArray(source.Get(), 0));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::SetElement() - this->m_lpSafeArray was invalid."});
    ASSERT_TRUE(outer.CreateArray(1));
    {
        const ImportPatch refuse(__imp_SafeArrayPutElement, &FailToPut);
        EXPECT_FALSE(outer.SetValueArray(source.Get(), 0));
    }
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::PutElement() - ::SafeArrayPutElement() failed. [8000ffff]"});
    EXPECT_EQ(NumberAt(source.Get(), 0), 5u);
    EXPECT_TRUE(outer.DestroyArray());
}

TEST_F(NestedArrays, GetValueArrayGivesACopyThatIsTheCallersToDestroy)
{
    OwnedArray outer{Wire::Array(OwnedArray{Wire::Number(5), Wire::Text(L"inner")})};
    VariantArray reader;
    ASSERT_TRUE(reader.Attach(outer.Get()));
    SAFEARRAY* copy = nullptr;
    EXPECT_TRUE(reader.GetValueArray(&copy, 0));
    const OwnedArray owner(copy);
    EXPECT_NE(copy, Wire::Pointer<SAFEARRAY>(outer.Get(), 0));
    ::SafeArrayDestroy(outer.Release());
    EXPECT_EQ(NumberAt(copy, 0), 5u);
    EXPECT_EQ(Wire::TextAt(copy, 1), L"inner");
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(NestedArrays, GetValueArrayTakesAnyElementWithTheBitOfAnArray)
{
    SAFEARRAY* referred = nullptr;
    const OwnedArray target(VT_UI1, {{3, 0}});
    referred = target.Get();
    const OwnedArray outer{
        Wire::Array(OwnedArray(VT_UI1, {{2, 0}}), VT_ARRAY | VT_UI1),
        Wire::Value(VT_ARRAY | VT_BYREF | VT_UI1, reinterpret_cast<ULONGLONG>(&referred)),
    };
    VariantArray reader;
    ASSERT_TRUE(reader.Attach(outer.Get()));
    for (const std::uint32_t index : {0u, 1u})
    {
        SAFEARRAY* copy = nullptr;
        EXPECT_TRUE(reader.GetValueArray(&copy, index)) << index;
        const OwnedArray owner(copy);
        EXPECT_EQ(owner->rgsabound[0].cElements, index + 2) << index;
        EXPECT_NE(copy, referred);
    }
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(NestedArrays, GetValueArrayOfAPlainElementFails)
{
    const OwnedArray outer{Wire::Number(0x10000), Wire::Text(L"text"), Wire::Value(VT_EMPTY, 0)};
    VariantArray reader;
    ASSERT_TRUE(reader.Attach(outer.Get()));
    SAFEARRAY* const before = outer.Get();
    SAFEARRAY* copy = before;
    for (const std::uint32_t index : {0u, 1u, 2u})
    {
        EXPECT_FALSE(reader.GetValueArray(&copy, index)) << index;
    }
    EXPECT_EQ(copy, before);
    EXPECT_EQ(Errors(), Traces(3, L"*** VariantArray::GetValueArray() - Specified element was not VT_ARRAY."));
}

TEST_F(NestedArrays, GetValueArrayWithANullTargetFails)
{
    const OwnedArray outer{Wire::Array(OwnedArray{Wire::Number(5)})};
    VariantArray reader;
    ASSERT_TRUE(reader.Attach(outer.Get()));
    EXPECT_FALSE(reader.GetValueArray(nullptr, 0));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetValueArray() - _lpSafeArray was invalid."});
}

TEST_F(NestedArrays, GetValueArrayWithoutAnArrayFails)
{
    const VariantArray reader;
    SAFEARRAY* copy = nullptr;
    EXPECT_FALSE(reader.GetValueArray(&copy, 0));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetElement() - this->m_lpSafeArray was invalid."});
}

HRESULT WINAPI FailToCopy(SAFEARRAY*, SAFEARRAY**)
{
    return E_OUTOFMEMORY;
}

TEST_F(NestedArrays, GetValueArrayThatThePlatformCannotCopyFailsWithItsCode)
{
    const OwnedArray outer{Wire::Array(OwnedArray{Wire::Number(5)})};
    VariantArray reader;
    ASSERT_TRUE(reader.Attach(outer.Get()));
    SAFEARRAY* copy = nullptr;
    const ImportPatch refuse(__imp_SafeArrayCopy, &FailToCopy);
    EXPECT_FALSE(reader.GetValueArray(&copy, 0));
    EXPECT_EQ(copy, nullptr);
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetValueArray() - ::SafeArrayCopy() failed. [8007000e]"});
}

TEST_F(NestedArrays, NullArrayHasNullAsItsCopy)
{
    SAFEARRAY* none = nullptr;
    const OwnedArray outer{
        Wire::Value(VT_ARRAY | VT_VARIANT, 0),
        Wire::Value(VT_ARRAY | VT_BYREF | VT_VARIANT, reinterpret_cast<ULONGLONG>(&none)),
        Wire::Value(VT_ARRAY | VT_BYREF | VT_VARIANT, 0),
    };
    VariantArray reader;
    ASSERT_TRUE(reader.Attach(outer.Get()));
    for (const std::uint32_t index : {0u, 1u, 2u})
    {
        SAFEARRAY* copy = outer.Get();
        EXPECT_TRUE(reader.GetValueArray(&copy, index)) << index;
        EXPECT_EQ(copy, nullptr) << index;
    }
    EXPECT_EQ(Errors(), NoTraces);
}

} // namespace
