#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"
#include "resource/resource.h"

#include <array>
#include <cstddef>

// A log that keeps every token as a field, as the base does, shows the fields in its columns, and takes a line for
// valid from a number of tokens on.
class PlainLog : public CZPTLogBase
{
public:
    explicit PlainLog(std::size_t columns = 0, std::size_t tokensNeeded = 1, std::uint32_t type = LogTypeVirus,
                      std::pmr::memory_resource* memory = std::pmr::new_delete_resource())
        : CZPTLogBase(memory), m_nTokensNeeded(tokensNeeded)
    {
        static constexpr std::array<LogColumn, 6> allColumns = {{{IDS_COLUMN_TIME, 100, 0, 0},
                                                                 {IDS_COLUMN_RESULT, 150, 1, 1},
                                                                 {IDS_COLUMN_THREAT, 125, 2, 2},
                                                                 {IDS_EXPORT_TIME, 40, 3, 3},
                                                                 {IDS_EXPORT_SOURCE, 50, 4, 4},
                                                                 {IDS_EXPORT_TYPE, 60, 5, 5}}};
        m_layout.type = type;
        m_layout.columns = std::span(allColumns).first(columns);
        Setup(m_layout);
    }

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override
    {
        const bool done = m_bRecordDone || index + 1 >= m_nTokensNeeded;
        CZPTLogBase::MakeRecode(index, token, record);
        m_bRecordDone = done;
    }

    using CZPTLogBase::m_arrColumn;
    using CZPTLogBase::m_arrColumnWidth;
    using CZPTLogBase::m_arrInfoLabel;
    using CZPTLogBase::m_arrInfoVisible;
    using CZPTLogBase::m_arrTitle;
    using CZPTLogBase::m_bRecordDone;
    using CZPTLogBase::m_nInfoTextLimit;
    using CZPTLogBase::m_nLogType;
    using CZPTLogBase::m_strExt;

protected:
    LogLayout m_layout{.type = LogTypeNone};

private:
    std::size_t m_nTokensNeeded;
};
