// Reading a daily file of each kind, beside a bare scan of the same file; for the virus log a reader with a heap block
// for each text is shown as well.

#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/logs/LogFileReader.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "platform/dialog/ResourceText.h"
#include "resource/resource.h"
#include "tests/bench/BareScan.h"
#include "tests/bench/Bench.h"
#include "tests/bench/BenchFile.h"
#include "tests/bench/Timing.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace
{

constexpr double VirusBudget = 5;
constexpr double Budget = 8; // of all other kinds

void ScanWholeFile(const std::wstring& path)
{
    const ScanResult scan = ScanFile(path);
    Require(scan.lines == BenchFile::Records && scan.longest <= LogFileReader::LongestLine, "the scan missed lines");
}

// The fields of a scan form record as texts of their own.
struct HeapRecord
{
    std::uint32_t nImage = 0;
    std::vector<std::wstring> strData;
};

using HeapRecords = std::vector<std::unique_ptr<HeapRecord>>;

void ReadWithHeapBlocks(const std::wstring& path, HeapRecords& records)
{
    LogFileReader reader;
    Require(reader.Open(path), "the file of the bench cannot be opened");
    std::wstring_view line;
    while (reader.NextLine(line))
    {
        std::vector<std::wstring> tokens;
        std::size_t start = 0;
        for (std::size_t end = line.find(L'|'); end != line.npos; end = line.find(L'|', start))
        {
            tokens.emplace_back(line.substr(start, end - start));
            start = end + 1;
        }
        tokens.emplace_back(line.substr(start));
        tokens.resize(12);
        auto record = std::make_unique<HeapRecord>();
        record->nImage = std::stoul(tokens[9]) == 1 ? 1 : 2;
        record->strData = {tokens[1].substr(0, 2) + L":" + tokens[1].substr(2, 2),
                           LoadText(IDS_SOURCE_REAL_TIME),
                           LoadText(IDS_TYPE_0),
                           tokens[6],
                           tokens[7],
                           LoadText(IDS_ACTION_QUARANTINED),
                           {}};
        records.push_back(std::move(record));
    }
}

Figure ReadKind(const LogKind& kind)
{
    const BenchFile file(kind.extension);
    const std::unique_ptr<CZPTLogBase> log = CreateLog(kind.type);
    log->m_bUseDBMgr = false;
    const std::vector<double> times = MedianTimes({
        {[&] { ScanWholeFile(file.Path()); }},
        {[&]
         { Require(log->ReadLogW(file.Path()) && log->GetLogCount() == BenchFile::Records, "the log missed records"); },
         [&] { log->ClearLog(); }},
    });
    return {"read: a million " + Narrow(kind.extension) + " records", times[1], "ms", times[0],
            kind.type == LogTypeVirus ? VirusBudget : Budget};
}

Figure ReadVirusRecordsWithHeapBlocks()
{
    const BenchFile file(L"VLG");
    HeapRecords records;
    const std::vector<double> times = MedianTimes({
        {[&] { ScanWholeFile(file.Path()); }},
        {[&] { ReadWithHeapBlocks(file.Path(), records); }, [&] { records.clear(); }},
    });
    return {"read: a million VLG records with a heap block for each text", times[1], "ms", times[0], {}};
}

} // namespace

Figures BenchRead()
{
    Figures figures;
    std::ranges::transform(LogKinds(), std::back_inserter(figures), ReadKind);
    figures.push_back(ReadVirusRecordsWithHeapBlocks());
    return figures;
}
