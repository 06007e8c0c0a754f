// What the readers of a log trace: all of it, in order, each line with its level.

#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include "platform/dialog/OleDateTime.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/PlainLog.h"
#include "tests/support/ProviderDouble.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TraceRecorder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

extern "C" decltype(&::ferror) __imp_ferror;

namespace
{

using VdCommon::TraceLevel;
using enum VdCommon::TraceLevel;

int __cdecl TellAnError(std::FILE*)
{
    return 1;
}

struct TraceLine
{
    TraceLevel level;
    std::wstring text;
};

using TraceLines = std::vector<TraceLine>;

// A log whose lines need two tokens, and what it reads from.
struct Stage
{
    const LanguageFile language;
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"20081231.PFG");
    ProviderDouble provider;
    ProviderAnswer answer;
    PlainLog log{0, 2, LogTypeFirewall};

    bool ReadDatabase()
    {
        log.m_pIDBManagerProvider = &provider;
        return log.ReadLogDBMgr(COleDateTime(2008, 12, 31, 0, 0, 0));
    }

    bool ReadEntries(std::initializer_list<std::wstring_view> lines)
    {
        for (const std::wstring_view line : lines)
        {
            answer.Add(line);
        }
        provider.m_answer = answer.Address();
        return ReadDatabase();
    }
};

struct Case
{
    const char* name;
    std::function<bool(Stage&)> read; // gives the reader's result
    bool result;
    std::function<TraceLines(const Stage&)> expected;
};

std::ostream& operator<<(std::ostream& stream, const Case& each)
{
    return stream << each.name;
}

const TraceLine EnterDatabase{Flow, L"[Enter] CZPTLogBase::ReadLogDBMgr()..."};
const TraceLine LeaveDatabase{Flow, L"[Leave] CZPTLogBase::ReadLogDBMgr()..."};
const TraceLine SubType{Flow,
                        L"*** CZPTLogBase::ConvertLogExtToQueryValueSubType - *_pdwEventType = 6, _tszFileExt = PFG."};
const TraceLine EnterRecord{Flow, L"[Enter]CZPTLogBase::PutRecode()..."};
const TraceLine LeaveRecord{Flow, L"[Leave]CZPTLogBase::PutRecode()..."};
const TraceLine InvalidRecord{Error, L"CZPTLogBase::PutRecode() - Parsed Result: Log format is invalid!"};
const TraceLine EnterFile{Info, L"[Enter]CZPTLogBase::ReadLogW"};
const TraceLine LeaveFile{Info, L"[Leave]CZPTLogBase::ReadLogW"};

TraceLine LastToken(const std::wstring& token)
{
    return {Flow, L"*** CZPTLogBase::Token() - strTemp = [" + token + L"]"};
}

TraceLine NotOpened(const std::wstring& path)
{
    return {Info, L"[LogView] Could not open log file (" + path + L")"};
}

std::function<TraceLines(const Stage&)> Always(const TraceLines& lines)
{
    return [lines](const Stage&) { return lines; };
}

const Case DatabaseCases[] = {
    {"WithoutAProvider", [](Stage& stage) { return stage.log.ReadLogDBMgr(COleDateTime(2008, 12, 31, 0, 0, 0)); },
     false,
     Always(
         {EnterDatabase, {Error, L"*** CZPTLogBase::ReadLogDBMgr() - m_pIDBManagerProvider is NULL."}, LeaveDatabase})},
    {"WithoutASubType",
     [](Stage& stage)
     {
         stage.log.m_strExt = L".pfg";
         return stage.ReadDatabase();
     },
     false,
     Always({EnterDatabase,
             {Flow, L"*** CZPTLogBase::ConvertLogExtToQueryValueSubType - Convert LogExt is not valid. "
                    L"_tszFileExt = pfg."},
             {Error, L"*** CZPTLogBase::ReadLogDBMgr() - ConvertLogExtToQueryValueSubType() failed."},
             LeaveDatabase})},
    {"WithAQueryThatFails",
     [](Stage& stage)
     {
         stage.provider.m_status = static_cast<HRESULT>(0x80040201);
         return stage.ReadDatabase();
     },
     false,
     Always({EnterDatabase,
             SubType,
             {Error, L"*** CZPTLogBase::ReadLogDBMgr() - m_pIDBManagerProvider->QueryValue() failed. [0x80040201]"},
             LeaveDatabase})},
    {"WithoutAVector", [](Stage& stage) { return stage.ReadDatabase(); }, false,
     Always(
         {EnterDatabase, SubType, {Flow, L"*** CZPTLogBase::ReadLogDBMgr() - pvecReadLog is NULL."}, LeaveDatabase})},
    {"WithoutEntries", [](Stage& stage) { return stage.ReadEntries({}); }, true,
     Always({EnterDatabase, SubType, {Flow, L"*** CZPTLogBase::ReadLogDBMgr() - No records output."}, LeaveDatabase})},
    {"WithEntries",
     [](Stage& stage) {
         return stage.ReadEntries({L"a|b", L"c|d"});
     },
     true,
     Always({EnterDatabase, SubType, EnterRecord, LastToken(L"b"), LeaveRecord, EnterRecord, LastToken(L"d"),
             LeaveRecord, LeaveDatabase})},
    {"WithAnInvalidEntry",
     [](Stage& stage) {
         return stage.ReadEntries({L"a|b", L"short", L"c|d"});
     },
     false,
     Always({EnterDatabase,
             SubType,
             EnterRecord,
             LastToken(L"b"),
             LeaveRecord,
             EnterRecord,
             LastToken(L"short"),
             InvalidRecord,
             {Error, L"*** CZPTLogBase::ReadLogDBMgr() - PutRecode() failed."},
             LeaveDatabase})},
};

