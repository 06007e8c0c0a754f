// The answer of the database library, as each class of log reads it.

#include "platform/dialog/OleDateTime.h"
#include "tests/fuzz/harness/LogHarness.h"
#include "tests/support/ProviderDouble.h"

namespace Fuzz
{

namespace
{

class ProviderReader : public LogReader
{
public:
    ProviderReader() : LogReader(true) {}

private:
    void Load(CZPTLogBase& log, const std::wstring&, std::wstring_view text) override
    {
        ProviderAnswer answer;
        bool isElsewhere = false; // every other line, however short it is
        for (const std::wstring& line : LinesOf(text))
        {
            isElsewhere ? answer.AddElsewhere(line, OrlInlineCapacity + line.size()) : answer.Add(line);
            isElsewhere = !isElsewhere;
        }
        ProviderDouble provider;
        provider.m_answer = answer.Address();
        log.m_pIDBManagerProvider = &provider;
        log.ReadLogDBMgr(COleDateTime(2026, 11, 21, 0, 0, 0));
        log.m_pIDBManagerProvider = nullptr;
    }

    // A line may have anything in it but the line feed at which the input is cut, and may be empty.
    std::vector<std::wstring> LinesOf(std::wstring_view text) const override
    {
        std::vector<std::wstring> lines;
        for (std::size_t feed = text.find(L'\n'); feed != text.npos; feed = text.find(L'\n'))
        {
            lines.emplace_back(text.substr(0, feed));
            text.remove_prefix(feed + 1);
        }
        lines.emplace_back(text);
        return lines;
    }
};

} // namespace

constinit const Harness ProviderHarness{.name = "provider",
                                        .reads = "records of every kind as the database library answers",
                                        .form = Form::Utf16,
                                        .inputs = 2'000,
                                        .separators = L"|\r\n",
                                        .words = LogWords,
                                        .make = &Make<ProviderReader>};

} // namespace Fuzz
