// The readers of a line's tokens, each against its plain form.

#include "common/VdCommon/VdComn_Number.h"
#include "framework/ui/kestrix/logs/TokenReaders.h"
#include "tests/fuzz/Harness.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/PlainLog.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainReaders.h"

using namespace Fuzz;

namespace
{

class TokenReader : public TextReader
{
    std::size_t ReadText(std::wstring_view line) override
    {
        std::vector<std::wstring_view> views;
        m_log.Token(line, views, L'|', CZPTLogBase::StreamLine);
        views.clear();
        const std::size_t count = m_log.Token(line, views, L'|', CZPTLogBase::AnyLine);
        ExpectSame(count, views.size(), "the count of tokens");
        const std::vector<std::wstring> tokens(views.begin(), views.end());
        ExpectSame(tokens, Plain::Tokens(line), "the tokens");
        std::size_t outcome = tokens.size();
        for (const std::wstring_view view : views)
        {
            outcome = outcome * 31 + ReadToken(view);
        }
        return outcome;
    }

    // Returns a number for the sort of token.
    static std::size_t ReadToken(std::wstring_view view)
    {
        const std::wstring token(view);
        ExpectSame(ClockText(view), Plain::Time(token), "the time of a token");
        ExpectSame(CodeOf(view), Plain::Number(token), "the number of a token");
        for (const int base : {0, 10, 16})
        {
            ExpectSame(VdCommon::WideToUnsigned(view, base), Plain::NarrowedNumber(token, base),
                       "the number of a narrowed token, base " + std::to_string(base));
        }
        std::wstring text = L"before";
        Unescape(view, text);
        ExpectSame(text, Plain::Unescaped(token), "the text of an escaped token");
        return (text != token) + 2 * (CodeOf(view) != 0) + 4 * (VdCommon::WideToUnsigned(view, 0) != CodeOf(view));
    }

    const LanguageFile m_language;
    PlainLog m_log;
};

const Registration<TokenReader>
    Token({.name = "tokens",
           .reads = "tokens of a line, escapes, numbers and times",
           .inputs = 15'000,
           .separators = L"|%",
           .words = L"%I %% % %x 2147483647 -2147483648 4294967295 0x 0x7fffffff \r\n \x00A0"
                    L"1 \x2003"
                    L"-1 "
                    L"\xFF10\xFF58"
                    L"1"});

} // namespace
