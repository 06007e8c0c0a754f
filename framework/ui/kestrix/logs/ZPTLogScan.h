#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"

// The log of scan runs: when each was due, began and ended, what it came to, and the versions that it ran with.
class CZPTLogScan : public CZPTLogBase
{
public:
    explicit CZPTLogScan(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override;
};
