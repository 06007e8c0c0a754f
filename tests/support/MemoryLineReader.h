#pragma once

#include "framework/ui/kestrix/logs/LogLineReader.h"

#include <algorithm>
#include <limits>

// Reads lines from memory: what stands in a daily file after its byte order mark.
class MemoryLineReader : public LogLineReader
{
public:
    // The bytes must outlive the reading. No more of them than `most` come at once.
    bool Start(std::string_view bytes, std::size_t most = std::numeric_limits<std::size_t>::max())
    {
        m_rest = bytes;
        m_nMost = most;
        return Begin();
    }

private:
    std::size_t ReadBytes(char* to, std::size_t room) override
    {
        const std::size_t count = m_rest.copy(to, std::min(room, m_nMost));
        m_rest.remove_prefix(count);
        return count;
    }

    std::string_view m_rest;
    std::size_t m_nMost = 0;
};
