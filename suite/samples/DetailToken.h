#pragma once

#include "suite/samples/RecordSource.h"

#include <string_view>

namespace Samples
{

// The last token of a record, its detail, which a line of a daily file may lack. The reader keeps the detail that it
// has read last for the lines that lack theirs, and may still hold that of a file it read before.
class DetailToken
{
public:
    // Before each record.
    void Begin(const Moment& moment) { m_bLeft = m_bLeft || moment.firstOfFile; }

    void Add(std::wstring_view detail, Line& line)
    {
        line.Text(detail);
        m_bLeft = !detail.empty();
    }

    // Leaves an empty one out, unless the reader would show another one then.
    void AddIfNeeded(std::wstring_view detail, Line& line)
    {
        if (m_bLeft || !detail.empty())
        {
            Add(detail, line);
        }
    }

private:
    bool m_bLeft = true;
};

} // namespace Samples
