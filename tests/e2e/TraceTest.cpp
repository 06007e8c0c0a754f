// What the program traces from its start to its end, compared with the sequences kept in golden/.

#include "tests/e2e/EventLogs.h"
#include "tests/e2e/ServiceFixture.h"
#include "tests/e2e/Tracing.h"
#include "tests/e2e/Viewer.h"
#include "tests/support/KeptText.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>
#include <sstream>

namespace
{

// "flow", "info" or "error" and the text of each line; what is not of this shape stays as it is, and so is seen.
std::string Normalised(const std::string& trace, const std::wstring& folder)
{
    static const std::regex line(
        R"((?:\xEF\xBB\xBF)?\d\d/\d\d/\d{4} \d\d:\d\d:\d\d\.\d{3} [0-9a-f]{4}:[0-9a-f]{4} (\.w\.|@@@|!!!) <Kestrix> ([^\r\n]*) - \w+\.cpp\(\d+\)\r?)");
    static const std::map<std::string, std::string> levels{{".w.", "flow   "}, {"@@@", "info   "}, {"!!!", "error  "}};
    const std::string narrowFolder(folder.begin(), folder.end());
    std::istringstream input(trace);
    std::string result;
    for (std::string text; std::getline(input, text);)
    {
        std::smatch match;
        std::string entry = std::regex_match(text, match, line) ? levels.at(match[1]) + match[2].str() : text;
        for (std::size_t at = 0; (at = entry.find(narrowFolder, at)) != std::string::npos;)
        {
            entry.replace(at, narrowFolder.size(), "FOLDER");
        }
        result += entry + '\n';
    }
    return result;
}

// Leaves what came out where tools/update-traces finds it.
void ExpectTrace(const std::string& actual, const std::string& name)
{
    const std::string file = name + ".golden";
    EXPECT_TRUE(IsKeptText(actual, std::filesystem::path(KESTRIX_GOLDEN_TRACES) / file,
                           std::filesystem::path(KESTRIX_TRACE_OUTPUT) / file))
        << "tools/update-traces shows the difference and keeps the new sequence";
}

class TraceTest : public ::testing::Test
{
protected:
    const LanguageFile m_language;
    const TemporaryFolder m_folder;
    const Tracing m_tracing{m_folder.Path()};
};

using TraceWithServiceTest = ServiceFixture;

} // namespace

TEST_F(TraceTest, OfAStartWithADayFileOfTwoRecords)
{
    const std::wstring path = m_folder.File(L"20261120.VLG");
    WriteUtf16(path, L"x|0900|1048576|x|0|0|beta|C:\\beta.exe|4|1|0|0\r\n"
                     L"x|0930|1048576|x|0|0|gamma|C:\\gamma.exe|4|1|0|0\r\n");
    const Viewer viewer(FileCommandLine(1, path));
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_EQ(viewer.RowCount(), 2);
    EXPECT_EQ(viewer.Close(), 0u);
    ExpectTrace(Normalised(m_tracing.Text(), m_folder.Path().wstring()), "start-with-a-day-file");
}

TEST_F(TraceTest, OfAStartWithACommandLineOfFourSeparators)
{
    EXPECT_EQ(Process(ProgramFolder() + L"Kestrix.exe", L"LocalLog%|1%|%|%|").ExitCode(), 0u);
    ExpectTrace(Normalised(m_tracing.Text(), m_folder.Path().wstring()), "start-with-a-short-command-line");
}

TEST_F(TraceTest, OfAStartWithAnEmptyCommandLine)
{
    EXPECT_EQ(Process(ProgramFolder() + L"Kestrix.exe").ExitCode(), 0u);
    ExpectTrace(Normalised(m_tracing.Text(), m_folder.Path().wstring()), "start-with-an-empty-command-line");
}

TEST_F(TraceWithServiceTest, OfAStartWithADayOfTwoRecordsInTheDatabase)
{
    const LanguageFile language;
    const std::filesystem::path& folder = m_service.Installed().Path();
    const EventLogs logs(m_service.Installed());
    logs.Append(VirusSubType, 20261120, {VirusLine(L"0900", L"beta"), VirusLine(L"0930", L"gamma")});
    const Tracing tracing(folder);
    const Viewer viewer(DatabaseCommandLine(VirusLog));
    ASSERT_NE(viewer.Form(), nullptr);
    EXPECT_EQ(viewer.RowCount(), 2);
    EXPECT_EQ(viewer.Close(), 0u);
    ExpectTrace(Normalised(tracing.Text(), folder.wstring()), "start-with-a-day-of-the-database");
}
