#include "suite/samples/Names.h"
#include "suite/samples/RecordSource.h"

namespace Samples
{

namespace
{

constexpr Card<std::wstring_view> CleanedThreats[] = {
    {3, L"Trojan.Lanternfish.A"},
    {2, L"Worm.Saltpan.B"},
    {2, L"Adware.Bannerbird"},
    {1, L"Hijacker.Startpage.Tumbleweed"},
};

// 0 failed, 1 done, 2 one that has no name.
constexpr Card<int> CleanupResults[] = {{2, 0}, {7, 1}, {1, 2}};

constexpr Card<std::wstring_view> CleanupDetails[] = {
    {4, L""},
    {3, L"3 files and 2 entries of the registry were removed"},
    {1, L"The file C:\\Windows\\System32\\drivers\\saltpan.sys is in use"},
    {1, L"Перезагрузите компьютер"},
};

class CleanupRecords : public RecordSource
{
public:
    explicit CleanupRecords(Random& random)
        : m_threats(CleanedThreats, random), m_results(CleanupResults, random), m_details(CleanupDetails, random)
    {
    }

    void Fill(const Moment& moment, Line& line) override
    {
        line.Day(moment.date).Time(moment.secondOfDay).Text(m_threats.Draw()).Number(m_results.Draw());
        const std::wstring_view detail = m_details.Draw();
        if (!detail.empty())
        {
            line.Text(detail); // a line of a file may lack it
        }
    }

private:
    Deck<std::wstring_view> m_threats;
    Deck<int> m_results;
    Deck<std::wstring_view> m_details;
};

// A weakness with its risk, from 0 none to 4 critical. The risk 7 has no name.
struct Weakness
{
    std::wstring_view name;
    int risk;
    std::wstring_view solution;
};

constexpr Card<Weakness> Weaknesses[] = {
    {1, {L"ADV-0142: picture viewer", 4, L"Install Picture Viewer 3.2.1"}},
    {1, {L"ADV-0155: print service", 3, L"https://www.example.org/advisories/0155"}},
    {1, {L"ADV-0160: archive tool", 2, L"Install the update of this month"}},
    {1, {L"ADV-0171: mail preview", 1, L""}},
    {1, {L"ADV-0174: заметки", 0, L"Keine Maßnahme nötig"}},
    {1, {L"ADV-0180: clock", 7, L""}},
    {1,
     {L"ADV-0183: mail server, which answers requests that are longer than it expects with parts of its memory, such "
      L"as "
      L"the names and the passwords of those who asked before, unless the lengths of requests are checked by a server "
      L"that stands before it, as the maker recommends",
      2, L"https://www.example.org/advisories/0183"}},
};

// What a check writes that finds nothing.
constexpr Weakness Nothing = {L"", 0, L""};

constexpr unsigned FilesPerNothing = 4;

// 0 to 2: a fix is there, is installed, is missing; 3 has no name.
constexpr Card<int> FixStates[] = {{4, 0}, {3, 1}, {2, 2}, {1, 3}};

class VulnerabilityRecords : public RecordSource
{
public:
    explicit VulnerabilityRecords(Random& random) : m_weaknesses(Weaknesses, random), m_fixStates(FixStates, random) {}

    void Fill(const Moment& moment, Line& line) override
    {
        const Weakness& weakness = FindsNothing(moment) ? Nothing : m_weaknesses.Draw();
        line.Day(moment.date).Time(moment.secondOfDay).Text(weakness.name).Number(weakness.risk);
        line.Number(m_fixStates.Draw()).Text(weakness.solution);
    }

private:
    // On a day without any other record, and at the end of every so many others.
    bool FindsNothing(const Moment& moment)
    {
        return moment.lastOfFile && (moment.firstOfFile || ++m_nFiles % FilesPerNothing == 0);
    }

    Deck<Weakness> m_weaknesses;
    Deck<int> m_fixStates;
    unsigned m_nFiles = 0;
};

} // namespace

std::unique_ptr<RecordSource> MakeCleanupRecords(Random& random)
{
    return std::make_unique<CleanupRecords>(random);
}

std::unique_ptr<RecordSource> MakeVulnerabilityRecords(Random& random)
{
    return std::make_unique<VulnerabilityRecords>(random);
}

} // namespace Samples
