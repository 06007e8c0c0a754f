#pragma once

#include "framework/ui/kestrix/logs/ExportWriter.h"

#include <string>

// Writes into memory what would stand in an exported file.
class ExportText : public ExportWriter
{
public:
    ExportText() { Begin(); }

    // All that was written. The reference stays valid as long as the object.
    const std::wstring& Text()
    {
        WriteBlock();
        return m_strText;
    }

private:
    bool TakeBlock(std::wstring_view block) override
    {
        m_strText += block;
        return true;
    }

    std::wstring m_strText;
};
