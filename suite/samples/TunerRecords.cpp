#include "suite/samples/Names.h"
#include "suite/samples/RecordSource.h"

namespace Samples
{

namespace
{

// What the number or text at the end of a record is.
enum class Value
{
    Kilobytes,
    Entries,
    StartCommand,
    LastAccess,
};

// A function of the tuner, one of its steps, and what the record tells of it. The steps 9 and the function 6 have no
// name.
struct Step
{
    int type;
    int code;
    Value value;
    std::wstring_view text;
};

constexpr Card<Step> Steps[] = {
    {4, {0, 0, Value::Kilobytes, L""}},
    {4, {0, 1, Value::Kilobytes, L""}},
    {2, {0, 2, Value::Kilobytes, L"C:"}},
    {1, {0, 2, Value::Kilobytes, L"D:"}},
    {1, {0, 3, Value::Kilobytes, L""}},
    {2, {0, 4, Value::Kilobytes, L""}},
    {1, {0, 9, Value::Kilobytes, L""}},
    {1, {1, 0, Value::StartCommand, L"Weather bar"}},
    {1, {1, 0, Value::StartCommand, L"Помощник печати"}},
    {1, {1, 1, Value::StartCommand, L"Sync Helper"}},
    {1, {1, 9, Value::StartCommand, L"Sync Helper"}},
    {5, {2, 0, Value::Entries, L""}},
    {2, {3, 0, Value::LastAccess, L"Pinecone Browser"}},
    {1, {3, 1, Value::LastAccess, L"Pinecone Browser"}},
    {1, {3, 2, Value::LastAccess, L"Pinecone Browser"}},
    {1, {3, 3, Value::LastAccess, L""}},
    {1, {3, 9, Value::LastAccess, L""}},
    {5, {4, 0, Value::Entries, L"Pinecone Browser"}},
    {3, {5, 0, Value::Entries, L"Orchard Office"}},
    {1, {6, 0, Value::Entries, L""}},
};

constexpr Card<int> Statuses[] = {{9, 0}, {1, 1}};

// None, one and many, since their units differ.
constexpr Card<int> EntryCounts[] = {{1, 0}, {3, 1}, {2, 2}, {3, 17}, {2, 48}, {1, 260}};

// YYYY/MM/DD
std::wstring SlashedDate(Date date)
{
    std::wstring text = DateText(date);
    text.insert(6, L"/");
    text.insert(4, L"/");
    return text;
}

class TunerRecords : public RecordSource
{
public:
    explicit TunerRecords(Random& random)
        : m_random(random),
          m_names(random),
          m_steps(Steps, random),
          m_statuses(Statuses, random),
          m_entryCounts(EntryCounts, random)
    {
    }

    void Fill(const Moment& moment, Line& line) override
    {
        const Step& step = m_steps.Draw();
        line.Day(moment.date).Time(moment.secondOfDay).Number(step.type).Number(step.code);
        line.Number(m_statuses.Draw()).Text(step.text);
        AddValue(step.value, moment.date, line);
    }

private:
    void AddValue(Value value, Date date, Line& line)
    {
        switch (value)
        {
        case Value::Kilobytes:
            line.Number(12 + m_random.Below(480'000));
            break;
        case Value::Entries:
            line.Number(m_entryCounts.Draw());
            break;
        case Value::StartCommand:
            line.Text(m_names.Program());
            break;
        case Value::LastAccess:
            line.Text(SlashedDate(date - std::chrono::days(m_random.Below(60))));
            break;
        }
    }

    Random& m_random;
    Names m_names;
    Deck<Step> m_steps;
    Deck<int> m_statuses;
    Deck<int> m_entryCounts;
};

} // namespace

std::unique_ptr<RecordSource> MakeTunerRecords(Random& random)
{
    return std::make_unique<TunerRecords>(random);
}

} // namespace Samples
