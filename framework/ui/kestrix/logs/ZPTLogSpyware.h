#pragma once

#include "framework/ui/kestrix/logs/ZPTLogBase.h"

// The spyware log. Producers of three kinds write lines of three forms into it: the behavior monitor, the proxies of
// mail and web traffic, and the scanners. The source in token 2 says which form the rest of the line has.
class CZPTLogSpyware : public CZPTLogBase
{
public:
    explicit CZPTLogSpyware(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());

    // Hands the token to the form of the source that is known before it, so that a source which a line left there takes
    // the first tokens of the next line as well.
    void MakeRecode(std::size_t index, std::wstring_view token, LogRec& record) override;
    void MakeRecodeEOL(LogRec& record) override;
    void SetLogInfo(LogRec* record) override;

    virtual void MakeRecodeMBD(std::size_t index, std::wstring_view token, LogRec& record);
    virtual void MakeRecodeVST(std::size_t index, std::wstring_view token, LogRec& record);
    virtual void MakeRecodeVdProxy(std::size_t index, std::wstring_view token, LogRec& record);

protected:
    void AddInfoTexts(const LogRec& record, ShownTexts& texts) const override;

    // The values of the record being parsed, texts cut as their writer's buffers are. Nothing is reset between records
    // but the source.
    std::uint32_t m_nSource = 0; // 0 between records
    std::uint32_t m_nSourceCode = 0;
    std::wstring m_strDetail;

    // The scan form.
    std::uint32_t m_nToken3 = 0; // of the proxy form too
    std::wstring m_szToken4;
    std::wstring m_szToken5;
    std::wstring m_szToken6;
    std::wstring m_szToken7;
    std::wstring m_szToken8;
    std::uint32_t m_nToken9 = 0;
    std::wstring m_szToken10;
    std::uint32_t m_nToken11 = 0;
    std::wstring m_szToken13;

    // The proxy form of mail.
    std::wstring m_szProxyName;
    std::wstring m_szProxyText;
    std::wstring m_szProxyItem1; // of incoming mail
    std::wstring m_szProxyItem2; // of outgoing mail
    std::uint32_t m_nProxyAction = 0;
    std::uint32_t m_nProxyResult = 0;

    // The proxy form of web traffic.
    std::wstring m_szProxy3Name;
    std::wstring m_szProxy3Text;
    std::uint32_t m_nProxy3Action = 0;
    std::uint32_t m_nProxy3Result = 0;

private:
    void SetScanResult(std::wstring_view token, LogRec& record);
    void SetProxyItem(std::wstring_view token);
    void SetProxyResult(std::wstring_view token, LogRec& record);
    void ShowNothing();
    void ShowType(const LogRec& record);
    void ShowPath(LogRec& record);
    bool IsWeb() const;
    void EndFileRecord();
    void EndRecord();
};
