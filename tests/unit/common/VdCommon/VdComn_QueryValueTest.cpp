// The free operations that read one value and never fail.

#include "common/VdCommon/VdComn_Storage.h"

#include "common/VdCommon/VdComn_String.h"
#include "tests/support/AllocationWatch.h"
#include "tests/support/LiveHandles.h"
#include "tests/support/RegistrySandbox.h"

#include <gtest/gtest.h>

#include <memory>

extern "C" decltype(&::RegCloseKey) __imp_RegCloseKey;
extern "C" decltype(&::RegFlushKey) __imp_RegFlushKey;
extern "C" decltype(&::RegOpenKeyExW) __imp_RegOpenKeyExW;

namespace
{

using VdCommon::ByteArray;
using VdCommon::Storage::QueryValue;

constexpr const wchar_t* SuitePath = L"Software\\Veldrane\\Zeptara";
constexpr std::uint32_t FormerValue = 12345;

long OpenKeys()
{
    return LiveHandles::Of(HandleKind::RegistryKey);
}

class QueryValueOf : public ::testing::Test
{
protected:
    static std::uint32_t Number(const wchar_t* name, const wchar_t* path = SuitePath)
    {
        return QueryValue(HKEY_LOCAL_MACHINE, path, name, 7u);
    }

    static std::wstring Text(const wchar_t* name, const wchar_t* path = SuitePath)
    {
        return QueryValue(HKEY_LOCAL_MACHINE, path, name, L"default");
    }

    bool Bytes(const wchar_t* name, const wchar_t* path = SuitePath)
    {
        m_error = FormerValue;
        return QueryValue(HKEY_LOCAL_MACHINE, path, name, m_bytes, 0, &m_error);
    }

