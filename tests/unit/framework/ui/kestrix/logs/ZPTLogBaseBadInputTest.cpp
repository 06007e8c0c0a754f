// Files that are not what a daily log file should be, read as the virus log reads them.

#include "framework/ui/kestrix/logs/ZPTLogVir.h"
#include "platform/dialog/UniqueHandle.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

extern "C" decltype(&::ReadFile) __imp_ReadFile;

namespace
{

std::wstring Line(std::wstring_view name)
{
    return L"20260101|103015|1048576|x|0|0|" + std::wstring(name) + L"|C:\\a.exe|1|1|0|0\r\n";
}

std::wstring LinesOfFile(std::size_t count)
{
    std::wstring text;
    for (std::size_t i = 0; i < count; ++i)
    {
        text += Line(std::to_wstring(i));
    }
    return text;
}

// Changes the file behind the reader's back when a record is put.
class DisturbedLog : public CZPTLogVir
{
public:
    bool PutRecode(std::wstring_view line, int kind) override
    {
        const bool put = CZPTLogVir::PutRecode(line, kind);
        m_disturb(GetLogCount());
        return put;
    }

    std::function<void(std::size_t)> m_disturb;
};

UniqueFile OpenForWriting(const std::wstring& path)
{
    return UniqueFile(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, 0, nullptr));
}

class ZPTLogBaseBadInputTest : public ::testing::Test
{
protected:
    ZPTLogBaseBadInputTest() { m_log.m_bUseDBMgr = m_disturbed.m_bUseDBMgr = false; }

    bool Read(std::wstring_view text)
    {
        WriteUtf16(m_path, text);
        return m_log.ReadLogW(m_path);
    }

    // The names of the records, each with a blank after it.
    static std::wstring Names(const CZPTLogBase& log)
    {
        std::wstring names;
        for (std::size_t i = 0; i < log.GetLogCount(); ++i)
        {
            names += std::wstring(log.GetLogText(i, 3)) + L" ";
        }
        return names;
    }

    // Whether the records are those of the first lines, in order and none left out.
    static void ExpectFirstLines(const CZPTLogBase& log)
    {
        for (std::size_t i = 0; i < log.GetLogCount(); ++i)
        {
            ASSERT_EQ(log.GetLogText(i, 3), std::to_wstring(i));
        }
    }

    const LanguageFile m_language;
    TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(L"20260101.VLG");
    CZPTLogVir m_log;
    DisturbedLog m_disturbed;
};

} // namespace

TEST_F(ZPTLogBaseBadInputTest, NoFile)
{
    EXPECT_FALSE(m_log.ReadLogW(m_path));
    EXPECT_FALSE(m_log.ReadLogW(L""));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseBadInputTest, EmptyFile)
{
    WriteBytes(m_path, "");
    EXPECT_TRUE(m_log.ReadLogW(m_path));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseBadInputTest, OneByte)
{
    WriteBytes(m_path, "\xFF");
    EXPECT_TRUE(m_log.ReadLogW(m_path));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseBadInputTest, MarkOnly)
{
    EXPECT_TRUE(Read(L""));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseBadInputTest, OddNumberOfBytes)
{
    WriteBytes(m_path, "\xFF\xFE" + Utf16Bytes(Line(L"a") + Line(L"b")) + "\x01");
    EXPECT_TRUE(m_log.ReadLogW(m_path));
    EXPECT_EQ(Names(m_log), L"a b ");
}

TEST_F(ZPTLogBaseBadInputTest, NoLineEnd)
{
    EXPECT_TRUE(Read(Line(L"a").substr(0, Line(L"a").size() - 2)));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseBadInputTest, EightBitText)
{
    WriteBytes(m_path, "20260101|103015|1048576|x|0|0|name|C:\\a.exe|1|1|0|0\r\n20260101|103016\r\n");
    EXPECT_TRUE(m_log.ReadLogW(m_path));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseBadInputTest, ALineOf3000CharactersIsDroppedAlone)
{
    EXPECT_TRUE(Read(Line(L"a") + Line(std::wstring(3000, L'x')) + Line(L"c")));
    EXPECT_EQ(Names(m_log), L"a c ");
}

