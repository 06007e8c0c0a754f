#include "suite/samples/Names.h"
#include "suite/samples/RecordSource.h"

namespace Samples
{

namespace
{

// Kind 2 is a mail, told by its subject and its receiver; 1 is a web page, 3 a chat.
constexpr int Mail = 2;
constexpr Card<int> Kinds[] = {{5, 1}, {4, Mail}, {1, 3}};

constexpr Card<std::wstring_view> Subjects[] = {
    {4, L"Card number"},     {3, L"Home address"},    {2, L"Telephone number"},
    {1, L"Пароль от почты"}, {1, L"Numéro d'assuré"},
};

// 0 allowed, 101 blocked, 5 one that has no name.
constexpr Card<int> Results[] = {{3, 0}, {8, 101}, {1, 5}};

class PrivacyRecords : public RecordSource
{
public:
    explicit PrivacyRecords(Random& random)
        : m_names(random), m_kinds(Kinds, random), m_subjects(Subjects, random), m_results(Results, random)
    {
    }

    void Fill(const Moment& moment, Line& line) override
    {
        const int kind = m_kinds.Draw();
        line.Day(moment.date).Time(moment.secondOfDay).Number(kind).Empty();
        line.Text(m_subjects.Draw()).Number(m_results.Draw());
        if (kind == Mail)
        {
            line.Escaped(m_names.Subject()).Escaped(m_names.Mailbox());
        }
        else
        {
            line.Escaped(m_names.Page()).Empty();
        }
    }

private:
    Names m_names;
    Deck<int> m_kinds;
    Deck<std::wstring_view> m_subjects;
    Deck<int> m_results;
};

} // namespace

std::unique_ptr<RecordSource> MakePrivacyRecords(Random& random)
{
    return std::make_unique<PrivacyRecords>(random);
}

} // namespace Samples
