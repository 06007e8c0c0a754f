#include "common/Frwk_VariantArray.h"

#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireArray.h"

namespace
{

using Frwk::DataTypes::VariantArray;

using ArraysOfOtherForms = FrameworkValues;

// Every read and write of index 0 fails, with this code in its trace, and leaves the memory alone.
void ExpectRefused(SAFEARRAY* array, const wchar_t* read, const wchar_t* write, Traces& expected)
{
    VariantArray reader;
    ASSERT_TRUE(reader.Attach(array));
    std::uint32_t number = 77;
    std::wstring text = L"before";
    SAFEARRAY* copy = array;
    EXPECT_FALSE(reader.GetValue(number, 0));
    EXPECT_FALSE(reader.GetValue(text, 0));
    EXPECT_FALSE(reader.GetValueArray(&copy, 0));
    EXPECT_EQ(number, 77u);
    EXPECT_EQ(text, L"before");
    EXPECT_EQ(copy, array);
    expected.insert(expected.end(), 3, read);
    EXPECT_FALSE(reader.SetValue(number, 0));
    EXPECT_FALSE(reader.SetValue(text, 0));
    EXPECT_FALSE(reader.SetValueArray(OwnedArray{Wire::Number(1)}.Get(), 0));
    expected.insert(expected.end(), 3, write);
}

constexpr wchar_t ReadMismatch[] = L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [80020005]";
constexpr wchar_t WriteMismatch[] = L"*** VariantArray::PutElement() - ::SafeArrayPutElement() failed. [80020005]";
constexpr wchar_t ReadBadIndex[] = L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [8002000b]";
constexpr wchar_t WriteBadIndex[] = L"*** VariantArray::PutElement() - ::SafeArrayPutElement() failed. [8002000b]";

TEST_F(ArraysOfOtherForms, AnyOtherElementTypeIsRefused)
{
    Traces expected;
    for (const VARTYPE type : {VT_UI1, VT_UI2, VT_I4, VT_UI4, VT_BSTR, VT_UNKNOWN, VT_DECIMAL, VT_BOOL, VT_R8})
    {
        const OwnedArray array(type, {{3, 0}});
        ExpectRefused(array.Get(), ReadMismatch, WriteMismatch, expected);
    }
    EXPECT_EQ(Errors(), expected);
}

TEST_F(ArraysOfOtherForms, TwoDimensionsAreRefused)
{
    Traces expected;
    const OwnedArray array(VT_VARIANT, {{2, 0}, {3, 0}});
    ExpectRefused(array.Get(), ReadMismatch, WriteMismatch, expected);
    EXPECT_EQ(Errors(), expected);
}

TEST_F(ArraysOfOtherForms, LowerBoundOtherThan0HasNoElement0)
{
    Traces expected;
    const OwnedArray array(VT_VARIANT, {{3, 1}});
    ExpectRefused(array.Get(), ReadBadIndex, WriteBadIndex, expected);
    EXPECT_EQ(Errors(), expected);
}

TEST_F(ArraysOfOtherForms, NoElementsAreNoElement0)
{
    Traces expected;
    const OwnedArray array(VT_VARIANT, {{0, 0}});
    ExpectRefused(array.Get(), ReadBadIndex, WriteBadIndex, expected);
    EXPECT_EQ(Errors(), expected);
}

// A head as the platform makes it for an array whose elements come later.
TEST_F(ArraysOfOtherForms, HeadWithoutElementsIsRefusedWhateverCountItSays)
{
    Traces expected;
    SAFEARRAY* head = nullptr;
    ASSERT_EQ(::SafeArrayAllocDescriptorEx(VT_VARIANT, 1, &head), S_OK);
    head->cbElements = sizeof(VARIANT);
    head->fFeatures |= FADF_VARIANT;
    for (const ULONG count : {0ul, 1ul, 0x7FFFFFFFul, 0xFFFFFFFFul})
    {
        head->rgsabound[0].cElements = count;
        ExpectRefused(head, ReadMismatch, WriteMismatch, expected);
    }
    EXPECT_EQ(::SafeArrayDestroyDescriptor(head), S_OK);
    EXPECT_EQ(Errors(), expected);
}

TEST_F(ArraysOfOtherForms, ElementsOfAnotherSizeAreRefused)
{
    Traces expected;
    const OwnedArray array(VT_VARIANT, {{3, 0}});
    array->cbElements = 16;
    ExpectRefused(array.Get(), ReadMismatch, WriteMismatch, expected);
    array->cbElements = sizeof(VARIANT);
    EXPECT_EQ(Errors(), expected);
}

TEST_F(ArraysOfOtherForms, ElementsOfTheSameSizeThatAreNoVariantsAreRefused)
{
    Traces expected;
    const OwnedArray array(VT_VARIANT, {{3, 0}});
    array->fFeatures ^= FADF_VARIANT;
    ExpectRefused(array.Get(), ReadMismatch, WriteMismatch, expected);
    array->fFeatures ^= FADF_VARIANT;
    EXPECT_EQ(Errors(), expected);
}

// The platform copies no element of a type that it does not know.
TEST_F(ArraysOfOtherForms, ElementOfATypeThatDoesNotExistIsRefused)
{
    const OwnedArray array{Wire::Value(0x0FFF, 1)};
    VariantArray reader;
    ASSERT_TRUE(reader.Attach(array.Get()));
    std::uint32_t number = 77;
    EXPECT_FALSE(reader.GetValue(number, 0));
    EXPECT_EQ(number, 77u);
    EXPECT_EQ(Errors().size(), 1u);
}

} // namespace
