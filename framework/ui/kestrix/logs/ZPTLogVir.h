#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"

// The virus log: what was found, where, through which source, and what was done about it in one or two actions.
// A line comes in one of two forms, told apart by its source code: the proxy form of mail and web traffic, and the
// scan form. All codes become texts while a line is parsed.
class CZPTLogVir : public CZPTLogBase
{
public:
    explicit CZPTLogVir(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override;
    void MakeRecodeEOL(LogRec& record) override;
    bool SetListLog() override;

protected:
    std::size_t ColumnField(const LogRec& record, std::size_t column) const override;

private:
    static int CALLBACK CompareFuncUp(LPARAM first, LPARAM second, LPARAM column);
    static int CALLBACK CompareFuncDn(LPARAM first, LPARAM second, LPARAM column);

    void MakeRecodeProxy(std::size_t index, std::wstring_view token, LogRec& record);
    void MakeRecodeScan(std::size_t index, std::wstring_view token, LogRec& record);
    void SetAction1(std::wstring_view token);
    void SetResult2(std::wstring_view token);
    void SetDetail(std::wstring_view token);

    // The last token of a provider record. Not reset between records: a file record, which lacks the token, would show
    // that of a provider record before it.
    std::wstring m_strDetail;

    // The numbers of the record being parsed.
    std::uint32_t m_nToken4 = 0;
    std::uint32_t m_nToken5 = 0;
    std::uint32_t m_nAction1 = 0;
    std::uint32_t m_nResult1 = 0;
    std::uint32_t m_nAction2 = 0;
    std::uint32_t m_nResult2 = 0;
    std::uint32_t m_nSource = 0;

    // What the parser keeps from one token to the next, once for the whole process.
    static std::uint32_t s_nSource;
    static std::wstring s_strName;
    static std::wstring s_strText2;
    static std::wstring s_strText3;
};
