#include "suite/database/LineRules.h"

#include "suite/database/LogKinds.h"
#include "suite/database/LogLine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace EventLog
{

namespace
{

using Tokens = std::vector<std::wstring>;

// What a rule takes and what it does not.
const std::map<Rule, std::pair<Tokens, Tokens>> TokensOfRule = {
    {Rule::Any, {{std::wstring(100'000, L'x'), L"", L"\xD800", L"text"}, {}}},
    {Rule::Minutes,
     {{L"0000", L"2359", L"235959", L"000000"},
      {L"", L"x", L"930", L"2400", L"2360", L"12345", L"235960", L"+930", L"09:30", L"1234567", L" 0930", L"0930 "}}},
    {Rule::Seconds, {{L"000000", L"235959"}, {L"", L"0930", L"093060", L"0930000", L"-93000"}}},
    {Rule::Number,
     {{L"0", L"-0", L"+7", L"007", L"2147483648", L"4294967295", L"-2147483648"},
      {L"-", L"+", L"--1", L"1.0", L"0x1", L"1 ", L"4294967296", L"-2147483649", L"99999999999999999999", L"x"}}},
    {Rule::Source,
     {{L"1", L"268435456", L"0x10000000", L"0XFFFFFFFF", L"4294967295"},
      {L"", L"-1", L"+1", L"0x", L"1x", L"0x1g", L"4294967296", L"0x100000000"}}},
    {Rule::Hexadecimal, {{L"80", L"0x80", L"ff", L"FFFFFFFF"}, {L"", L"0x", L"g", L"-1", L"8 0", L"100000000"}}},
};

// A token that the rule takes, whatever else is said of it.
std::wstring GoodToken(const TokenForm& form)
{
    return form.rule == Rule::Number ? std::to_wstring(std::max<std::int64_t>(form.least, 0))
                                     : TokensOfRule.at(form.rule).first.back();
}

// A line of the form, with a source of its range.
Tokens GoodLine(const LineForm& form)
{
    Tokens tokens;
    std::ranges::transform(form.tokens, std::back_inserter(tokens), &GoodToken);
    tokens[2] = form.tokens[2].rule == Rule::Any ? tokens[2] : std::to_wstring(form.lastSource);
    return tokens;
}

std::wstring Joined(const Tokens& tokens)
{
    std::wstring line;
    for (const std::wstring& token : tokens)
    {
        line += (&token == tokens.data() ? L"" : L"|") + token;
    }
    return line;
}

// Whether a line of this one token is good.
bool Takes(const TokenForm& form, std::wstring_view token)
{
    const TokenForm tokens[] = {form};
    const LineForm forms[] = {{0, UINT32_MAX, tokens}};
    return FaultOfLine({L"ABC", 1, 1, 0, forms, "Abc log"}, token) == std::nullopt;
}

// All forms of lines with their kinds.
std::vector<std::pair<const LogKind*, const LineForm*>> AllForms()
{
    std::vector<std::pair<const LogKind*, const LineForm*>> forms;
    for (const LogKind& kind : AllLogKinds())
    {
        for (const LineForm& form : kind.forms)
        {
            forms.emplace_back(&kind, &form);
        }
    }
    return forms;
}

} // namespace

TEST(LineRulesTest, ALineOfEachFormIsGoodAndSoIsOneWithMoreTokens)
{
    for (const auto& [kind, form] : AllForms())
    {
        Tokens tokens = GoodLine(*form);
        EXPECT_EQ(FaultOfLine(*kind, Joined(tokens)), std::nullopt) << std::wstring(kind->extension);
        tokens.push_back(L"more");
        EXPECT_EQ(FaultOfLine(*kind, Joined(tokens)), std::nullopt) << std::wstring(kind->extension);
    }
}

TEST(LineRulesTest, EachRuleTakesWhatItsLogReadsAndNothingElse)
{
    for (const auto& [rule, tokens] : TokensOfRule)
    {
        for (const std::wstring& good : tokens.first)
        {
            EXPECT_TRUE(Takes({L"word", rule, INT32_MIN, UINT32_MAX, false, false}, good)) << good;
        }
        for (const std::wstring& bad : tokens.second)
        {
            EXPECT_FALSE(Takes({L"word", rule, INT32_MIN, UINT32_MAX, false, false}, bad)) << bad;
        }
    }
}

TEST(LineRulesTest, ANumberMayHaveARange)
{
    for (const wchar_t* const token : {L"-1", L"3", L""})
    {
        EXPECT_FALSE(Takes({L"word", Rule::Number, 0, 2, false, false}, token)) << token;
    }
    EXPECT_TRUE(Takes({L"word", Rule::Number, 0, 2, false, false}, L"0"));
    EXPECT_TRUE(Takes({L"word", Rule::Number, 0, 2, false, false}, L"2"));
}

TEST(LineRulesTest, ATokenMayBeEmptyInSpiteOfItsRule)
{
    EXPECT_FALSE(Takes({L"word", Rule::Number, 0, 2, false, false}, L""));
    EXPECT_TRUE(Takes({L"word", Rule::Number, 0, 2, true, false}, L""));
    EXPECT_FALSE(Takes({L"word", Rule::Number, 0, 2, true, false}, L" "));
}

TEST(LineRulesTest, ALineMayEndWhereItsFileFormDoesAndNoEarlier)
{
    for (const auto& [kind, form] : AllForms())
    {
        const auto lacking = std::ranges::find(form->tokens, true, &TokenForm::mayLack);
        const auto least = static_cast<std::size_t>(lacking - form->tokens.begin());
        Tokens tokens = GoodLine(*form);
        while (tokens.size() > 3)
        {
            tokens.pop_back();
            EXPECT_EQ(FaultOfLine(*kind, Joined(tokens)) == std::nullopt, tokens.size() >= least)
                << std::wstring(kind->extension) << tokens.size();
        }
    }
}

TEST(LineRulesTest, AFaultNamesTheTokenAndWhatItShouldBe)
{
    const struct
    {
        std::wstring_view extension;
        std::wstring line;
        std::wstring fault;
    } cases[] = {
        {L"VLG", L"", L"ends before token 2 (time)"},
        {L"VLG", L"20260201|120000|1||threat|file|subject|1|1|0", L"ends before token 11 (second result)"},
        {L"VLG", L"20260201|9:30|1||",
         L"has \"9:30\" as token 2 (time), which is to be a time of day as HHMM or HHMMSS"},
        {L"PFG", L"0930|4", L"has \"0930\" as token 1 (time), which is to be a time of day as HHMMSS"},
        {L"PPG", L"20260201|120000|mail", L"has \"mail\" as token 3 (kind), which is to be a whole number of 32 bits"},
        {L"HLG", L"20260201|120000|1|kind",
         L"has \"kind\" as token 4 (kind), which is to be a number of 32 bits in hexadecimal"},
        {L"SKP", L"1||20260201|120000|0|3", L"has \"3\" as token 6 (reason), which is to be a number from 0 to 2"},
        {L"SPG", L"20260201|120000|0|", L"has the source \"0\", which no record of this log has"},
        {L"SCG", L"20260201|120000|-|",
         L"has \"-\" as token 3 (source), which is to be a number of 32 bits, in decimal or as 0x and hexadecimal "
         L"digits"},
        // The log of viruses reads its sources in decimal, so this would be another one, with a token more.
        {L"VLG", L"20260201|120000|0x1||threat|file|subject|1|1|0|0|",
         L"has \"0x1\" as token 3 (source), which is to be a whole number of 32 bits"},
        {L"VLG", L"20260201|" + std::wstring(50, L'1'),
         L"has \"" + std::wstring(40, L'1') +
             L"...\" as token 2 (time), which is to be a time of day as HHMM or HHMMSS"},
    };

    for (const auto& [extension, line, fault] : cases)
    {
        EXPECT_EQ(FaultOfLine(*FindKindOfExtension(extension), line), fault) << line;
    }
}

} // namespace EventLog
