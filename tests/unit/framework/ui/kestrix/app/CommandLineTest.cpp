#include "framework/ui/kestrix/app/CommandLine.h"

#include "framework/ui/kestrix/app/Kestrix.h"
#include "framework/ui/kestrix/logs/LogKinds.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{

struct Parsed
{
    explicit Parsed(const wchar_t* line)
    {
        app.m_strCmdLine = line;
        done = app.ParseCommandLine();
    }

    CKestrixApp app;
    bool done;
};

TEST(CommandLine, EachFieldGoesToItsPlaceAndTheFifthToNone)
{
    const std::optional<CommandLine> line = CutCommandLine(L"target%|type%|address%|path%|unused%|number%|rest");
    ASSERT_TRUE(line);
    EXPECT_EQ(line->target, L"target");
    EXPECT_EQ(line->logType, L"type");
    EXPECT_EQ(line->localAddress, L"address");
    EXPECT_EQ(line->logPath, L"path");
    EXPECT_EQ(line->number, L"number%|rest");
}

TEST(CommandLine, ALineWithFewerThanFiveSeparatorsHasNoFields)
{
    for (const wchar_t* const line : {L"", L"a", L"%|", L"%|%|", L"%|%|%|", L"%|%|%|%|", L"a%|b%|c%|d%|e%"})
    {
        EXPECT_FALSE(CutCommandLine(line)) << std::filesystem::path(line);
    }
}

TEST(CommandLine, LocalTargetWithCodeOneOpensTheVirusLogFromTheDatabase)
{
    const Parsed parsed(L"LocalLog%|1%|%|%|%|0");
    ASSERT_TRUE(parsed.done);
    EXPECT_TRUE(parsed.app.m_bIsLocal);
    EXPECT_EQ(parsed.app.m_nLogType, LogTypeVirus);
    EXPECT_EQ(parsed.app.m_strLocalIp, L"");
    EXPECT_EQ(parsed.app.m_strLogPath, L"");
    EXPECT_TRUE(parsed.app.m_bLogOnly);
}

TEST(CommandLine, FourSeparatorsAreTooFewAndChangeNothing)
{
    CKestrixApp app;
    app.m_strCmdLine = L"LocalLog%|1%|%|%|";
    app.m_strLogPath = L"path";
    app.m_strLocalIp = L"address";
    app.m_nLogType = LogTypeScan;
    app.m_nReportSpan = 12;
    EXPECT_FALSE(app.ParseCommandLine());
    EXPECT_EQ(app.m_strLogPath, L"path");
    EXPECT_EQ(app.m_strLocalIp, L"address");
    EXPECT_EQ(app.m_nLogType, static_cast<std::uint32_t>(LogTypeScan));
    EXPECT_EQ(app.m_nReportSpan, 12U);
    EXPECT_FALSE(app.m_bIsLocal);
    EXPECT_FALSE(app.m_bLogOnly);
}

TEST(CommandLine, AnEmptyLineIsRefused)
{
    EXPECT_FALSE(Parsed(L"").done);
}

TEST(CommandLine, TextThatIsNoNumberCountsAsZeroAndTheSpanIsNotThatOfTheLine)
{
    const Parsed parsed(L"locallog%|abc%|x%|y%|z%|99");
    ASSERT_TRUE(parsed.done);
    EXPECT_TRUE(parsed.app.m_bIsLocal);
    EXPECT_EQ(parsed.app.m_nLogType, LogTypeUpdate);
    EXPECT_EQ(parsed.app.m_strLocalIp, L"x");
    EXPECT_EQ(parsed.app.m_strLogPath, L"y");
    EXPECT_EQ(parsed.app.m_nReportSpan, 7U);
}

TEST(CommandLine, FurtherSeparatorsBelongToTheSixthField)
{
    const Parsed parsed(L"Files%|1%|a%|b%|c%|5%|6%|7");
    ASSERT_TRUE(parsed.done);
    EXPECT_EQ(parsed.app.m_strLocalIp, L"a");
    EXPECT_EQ(parsed.app.m_strLogPath, L"b");
    EXPECT_EQ(parsed.app.m_nReportSpan, 7U);
}

TEST(CommandLine, CodesSixAndNineHaveNoLog)
{
    EXPECT_EQ(Parsed(L"LocalLog%|6%|%|%|%|0").app.m_nLogType, LogTypeNone);
    EXPECT_EQ(Parsed(L"LocalLog%|9%|%|%|%|0").app.m_nLogType, LogTypeNone);
}

TEST(CommandLine, TheTargetIsComparedAsAWholeAndWithoutCase)
{
    EXPECT_TRUE(Parsed(L"LOCALLOG%|1%|%|%|%|").app.m_bIsLocal);
    EXPECT_FALSE(Parsed(L"LocalLog2%|1%|%|%|%|").app.m_bIsLocal);
    EXPECT_FALSE(Parsed(L"LocalLo%|1%|%|%|%|").app.m_bIsLocal);
    EXPECT_FALSE(Parsed(L"%|1%|%|%|%|").app.m_bIsLocal);
}

TEST(CommandLine, ASeparatorIsFoundInAnyRunOfItsCharacters)
{
    // "%%|" is a percent sign of the field and a separator: nothing is escaped.
    const Parsed parsed(L"Files%|1%|a%%|b|%|c%|0");
    ASSERT_TRUE(parsed.done);
    EXPECT_EQ(parsed.app.m_strLocalIp, L"a%");
    EXPECT_EQ(parsed.app.m_strLogPath, L"b|");
}

TEST(CommandLine, QuotationMarksArePartOfAField)
{
    const Parsed parsed(L"\"LocalLog%|1%|%|C:\\a b.VLG%|%|0\"");
    ASSERT_TRUE(parsed.done);
    EXPECT_FALSE(parsed.app.m_bIsLocal);
    EXPECT_EQ(parsed.app.m_strLogPath, L"C:\\a b.VLG");
}

TEST(CommandLine, EveryCommandCodeHasItsLogType)
{
    constexpr std::uint32_t types[] = {1, 0, 5, 3, 2, 6, 15, 8, 9, 15, 7, 11, 12, 13, 14};
    for (std::size_t code = 0; code < std::size(types); ++code)
    {
        EXPECT_EQ(CKestrixApp::GetLogTypeFromCommandLine(std::to_wstring(code)), types[code]) << "code " << code;
    }
}

TEST(CommandLine, ACodeIsReadAsAPlainDecimalNumber)
{
    EXPECT_EQ(CKestrixApp::GetLogTypeFromCommandLine(L""), LogTypeUpdate);
    EXPECT_EQ(CKestrixApp::GetLogTypeFromCommandLine(L" 3x"), LogTypeFirewall);
    EXPECT_EQ(CKestrixApp::GetLogTypeFromCommandLine(L"1000"), LogTypeNone);
    EXPECT_EQ(CKestrixApp::GetLogTypeFromCommandLine(L"-1"), LogTypeNone);
    EXPECT_EQ(CKestrixApp::GetLogTypeFromCommandLine(L"0x3"), LogTypeUpdate);
    EXPECT_EQ(CKestrixApp::GetLogTypeFromCommandLine(L"99999999999999999999"), LogTypeNone);
}

} // namespace