TEST_F(ZPTLogBaseBadInputTest, ALineOf3000000CharactersIsDroppedAlone)
{
    EXPECT_TRUE(Read(Line(L"a") + Line(std::wstring(3'000'000, L'x')) + Line(L"c")));
    EXPECT_EQ(Names(m_log), L"a c ");
}

TEST_F(ZPTLogBaseBadInputTest, ALineOf3000000CharactersWithoutAnEndIsDropped)
{
    EXPECT_TRUE(Read(Line(L"a") + std::wstring(3'000'000, L'|')));
    EXPECT_EQ(Names(m_log), L"a ");
}

TEST_F(ZPTLogBaseBadInputTest, ANulCharacterDropsItsLineAndTheNext)
{
    EXPECT_TRUE(Read(Line(L"a") + Line(std::wstring_view(L"b\0b", 3)) + Line(L"c") + Line(L"d")));
    EXPECT_EQ(Names(m_log), L"a d ");
}

TEST_F(ZPTLogBaseBadInputTest, AFileOfNulCharacters)
{
    EXPECT_TRUE(Read(std::wstring(300'000, L'\0') + Line(L"a")));
    // The last piece of NUL characters ends inside the line: all of its text comes after a NUL.
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseBadInputTest, LoneSurrogatesAreKept)
{
    const std::wstring odd = {0xDC00, L'x', 0xD800};
    EXPECT_TRUE(Read(Line(odd) + Line(L"b")));
    EXPECT_EQ(Names(m_log), odd + L" b ");
}

TEST_F(ZPTLogBaseBadInputTest, TenThousandBarsInOneLineAreTooLongALine)
{
    EXPECT_TRUE(Read(Line(L"a") + std::wstring(10'000, L'|') + L"\r\n" + Line(L"c")));
    EXPECT_EQ(Names(m_log), L"a c ");
}

TEST_F(ZPTLogBaseBadInputTest, TwoThousandBarsInOneLineAreARecordOfEmptyTokens)
{
    EXPECT_TRUE(Read(Line(L"a") + std::wstring(2'000, L'|') + L"\r\n" + Line(L"c")));
    EXPECT_EQ(Names(m_log), L"a  c ");
    EXPECT_EQ(m_log.GetLogText(1, 0), L":");
    EXPECT_EQ(m_log.GetLogRecord(1)->strData.size(), 7u);
}

TEST_F(ZPTLogBaseBadInputTest, TenThousandBarsOfTheProviderAreARecordOfEmptyTokens)
{
    EXPECT_TRUE(m_log.PutRecode(std::wstring(10'000, L'|'), CZPTLogBase::AnyLine));
    EXPECT_EQ(m_log.GetLogText(0, 0), L":");
    EXPECT_EQ(m_log.GetLogRecord(0)->strData.size(), 7u);
}

TEST_F(ZPTLogBaseBadInputTest, AFileThatGrowsWhileItIsReadIsReadToItsNewEnd)
{
    WriteUtf16(m_path, LinesOfFile(10));
    m_disturbed.m_disturb = [&](std::size_t count)
    {
        if (count >= 10 && count < 60)
        {
            const UniqueFile file = OpenForWriting(m_path);
            const std::string bytes = Utf16Bytes(Line(std::to_wstring(count)));
            DWORD written = 0;
            SetFilePointer(file.get(), 0, nullptr, FILE_END);
            ASSERT_TRUE(WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
        }
    };
    EXPECT_TRUE(m_disturbed.ReadLogW(m_path));
    EXPECT_EQ(m_disturbed.GetLogCount(), 60u);
    ExpectFirstLines(m_disturbed);
}

TEST_F(ZPTLogBaseBadInputTest, AFileThatIsDeletedWhileItIsReadIsReadToItsEnd)
{
    constexpr std::size_t count = 20'000;
    WriteUtf16(m_path, LinesOfFile(count));
    m_disturbed.m_disturb = [&](std::size_t records)
    {
        if (records == 5)
        {
            EXPECT_TRUE(DeleteFileW(m_path.c_str()));
        }
    };
    EXPECT_TRUE(m_disturbed.ReadLogW(m_path));
    EXPECT_EQ(m_disturbed.GetLogCount(), count);
    ExpectFirstLines(m_disturbed);
    EXPECT_FALSE(std::filesystem::exists(m_path));
}

TEST_F(ZPTLogBaseBadInputTest, AFileThatIsTruncatedWhileItIsReadEndsWhereItDoes)
{
    constexpr std::size_t count = 20'000;
    WriteUtf16(m_path, LinesOfFile(count));
    m_disturbed.m_disturb = [&](std::size_t records)
    {
        if (records == 5)
        {
            const UniqueFile file = OpenForWriting(m_path);
            SetFilePointer(file.get(), 1000, nullptr, FILE_BEGIN);
            ASSERT_TRUE(SetEndOfFile(file.get()));
        }
    };
    EXPECT_TRUE(m_disturbed.ReadLogW(m_path));
    EXPECT_GE(m_disturbed.GetLogCount(), 5u);
    EXPECT_LT(m_disturbed.GetLogCount(), count);
    ExpectFirstLines(m_disturbed);
}

TEST_F(ZPTLogBaseBadInputTest, AFileThatCannotBeReadFurtherEndsThere)
{
    static int s_calls;
    s_calls = 0;
    constexpr std::size_t count = 20'000;
    WriteUtf16(m_path, LinesOfFile(count));
    static decltype(&::ReadFile) s_original;
    s_original = __imp_ReadFile;
    const ImportPatch<decltype(&::ReadFile)> patch(
        __imp_ReadFile,
        [](HANDLE file, void* bytes, DWORD room, DWORD* read, OVERLAPPED* overlapped) -> BOOL
        {
            if (++s_calls > 2)
            {
                SetLastError(ERROR_CRC);
                return FALSE;
            }
            return s_original(file, bytes, room, read, overlapped);
        });
    EXPECT_TRUE(m_log.ReadLogW(m_path));
    EXPECT_GE(s_calls, 3);
    EXPECT_GT(m_log.GetLogCount(), 0u);
    EXPECT_LT(m_log.GetLogCount(), count);
    ExpectFirstLines(m_log);
}

TEST_F(ZPTLogBaseBadInputTest, APathOf300CharactersWithoutAFile)
{
    EXPECT_FALSE(m_log.ReadLogW(m_folder.File(std::wstring(300, L'p'))));
    EXPECT_FALSE(m_log.ReadLogW(L"C:\\" + std::wstring(297, L'\\')));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseBadInputTest, APathOf300CharactersInItsExtendedFormIsReadAsAnyOther)
{
    std::filesystem::path folder = L"\\\\?\\" + m_folder.Path().wstring();
    while (folder.wstring().size() < 280)
    {
        folder /= std::wstring(20, L'd');
        ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
    }
    const std::wstring path = (folder / std::wstring(30, L'f')).wstring();
    WriteUtf16(m_path, Line(L"a"));
    ASSERT_TRUE(CopyFileW(m_path.c_str(), path.c_str(), FALSE));
    EXPECT_TRUE(m_log.ReadLogW(path));
    EXPECT_EQ(Names(m_log), L"a ");
    DeleteFileW(path.c_str());
    for (; folder.wstring().size() > m_folder.Path().wstring().size() + 5; folder = folder.parent_path())
    {
        RemoveDirectoryW(folder.c_str());
    }
}

TEST_F(ZPTLogBaseBadInputTest, ADirectory)
{
    EXPECT_FALSE(m_log.ReadLogW(m_folder.Path().wstring()));
    EXPECT_FALSE(m_log.ReadLogW(L"C:\\"));
    EXPECT_EQ(m_log.GetLogCount(), 0u);
}

TEST_F(ZPTLogBaseBadInputTest, AFileThatIsLockedByItsWriter)
{
    WriteUtf16(m_path, Line(L"a"));
    {
        const UniqueFile lock(
            CreateFileW(m_path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(lock);
        EXPECT_FALSE(m_log.ReadLogW(m_path));
        EXPECT_EQ(m_log.GetLogCount(), 0u);
    }
    EXPECT_TRUE(m_log.ReadLogW(m_path));
    EXPECT_EQ(Names(m_log), L"a ");
}
