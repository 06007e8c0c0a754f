#include "suite/samples/Names.h"
#include "suite/samples/RecordSource.h"

#include <map>
#include <utility>

namespace Samples
{

namespace
{

// A step or a component of an update run. The last one has no name.
struct Event
{
    std::int32_t group;
    std::int32_t code;
};

constexpr Card<Event> Events[] = {
    {3, {1, 200}},        {4, {2, 201}},        {1, {2, 202}},        {1, {2, 203}},        {1, {2, 221}},
    {1, {3, 204}},        {1, {3, 205}},        {1, {3, 206}},        {3, {3, 207}},        {1, {3, 208}},
    {1, {4, 164}},        {1, {4, 169}},        {1, {4, 209}},        {1, {4, 210}},        {1, {4, 211}},
    {1, {4, 212}},        {1, {4, 213}},        {1, {4, 214}},        {1, {4, 215}},        {1, {4, 216}},
    {1, {4, 217}},        {1, {4, 218}},        {1, {4, 219}},        {1, {4, 220}},        {1, {5, 4}},
    {3, {5, 16}},         {2, {5, 4096}},       {1, {5, 0x14000000}}, {1, {5, 0x20000100}}, {1, {5, 0x21000800}},
    {1, {5, 0x21001000}}, {1, {5, 0x21080000}}, {1, {5, 0x21100000}}, {1, {5, 0x22000010}}, {1, {5, 0x22000020}},
    {1, {5, 0x22000040}}, {1, {5, 0x22000080}}, {1, {5, 0x22000100}}, {1, {5, 0x22000200}}, {1, {5, 0x22400000}},
    {1, {5, 0x24080000}}, {1, {5, 0x24100000}}, {1, {5, 0x24200000}}, {1, {5, 0x24400000}}, {1, {5, 0x24800000}},
    {1, {5, 0x28000000}}, {1, {5, 0x28088000}}, {1, {5, 0x28100000}}, {1, {5, 0x28200000}}, {1, {5, 0x28400000}},
    {1, {5, 0x28800004}}, {1, {5, 0x28800008}}, {14, {6, 4}},         {1, {6, 512}},        {4, {6, 2048}},
    {1, {6, 0x80000}},    {1, {6, 0x100000}},   {1, {6, 0x20000001}}, {8, {6, 0x20000020}}, {1, {6, 0x20000040}},
    {1, {6, 0x20000400}}, {1, {6, 0x20008000}}, {6, {6, 0x40000010}}, {1, {6, 0x40000020}}, {1, {6, 0x40000040}},
    {6, {6, 0x40000080}}, {4, {6, 0x40000100}}, {1, {6, 0x40000200}}, {1, {6, 0x40000400}}, {1, {6, 0x40000800}},
    {1, {6, 0x40001000}}, {1, {6, 0x40002000}}, {1, {6, 0x40004000}}, {1, {6, 0x40008000}}, {1, {6, 0x40010000}},
    {4, {6, 0x40020000}}, {1, {6, 0x40040000}}, {1, {6, 0x40080000}}, {1, {6, 0x40100000}}, {1, {6, 0x40200000}},
    {1, {6, 0x40400000}}, {1, {6, 0x40800000}}, {1, {6, 0x41000000}}, {1, {6, 0x48000000}}, {1, {6, 0x48000001}},
    {1, {6, 0x48000002}}, {1, {6, 0x48000100}}, {1, {6, 0x48000800}}, {1, {6, 0x48001000}}, {1, {6, 0x48040002}},
    {1, {6, 0x48040003}}, {1, {6, 0x48040004}}, {1, {6, 0x48040005}}, {1, {6, 0x48040006}}, {1, {6, 0x48040007}},
    {1, {6, 0x48040008}}, {1, {6, 0x48040009}}, {1, {6, 0x48040010}}, {1, {6, 0x48040011}}, {1, {6, 0x48040012}},
    {1, {6, 0x48040013}}, {1, {6, 0x48040014}}, {1, {6, 0x48040015}}, {1, {6, 0x48040017}}, {1, {6, 0x48040018}},
    {1, {6, 0x48040019}}, {1, {6, 0x48040020}}, {1, {6, 0x48040022}}, {1, {6, 0x48040023}}, {1, {7, 223}},
    {1, {7, 224}},        {1, {7, 225}},        {1, {8, 166}},        {1, {8, 168}},        {1, {8, 227}},
    {1, {8, 232}},        {1, {7, 226}},
};

// How it ended. Kinds: 1 updated, 2 already up to date, 3 failed, 11 failed in the update engine and 13 around it,
// 5 one that the viewer does not know. The codes of the engine's own layers have the sign bit set.
struct Result
{
    std::int32_t kind;
    std::uint32_t code;
};

constexpr int Updated = 1;
constexpr int UpToDate = 2;
constexpr Card<Result> Results[] = {
    {110, {1, 0}},         {50, {2, 0}},          {5, {3, 0}},           {1, {11, 16}},         {1, {11, 58}},
    {1, {11, 28}},         {1, {11, 47}},         {1, {11, 48}},         {1, {11, 55}},         {1, {11, 56}},
    {1, {11, 59}},         {1, {11, 1000001}},    {1, {11, 2}},          {1, {11, 1000002}},    {1, {11, 0}},
    {1, {11, 1}},          {1, {11, 4}},          {1, {11, 5}},          {1, {11, 6}},          {1, {11, 10}},
    {1, {11, 25}},         {1, {11, 49}},         {1, {11, 0xC3000002}}, {1, {11, 0xC0110002}}, {1, {11, 0xC0110003}},
    {1, {11, 0xC0110004}}, {1, {11, 0xC0170002}}, {1, {11, 0xC0170003}}, {1, {11, 0xC0170004}}, {1, {11, 0xC0170005}},
    {1, {11, 0xC0170006}}, {1, {11, 0xC2000003}}, {1, {11, 0xC3000001}}, {1, {11, 0xC2000001}}, {1, {11, 0xC2000002}},
    {1, {11, 0xC0010000}}, {1, {11, 0xC0010002}}, {1, {11, 0xC0010003}}, {1, {11, 0xC0010004}}, {1, {11, 0xC0010005}},
    {1, {11, 0xC0010006}}, {1, {11, 0xC0010007}}, {1, {11, 0xC0010008}}, {1, {11, 0xC0010009}}, {1, {11, 0xC001000A}},
    {1, {11, 0xC0020004}}, {1, {11, 0xC0020005}}, {1, {11, 0xC1000001}}, {1, {11, 0xC3000003}}, {1, {11, 0xC3000004}},
    {1, {11, 0xC0FFEE00}}, {1, {13, 0}},          {1, {13, 1}},          {1, {13, 2}},          {1, {13, 3}},
    {1, {5, 0}},
};

constexpr Result Done = {Updated, 0};

// Groups 1 to 3 are the steps of a run, 7 those of the licence.
bool IsStep(const Event& event)
{
    return event.group <= 3 || event.group == 7;
}

class UpdateRecords : public RecordSource
{
public:
    explicit UpdateRecords(Random& random) : m_events(Events, random), m_results(Results, random) {}

