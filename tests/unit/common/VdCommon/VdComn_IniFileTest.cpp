#include "common/VdCommon/VdComn_IniFile.h"

#include "common/VdCommon/VdComn_String.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/common/VdCommon/StorageCodes.h"

#include <gtest/gtest.h>

extern "C" decltype(&::GetPrivateProfileStringW) __imp_GetPrivateProfileStringW;
extern "C" decltype(&::WritePrivateProfileStringW) __imp_WritePrivateProfileStringW;

namespace
{

using namespace VdCommon::Storage;
using VdCommon::ByteArray;
using VdCommon::String::ProcessBufferSizes;

// The rooms that the reads of a text offer to the platform.
class ReadRooms
{
public:
    ReadRooms() { s_rooms.clear(); }

    const std::vector<DWORD>& All() const { return s_rooms; }

private:
    static DWORD WINAPI Read(const wchar_t* section, const wchar_t* name, const wchar_t* defaultValue, wchar_t* room,
                             DWORD size, const wchar_t* file)
    {
        s_rooms.push_back(size);
        EXPECT_EQ(std::wstring(room, size), std::wstring(size, L'\0')) << "the room is not zeroed";
        return s_read(section, name, defaultValue, room, size, file);
    }

    inline static std::vector<DWORD> s_rooms;
    inline static decltype(&::GetPrivateProfileStringW) s_read = __imp_GetPrivateProfileStringW;
    const ImportPatch<decltype(&::GetPrivateProfileStringW)> m_patch{__imp_GetPrivateProfileStringW, &Read};
};

using Files = std::vector<std::wstring>;

// The files that were flushed. The write that does it changes none, so that only the call can be seen.
class Flushes
{
public:
    Flushes() { s_files.clear(); }

    const Files& All() const { return s_files; }

private:
    static BOOL WINAPI Write(const wchar_t* section, const wchar_t* name, const wchar_t* value, const wchar_t* file)
    {
        if (section == nullptr && name == nullptr && value == nullptr)
        {
            s_files.emplace_back(file);
        }
        return s_write(section, name, value, file);
    }

    inline static Files s_files;
    inline static decltype(&::WritePrivateProfileStringW) s_write = __imp_WritePrivateProfileStringW;
    const ImportPatch<decltype(&::WritePrivateProfileStringW)> m_patch{__imp_WritePrivateProfileStringW, &Write};
};

class IniFileStorage : public ::testing::Test
{
protected:
    IniFileStorage() { m_ini.OpenRead(Location(), L"Section"); }

    ~IniFileStorage() override { ProcessBufferSizes() = {256, 256}; }

    Key Location() const { return Key::InIniFile(m_folder.Path().c_str(), L"settings.ini"); }

    std::wstring File() const { return m_folder.File(L"settings.ini"); }

    // The platform reads this file without a cached state of it.
    void WriteFile(std::string_view text) const
    {
        WriteBytes(File(), text);
        ::WritePrivateProfileStringW(nullptr, nullptr, nullptr, File().c_str());
    }

    // Reads a text of so many characters, which comes whole, and returns the room of each try.
    std::vector<DWORD> RoomsForTextOf(std::size_t length)
    {
        const std::wstring text(length, L'x');
        m_ini.SetString(L"name", text);
        const ReadRooms rooms;
        EXPECT_EQ(m_ini.QueryString(L"name", L""), text);
        return rooms.All();
    }