    RegistrySandbox m_sandbox;
    ByteArray m_bytes;
    std::uint32_t m_error = FormerValue;
};

TEST_F(QueryValueOf, NumberThatIsStored)
{
    m_sandbox.SetNumber(SuitePath, L"MaxLogCount", 14);
    EXPECT_EQ(Number(L"MaxLogCount"), 14u);
}

TEST_F(QueryValueOf, TextThatIsStored)
{
    m_sandbox.SetText(SuitePath, L"LangName", L"en-US");
    EXPECT_EQ(Text(L"LangName"), L"en-US");
    m_sandbox.SetText(SuitePath, L"LangName", L"");
    EXPECT_EQ(Text(L"LangName"), L"");
}

TEST_F(QueryValueOf, BytesThatAreStored)
{
    m_sandbox.SetBytes(SuitePath, L"InstallTime", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
    EXPECT_TRUE(Bytes(L"InstallTime"));
    EXPECT_EQ(m_error, 0u);
    ASSERT_EQ(m_bytes.Size(), 16u);
    EXPECT_EQ(m_bytes.Data()[15], 16);
}

TEST_F(QueryValueOf, BytesOfLengthZeroAreNoFailure)
{
    m_sandbox.SetBytes(SuitePath, L"InstallTime", {});
    EXPECT_TRUE(Bytes(L"InstallTime"));
    EXPECT_EQ(m_error, 0u);
    EXPECT_EQ(m_bytes.Size(), 0u);
}

TEST_F(QueryValueOf, NumberStoredAsATextAnswersTheDefault)
{
    m_sandbox.SetText(SuitePath, L"name", L"14");
    EXPECT_EQ(Number(L"name"), 7u);
}

TEST_F(QueryValueOf, MissingKeyMissingValueAndWrongTypeLookAlike)
{
    EXPECT_EQ(Number(L"name"), 7u);
    EXPECT_EQ(Text(L"name"), L"default");
    m_sandbox.MakeKey(SuitePath);
    EXPECT_EQ(Number(L"name"), 7u);
    EXPECT_EQ(Text(L"name"), L"default");
    m_sandbox.SetBytes(SuitePath, L"name", {1, 0, 0, 0});
    EXPECT_EQ(Number(L"name"), 7u);
    EXPECT_EQ(Text(L"name"), L"default");
}

TEST_F(QueryValueOf, NullRootAnswersTheDefault)
{
    EXPECT_EQ(QueryValue(nullptr, SuitePath, L"name", 7u), 7u);
    EXPECT_EQ(QueryValue(nullptr, SuitePath, L"name", L"default"), L"default");
    EXPECT_FALSE(QueryValue(nullptr, SuitePath, L"name", m_bytes, 0, &m_error));
    EXPECT_EQ(m_error, 160u);
}

TEST_F(QueryValueOf, BytesFailWithTheCodeOfTheException)
{
    EXPECT_FALSE(Bytes(L"InstallTime"));
    EXPECT_EQ(m_error, 2u);
    m_sandbox.SetText(SuitePath, L"InstallTime", L"text");
    EXPECT_FALSE(Bytes(L"InstallTime"));
    EXPECT_EQ(m_error, 13u);
    m_sandbox.SetBytes(SuitePath, L"InstallTime", {1});
    ASSERT_TRUE(m_bytes.Allocate(1));
    EXPECT_FALSE(Bytes(L"InstallTime"));
    EXPECT_EQ(m_error, 5010u);
}

TEST_F(QueryValueOf, BytesNeedNoErrorPointer)
{
    EXPECT_FALSE(QueryValue(HKEY_LOCAL_MACHINE, SuitePath, L"name", m_bytes, 0, nullptr));
    m_sandbox.SetBytes(SuitePath, L"name", {1});
    EXPECT_TRUE(QueryValue(HKEY_LOCAL_MACHINE, SuitePath, L"name", m_bytes, 0, nullptr));
}

TEST_F(QueryValueOf, NullPathAndNameStandForTheEmptyText)
{
    m_sandbox.SetNumber(L"", L"name", 1);
    m_sandbox.SetText(SuitePath, L"", L"unnamed");
    EXPECT_EQ(Number(L"name", nullptr), 1u);
    EXPECT_EQ(Text(nullptr), L"unnamed");
}

TEST_F(QueryValueOf, NullDefaultStandsForTheEmptyText)
{
    EXPECT_EQ(QueryValue(HKEY_LOCAL_MACHINE, SuitePath, L"name", nullptr), L"");
}

TEST_F(QueryValueOf, PathMayEndInABackslash)
{
    m_sandbox.SetNumber(SuitePath, L"name", 1);
    EXPECT_EQ(Number(L"name", L"Software\\Veldrane\\Zeptara\\"), 1u);
}

TEST_F(QueryValueOf, KeyIsClosedBehindEachRead)
{
    m_sandbox.SetNumber(SuitePath, L"number", 1);
    const long before = OpenKeys();
    Number(L"number");
    Number(L"missing");
    Text(L"number");
    Bytes(L"number");
    EXPECT_EQ(OpenKeys(), before);
}

TEST_F(QueryValueOf, ExceptionsAreDestroyed)
{
    const auto failAll = [this]
    {
        Number(L"missing");
        Text(L"missing");
        Bytes(L"missing");
    };
    failAll(); // what the first exception of a process sets up stays
    const AllocationWatch watch;
    failAll();
    EXPECT_EQ(watch.BlocksOut(), 0);
}

int g_queryFlushes = 0;

LSTATUS WINAPI CountQueryFlush(HKEY)
{
    ++g_queryFlushes;
    return ERROR_SUCCESS;
}

LSTATUS WINAPI FailToCloseKey(HKEY)
{
    return ERROR_BUSY;
}

TEST_F(QueryValueOf, NothingIsFlushed)
{
    m_sandbox.SetNumber(SuitePath, L"name", 1);
    const ImportPatch flush(__imp_RegFlushKey, &CountQueryFlush);
    g_queryFlushes = 0;
    EXPECT_EQ(Number(L"name"), 1u);
    EXPECT_EQ(g_queryFlushes, 0);
}

TEST_F(QueryValueOf, KeyThatCannotBeClosedAnswersTheDefault)
{
    m_sandbox.SetNumber(SuitePath, L"number", 1);
    m_sandbox.SetText(SuitePath, L"text", L"value");
    m_sandbox.SetBytes(SuitePath, L"bytes", {1});
    const ImportPatch close(__imp_RegCloseKey, &FailToCloseKey);
    EXPECT_EQ(Number(L"number"), 7u);
    EXPECT_EQ(Text(L"text"), L"default");
    EXPECT_FALSE(Bytes(L"bytes"));
    EXPECT_EQ(m_error, std::uint32_t{ERROR_BUSY});
}

int g_textExceptions = 0;

class CountedTextException : public VdCommon::String::Exception
{
public:
    CountedTextException() : Exception(8) { ++g_textExceptions; }

    ~CountedTextException() override { --g_textExceptions; }
};

LSTATUS WINAPI ThrowTextException(HKEY, const wchar_t*, DWORD, REGSAM, HKEY*)
{
    throw new CountedTextException();
}

LSTATUS WINAPI ThrowNumber(HKEY, const wchar_t*, DWORD, REGSAM, HKEY*)
{
    throw 8;
}

TEST_F(QueryValueOf, BytesFailWithTheUnknownCodeForAnyOtherException)
{
    {
        const ImportPatch open(__imp_RegOpenKeyExW, &ThrowTextException);
        EXPECT_FALSE(Bytes(L"name"));
        EXPECT_EQ(m_error, 0x800300FDu);
        EXPECT_EQ(g_textExceptions, 0) << "made and not destroyed";
    }
    const ImportPatch open(__imp_RegOpenKeyExW, &ThrowNumber);
    EXPECT_FALSE(Bytes(L"name"));
    EXPECT_EQ(m_error, 0x800300FDu);
}

TEST_F(QueryValueOf, NumberAndTextDropNoExceptionButThatOfTheStorage)
{
    const ImportPatch open(__imp_RegOpenKeyExW, &ThrowNumber);
    EXPECT_THROW(Number(L"name"), int);
    EXPECT_THROW(Text(L"name"), int);
}

} // namespace
