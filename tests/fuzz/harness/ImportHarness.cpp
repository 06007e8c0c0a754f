// The files that are taken into the database. What the import takes, the log of the kind must show.

#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "suite/database/LineRules.h"
#include "suite/database/LogKinds.h"
#include "suite/database/LogLine.h"
#include "suite/import/DailyFile.h"
#include "tests/fuzz/Harness.h"
#include "tests/fuzz/LogReferences.h"
#include "tests/support/CategoryService.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>

using namespace Fuzz;

namespace
{

using EventLog::Rule;

bool HasOnly(const std::wstring& token, const wchar_t* characters)
{
    return !token.empty() && token.find_first_not_of(characters) == token.npos;
}

bool IsPlainlyTime(const std::wstring& token, bool withSeconds)
{
    const auto part = [&](std::size_t place) { return std::wcstol(token.substr(place, 2).c_str(), nullptr, 10); };
    const bool hasSeconds = token.size() == 6;
    return HasOnly(token, L"0123456789") && (hasSeconds || (token.size() == 4 && !withSeconds)) && part(0) < 24 &&
           part(2) < 60 && (!hasSeconds || part(4) < 60);
}

// Whether the C library reads the whole token as a number, with the sign or the mark that it may have.
bool IsPlainlyNumber(const std::wstring& token, const EventLog::TokenForm& form)
{
    const bool isSigned = form.rule == Rule::Number;
    const bool isHexadecimal = form.rule == Rule::Hexadecimal || token.starts_with(L"0x") || token.starts_with(L"0X");
    wchar_t* end = nullptr;
    const long long number = std::wcstoll(token.c_str(), &end, !isSigned && isHexadecimal ? 16 : 10);
    return HasOnly(token, isSigned ? L"+-0123456789" : L"xX0123456789abcdefABCDEF") &&
           end == token.data() + token.size() && (isSigned ? form.least : 0) <= number &&
           number <= (isSigned ? form.most : UINT32_MAX);
}

bool FollowsPlainly(const std::wstring& token, const EventLog::TokenForm& form)
{
    const bool isTime = form.rule == Rule::Minutes || form.rule == Rule::Seconds;
    return form.rule == Rule::Any || (token.empty() && form.mayBeEmpty) ||
           (isTime ? IsPlainlyTime(token, form.rule == Rule::Seconds) : IsPlainlyNumber(token, form));
}

// Whether the line has the tokens of its form.
bool IsPlainlyGood(const EventLog::LogKind& kind, const std::wstring& line)
{
    const EventLog::LineForm* const form = EventLog::FormOfLine(kind, EventLog::TokensOf(line));
    const std::vector<std::wstring> tokens = Pieces<wchar_t>(line, L'|');
    const std::size_t count = form == nullptr ? 0 : std::min(form->tokens.size(), tokens.size());
    bool isGood = form != nullptr && (count == form->tokens.size() || form->tokens[count].mayLack);
    for (std::size_t i = 0; i < count; ++i)
    {
        isGood = isGood && FollowsPlainly(tokens[i], form->tokens[i]);
    }
    return isGood;
}

// Whether there is such a day. The system knows those from 1601 on, and the calendar is the same every 400 years.
bool IsPlainlyDay(EventLog::Day day)
{
    SYSTEMTIME date{};
    date.wYear = static_cast<WORD>(day / 10000 % 400 + 2000);
    date.wMonth = static_cast<WORD>(day / 100 % 100);
    date.wDay = static_cast<WORD>(day % 100);
    FILETIME time{};
    return SystemTimeToFileTime(&date, &time);
}

// The first line of an input is the name of the file, the rest what stands in it.
class ImportReader : private WithCategoryService, public TextReader
{
    std::size_t ReadText(std::wstring_view text) override
    {
        const std::wstring_view nameOfFile = text.substr(0, text.find(L'\n'));
        text.remove_prefix(std::min(text.size(), nameOfFile.size() + 1));
        const std::optional<Import::DailyName> name = Import::ParseDailyName(nameOfFile);
        if (!name)
        {
            return 0;
        }
        const EventLog::LogKind& kind = *EventLog::FindKindOfExtension(name->kind->extension);
        ExpectDays(name->day);
        std::size_t taken = 0;
        for (const std::wstring& line : LinesOf(text))
        {
            EventLog::TimeOfLine(kind.subType, line);
            const bool isGood = !EventLog::FaultOfLine(kind, line);
            ExpectSame(isGood, IsPlainlyGood(kind, line), "whether a line is good");
            if (!line.empty() && isGood)
            {
                ExpectShown(kind, line);
                ++taken;
            }
        }
        return 1 + kind.subType * 10 + std::min<std::size_t>(taken, 9);
    }

    // Each number after the year and the month is a day as the system says.
    static void ExpectDays(EventLog::Day day)
    {
        for (EventLog::Day other = day / 100 * 100; other <= day / 100 * 100 + 99; ++other)
        {
            const std::wstring digits = std::to_wstring(100'000'000 + other).substr(1);
            ExpectSame(Import::ParseDailyName(digits + L".VLG").has_value(), IsPlainlyDay(other), "a day");
        }
    }

    std::vector<std::wstring> LinesOf(std::wstring_view text) const
    {
        const std::wstring path = m_folder.File(L"20261121.VLG");
        WriteBytes(path, InputOf(text, Form::Utf16));
        try
        {
            const std::vector<std::wstring> lines = Import::ReadDailyFile(path);
            std::vector<std::wstring> expected = Pieces(text.substr(1), L'\n');
            expected.pop_back(); // without an end
            for (std::wstring& line : expected)
            {
                line.resize(line.size() - line.ends_with(L'\r'));
            }
            ExpectSame(lines, expected, "the lines");
            return lines;
        }
        catch (const Import::BadFile&)
        {
            Expect(!text.starts_with(L'\xFEFF'), "the file is no log file");
            return {};
        }
    }

    void ExpectShown(const EventLog::LogKind& kind, const std::wstring& line)
    {
        const std::wstring form = EventLog::DatabaseForm(kind.subType, line);
        Expect(!EventLog::FaultOfLine(kind, form), "the line is bad in the form of the database");
        ExpectSame(EventLog::TimeOfLine(kind.subType, form), EventLog::TimeOfLine(kind.subType, line), "the time");
        ExpectSame(EventLog::DatabaseForm(kind.subType, form), form, "the form of a line that has it already");
        Expect(LogOf(kind)->PutRecode(form, CZPTLogBase::AnyLine), "the log refuses a line that was taken");
    }

    // A log that has just been made: others are in the state that their lines left.
    std::unique_ptr<CZPTLogBase> LogOf(const EventLog::LogKind& kind) const
    {
        const auto found = std::ranges::find(LogKinds(), kind.extension, &LogKind::extension);
        return CreateLog(found->type);
    }

    const LanguageFile m_language;
    const TemporaryFolder m_folder;
};

const Registration<ImportReader> Import({.name = "import",
                                         .reads = "daily files that are taken into the database",
                                         .inputs = 2'000,
                                         .separators = L"|\r\n",
                                         .words = LogWords});

} // namespace
