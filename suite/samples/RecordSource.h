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

} // namespace Samples