    TemporaryFolder m_folder;
    IniFile m_ini;
};

TEST_F(IniFileStorage, ReadsAFileThatIsThere)
{
    WriteFile("[Other]\r\nLevel=1\r\n[Section]\r\nLevel=16\r\nLogPrefix=zpt\r\n");
    EXPECT_EQ(m_ini.QueryNumber(L"Level", 0), 16u);
    EXPECT_EQ(m_ini.QueryString(L"LogPrefix", L""), L"zpt");
}

TEST_F(IniFileStorage, MissingFileSectionOrValueGivesTheDefault)
{
    for (const std::string_view text : {"", "[Other]\r\nname=1\r\n", "[Section]\r\nother=1\r\n"})
    {
        WriteFile(text);
        EXPECT_EQ(m_ini.QueryNumber(L"name", 256), 256u);
        EXPECT_EQ(m_ini.QueryNumber(L"name", 0xFFFFFFFF), 0xFFFFFFFFu);
        EXPECT_EQ(m_ini.QueryString(L"name", L"default"), L"default");
    }
    std::filesystem::remove(File());
    IniFile missing;
    missing.OpenRead(Key::InIniFile(m_folder.Path().c_str(), L"none.ini"), L"Section");
    EXPECT_EQ(missing.QueryNumber(L"name", 9), 9u);
    EXPECT_EQ(missing.QueryString(L"name", L"default"), L"default");
}

TEST_F(IniFileStorage, WritesNameAndValueIntoTheSection)
{
    EXPECT_TRUE(m_ini.SetNumber(L"Level", 4294967295u));
    EXPECT_TRUE(m_ini.SetString(L"LogFile", L"kestrix.log"));
    EXPECT_TRUE(m_ini.Flush());
    const std::string text = ReadBytes(File());
    EXPECT_NE(text.find("[Section]\r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("Level=4294967295\r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("LogFile=kestrix.log\r\n"), std::string::npos) << text;
}

TEST_F(IniFileStorage, AFlushIsOneWriteOfNothingButTheFile)
{
    const Flushes flushes;
    m_ini.SetNumber(L"Level", 1);
    EXPECT_TRUE(flushes.All().empty());
    EXPECT_TRUE(m_ini.Flush());
    EXPECT_EQ(flushes.All(), Files{File()});
    EXPECT_TRUE(m_ini.Close(false));
    EXPECT_EQ(flushes.All(), Files{File()});
    m_ini.OpenRead(Location(), L"Section");
    EXPECT_TRUE(m_ini.Close(true));
    EXPECT_EQ(flushes.All(), (Files{File(), File()}));
}

TEST_F(IniFileStorage, NoThrowReadsGiveTheDefaultEvenWhenTheFileHoldsTheValue)
{
    WriteFile("[Section]\r\nname=1\r\n");
    ASSERT_EQ(m_ini.QueryNumber(L"name", 7), 1u);
    ByteArray bytes;
    std::uint32_t error = 12345;
    EXPECT_EQ(m_ini.QueryNumberNoThrow(L"name", 7, &error), 7u);
    EXPECT_EQ(m_ini.QueryStringNoThrow(L"name", L"default", &error), L"default");
    EXPECT_FALSE(m_ini.QueryBinaryNoThrow(L"name", bytes, &error));
    EXPECT_EQ(error, 12345u);
}

TEST_F(IniFileStorage, LacksBytesQwordsListsAndTheirOpenings)
{
    ByteArray bytes;
    std::vector<std::wstring> names;
    EXPECT_FALSE(m_ini.OpenWrite(Location(), L"Section"));
    EXPECT_FALSE(m_ini.OpenEnumerate(Location(), L"Section"));
    EXPECT_FALSE(m_ini.QueryBinary(L"name", bytes));
    EXPECT_FALSE(m_ini.SetBinary(L"name", bytes));
    EXPECT_FALSE(m_ini.SetQword(L"name", 1));
    EXPECT_FALSE(m_ini.ListKeys(names));
    EXPECT_FALSE(m_ini.ListValues(names));
}

TEST_F(IniFileStorage, TextOf254CharactersNeedsOnePass)
{
    EXPECT_EQ(RoomsForTextOf(254), (std::vector<DWORD>{256}));
}

TEST_F(IniFileStorage, TextOfExactly255CharactersRetriesOnceWith512)
{
    EXPECT_EQ(RoomsForTextOf(255), (std::vector<DWORD>{256, 512}));
}

TEST_F(IniFileStorage, TextOf256CharactersRetriesOnceWith512)
{
    EXPECT_EQ(RoomsForTextOf(256), (std::vector<DWORD>{256, 512}));
}

TEST_F(IniFileStorage, TextOf511CharactersRetriesTwice)
{
    EXPECT_EQ(RoomsForTextOf(511), (std::vector<DWORD>{256, 512, 768}));
}

TEST_F(IniFileStorage, LongDefaultIsGivenWhole)
{
    const std::wstring text(1000, L'd');
    EXPECT_EQ(m_ini.QueryString(L"none", text), text);
}

TEST_F(IniFileStorage, ProcessWideBufferSizesAreUsed)
{
    m_ini.SetString(L"name", L"12characters");
    ProcessBufferSizes() = {4, 5};
    const ReadRooms rooms;
    EXPECT_EQ(m_ini.QueryString(L"name", L""), L"12characters");
    EXPECT_EQ(rooms.All(), (std::vector<DWORD>{4, 9, 14}));
}

TEST_F(IniFileStorage, NoMemoryForATextThrowsCode6)
{
    ProcessBufferSizes().initial = std::size_t{1} << 58;
    EXPECT_EQ(ThrownCode([&] { m_ini.QueryString(L"name", L"default"); }), 6u);
}

TEST_F(IniFileStorage, FailedFormattingOfANumberBecomesAStorageException)
{
    ProcessBufferSizes().initial = std::size_t{1} << 58;
    EXPECT_EQ(ThrownCode([&] { m_ini.SetNumber(L"name", 1); }), 6u);
}

TEST_F(IniFileStorage, EmptyValueNameThrowsCode160)
{
    EXPECT_EQ(ThrownCode([&] { m_ini.QueryString(L"", L"default"); }), 160u);
    EXPECT_EQ(ThrownCode([&] { m_ini.QueryNumber(L"", 1); }), 160u);
    EXPECT_EQ(ThrownCode([&] { m_ini.SetString(L"", L"value"); }), 160u);
    EXPECT_EQ(ThrownCode([&] { m_ini.SetNumber(L"", 1); }), 160u);
    EXPECT_EQ(ThrownCode([&] { m_ini.DeleteValue(L""); }), 160u);
}

TEST_F(IniFileStorage, NullPointerToANameIsTheEmptyName)
{
    EXPECT_EQ(ThrownCode([&] { m_ini.DeleteValue(static_cast<const wchar_t*>(nullptr)); }), 160u);
}

TEST_F(IniFileStorage, EmptySectionThrowsCode160)
{
    EXPECT_TRUE(m_ini.OpenRead(Location(), L""));
    EXPECT_EQ(ThrownCode([&] { m_ini.QueryString(L"name", L"default"); }), 160u);
    EXPECT_EQ(ThrownCode([&] { m_ini.QueryNumber(L"name", 1); }), 160u);
    EXPECT_EQ(ThrownCode([&] { m_ini.SetString(L"name", L"value"); }), 160u);
    EXPECT_EQ(ThrownCode([&] { m_ini.DeleteLocation(); }), 160u);
}

TEST_F(IniFileStorage, EmptyFileNameThrowsCode160)
{
    EXPECT_TRUE(m_ini.OpenRead(Key::InIniFile(nullptr, nullptr), L"Section"));
    EXPECT_EQ(ThrownCode([&] { m_ini.QueryString(L"name", L"default"); }), 160u);
    EXPECT_EQ(ThrownCode([&] { m_ini.DeleteLocation(); }), 160u);
    EXPECT_EQ(ThrownCode([&] { m_ini.Flush(); }), 160u);
    EXPECT_EQ(ThrownCode([&] { m_ini.Close(true); }), 160u);
    EXPECT_EQ(ThrownCode([&] { m_ini.Close(false); }), 0u);
}

TEST_F(IniFileStorage, FailedWriteThrowsThePlatformsCode)
{
    const std::wstring nowhere = m_folder.File(L"no\\such\\folder");
    m_ini.OpenCreate(Key::InIniFile(nowhere.c_str(), L"settings.ini"), L"Section");
    EXPECT_EQ(ThrownCode([&] { m_ini.SetString(L"name", L"value"); }), std::uint32_t{ERROR_PATH_NOT_FOUND});
    EXPECT_EQ(ThrownCode([&] { m_ini.SetNumber(L"name", 1); }), std::uint32_t{ERROR_PATH_NOT_FOUND});
    EXPECT_EQ(ThrownCode([&] { m_ini.DeleteValue(L"name"); }), std::uint32_t{ERROR_PATH_NOT_FOUND});
    EXPECT_EQ(ThrownCode([&] { m_ini.DeleteLocation(); }), std::uint32_t{ERROR_PATH_NOT_FOUND});
}

TEST_F(IniFileStorage, FolderWithAndWithoutABackslashIsTheSamePlace)
{
    const std::wstring folder = m_folder.Path().wstring() + L'\\';
    m_ini.SetNumber(L"name", 5);
    IniFile other;
    other.OpenRead(Key::InIniFile(folder.c_str(), L"settings.ini"), L"Section");
    EXPECT_EQ(other.QueryNumber(L"name", 0), 5u);
}

TEST_F(IniFileStorage, FileAloneIsAPlaceToo)
{
    m_ini.SetNumber(L"name", 5);
    const std::wstring file = File();
    IniFile other;
    other.OpenRead(Key::InIniFile(nullptr, file.c_str()), L"Section");
    EXPECT_EQ(other.QueryNumber(L"name", 0), 5u);
}

TEST_F(IniFileStorage, OpeningLooksAtNoFile)
{
    const std::wstring nowhere = m_folder.File(L"nowhere");
    EXPECT_TRUE(m_ini.OpenRead(Key::InIniFile(nowhere.c_str(), L"settings.ini"), L"Section"));
    EXPECT_FALSE(std::filesystem::exists(nowhere));
}

} // namespace
