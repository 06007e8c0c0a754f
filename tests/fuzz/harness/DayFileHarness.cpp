// Daily files on the disk, as each class of log reads them.

#include "tests/fuzz/harness/LogHarness.h"
#include "tests/unit/framework/ui/kestrix/logs/reference/PlainLines.h"

namespace Fuzz
{

namespace
{

class DayFileReader : public LogReader
{
public:
    DayFileReader() : LogReader(false) {}

private:
    void Load(CZPTLogBase& log, const std::wstring& extension, std::wstring_view text) override
    {
        const std::wstring path = m_folder.File(L"20261121." + extension);
        WriteUtf16(path, text);
        Expect(log.ReadLogW(path), "the file cannot be read");
    }

    std::vector<std::wstring> LinesOf(std::wstring_view text) const override { return Plain::Lines(text); }

    const TemporaryFolder m_folder;
};

} // namespace

constinit const Harness DayFileHarness{.name = "dayfile",
                                       .reads = "daily files of every kind: records, order of columns, export",
                                       .form = Form::Utf16,
                                       .inputs = 2'000,
                                       .separators = L"|\r\n",
                                       .words = LogWords,
                                       .make = &Make<DayFileReader>};

} // namespace Fuzz