const Case FileCases[] = {
    {"OfADay",
     [](Stage& stage)
     {
         WriteUtf16(stage.path, L"a|b\r\nshort\r\nc|d\r\n");
         return stage.log.ReadLogW(stage.path);
     },
     true,
     Always({EnterFile, EnterRecord, LastToken(L"b"), LeaveRecord, EnterRecord, LastToken(L"short"), InvalidRecord,
             LeaveFile})},
    {"ThatIsMissing", [](Stage& stage) { return stage.log.ReadLogW(stage.path); }, false, Always({EnterFile})},
    {"ReadByTheStream",
     [](Stage& stage)
     {
         WriteUtf16(stage.path, L"a|b\r\n");
         return stage.log.ReadLogFile(stage.path, CZPTLogBase::AnyLine);
     },
     true, Always({EnterRecord, LastToken(L"b"), LeaveRecord})},
    {"ThatTheStreamCannotOpen", [](Stage& stage) { return stage.log.ReadLogFile(stage.path, CZPTLogBase::AnyLine); },
     false, [](const Stage& stage) { return TraceLines{NotOpened(stage.path)}; }},
    {"ThatTheStreamCannotReadToItsEnd",
     [](Stage& stage)
     {
         WriteUtf16(stage.path, L"a|b\r\n");
         const ImportPatch broken(__imp_ferror, &TellAnError);
         return stage.log.ReadLogFile(stage.path, CZPTLogBase::AnyLine);
     },
     false,
     [](const Stage& stage) {
         return TraceLines{EnterRecord, LastToken(L"b"), LeaveRecord, NotOpened(stage.path)};
     }},
    {"WithALineThatKeepsItsEnd", [](Stage& stage) { return stage.log.PutRecode(L"a|b\r\n", CZPTLogBase::AnyLine); },
     true,
     Always({EnterRecord,
             {Flow, L"*** CZPTLogBase::Token() - Removed return character. strTemp = [b]"},
             LastToken(L"b"),
             LeaveRecord})},
};

class ReaderTracesTest : public ::testing::TestWithParam<Case>
{
};

constexpr auto NameOf = [](const auto& parameter) { return std::string(parameter.param.name); };

INSTANTIATE_TEST_SUITE_P(Database, ReaderTracesTest, ::testing::ValuesIn(DatabaseCases), NameOf);
INSTANTIATE_TEST_SUITE_P(File, ReaderTracesTest, ::testing::ValuesIn(FileCases), NameOf);

} // namespace

TEST_P(ReaderTracesTest, AreTheseLinesInThisOrder)
{
    Stage stage;
    const TraceRecorder trace;
    EXPECT_EQ(GetParam().read(stage), GetParam().result);

    const TraceLines expected = GetParam().expected(stage);
    std::vector<std::wstring> all;
    for (const TraceLine& line : expected)
    {
        all.push_back(line.text);
    }
    EXPECT_EQ(trace.Texts(), all);
    for (const TraceLevel level : {Flow, Info, Error})
    {
        std::vector<std::wstring> texts;
        for (const TraceLine& line : expected)
        {
            if (line.level == level)
            {
                texts.push_back(line.text);
            }
        }
        EXPECT_EQ(trace.Texts(level), texts);
    }
}
