#include "suite/samples/Names.h"
#include "suite/samples/RecordSource.h"
#include "suite/samples/UrlCategories.h"

namespace Samples
{

namespace
{

constexpr Card<std::wstring_view> Actions[] = {{6, L"Blocked"}, {2, L"Warned"}, {1, L"Reported"}};

// 0 by category, 1 by list, 2 one that has no name.
constexpr Card<int> Reasons[] = {{9, 0}, {4, 1}, {1, 2}};

// A key that the framework does not list.
constexpr UrlCategory Unlisted = {L"97", L""};

// What follows an address that is longer than a cell shows.
constexpr std::uint32_t LongPercent = 3;
constexpr std::wstring_view LongQuery =
    L"#campaign=2026-summer-sale-second-reminder&channel=newsletter&recipient=5f0c1d9a77b24e8c9d3e0a4b6c8f1e2d&target="
    L"https%3A%2F%2Fshop.example.com%2Foffers%2Fsummer%3Fpage%3D1%26sort%3Dprice&signature="
    L"9b1e7d2c4a6f8035b7c9e1d3f5a70"
    L"92b4d6f8a1c3e5072941b3d5f7a9c0e2f4d&previous=7d2c4a6f8035b7c9e1d3f5a7092b4d6f";

class UrlFilterRecords : public RecordSource
{
public:
    explicit UrlFilterRecords(Random& random)
        : m_random(random),
          m_names(random),
          m_actions(Actions, random),
          m_reasons(Reasons, random),
          m_categories(UrlCategories, random)
    {
    }

    void Fill(const Moment& moment, Line& line) override
    {
        const UrlCategory& category = m_random.Chance(6) ? Unlisted : m_categories.Draw();
        line.Day(moment.date).Time(moment.secondOfDay).Number(1).Text(L"1F").Text(m_actions.Draw());
        line.Number(m_reasons.Draw()).Escaped(Address()).Text(category.key);
    }

private:
    std::wstring Address()
    {
        std::wstring address(m_names.Page());
        if (m_random.Chance(8))
        {
            address += L"#tab=2|sort=50%";
        }
        else if (m_random.Chance(LongPercent))
        {
            address += LongQuery;
        }
        return address;
    }

    Random& m_random;
    Names m_names;
    Deck<std::wstring_view> m_actions;
    Deck<int> m_reasons;
    Deck<UrlCategory> m_categories;
};

// The kind 80 is met with two addresses, the other kinds with an address and a category.
constexpr std::wstring_view DangerousContent = L"80";
constexpr Card<std::wstring_view> PhishingKinds[] = {{3, DangerousContent}, {3, L"10"}, {2, L"1"}, {1, L"20"}};
// Phishing, dangerous, untested, and one without a name.
constexpr Card<std::wstring_view> PhishingCategories[] = {{6, L"01"}, {3, L"97"}, {2, L"99"}, {1, L"42"}};
constexpr Card<std::wstring_view> Levels[] = {{3, L"L1"}, {4, L"L2"}, {1, L"L0"}, {1, L"WR"}, {1, L""}, {1, L"L9"}};

class PhishingRecords : public RecordSource
{
public:
    explicit PhishingRecords(Random& random)
        : m_names(random),
          m_kinds(PhishingKinds, random),
          m_categories(PhishingCategories, random),
          m_levels(Levels, random)
    {
    }

    void Fill(const Moment& moment, Line& line) override
    {
        const std::wstring_view kind = m_kinds.Draw();
        line.Day(moment.date).Time(moment.secondOfDay).Number(1).Text(kind);
        if (kind == DangerousContent)
        {
            line.Text(m_names.Page()).Text(m_names.Page()).Empty();
        }
        else
        {
            line.Empty().Text(m_names.Page()).Text(m_categories.Draw());
        }
        line.Text(m_levels.Draw());
    }

private:
    Names m_names;
    Deck<std::wstring_view> m_kinds;
    Deck<std::wstring_view> m_categories;
    Deck<std::wstring_view> m_levels;
};

} // namespace

std::unique_ptr<RecordSource> MakeUrlFilterRecords(Random& random)
{
    return std::make_unique<UrlFilterRecords>(random);
}

std::unique_ptr<RecordSource> MakePhishingRecords(Random& random)
{
    return std::make_unique<PhishingRecords>(random);
}

} // namespace Samples
