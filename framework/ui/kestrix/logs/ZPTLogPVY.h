#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"

// The privacy log: which protected data was met, where, and whether it was let through. A mail is told by two tokens,
// which become one text.
class CZPTLogPVY : public CZPTLogBase
{
public:
    explicit CZPTLogPVY(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override;

private:
    void SetResult(std::wstring_view token, LogRec& record);
    void SetItem(std::wstring_view token, LogRec& record);
    void SetPlace(std::wstring_view token, LogRec& record);

    std::wstring m_strPlain; // the decoded token; kept for its room
};