    void Fill(const Moment& moment, Line& line) override
    {
        const Event& event = m_events.Draw();
        const Result& drawn = m_results.Draw();
        // A step of the run is done or fails; a component alone can be up to date.
        const Result& result = drawn.kind == UpToDate && IsStep(event) ? Done : drawn;
        line.Day(moment.date).Time(moment.secondOfDay).Number(event.group).Number(event.code);
        line.Number(result.kind).Number(static_cast<std::int32_t>(result.code));
        AddVersions(event, result.kind, line);
    }

private:
    // The version before, and the one after if there is one.
    void AddVersions(const Event& event, int kind, Line& line)
    {
        unsigned& updates = m_mapUpdates[{event.group, event.code}];
        const unsigned major = 1 + static_cast<unsigned>(event.group);
        const unsigned minor = static_cast<unsigned>(event.code) % 97;
        line.Text(VersionText(major, minor, 100 + updates));
        if (kind == Updated)
        {
            ++updates;
        }
        if (kind == Updated || kind == UpToDate)
        {
            line.Text(VersionText(major, minor, 100 + updates));
        }
        else
        {
            line.Empty();
        }
    }

    Deck<Event> m_events;
    Deck<Result> m_results;
    std::map<std::pair<std::int32_t, std::int32_t>, unsigned> m_mapUpdates;
};

} // namespace

std::unique_ptr<RecordSource> MakeUpdateRecords(Random& random)
{
    return std::make_unique<UpdateRecords>(random);
}

} // namespace Samples
