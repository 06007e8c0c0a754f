#include "framework/ui/kestrix/controls/RowSort.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace
{

using Rows = std::vector<ListRow>;
using Place = Rows::iterator;

constexpr std::size_t SampleSize = 512;          // rows that tell whether a column has few different texts
constexpr std::size_t FewInSample = 256;         // different ones among them at most, if it has
constexpr std::size_t MostGroups = 4096;         // texts beyond which looking them up no longer pays
constexpr std::ptrdiff_t ShortestRunToKeep = 16; // a shorter one is made longer, row by row

// The order of the callback: negative, zero or positive.
class RowOrder
{
public:
    RowOrder(PFNLVCOMPARE compare, LPARAM context) : m_pfnCompare(compare), m_context(context) {}

    int operator()(const ListRow& first, const ListRow& second) const
    {
        return m_pfnCompare(first.data, second.data, m_context);
    }

private:
    PFNLVCOMPARE m_pfnCompare;
    LPARAM m_context;
};

// The end of the run that begins at first. Rows in the opposite order are turned around, those that compare as equal
// among them twice.
Place TakeRun(Place first, Place last, const RowOrder& order)
{
    Place next = first;
    const auto goOn = [&] { return ++next == last ? 0 : order(*std::prev(next), *next); };
    int way = goOn();
    while (next != last && way == 0)
    {
        way = goOn();
    }
    if (way <= 0)
    {
        while (next != last && way <= 0)
        {
            way = goOn();
        }
        return next;
    }
    Place equals = first; // from here to next the rows compare as equal
    while (next != last && way >= 0)
    {
        if (way > 0)
        {
            std::reverse(equals, next);
            equals = next;
        }
        way = goOn();
    }
    std::reverse(equals, next);
    std::reverse(first, next);
    return next;
}

// Rows with the same text, found by one of them.
class RowGroups
{
public:
    explicit RowGroups(const RowOrder& order) : m_order(order) {}

    std::size_t Count() const { return m_groups.size(); }

    // The number of the row's group, which is made when the row is its first.
    std::uint16_t NumberOf(const ListRow& row)
    {
        auto low = m_groups.begin();
        auto high = m_groups.end();
        while (low != high)
        {
            const auto middle = low + (high - low) / 2;
            const int way = m_order(row, middle->example);
            if (way == 0)
            {
                return middle->number;
            }
            way < 0 ? high = middle : low = middle + 1;
        }
        return m_groups.insert(low, {row, static_cast<std::uint16_t>(m_groups.size())})->number;
    }

    // Where each group begins in the sorted rows, by its number.
    std::vector<std::size_t> Beginnings(const Rows& rows) const
    {
        std::vector<std::size_t> counts(Count());
        for (const ListRow& row : rows)
        {
            ++counts[row.group];
        }
        std::size_t place = 0;
        for (const Group& group : m_groups)
        {
            place += std::exchange(counts[group.number], place);
        }
        return counts;
    }

private:
    struct Group
    {
        ListRow example;
        std::uint16_t number;
    };

    const RowOrder& m_order;
    std::vector<Group> m_groups; // in their order
};

// False when there are too many different texts; the rows then stand as before.
bool SortByGroups(Rows& rows, const RowOrder& order)
{
    RowGroups groups(order);
    for (std::size_t i = 0; i < rows.size(); i += 1 + rows.size() / SampleSize)
    {
        groups.NumberOf(rows[i]);
    }
    if (groups.Count() > FewInSample)
    {
        return false;
    }
    for (ListRow& row : rows)
    {
        row.group = groups.NumberOf(row);
        if (groups.Count() > MostGroups)
        {
            return false;
        }
    }
    std::vector<std::size_t> places = groups.Beginnings(rows);
    Rows sorted(rows.size());
    for (const ListRow& row : rows)
    {
        sorted[places[row.group]++] = row;
    }
    rows.swap(sorted);
    return true;
}

// The ends of the runs that the rows now consist of.
std::vector<Place> MakeRuns(Rows& rows, const RowOrder& order)
{
    const auto isBefore = [&](const ListRow& first, const ListRow& second) { return order(first, second) < 0; };
    std::vector<Place> ends;
    for (Place first = rows.begin(); first != rows.end(); first = ends.back())
    {
        Place end = TakeRun(first, rows.end(), order);
        for (; end != rows.end() && end - first < ShortestRunToKeep; ++end)
        {
            std::rotate(std::upper_bound(first, end, *end, isBefore), end, std::next(end));
        }
        ends.push_back(end);
    }
    return ends;
}

// Merges two neighbouring runs to out and returns the end there.
Place MergeRuns(Place first, Place middle, Place last, Place out, const RowOrder& order)
{
    if (order(*std::prev(middle), *middle) <= 0)
    {
        return std::copy(first, last, out);
    }
    if (order(*first, *std::prev(last)) > 0)
    {
        return std::copy(first, middle, std::copy(middle, last, out));
    }
    return std::merge(first, middle, middle, last, out,
                      [&](const ListRow& row, const ListRow& other) { return order(row, other) < 0; });
}

void SortByMerging(Rows& rows, const RowOrder& order)
{
    std::vector<Place> ends = MakeRuns(rows, order);
    Rows merged(rows.size());
    while (ends.size() > 1)
    {
        std::vector<Place> mergedEnds;
        Place first = rows.begin();
        Place out = merged.begin();
        for (std::size_t i = 0; i < ends.size(); i += 2)
        {
            const Place last = ends[std::min(i + 1, ends.size() - 1)];
            out = last == ends[i] ? std::copy(first, last, out) : MergeRuns(first, ends[i], last, out, order);
            mergedEnds.push_back(out);
            first = last;
        }
        rows.swap(merged);
        ends.swap(mergedEnds);
    }
}

} // namespace

void SortRows(std::vector<ListRow>& rows, PFNLVCOMPARE compare, LPARAM context)
{
    const RowOrder order(compare, context);
    if (rows.empty() || TakeRun(rows.begin(), rows.end(), order) == rows.end() || SortByGroups(rows, order))
    {
        return;
    }
    SortByMerging(rows, order);
}
