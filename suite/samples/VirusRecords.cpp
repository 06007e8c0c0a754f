#include "suite/samples/DetailToken.h"
#include "suite/samples/Names.h"
#include "suite/samples/RecordSource.h"

namespace Samples
{

namespace
{

// Sources of the two record forms: mail in, mail out and web access; then real-time, manual and planned scan,
// and one that has no name.
constexpr std::uint32_t WebAccess = 3;
constexpr std::uint32_t LastProxySource = WebAccess;
constexpr Card<std::uint32_t> Sources[] = {
    {2, 1}, {1, 2}, {3, WebAccess}, {14, 0x100000}, {5, 0x100001}, {6, 0x100003}, {1, 0x100002},
};

constexpr Card<std::wstring_view> Threats[] = {
    {4, L"Trojan.Lanternfish.A"}, {3, L"Trojan.Lanternfish.C"},
    {3, L"Worm.Saltpan.B"},       {2, L"Downloader.Pebbledash.gen"},
    {2, L"Macro.Inkwell.D"},      {2, L"Script.Thistledown.AB"},
    {1, L"Boot.Cellardoor"},      {1, L"Dropper.Marrowgate.K"},
    {1, L"Test.Harmless.Sample"}, {1, L"UNKNOWN"},
};

// What was met, in the scan form: 0 a file, 1 a boot sector, 2 and 4 a part of an archive and of a running process.
constexpr std::int64_t BootSector = 1;
constexpr Card<std::int64_t> Objects[] = {{16, 0}, {1, BootSector}, {2, 2}, {1, 4}};

// First action with its result, then the second one, which counts where the first is 2 or 3 and failed.
// Actions: 0 none, 1 rename, 2 quarantine, 3 clean, 4 delete, 25 and 99 none on purpose, 101 a refused access,
// 7 one that the viewer does not know.
struct Outcome
{
    int action1, result1, action2, result2;
};

constexpr Card<Outcome> Outcomes[] = {
    {8, {3, 1, 0, 0}},   {7, {2, 1, 0, 0}}, {4, {4, 1, 0, 0}},   {2, {1, 1, 0, 0}},   {3, {101, 1, 0, 0}},
    {2, {0, 0, 0, 0}},   {1, {1, 0, 0, 0}}, {1, {4, 0, 0, 0}},   {1, {25, 1, 0, 0}},  {1, {99, 0, 0, 0}},
    {1, {101, 0, 0, 0}}, {1, {7, 0, 0, 0}}, {1, {2, 0, 0, 0}},   {1, {2, 0, 1, 1}},   {1, {2, 0, 1, 0}},
    {1, {2, 0, 4, 1}},   {1, {2, 0, 4, 0}}, {1, {2, 0, 101, 1}}, {1, {3, 0, 101, 0}}, {3, {3, 0, 2, 1}},
    {1, {3, 0, 2, 0}},   {1, {3, 0, 0, 0}}, {1, {3, 0, 3, 0}},
};

constexpr Card<std::wstring_view> Details[] = {
    {60, L""},
    {2, L"Found in an archive"},
    {1, L"The file is in use"},
    {1, L"Le support est protégé"},
};

class VirusRecords : public RecordSource
{
public:
    explicit VirusRecords(Random& random)
        : m_names(random),
          m_sources(Sources, random),
          m_threats(Threats, random),
          m_objects(Objects, random),
          m_outcomes(Outcomes, random),
          m_details(Details, random)
    {
    }

    void Fill(const Moment& moment, Line& line) override
    {
        m_detail.Begin(moment);
        const std::uint32_t source = m_sources.Draw();
        line.Day(moment.date).Time(moment.secondOfDay).Number(source).Empty();
        if (source <= LastProxySource)
        {
            FillProxy(source, line);
        }
        else
        {
            FillScan(line);
        }
        const Outcome& outcome = m_outcomes.Draw();
        line.Number(outcome.action1).Number(outcome.result1).Number(outcome.action2).Number(outcome.result2);
        m_detail.AddIfNeeded(m_details.Draw(), line);
    }

private:
    void FillProxy(std::uint32_t source, Line& line)
    {
        line.Text(m_threats.Draw());
        if (source == WebAccess)
        {
            line.Escaped(m_names.File()).Escaped(m_names.Page());
        }
        else
        {
            line.Escaped(m_names.Attachment()).Escaped(m_names.Subject());
        }
    }

    void FillScan(Line& line)
    {
        const std::int64_t object = m_objects.Draw();
        line.Number(m_nScan += 1).Number(object).Text(m_threats.Draw());
        if (object == BootSector)
        {
            line.Text(L"E:\\");
        }
        else
        {
            line.Text(m_names.Path());
        }
    }

    Names m_names;
    Deck<std::uint32_t> m_sources;
    Deck<std::wstring_view> m_threats;
    Deck<std::int64_t> m_objects;
    Deck<Outcome> m_outcomes;
    Deck<std::wstring_view> m_details;
    DetailToken m_detail;
    std::int64_t m_nScan = 4100;
};

} // namespace

std::unique_ptr<RecordSource> MakeVirusRecords(Random& random)
{
    return std::make_unique<VirusRecords>(random);
}

} // namespace Samples
