// The reader of lines, whatever pieces its bytes come in.

#include "tests/fuzz/Harness.h"
#include "tests/support/MemoryLineReader.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainLines.h"

using namespace Fuzz;

namespace
{

using namespace std::string_view_literals;

// The first character says how many bytes come at once, and whether half a character ends the text.
class LineReader : public TextReader
{
    std::vector<std::wstring> Samples() const override
    {
        const std::wstring longest(LogLineReader::LongestLine - 2, L'x');
        std::vector<std::wstring> texts{L"\x0002one\r\ntwo\r\n\r\nthree\nfour",
                                        std::wstring(L"zone\rb\r\nc\0d\r\ne\r\n"sv)};
        for (const std::wstring& line : {longest, longest + L"x", longest + L"xx", longest + longest})
        {
            texts.push_back(L"\xFFF0" + line + L"\r\nnext\r\n" + line.substr(1) + L"\r\nlast\r\n");
        }
        return texts;
    }

    std::size_t ReadText(std::wstring_view text) override
    {
        if (text.empty())
        {
            return 0;
        }
        const auto most = static_cast<std::size_t>(text.front()) + 1;
        text.remove_prefix(1);
        std::string_view bytes(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
        if (most % 2 == 0 && !bytes.empty())
        {
            bytes.remove_suffix(1);
        }
        Expect(m_reader.Start(bytes, most), "the reader does not begin");
        std::vector<std::wstring> lines;
        for (std::wstring_view line; m_reader.NextLine(line);)
        {
            lines.emplace_back(line);
        }
        ExpectSame(lines, Plain::Lines(text.substr(0, bytes.size() / sizeof(wchar_t))), "the lines");
        return lines.size() * 8 + text.size() / LogLineReader::LongestLine;
    }

    MemoryLineReader m_reader;
};

const Registration<LineReader> Line({.name = "lines",
                                     .reads = "lines of a daily file, from memory",
                                     .inputs = 5'000,
                                     .separators = L"\r\n",
                                     .words = L"\r\n \n \r \r\r\n \0 \0\n a\n \n\0\n \r\n\r line\r\n"sv});

} // namespace
