#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"

// The log of tasks that were due and were skipped, with the reason.
class CZPTLogSkipTask : public CZPTLogBase
{
public:
    explicit CZPTLogSkipTask(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override;
};
