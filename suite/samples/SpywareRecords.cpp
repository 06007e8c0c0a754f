#include "suite/samples/DetailToken.h"
#include "suite/samples/Names.h"
#include "suite/samples/RecordSource.h"

namespace Samples
{

namespace
{

// Sources of the three record forms: mail in, mail out and web access; a program's behavior; the scans.
constexpr std::uint32_t MailIn = 1;
constexpr std::uint32_t WebAccess = 3;
constexpr std::uint32_t LastProxySource = WebAccess;
constexpr std::uint32_t Behavior = 0x10000000;
constexpr Card<std::uint32_t> Sources[] = {
    {1, MailIn}, {1, 2}, {3, WebAccess}, {5, Behavior}, {8, 0x100000}, {4, 0x100001}, {5, 0x100003}, {1, 0x100002},
};

struct Grayware
{
    std::wstring_view name;
    std::wstring_view type;
};

constexpr Card<Grayware> Finds[] = {
    {4, {L"Adware.Bannerbird", L"Adware"}},
    {4, {L"Cookie.Trailcrumb", L"Tracking cookie"}},
    {3, {L"Adware.Couponcricket.B", L"Adware"}},
    {2, {L"Spyware.Keyhole.C", L"Keylogger"}},
    {2, {L"Hijacker.Startpage.Tumbleweed", L"Browser hijacker"}},
    {1, {L"Dialer.Longwire", L"Dialer"}},
    {1, {L"Riskware.Remotehand", L"Remote access tool"}},
    {1, {L"UNKNOWN", L""}},
};

// Result of a scan: 1 detected, 2 removed, 3 refused, 5 one without a name.
constexpr Card<int> ScanResults[] = {{4, 1}, {10, 2}, {3, 3}, {1, 5}};

struct ProxyOutcome
{
    int action, result;
};

// Actions: 0 none, 3 clean, 4 delete, 101 refused, 201 dropped, 9 one that the viewer does not know.
constexpr Card<ProxyOutcome> ProxyOutcomes[] = {
    {1, {0, 0}},   {2, {3, 1}},   {1, {3, 0}},   {3, {4, 1}},   {1, {4, 0}},
    {3, {101, 1}}, {1, {101, 0}}, {2, {201, 1}}, {1, {201, 0}}, {1, {9, 0}},
};

// What a program did; the last one has no name.
constexpr Card<int> BehaviorKinds[] = {{2, 1}, {2, 2}, {3, 4}, {1, 8}, {2, 16}, {1, 32}, {1, 64}, {1, 128}};

// How many targets it had: 0 none, 1 the one named in the text, 2 several, 3 not known.
struct Target
{
    int count;
    std::wstring_view text;
};

constexpr Card<Target> Targets[] = {
    {2, {0, L""}},
    {3, {1, L"HKLM\\Software\\Orchard Office\\Start"}},
    {2, {1, L"C:\\Windows\\System32\\drivers\\etc\\hosts"}},
    {1, {1, L""}},
    {1, {2, L""}},
    {1, {3, L""}},
};

// 1 blocked, 2 allowed, 4 logged only, 0 not known.
constexpr Card<int> BehaviorResults[] = {{5, 1}, {3, 2}, {2, 4}, {1, 0}};

constexpr std::wstring_view Rules[] = {L"Startup guard", L"Hosts file guard", L"Driver guard", L"Browser guard"};

constexpr Card<std::wstring_view> ScanDetails[] = {
    {5, L""},
    {2, L"Pattern 1.187"},
    {2, L"Found in an archive"},
    {1, L"Found again after an earlier removal"},
};

// Every so many files one ends with a scan line that lacks its last token, as an interrupted writer leaves it.
constexpr unsigned FilesPerOpenEnd = 10;

// Every so many scan lines one has the file in its folder's token as well, as some scanners write it.
constexpr std::int64_t LinesPerWholePath = 5;

class SpywareRecords : public RecordSource
{
public:
    explicit SpywareRecords(Random& random)
        : m_names(random),
          m_sources(Sources, random),
          m_finds(Finds, random),
          m_scanResults(ScanResults, random),
          m_scanDetails(ScanDetails, random),
          m_proxyOutcomes(ProxyOutcomes, random),
          m_behaviorKinds(BehaviorKinds, random),
          m_targets(Targets, random),
          m_behaviorResults(BehaviorResults, random),
          m_rules(Rules, random)
    {
    }

