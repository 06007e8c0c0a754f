#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"

// The log of the system cleanup: which threat's traces were removed, and whether that worked.
class CZPTLogTSC : public CZPTLogBase
{
public:
    explicit CZPTLogTSC(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override;
};
