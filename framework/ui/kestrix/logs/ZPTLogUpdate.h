#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"

// The log of update runs: which step ran or which component was updated, how it ended, and the versions before and
// after. A line has numbers only; ZPTLogUpdateCodes.h says what they mean.
class CZPTLogUpdate : public CZPTLogBase
{
public:
    explicit CZPTLogUpdate(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override;

    // What the result code of the line being parsed means as an error of the update engine, and as one of the product
    // around it.
    std::wstring_view LoadAuErrorMessage() const;
    std::wstring_view LoadProductErrorMessage() const;

private:
    void SetResult(LogRec& record);

    std::int32_t m_nUpdateGroup = 0; // of the line being parsed: the table that its event is looked up in
};
