// The link of a threat: which program starts, and with what, for names as malware can choose them.

#include "resource/resource.h"
#include "tests/e2e/EventLogs.h"
#include "tests/e2e/InstalledFolder.h"
#include "tests/e2e/Service.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/LanguageFile.h"

#include <gtest/gtest.h>

#include <tlhelp32.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace
{

using Texts = std::vector<std::wstring>;

constexpr wchar_t RecordsVariable[] = L"KESTRIX_BROWSER_RECORDS";
constexpr wchar_t RecorderName[] = L"BrowserRecorder.exe";
constexpr wchar_t BrowserKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\iexplore.exe";
constexpr wchar_t HttpsKey[] = L"Software\\Classes\\https\\shell\\open\\command";
constexpr wchar_t DefaultValue[] = L"";
constexpr wchar_t LastThreat[] = L"zlast";

std::wstring RecorderPath()
{
    return ProgramFolder() + L"..\\tests\\e2e\\" + RecorderName;
}

// The names of the programs that run now.
std::multiset<std::wstring> RunningPrograms()
{
    std::multiset<std::wstring> names;
    const UniqueKernelHandle all(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(all.get(), &entry); more; more = Process32NextW(all.get(), &entry))
    {
        names.insert(entry.szExeFile);
    }
    return names;
}

// The folder in which the browsers of the test leave what they were started with.
class BrowserRecords
{
public:
    BrowserRecords() { SetEnvironmentVariableW(RecordsVariable, m_folder.Path().c_str()); }

    ~BrowserRecords() { SetEnvironmentVariableW(RecordsVariable, nullptr); }

    BrowserRecords(const BrowserRecords&) = delete;
    BrowserRecords& operator=(const BrowserRecords&) = delete;

    // What each browser got, an argument a line, in the order of the texts.
    std::vector<std::string> All() const
    {
        std::vector<std::string> records;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.Path()))
        {
            if (entry.path().extension() != L".txt")
            {
                continue; // its browser could not give it its name while it is open here
            }
            std::ifstream file(entry.path(), std::ios::binary);
            if (file) // else its browser still holds it
            {
                records.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
            }
        }
        std::ranges::sort(records);
        return records;
    }

private:
    const TemporaryFolder m_folder;
};

std::string AddressOf(const std::string& encodedName)
{
    const std::wstring& wide = Text(IDS_THREAT_ADDRESS);
    std::string address(wide.begin(), wide.end());
    return address.replace(address.find("%s"), 2, encodedName);
}

std::string Record(const std::string& encodedName)
{
    return AddressOf(encodedName) + "\n";
}

// Takes the browser of the system away for the life of the object, so that the registry alone tells where one is. What
// a killed test has left behind is put right first.
class NoBrowserOfTheSystem
{
public:
    NoBrowserOfTheSystem()
    {
        std::array<wchar_t, MAX_PATH> folder{};
        GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
        m_browser = std::filesystem::path(folder.data()) / L"iexplore.exe";
        m_aside = std::filesystem::path(folder.data()) / L"iexplore.aside";
        if (std::filesystem::exists(m_browser))
        {
            std::filesystem::rename(m_browser, m_aside);
        }
    }

    ~NoBrowserOfTheSystem() { MoveFileW(m_aside.c_str(), m_browser.c_str()); }

    NoBrowserOfTheSystem(const NoBrowserOfTheSystem&) = delete;
    NoBrowserOfTheSystem& operator=(const NoBrowserOfTheSystem&) = delete;

private:
    std::filesystem::path m_browser;
    std::filesystem::path m_aside;
};

// A viewer whose list holds a threat and, below it, a harmless one, whose record is the last one in their order. There
// is no service.
class LinkTest : public ::testing::Test
{
protected:
    LinkTest() { Service::Run(L"/UnregServer"); }

    // Clicks the link of the first threat and then that of the second; gives what the browsers got up to the second
    // one.
    std::vector<std::string> ClickBoth(const Viewer& viewer, const std::wstring& threat) const
    {
        EXPECT_NE(viewer.Form(), nullptr);
        EXPECT_EQ(viewer.RowCount(), 2);
        const std::multiset<std::wstring> before = RunningPrograms();
        ClickLinkOf(viewer, 0, threat);
        ClickLinkOf(viewer, 1, LastThreat);
        // The viewer deals with one click after the other: when the second has had its effect, so has the first.
        const auto hasLast = [&] { return std::ranges::count(m_records.All(), Record("zlast")) != 0; };
        EXPECT_TRUE(WaitUntil(hasLast));
        EXPECT_TRUE(WaitUntil([&] { return RunningPrograms() == before; })) << "another program runs";
        EXPECT_EQ(viewer.Close(), 0u);
        return m_records.All();
    }

    std::vector<std::string> ClickBothInAFile(const std::wstring& threat) const
    {
        const std::wstring path = m_installed.Folder().File(L"20261120.VLG");
        WriteUtf16(path, Line(L"1000", threat) + L"\r\n" + Line(L"0900", LastThreat) + L"\r\n");
        return ClickBoth(Viewer(FileCommandLine(VirusLog, path)), threat);
    }

