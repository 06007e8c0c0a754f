// The command line of the viewer.

#include "framework/ui/kestrix/app/CommandLine.h"
#include "tests/fuzz/harness/Harnesses.h"

#include <cwchar>
#include <optional>

namespace Fuzz
{

namespace
{

using namespace std::string_view_literals;

constexpr std::wstring_view Words =
    L"%| |% %%| LocalLog locallog LOCALLOG LocalLog\x212A Files 14 9 C:\\Logs\\20261121.VLG 192.0.2.77"sv;

constexpr std::uint32_t TypeOfCode[] = {1, 0, 5, 3, 2, 6, 15, 8, 9, 15, 7, 11, 12, 13, 14};
constexpr std::uint32_t NoType = 15;

using Fields = std::vector<std::wstring>;

// The fields of a line, a character at a time; what follows the fifth separator is the sixth.
Fields PlainFields(std::wstring_view line)
{
    Fields fields(1);
    for (std::size_t i = 0; i < line.size(); ++i)
    {
        const bool isSeparator = fields.size() < 6 && line[i] == L'%' && i + 1 < line.size() && line[i + 1] == L'|';
        if (isSeparator)
        {
            fields.emplace_back();
            ++i;
        }
        else
        {
            fields.back() += line[i];
        }
    }
    return fields;
}

bool IsPlainlyLocal(const std::wstring& target)
{
    std::wstring small;
    for (const wchar_t c : target)
    {
        small += c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c;
    }
    return small == L"locallog";
}

class CommandLineReader : public TextReader
{
    std::vector<std::wstring> Texts() const override
    {
        return {L"LocalLog%|1%|192.0.2.77%|%|%|7", L"Files%|0%|a%|C:\\a b.VLG%|%|0%|0", L"", L"LocalLog%|14%|%|%|"};
    }

    std::size_t ReadText(std::wstring_view text) override
    {
        const std::wstring line(text.substr(0, text.find(L'\0'))); // as long as the system's is
        const Fields expected = PlainFields(line);
        const std::optional<CommandLine> cut = CutCommandLine(line);
        ExpectSame(cut.has_value(), expected.size() == 6, "whether there are fields");
        if (!cut)
        {
            return expected.size();
        }
        const Fields found{cut->target, cut->logType, cut->localAddress, cut->logPath, expected[4], cut->number};
        ExpectSame(found, expected, "the fields");
        ExpectSame(IsLocalTarget(cut->target), IsPlainlyLocal(cut->target), "whether the target is the local one");
        const long code = std::wcstol(cut->logType.c_str(), nullptr, 10);
        const bool hasType = code >= 0 && code < static_cast<long>(std::size(TypeOfCode));
        const std::uint32_t type = hasType ? TypeOfCode[code] : NoType;
        ExpectSame(LogTypeOfCode(cut->logType), type, "the type of the log");
        return 100 + 2 * type + (IsLocalTarget(cut->target) ? 1 : 0);
    }
};

} // namespace

constinit const Harness CommandLineHarness{.name = "commandline",
                                           .reads = "the command line of the viewer",
                                           .form = Form::Utf16,
                                           .inputs = 30'000,
                                           .separators = L"%|",
                                           .words = Words,
                                           .make = &Make<CommandLineReader>};

} // namespace Fuzz
