// The reads of a Registry: types, sizes, and values that change while they are read.

#include "common/VdCommon/VdComn_Registry.h"

#include "tests/support/AllocationWatch.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/unit/common/VdCommon/StorageCodes.h"

#include <gtest/gtest.h>

#include <functional>

extern "C" decltype(&::RegQueryValueExW) __imp_RegQueryValueExW;

namespace
{

using namespace VdCommon::Storage;
using VdCommon::ByteArray;

constexpr const wchar_t* ReadPath = L"Software\\Kestrix";
constexpr std::uint32_t Untouched = 12345;

// Changes the registry behind the first query of a value, and counts the queries.
class ChangeBehindFirstQuery
{
public:
    explicit ChangeBehindFirstQuery(std::function<void()> change = [] {})
    {
        s_change = std::move(change);
        s_nQueries = 0;
        s_query = m_patch.Original();
    }

    int Queries() const { return s_nQueries; }

private:
    static LSTATUS WINAPI Query(HKEY key, const wchar_t* name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size)
    {
        const LSTATUS result = s_query(key, name, reserved, type, data, size);
        if (++s_nQueries == 1)
        {
            s_change();
        }
        return result;
    }

    inline static std::function<void()> s_change;
    inline static int s_nQueries = 0;
    inline static decltype(&::RegQueryValueExW) s_query = nullptr;
    const ImportPatch<decltype(&::RegQueryValueExW)> m_patch{__imp_RegQueryValueExW, &Query};
};

class RegistryRead : public ::testing::Test
{
protected:
    RegistryRead()
    {
        m_sandbox.MakeKey(ReadPath);
        m_registry.OpenRead(Key::InRegistry(HKEY_LOCAL_MACHINE, ReadPath), L"");
    }

    // Exactly these characters, with no terminator but what is among them.
    void SetCharacters(DWORD type, const std::wstring& characters, std::size_t lessBytes = 0) const
    {
        m_sandbox.Set(ReadPath, L"name", type, characters.data(), characters.size() * sizeof(wchar_t) - lessBytes);
    }

    std::wstring Text() { return m_registry.QueryString(L"name", L"default"); }

    std::uint32_t NumberCode()
    {
        return ThrownCode([&] { m_registry.QueryNumber(L"name", 7); });
    }

    std::uint32_t TextCode()
    {
        return ThrownCode([&] { Text(); });
    }

    std::uint32_t BytesCode()
    {
        ByteArray bytes;
        return ThrownCode([&] { m_registry.QueryBinary(L"name", bytes); });
    }

