#pragma once

#include "suite/samples/Line.h"
#include "suite/samples/Random.h"

#include <memory>

namespace Samples
{

// When a record is written.
struct Moment
{
    Date date;
    int secondOfDay;
    bool firstOfFile;
    bool lastOfFile;
};

// Makes up the records of one log kind, one after the other, from the oldest to the newest.
class RecordSource
{
public:
    virtual ~RecordSource() = default;

    // Puts the fields of the next record into the empty line.
    virtual void Fill(const Moment& moment, Line& line) = 0;
};

// The sources of the kinds. Each keeps `random`, which must outlive it.
std::unique_ptr<RecordSource> MakeVirusRecords(Random& random);
std::unique_ptr<RecordSource> MakeUpdateRecords(Random& random);
std::unique_ptr<RecordSource> MakeUrlFilterRecords(Random& random);
std::unique_ptr<RecordSource> MakeFirewallRecords(Random& random);
std::unique_ptr<RecordSource> MakeCleanupRecords(Random& random);
std::unique_ptr<RecordSource> MakePrivacyRecords(Random& random);
std::unique_ptr<RecordSource> MakePhishingRecords(Random& random);
std::unique_ptr<RecordSource> MakeVulnerabilityRecords(Random& random);
std::unique_ptr<RecordSource> MakeSpywareRecords(Random& random);
std::unique_ptr<RecordSource> MakeChangeRecords(Random& random);
std::unique_ptr<RecordSource> MakeTunerRecords(Random& random);
std::unique_ptr<RecordSource> MakeScanRecords(Random& random);
std::unique_ptr<RecordSource> MakeSkippedTaskRecords(Random& random);

} // namespace Samples
