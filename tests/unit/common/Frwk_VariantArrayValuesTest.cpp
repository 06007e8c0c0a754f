#include "common/Frwk_VariantArray.h"

#include "tests/support/AllocationWatch.h"
#include "tests/support/ImportPatch.h"
#include "tests/unit/common/FrameworkValues.h"
#include "tests/unit/common/WireArray.h"

extern "C" decltype(&::SafeArrayGetElement) __imp_SafeArrayGetElement;
extern "C" decltype(&::SafeArrayPutElement) __imp_SafeArrayPutElement;

namespace
{

using Frwk::DataTypes::VariantArray;

using VariantArrayValues = FrameworkValues;

// What GetValue gives for the only element of an array.
template <class Value>
bool Read(VARIANT element, Value& value)
{
    const OwnedArray owner{element};
    VariantArray array;
    return array.Attach(owner.Get()) && array.GetValue(value, 0);
}

// Type and content of the element as it lies in the array after SetValue.
template <class Value>
std::vector<BYTE> Written(const Value& value)
{
    const OwnedArray owner(VT_VARIANT, {{2, 0}});
    VariantArray array;
    const bool written = array.Attach(owner.Get()) && array.SetValue(value, 1);
    return written ? Wire::Bytes(owner.Get(), 1, sizeof value) : std::vector<BYTE>();
}

TEST_F(VariantArrayValues, NumbersAreWrittenWithTheirTypeAndTheirBytes)
{
    EXPECT_EQ(Written(std::uint8_t{0xFE}), (std::vector<BYTE>{17, 0, 0xFE}));
    EXPECT_EQ(Written(std::uint16_t{0xFEDC}), (std::vector<BYTE>{18, 0, 0xDC, 0xFE}));
    EXPECT_EQ(Written(std::uint32_t{0xFEDCBA98}), (std::vector<BYTE>{19, 0, 0x98, 0xBA, 0xDC, 0xFE}));
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(VariantArrayValues, BoolIsWrittenAsVariantTrueOr0)
{
    const OwnedArray owner(VT_VARIANT, {{2, 0}});
    VariantArray array;
    ASSERT_TRUE(array.Attach(owner.Get()));
    EXPECT_TRUE(array.SetValue(true, 0));
    EXPECT_TRUE(array.SetValue(false, 1));
    EXPECT_EQ(Wire::Bytes(owner.Get(), 0, 2), (std::vector<BYTE>{11, 0, 0xFF, 0xFF}));
    EXPECT_EQ(Wire::Bytes(owner.Get(), 1, 2), (std::vector<BYTE>{11, 0, 0, 0}));
}

TEST_F(VariantArrayValues, TextIsWrittenAsABstrUpToItsFirstTerminator)
{
    const OwnedArray owner(VT_VARIANT, {{3, 0}});
    VariantArray array;
    ASSERT_TRUE(array.Attach(owner.Get()));
    EXPECT_TRUE(array.SetValue(std::wstring(L"\x0416 web"), 0));
    EXPECT_TRUE(array.SetValue(std::wstring(L"a\0b", 3), 1));
    EXPECT_TRUE(array.SetValue(std::wstring(), 2));
    EXPECT_EQ(Wire::Bytes(owner.Get(), 0, 0), (std::vector<BYTE>{8, 0}));
    EXPECT_EQ(Wire::TextAt(owner.Get(), 0), L"\x0416 web");
    EXPECT_EQ(Wire::TextAt(owner.Get(), 1), L"a");
    EXPECT_EQ(Wire::Bytes(owner.Get(), 2, 0), (std::vector<BYTE>{8, 0}));
    EXPECT_NE(Wire::Pointer<wchar_t>(owner.Get(), 2), nullptr);
    EXPECT_EQ(Wire::TextAt(owner.Get(), 2), L"");
}

TEST_F(VariantArrayValues, WritingOverATextFreesIt)
{
    const OwnedArray owner{Wire::Text(L"text")};
    const long before = m_memory.BlocksOut();
    VariantArray array;
    ASSERT_TRUE(array.Attach(owner.Get()));
    EXPECT_TRUE(array.SetValue(std::uint32_t{1}, 0));
    EXPECT_EQ(m_memory.BlocksOut(), before - 1);
}

TEST_F(VariantArrayValues, NumbersAreReadAsTheyAre)
{
    std::uint8_t byte = 0;
    std::uint16_t word = 0;
    std::uint32_t number = 0;
    EXPECT_TRUE(Read(Wire::Value(VT_UI1, 0xAAAAAAFE), byte));
    EXPECT_EQ(byte, 0xFE);
    EXPECT_TRUE(Read(Wire::Value(VT_UI2, 0xAAAAFEDC), word));
    EXPECT_EQ(word, 0xFEDC);
    EXPECT_TRUE(Read(Wire::Value(VT_UI4, 0xAAAAAAAAFEDCBA98), number));
    EXPECT_EQ(number, 0xFEDCBA98);
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(VariantArrayValues, BoolHoldingAnyNonZeroValueOtherThanVariantTrueReadsAsFalse)
{
    for (const ULONGLONG stored : {0u, 1u, 2u, 0xFFFEu, 0x7FFFu, 0x8000u})
    {
        bool value = true;
        EXPECT_TRUE(Read(Wire::Value(VT_BOOL, stored), value)) << stored;
        EXPECT_FALSE(value) << stored;
    }
    bool value = false;
    EXPECT_TRUE(Read(Wire::Value(VT_BOOL, 0xFFFF), value));
    EXPECT_TRUE(value);
}

TEST_F(VariantArrayValues, TextIsReadUpToItsFirstTerminator)
{
    std::wstring text = L"before";
    EXPECT_TRUE(Read(Wire::Text(std::wstring(L"a\0b", 3)), text));
    EXPECT_EQ(text, L"a");
    EXPECT_TRUE(Read(Wire::Text(L"\x0416 web"), text));
    EXPECT_EQ(text, L"\x0416 web");
    EXPECT_TRUE(Read(Wire::Text(L""), text));
    EXPECT_EQ(text, L"");
    EXPECT_EQ(Errors(), NoTraces);
}

TEST_F(VariantArrayValues, NullBstrReadsAsAnEmptyText)
{
    std::wstring text = L"before";
    EXPECT_TRUE(Read(Wire::Value(VT_BSTR, 0), text));
    EXPECT_EQ(text, L"");
}

// Reads an element of each type but the asked one as `Value`.
template <class Value>
void ExpectOnlyItsTypeIsRead(VARTYPE asked)
{
    ULONGLONG content = 0;
    const std::initializer_list<int> types = {
        VT_EMPTY,         VT_NULL,          VT_I2,   VT_I4,  VT_R8,  VT_DATE, VT_ERROR, VT_I1,
        VT_INT,           VT_UINT,          VT_BOOL, VT_UI1, VT_UI2, VT_UI4,  VT_BSTR,  VT_UNKNOWN,
        asked | VT_BYREF, asked | VT_ARRAY,
    };
    for (const int type : types)
    {
        const bool byReference = (type & VT_BYREF) != 0;
        Value value{};
        EXPECT_EQ(Read(Wire::Value(static_cast<VARTYPE>(type), byReference ? reinterpret_cast<ULONGLONG>(&content) : 0),
                       value),
                  type == asked)
            << type;
        EXPECT_EQ(value, Value{}) << type;
    }
}

TEST_F(VariantArrayValues, AnyOtherElementTypeIsRefusedAndNamed)
{
    ExpectOnlyItsTypeIsRead<bool>(VT_BOOL);
    EXPECT_EQ(Errors(), Traces(17, L"*** VariantArray::GetValue() - Specified element was not VT_BOOL."));
    ExpectOnlyItsTypeIsRead<std::uint16_t>(VT_UI2);
    EXPECT_EQ(Errors(), Traces(17, L"*** VariantArray::GetValue() - Specified element was not VT_UI2."));
    ExpectOnlyItsTypeIsRead<std::uint32_t>(VT_UI4);
    EXPECT_EQ(Errors(), Traces(17, L"*** VariantArray::GetValue() - Specified element was not VT_UI4."));
    ExpectOnlyItsTypeIsRead<std::uint8_t>(VT_UI1);
    EXPECT_EQ(Errors(), Traces(17, L"*** VariantArray::GetValue() - Specified element was not VT_UI1."));
    ExpectOnlyItsTypeIsRead<std::wstring>(VT_BSTR);
    EXPECT_EQ(Errors(), Traces(17, L"*** VariantArray::GetValue() - Specified element was not VT_BSTR."));
}

TEST_F(VariantArrayValues, I4ElementReadAsUi4IsRefusedAndTheTargetKeepsItsValue)
{
    std::uint32_t value = 77;
    EXPECT_FALSE(Read(Wire::Value(VT_I4, 5), value));
    EXPECT_EQ(value, 77u);
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetValue() - Specified element was not VT_UI4."});
}

TEST_F(VariantArrayValues, RefusedElementsAreFreed)
{
    std::uint32_t value = 0;
    EXPECT_FALSE(Read(Wire::Text(L"text"), value));
    EXPECT_FALSE(Read(Wire::Array(OwnedArray{Wire::Text(L"inner")}), value));
    EXPECT_EQ(m_memory.BlocksOut(), 0);
}

TEST_F(VariantArrayValues, WithoutAnArrayEveryReadAndWriteFails)
{
    VariantArray array;
    std::uint32_t number = 0;
    std::wstring text;
    EXPECT_FALSE(array.GetValue(number, 0));
    EXPECT_FALSE(array.GetValue(text, 0));
    EXPECT_EQ(Errors(), Traces(2, L"*** VariantArray::GetElement() - this->m_lpSafeArray was invalid."));
    EXPECT_FALSE(array.SetValue(number, 0));
    EXPECT_FALSE(array.SetValue(std::wstring(L"text"), 0));
    EXPECT_EQ(Errors(), Traces(2, L"*** VariantArray::SetElement() - this->m_lpSafeArray was invalid."));
}

TEST_F(VariantArrayValues, IndexBeyondTheElementsFailsWithThePlatformsCode)
{
    const OwnedArray owner{Wire::Number(1), Wire::Number(2)};
    VariantArray array;
    ASSERT_TRUE(array.Attach(owner.Get()));
    for (const std::uint32_t index : {2u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu})
    {
        std::uint32_t value = 77;
        EXPECT_FALSE(array.GetValue(value, index)) << index;
        EXPECT_EQ(value, 77u) << index;
        EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [8002000b]"});
        EXPECT_FALSE(array.SetValue(value, index)) << index;
        EXPECT_FALSE(array.SetValue(std::wstring(L"text"), index)) << index;
        EXPECT_EQ(Errors(), Traces(2, L"*** VariantArray::PutElement() - ::SafeArrayPutElement() failed. [8002000b]"));
    }
}

HRESULT WINAPI Fail(SAFEARRAY*, LONG*, void*)
{
    return E_UNEXPECTED;
}

TEST_F(VariantArrayValues, ElementThatThePlatformRefusesToGiveOrTakeFailsWithItsCode)
{
    const OwnedArray owner{Wire::Number(1)};
    VariantArray array;
    ASSERT_TRUE(array.Attach(owner.Get()));
    const ImportPatch get(__imp_SafeArrayGetElement, &Fail);
    const ImportPatch put(__imp_SafeArrayPutElement, &Fail);
    std::uint32_t value = 77;
    EXPECT_FALSE(array.GetValue(value, 0));
    EXPECT_EQ(value, 77u);
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::GetElement() - ::SafeArrayGetElement() failed. [8000ffff]"});
    EXPECT_FALSE(array.SetValue(std::wstring(L"text"), 0));
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::PutElement() - ::SafeArrayPutElement() failed. [8000ffff]"});
}

TEST_F(VariantArrayValues, TextThatThereIsNoMemoryForIsNotWritten)
{
    const OwnedArray owner{Wire::Number(1)};
    VariantArray array;
    ASSERT_TRUE(array.Attach(owner.Get()));
    m_memory.Fail(true);
    EXPECT_FALSE(array.SetValue(std::wstring(L"text"), 0));
    m_memory.Fail(false);
    EXPECT_EQ(Errors(), Traces{L"*** VariantArray::PutElement() - ::SafeArrayPutElement() failed. [8007000e]"});
    EXPECT_EQ(Wire::Bytes(owner.Get(), 0, 4), (std::vector<BYTE>{19, 0, 1, 0, 0, 0}));
}

TEST_F(VariantArrayValues, TextThatThereIsNoMemoryToReadFailsWithoutAnException)
{
    const OwnedArray owner{Wire::Text(std::wstring(1000, L'a'))};
    VariantArray array;
    ASSERT_TRUE(array.Attach(owner.Get()));
    std::wstring text = L"before";
    {
        AllocationWatch heap;
        heap.FailAbove(1000);
        EXPECT_FALSE(array.GetValue(text, 0));
    }
    EXPECT_EQ(text, L"before");
}

} // namespace