    RegistrySandbox m_sandbox;
    Registry m_registry;
};

TEST_F(RegistryRead, NumberNeedsOneQuery)
{
    m_sandbox.SetNumber(ReadPath, L"name", 0xFFFFFFFF);
    const ChangeBehindFirstQuery queries;
    EXPECT_EQ(m_registry.QueryNumber(L"name", 7), 0xFFFFFFFFu);
    EXPECT_EQ(queries.Queries(), 1);
}

TEST_F(RegistryRead, NumberOfAnotherTypeOrSizeThrowsCode13)
{
    const std::uint64_t eight = 1;
    m_sandbox.SetText(ReadPath, L"name", L"1"); // 4 bytes as well
    EXPECT_EQ(NumberCode(), 13u);
    m_sandbox.SetText(ReadPath, L"name", L"longer than four bytes");
    EXPECT_EQ(NumberCode(), 13u);
    m_sandbox.SetBytes(ReadPath, L"name", {1, 0, 0, 0});
    EXPECT_EQ(NumberCode(), 13u);
    m_sandbox.Set(ReadPath, L"name", REG_QWORD, &eight, 8);
    EXPECT_EQ(NumberCode(), 13u);
    m_sandbox.Set(ReadPath, L"name", REG_DWORD, &eight, 2);
    EXPECT_EQ(NumberCode(), 13u);
    m_sandbox.Set(ReadPath, L"name", REG_DWORD, &eight, 8);
    EXPECT_EQ(NumberCode(), 13u);
    m_sandbox.Set(ReadPath, L"name", REG_DWORD, &eight, 4);
    EXPECT_EQ(NumberCode(), 0u);
}

TEST_F(RegistryRead, StrictReadsIgnoreTheDefaultAndThrowCode2ForAMissingValue)
{
    EXPECT_EQ(NumberCode(), 2u);
    EXPECT_EQ(TextCode(), 2u);
    EXPECT_EQ(BytesCode(), 2u);
}

TEST_F(RegistryRead, TextOf12CharactersIsWholeWithAndWithoutATerminator)
{
    SetCharacters(REG_SZ, L"12characters");
    EXPECT_EQ(Text(), L"12characters");
    SetCharacters(REG_SZ, std::wstring(L"12characters\0", 13));
    EXPECT_EQ(Text(), L"12characters");
}

TEST_F(RegistryRead, TextEndsAtItsFirstTerminator)
{
    SetCharacters(REG_SZ, std::wstring(L"one\0two\0", 8));
    EXPECT_EQ(Text(), L"one");
    SetCharacters(REG_SZ, std::wstring(L"\0two", 4));
    EXPECT_EQ(Text(), L"");
}

TEST_F(RegistryRead, EmptyTexts)
{
    SetCharacters(REG_SZ, std::wstring(1, L'\0'));
    EXPECT_EQ(Text(), L"");
    m_sandbox.Set(ReadPath, L"name", REG_SZ, "", 0);
    EXPECT_EQ(Text(), L"");
}

TEST_F(RegistryRead, OddLastByteOfATextIsNoCharacter)
{
    SetCharacters(REG_SZ, L"abc", 1);
    EXPECT_EQ(Text(), L"ab");
    SetCharacters(REG_SZ, std::wstring(L"abc\0", 4), 1);
    EXPECT_EQ(Text(), L"abc");
    SetCharacters(REG_SZ, L"a", 1);
    EXPECT_EQ(Text(), L"");
}

TEST_F(RegistryRead, ExpandableTextIsNotExpanded)
{
    SetCharacters(REG_EXPAND_SZ, std::wstring(L"%SystemRoot%\\Logs\0", 18));
    EXPECT_EQ(Text(), L"%SystemRoot%\\Logs");
}

TEST_F(RegistryRead, OfAListOfTextsOnlyTheFirstSurvives)
{
    SetCharacters(REG_MULTI_SZ, std::wstring(L"first\0second\0\0", 14));
    EXPECT_EQ(Text(), L"first");
}

TEST_F(RegistryRead, TextOfAnotherTypeThrowsCode13)
{
    m_sandbox.SetNumber(ReadPath, L"name", 1);
    EXPECT_EQ(TextCode(), 13u);
    m_sandbox.SetBytes(ReadPath, L"name", {'a', 0, 0, 0});
    EXPECT_EQ(TextCode(), 13u);
    SetCharacters(REG_LINK, L"a");
    EXPECT_EQ(TextCode(), 13u);
}

TEST_F(RegistryRead, BytesAreReadWhole)
{
    m_sandbox.SetBytes(ReadPath, L"name", {1, 0, 255, 7, 0});
    ByteArray bytes;
    EXPECT_TRUE(m_registry.QueryBinary(L"name", bytes));
    EXPECT_EQ(std::vector<BYTE>(bytes.Data(), bytes.Data() + bytes.Size()), (std::vector<BYTE>{1, 0, 255, 7, 0}));
}

TEST_F(RegistryRead, BytesOfLengthZeroSucceedAndLeaveTheArrayEmpty)
{
    m_sandbox.SetBytes(ReadPath, L"name", {});
    ByteArray bytes;
    EXPECT_TRUE(m_registry.QueryBinary(L"name", bytes));
    EXPECT_EQ(bytes.Size(), 0u);
    EXPECT_EQ(bytes.Data(), nullptr);

    ASSERT_TRUE(bytes.Allocate(4));
    EXPECT_TRUE(m_registry.QueryBinary(L"name", bytes));
    EXPECT_EQ(bytes.Size(), 0u);
}

TEST_F(RegistryRead, BytesOfAnotherTypeThrowCode13)
{
    m_sandbox.SetText(ReadPath, L"name", L"text");
    EXPECT_EQ(BytesCode(), 13u);
    m_sandbox.SetNumber(ReadPath, L"name", 1);
    EXPECT_EQ(BytesCode(), 13u);
}

TEST_F(RegistryRead, ArrayThatHoldsBytesAlreadyThrowsTheArraysCode)
{
    m_sandbox.SetBytes(ReadPath, L"name", {1, 2, 3});
    ByteArray bytes;
    ASSERT_TRUE(bytes.Allocate(3));
    EXPECT_EQ(ThrownCode([&] { m_registry.QueryBinary(L"name", bytes); }), 5010u);
}

TEST_F(RegistryRead, NoMemoryForTheValueThrowsCode6)
{
    constexpr std::size_t Size = 1 << 20;
    AllocationWatch watch;
    m_sandbox.SetBytes(ReadPath, L"name", std::vector<BYTE>(Size, 1));
    watch.FailAbove(Size - 1);
    EXPECT_EQ(BytesCode(), 6u);
    watch.FailAbove(4 * Size);
    SetCharacters(REG_SZ, std::wstring(Size / sizeof(wchar_t), L'x'));
    watch.FailAbove(Size - 1);
    EXPECT_EQ(TextCode(), 6u);
}

TEST_F(RegistryRead, ValueThatGrowsBetweenTheQueriesThrowsCode13)
{
    m_sandbox.SetBytes(ReadPath, L"name", {1, 2});
    {
        const ChangeBehindFirstQuery grow([&] { m_sandbox.SetBytes(ReadPath, L"name", {1, 2, 3}); });
        EXPECT_EQ(BytesCode(), 13u);
        EXPECT_EQ(grow.Queries(), 2);
    }
    for (const wchar_t* const before : {L"", L"text"})
    {
        m_sandbox.SetText(ReadPath, L"name", before);
        const ChangeBehindFirstQuery grow([&] { m_sandbox.SetText(ReadPath, L"name", L"longer"); });
        EXPECT_EQ(TextCode(), 13u);
        EXPECT_EQ(grow.Queries(), 2);
    }
    m_sandbox.Set(ReadPath, L"name", REG_SZ, "", 0);
    const ChangeBehindFirstQuery grow([&] { m_sandbox.SetText(ReadPath, L"name", L""); });
    EXPECT_EQ(TextCode(), 13u);
}

TEST_F(RegistryRead, ValueThatShrinksBetweenTheQueriesThrowsCode13)
{
    m_sandbox.SetBytes(ReadPath, L"name", {1, 2, 3});
    {
        const ChangeBehindFirstQuery shrink([&] { m_sandbox.SetBytes(ReadPath, L"name", {1}); });
        EXPECT_EQ(BytesCode(), 13u);
    }
    m_sandbox.SetText(ReadPath, L"name", L"text");
    const ChangeBehindFirstQuery shrink([&] { m_sandbox.SetText(ReadPath, L"name", L"tex"); });
    EXPECT_EQ(TextCode(), 13u);
}

TEST_F(RegistryRead, ValueThatChangesItsTypeBetweenTheQueriesThrowsCode13)
{
    m_sandbox.SetBytes(ReadPath, L"name", {1, 2, 3, 4});
    {
        const ChangeBehindFirstQuery change([&] { m_sandbox.SetNumber(ReadPath, L"name", 1); });
        EXPECT_EQ(BytesCode(), 13u);
    }
    m_sandbox.SetText(ReadPath, L"name", L"a");
    const ChangeBehindFirstQuery change([&] { m_sandbox.SetNumber(ReadPath, L"name", 1); });
    EXPECT_EQ(TextCode(), 13u);
}

TEST_F(RegistryRead, TextMayChangeFromOneTypeOfTextToAnother)
{
    m_sandbox.SetText(ReadPath, L"name", L"abc");
    const ChangeBehindFirstQuery change([&] { SetCharacters(REG_EXPAND_SZ, std::wstring(L"xyz\0", 4)); });
    EXPECT_EQ(Text(), L"xyz");
}

TEST_F(RegistryRead, NoThrowReadsGiveTheValueAndLeaveTheErrorAlone)
{
    m_sandbox.SetNumber(ReadPath, L"number", 5);
    m_sandbox.SetText(ReadPath, L"text", L"value");
    m_sandbox.SetBytes(ReadPath, L"bytes", {1, 2});
    std::uint32_t error = Untouched;
    ByteArray bytes;
    EXPECT_EQ(m_registry.QueryNumberNoThrow(L"number", 7, &error), 5u);
    EXPECT_EQ(m_registry.QueryStringNoThrow(L"text", L"default", &error), L"value");
    EXPECT_TRUE(m_registry.QueryBinaryNoThrow(L"bytes", bytes, &error));
    EXPECT_EQ(bytes.Size(), 2u);
    EXPECT_EQ(error, Untouched);
}

TEST_F(RegistryRead, NoThrowReadsGiveTheDefaultAndTheCodeOfTheFailure)
{
    m_sandbox.SetText(ReadPath, L"text", L"value");
    ByteArray bytes;
    for (const auto& [name, code] : {std::pair{L"missing", 2u}, std::pair{L"text", 13u}})
    {
        std::uint32_t errors[2] = {Untouched, Untouched};
        EXPECT_EQ(m_registry.QueryNumberNoThrow(name, 7, &errors[0]), 7u);
        EXPECT_FALSE(m_registry.QueryBinaryNoThrow(name, bytes, &errors[1]));
        EXPECT_EQ(errors[0], code);
        EXPECT_EQ(errors[1], code);
    }
    std::uint32_t error = Untouched;
    EXPECT_EQ(m_registry.QueryStringNoThrow(L"missing", L"default", &error), L"default");
    EXPECT_EQ(error, 2u);
}

TEST_F(RegistryRead, NoThrowReadsNeedNoErrorPointer)
{
    ByteArray bytes;
    EXPECT_EQ(m_registry.QueryNumberNoThrow(L"missing", 7, nullptr), 7u);
    EXPECT_EQ(m_registry.QueryStringNoThrow(L"missing", L"default", nullptr), L"default");
    EXPECT_FALSE(m_registry.QueryBinaryNoThrow(L"missing", bytes, nullptr));
}

TEST_F(RegistryRead, NoThrowReadsOfAClosedObjectTellCode6)
{
    Registry closed;
    std::uint32_t error = Untouched;
    EXPECT_EQ(closed.QueryNumberNoThrow(L"name", 7, &error), 7u);
    EXPECT_EQ(error, 6u);
}

TEST_F(RegistryRead, NoThrowReadsDestroyTheException)
{
    std::uint32_t error = Untouched;
    m_registry.QueryNumberNoThrow(L"missing", 7, &error);
    const AllocationWatch watch;
    m_registry.QueryNumberNoThrow(L"missing", 7, &error);
    EXPECT_EQ(watch.BlocksOut(), 0);
}

} // namespace