    std::vector<std::string> ClickBothInTheDatabase(const std::wstring& threat) const
    {
        m_logs.Append(VirusSubType, 20261120, {Line(L"1000", threat), Line(L"0900", LastThreat)});
        return ClickBoth(Viewer(DatabaseCommandLine(VirusLog)), threat);
    }

    const LanguageFile m_language;
    const InstalledFolder m_installed;
    const EventLogs m_logs{m_installed.Folder()};
    const BrowserRecords m_records;
    const NoBrowserOfTheSystem m_noBrowser;
    const RegistryValue m_browser{BrowserKey, DefaultValue, RecorderPath()};

private:
    // With a short file name, since a line of a file holds 2047 characters at most.
    static std::wstring Line(const std::wstring& time, const std::wstring& threat)
    {
        return L"x|" + time + L"|1048576|x|0|0|" + threat + L"|C:\\x.exe|4|1|0|0|";
    }

    static void ClickLinkOf(const Viewer& viewer, int row, const std::wstring& threat)
    {
        viewer.ClickRow(row);
        const auto isShown = [&]
        {
            return threat.starts_with(viewer.TextOf(IDC_INFO_VALUE_0_LINK).substr(0, 1000)) &&
                   !viewer.TextOf(IDC_INFO_VALUE_0_LINK).empty();
        };
        EXPECT_TRUE(WaitUntil(isShown)) << row;
        viewer.Click(IDC_INFO_VALUE_0_LINK);
    }
};

struct Hostile
{
    const char* name;
    std::wstring threat;
    std::string encoded;
};

class HostileLinkTest : public LinkTest, public ::testing::WithParamInterface<Hostile>
{
};

INSTANTIATE_TEST_SUITE_P(
    Name, HostileLinkTest,
    ::testing::Values(Hostile{"Quotes", L"a\" -private \"C:\\x.exe", "a%22%20-private%20%22C%3A%5Cx.exe"},
                      Hostile{"Blanks", L"a  b\tc", "a%20%20b%09c"},
                      Hostile{"PercentSigns", L"100%s%n%d%%20%1%*", "100%25s%25n%25d%25%2520%251%25%2A"},
                      Hostile{"Variables", L"%PATH%%COMSPEC%", "%25PATH%25%25COMSPEC%25"},
                      Hostile{"AFile", L"file:///C:/windows/notepad.exe",
                              "file%3A%2F%2F%2FC%3A%2Fwindows%2Fnotepad.exe"},
                      Hostile{"AScript", L"javascript:alert(1)", "javascript%3Aalert%281%29"},
                      Hostile{"ACommand", L"x & C:\\windows\\notepad.exe > y ^ z",
                              "x%20%26%20C%3A%5Cwindows%5Cnotepad.exe%20%3E%20y%20%5E%20z"},
                      Hostile{"OtherParts", L"a&name=b#c?d;e=f", "a%26name%3Db%23c%3Fd%3Be%3Df"},
                      Hostile{"OtherScripts", L"\x00E4\x0416\x65E5\xD83D\xDE00", "%C3%A4%D0%96%E6%97%A5%F0%9F%98%80"},
                      Hostile{"HalfACharacter", L"a\xD83Dz", "a%EF%BF%BDz"}),
    [](const auto& hostile) { return hostile.param.name; });

} // namespace

TEST_P(HostileLinkTest, OfADayFileIsOneArgumentOfOneBrowser)
{
    EXPECT_EQ(ClickBothInAFile(GetParam().threat),
              (std::vector<std::string>{Record(GetParam().encoded), Record("zlast")}));
}

TEST_F(LinkTest, AHostileNameOfTheDatabaseIsOneArgumentOfOneBrowser)
{
    EXPECT_EQ(ClickBothInTheDatabase(L"a\" -private \"C:\\x.exe %s"),
              (std::vector<std::string>{Record("a%22%20-private%20%22C%3A%5Cx.exe%20%25s"), Record("zlast")}));
}

TEST_F(LinkTest, ANameOfTwoThousandCharactersIsOneArgument)
{
    const std::string name(2000, 'a');
    EXPECT_EQ(ClickBothInTheDatabase(std::wstring(name.begin(), name.end())),
              (std::vector<std::string>{Record(name), Record("zlast")}));
}

TEST_F(LinkTest, ANameOfTenThousandCharactersStartsNothing)
{
    EXPECT_EQ(ClickBothInTheDatabase(std::wstring(10'000, L'a')), std::vector<std::string>{Record("zlast")});
}

TEST_F(LinkTest, WhereTheBrowserDoesNotStartTheSystemsOwnGetsTheSameAddress)
{
    const RegistryValue missing(BrowserKey, DefaultValue, m_installed.Folder().File(L"no browser.exe"));
    const RegistryValue handler(HttpsKey, DefaultValue, L"\"" + RecorderPath() + L"\" \"%1\"");
    EXPECT_EQ(ClickBothInAFile(L"a\" \"b %1 %PATH%"),
              (std::vector<std::string>{Record("a%22%20%22b%20%251%20%25PATH%25"), Record("zlast")}));
}