    void Fill(const Moment& moment, Line& line) override
    {
        m_detail.Begin(moment);
        const bool openEnd = moment.lastOfFile && ++m_nFiles % FilesPerOpenEnd == 0;
        const std::uint32_t source = openEnd ? 0x100000 : m_sources.Draw();
        line.Day(moment.date).Time(moment.secondOfDay);
        AddSource(source, line);
        if (source == Behavior)
        {
            FillBehavior(line);
        }
        else if (source <= LastProxySource)
        {
            FillProxy(source, line);
        }
        else
        {
            FillScan(line);
            if (!openEnd)
            {
                m_detail.Add(m_scanDetails.Draw(), line);
            }
        }
    }

private:
    // Writers differ in how they put the number; the reader takes both.
    void AddSource(std::uint32_t source, Line& line)
    {
        m_bHexadecimal = !m_bHexadecimal;
        if (m_bHexadecimal && source > LastProxySource)
        {
            line.Hexadecimal(source);
        }
        else
        {
            line.Number(source);
        }
    }

    void FillScan(Line& line)
    {
        const Grayware& find = m_finds.Draw();
        const std::wstring_view file = m_names.File();
        const std::wstring_view folder = m_names.Folder();
        const bool isWholePath = m_nScan % LinesPerWholePath == 0;
        line.Number(m_nScan += 1).Empty().Text(file);
        line.Text(isWholePath ? std::wstring(folder) + L'\\' + std::wstring(file) : std::wstring(folder));
        line.Escaped(m_names.Page()).Empty().Number(0).Text(find.name).Number(1);
        line.Number(m_scanResults.Draw()).Text(find.type);
    }

    void FillProxy(std::uint32_t source, Line& line)
    {
        line.Number(0).Text(m_finds.Draw().name);
        if (source == WebAccess)
        {
            line.Text(m_names.Page()).Empty();
        }
        else
        {
            line.Text(m_names.File()).Text(m_names.Mailbox());
        }
        const ProxyOutcome& outcome = m_proxyOutcomes.Draw();
        line.Number(outcome.action).Number(outcome.result);
        m_detail.AddIfNeeded(L"", line);
    }

    void FillBehavior(Line& line)
    {
        const Target& target = m_targets.Draw();
        line.Empty().Number(m_behaviorKinds.Draw()).Empty().Empty().Empty().Text(m_names.Program());
        line.Number(target.count).Empty().Text(target.text).Number(m_behaviorResults.Draw()).Empty().Empty();
        m_detail.Add(m_rules.Draw(), line); // by which the reader knows that the record has ended
    }

    Names m_names;
    Deck<std::uint32_t> m_sources;
    Deck<Grayware> m_finds;
    Deck<int> m_scanResults;
    Deck<std::wstring_view> m_scanDetails;
    Deck<ProxyOutcome> m_proxyOutcomes;
    Deck<int> m_behaviorKinds;
    Deck<Target> m_targets;
    Deck<int> m_behaviorResults;
    Deck<std::wstring_view> m_rules;
    std::int64_t m_nScan = 700;
    unsigned m_nFiles = 0;
    bool m_bHexadecimal = false;
    DetailToken m_detail;
};

} // namespace

std::unique_ptr<RecordSource> MakeSpywareRecords(Random& random)
{
    return std::make_unique<SpywareRecords>(random);
}

} // namespace Samples
