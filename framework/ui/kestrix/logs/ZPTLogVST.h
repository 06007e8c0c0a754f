#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"

// The log of suspicious changes: which program changed what on the system, what noticed it and what came of it.
class CZPTLogVST : public CZPTLogBase
{
public:
    explicit CZPTLogVST(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override;

    // Takes a token of the form of the behavior monitor, which no record of this log has.
    virtual void MakeRecodeMBD(std::size_t index, std::wstring_view token, LogRec& record);

protected:
    // The values of the record being parsed, texts cut as their writer's buffers are.
    std::uint32_t m_nSource = 0; // 0 between records
    std::uint32_t m_nSourceCode = 0;
    std::uint32_t m_nToken3 = 0;
    std::wstring m_szToken4;
    std::wstring m_szToken5;
    std::uint32_t m_nKind = 0;
    std::wstring m_szToken7;
    std::wstring m_szToken8;
    std::wstring m_szToken9;
    std::wstring m_szToken10;
    std::uint32_t m_nToken11 = 0;
    std::wstring m_szToken13;

private:
    void SetResult(std::wstring_view token, LogRec& record);
    void SetDetector(std::wstring_view token, LogRec& record);
};
