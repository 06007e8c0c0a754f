#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"

// The log of the vulnerability check: which weakness was found, how grave it is, whether there is a fix and what to do.
// A line without a name says that a check found nothing.
class CZPTLogVA : public CZPTLogBase
{
public:
    explicit CZPTLogVA(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override;
};
