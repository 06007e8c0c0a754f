#include "common/Frwk_VariantArray.h"

#include "tests/support/ImportPatch.h"
#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireArray.h"

extern "C" decltype(&::SafeArrayCreate) __imp_SafeArrayCreate;

namespace
{

using Frwk::DataTypes::VariantArray;

using VariantArrays = FrameworkValues;

TEST_F(VariantArrays, CreateArrayMakesOneDimensionOfEmptyVariantsFrom0)
{
    VariantArray array;
    EXPECT_EQ(array.GetSafeArray(), nullptr);
    ASSERT_TRUE(array.CreateArray(3));
    const SAFEARRAY& made = *array.GetSafeArray();
    EXPECT_EQ(made.cDims, 1);
    EXPECT_EQ(made.cbElements, 24u);
    EXPECT_EQ(made.fFeatures, FADF_VARIANT | FADF_HAVEVARTYPE);
    EXPECT_EQ(made.cLocks, 0u);
    EXPECT_EQ(made.rgsabound[0].cElements, 3u);
    EXPECT_EQ(made.rgsabound[0].lLbound, 0);
    EXPECT_EQ(Wire::Bytes(&made, 2, 8), std::vector<BYTE>(10));
    EXPECT_EQ(array.GetBound().cElements, 3u);
    EXPECT_EQ(array.GetBound().lLbound, 0);
    EXPECT_EQ(array.GetElementCount(), 3u);
    EXPECT_TRUE(array.DestroyArray());
    EXPECT_EQ(array.GetSafeArray(), nullptr);
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(VariantArrays, CreateArrayTwiceWithoutDestroyArrayFailsTheSecondTimeAndLeavesTheFirstArray)
{
    VariantArray array;
    ASSERT_TRUE(array.CreateArray(2));
    const SAFEARRAY* const first = array.GetSafeArray();
    EXPECT_FALSE(array.CreateArray(5));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::CreateArray() - m_lpSafeArray was inavalid."});
    EXPECT_EQ(array.GetSafeArray(), first);
    EXPECT_EQ(array.GetElementCount(), 2u);
    EXPECT_EQ(array.GetBound().cElements, 2u);
    EXPECT_TRUE(array.DestroyArray());
    EXPECT_TRUE(array.CreateArray(5));
    EXPECT_EQ(array.GetElementCount(), 5u);
    EXPECT_TRUE(array.DestroyArray());
}

SAFEARRAY* WINAPI MakeNoArray(VARTYPE, UINT, SAFEARRAYBOUND*)
{
    return nullptr;
}

TEST_F(VariantArrays, CreateArrayThatThePlatformRefusesFails)
{
    VariantArray array;
    const ImportPatch refuse(__imp_SafeArrayCreate, &MakeNoArray);
    EXPECT_FALSE(array.CreateArray(3));
    EXPECT_EQ(array.GetSafeArray(), nullptr);
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::CreateArray() - ::SafeArrayCreate() failed."});
}

// 178,956,971 elements are 8 bytes more than 32 bits count: the platform of the tests makes an array of 8 bytes.
TEST_F(VariantArrays, CreateArrayOfMoreBytesThan32BitsCountFails)
{
    for (const std::uint32_t count : {178956971u, 0x80000000u, 0xFFFFFFFFu})
    {
        VariantArray array;
        EXPECT_FALSE(array.CreateArray(count));
        EXPECT_EQ(Errors(), Traces{L"*** VariantArray::CreateArray() - ::SafeArrayCreate() failed."});
    }
}

TEST_F(VariantArrays, CreateArrayOfNoElementsIsAnArray)
{
    VariantArray array;
    EXPECT_TRUE(array.CreateArray(0));
    EXPECT_NE(array.GetSafeArray(), nullptr);
    EXPECT_EQ(array.GetElementCount(), 0u);
    EXPECT_TRUE(array.DestroyArray());
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(VariantArrays, DestroyArrayOfNoArrayIsSuccess)
{
    VariantArray array;
    EXPECT_TRUE(array.DestroyArray());
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(VariantArrays, DestroyArrayThatFailsIsTracedKeepsTheArrayAndIsTrue)
{
    VariantArray array;
    ASSERT_TRUE(array.CreateArray(1));
    SAFEARRAY* const made = array.GetSafeArray();
    ASSERT_EQ(::SafeArrayLock(made), S_OK);
    EXPECT_TRUE(array.DestroyArray());
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::DestroyArray() - ::SafeArrayDestroy() failed. [8002000d]"});
    EXPECT_EQ(array.GetSafeArray(), made);
    ASSERT_EQ(::SafeArrayUnlock(made), S_OK);
    EXPECT_TRUE(array.DestroyArray());
    EXPECT_EQ(array.GetSafeArray(), nullptr);
}

TEST_F(VariantArrays, DestructorLeavesTheArray)
{
    OwnedArray owner;
    {
        VariantArray array;
        ASSERT_TRUE(array.CreateArray(1));
        owner = OwnedArray(array.GetSafeArray());
    }
    EXPECT_EQ(m_memory.BlocksOut(), 2); // its head and its elements
    EXPECT_EQ(owner->rgsabound[0].cElements, 1u);
}

TEST_F(VariantArrays, AttachTakesArrayAndBoundsWithoutOwning)
{
    const OwnedArray owner(VT_VARIANT, {{4, 7}});
    VariantArray array;
    EXPECT_TRUE(array.Attach(owner.Get()));
    EXPECT_EQ(array.GetSafeArray(), owner.Get());
    EXPECT_EQ(array.GetBound().cElements, 4u);
    EXPECT_EQ(array.GetBound().lLbound, 7);
    EXPECT_EQ(array.GetElementCount(), 4u);
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(VariantArrays, AttachOfNullFails)
{
    VariantArray array;
    EXPECT_FALSE(array.Attach(nullptr));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::Attach() - _lpSafeArray was invalid."});
}

TEST_F(VariantArrays, AttachWithAnArrayHeldFailsAndLeavesIt)
{
    const OwnedArray held(VT_VARIANT, {{4, 0}});
    const OwnedArray other(VT_VARIANT, {{5, 0}});
    VariantArray array;
    ASSERT_TRUE(array.Attach(held.Get()));
    EXPECT_FALSE(array.Attach(other.Get()));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::Attach() - this->m_lpSafeArray was invalid."});
    EXPECT_EQ(array.GetSafeArray(), held.Get());
    EXPECT_EQ(array.GetBound().cElements, 4u);
}

TEST_F(VariantArrays, ElementCountOfNoArrayIs0AndTraced)
{
    const VariantArray array;
    EXPECT_EQ(array.GetElementCount(), 0u);
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetElementCount() - this->m_lpSafeArray was invalid."});
}

TEST_F(VariantArrays, ArrayThatACallPutsInThePlaceOfTheOldOneIsReadAndDestroyed)
{
    const auto query = [](SAFEARRAY** array)
    {
        ::SafeArrayDestroy(*array);
        *array = OwnedArray{Wire::Number(1), Wire::Number(2)}.Release();
    };
    VariantArray array;
    ASSERT_TRUE(array.CreateArray(3));
    query(array.GetSafeArrayAddress());
    std::uint32_t value = 0;
    EXPECT_EQ(array.GetElementCount(), 2u);
    EXPECT_TRUE(array.GetValue(value, 1));
    EXPECT_EQ(value, 2u);
    EXPECT_TRUE(array.DestroyArray());
    EXPECT_EQ(Errors(), NoTraces);
}

} // namespace
