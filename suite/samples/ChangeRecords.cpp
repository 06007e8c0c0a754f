#include "suite/samples/Names.h"
#include "suite/samples/RecordSource.h"

namespace Samples
{

namespace
{

constexpr Card<std::uint32_t> Sources[] = {{4, 0x10000000}, {1, 0x100000}};

// What kind of thing was changed and which one. The kind 3 has no name.
struct Change
{
    int kind;
    std::wstring_view item;
    std::wstring_view name;
};

constexpr Card<Change> Changes[] = {
    {2, {1, L"Memory of pinecone.exe", L"Code put into another program"}},
    {3, {2, L"HKCU\\Software\\Orchard Office\\Run\\Helper", L"New startup entry"}},
    {2, {2, L"C:\\Users\\maria\\AppData\\Roaming\\Startup\\weather.lnk", L"New startup entry"}},
    {2, {4, L"C:\\Windows\\System32\\drivers\\etc\\hosts", L"Host name redirected"}},
    {2, {8, L"C:\\Windows\\System32\\keyinput64.sys", L"System file replaced"}},
    {2, {16, L"Pinecone Browser, add-on \"Coupon Cricket\"", L"Add-on installed"}},
    {2, {32, L"Security level of the local network", L"Setting lowered"}},
    {1, {64, L"C:\\Program Files\\Tinker Box\\hooks.dll", L"Library added to all programs"}},
    {1, {3, L"", L""}},
    {1,
     {2,
      L"HKLM\\Software\\Orchard Office\\Settings of all users of this computer\\Templates of letters, invoices and "
      L"delivery notes\\Third edition, with the corrections of the second one and the additions that the customers "
      L"have "
      L"asked for\\Programs that are started when a template is opened for the first time\\Before the template is "
      L"shown\\In the order of their names, unless an order is given\\Entry that was made by the program of the setup",
      L"New startup entry"}},
};

// 0 allowed, 1 logged only, 2 blocked, 3 stopped, 9 not known.
constexpr Card<int> Results[] = {{5, 0}, {3, 1}, {8, 2}, {2, 3}, {1, 9}};

constexpr Card<std::wstring_view> Detectors[] = {
    {3, L"__ZPT_SELF_PROTECT__"},
    {3, L"__ZPT_USER_DEFINED__"},
    {6, L"Behavior rules 2.114"},
    {1, L""},
};

class ChangeRecords : public RecordSource
{
public:
    explicit ChangeRecords(Random& random)
        : m_names(random),
          m_sources(Sources, random),
          m_changes(Changes, random),
          m_results(Results, random),
          m_detectors(Detectors, random)
    {
    }

    void Fill(const Moment& moment, Line& line) override
    {
        const Change& change = m_changes.Draw();
        line.Day(moment.date).Time(moment.secondOfDay).Hexadecimal(m_sources.Draw()).Number(m_nEvent += 1);
        line.Empty().Text(m_names.Program()).Number(change.kind).Text(change.item);
        line.Escaped(m_names.Attachment()).Empty().Text(change.name).Number(0);
        line.Number(m_results.Draw()).Text(m_detectors.Draw());
    }

private:
    Names m_names;
    Deck<std::uint32_t> m_sources;
    Deck<Change> m_changes;
    Deck<int> m_results;
    Deck<std::wstring_view> m_detectors;
    std::int64_t m_nEvent = 0;
};

} // namespace

std::unique_ptr<RecordSource> MakeChangeRecords(Random& random)
{
    return std::make_unique<ChangeRecords>(random);
}

} // namespace Samples
