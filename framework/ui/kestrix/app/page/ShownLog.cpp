#include "framework/ui/kestrix/app/page/ShownLog.h"

#include "common/VdCommon/VdComn_DebugLog.h"
#include "framework/ui/kestrix/app/LogFactory.h"
#include "framework/ui/kestrix/app/page/DetailPane.h"
#include "framework/ui/kestrix/app/page/RecordList.h"
#include "framework/ui/kestrix/logs/LogKinds.h"
#include "framework/ui/kestrix/logs/ZPTLogBase.h"

#include <stdexcept>

CShownLog::CShownLog(CRecordList& list, CDetailPane& pane) : m_RecordList(list), m_DetailPane(pane) {}

CShownLog::~CShownLog() = default;

bool CShownLog::Make(std::uint32_t type, const LogSource& source)
{
    m_RecordList.RemoveLog();
    m_pShown = nullptr;
    m_pLogData.reset();
    m_pLogData = ::CreateLog(type);
    if (m_pLogData == nullptr)
    {
        return false;
    }
    const LogKind& kind = *FindLogKind(type);
    m_DetailPane.SetKind(kind);
    m_RecordList.SetLog(*m_pLogData, kind);
    m_pLogData->SetLocalAddress(source.localAddress);
    m_pLogData->m_bUseDBMgr = source.isLocal;
    m_RecordList.RemoveColumns();
    m_pLogData->m_pIDBManagerProvider = source.provider;
    m_pLogData->SetListCtrl(&m_RecordList);
    m_pLogData->SetInfoDialog(&m_DetailPane);
    m_pLogData->SetListColumn();
    m_pLogData->SetInfoLabel();
    return true;
}

void CShownLog::Clear()
{
    CWindow(::GetAncestor(m_RecordList, GA_ROOT)).RedrawWindow(RDW_UPDATENOW | RDW_ALLCHILDREN);
    m_pShown = nullptr;
    m_pLogData->ClearLog();
}

bool CShownLog::Load(bool isLocal, const COleDateTime& date, const std::wstring& path)
{
    if (isLocal)
    {
        return m_RecordList.LoadDay(date);
    }
    m_RecordList.LoadFile(path);
    return true;
}

void CShownLog::ShowSelectedRecord()
{
    VD_TRACE(Flow, L"[Enter]CKestrixDlg::OnClickLogList()...");
    LogRec* const record = m_RecordList.SelectedRecord();
    if (record == nullptr)
    {
        return;
    }
    Show(*record);
    VD_TRACE(Flow, L"[Leave]CKestrixDlg::OnClickLogList()...");
}

void CShownLog::FollowSelection()
{
    LogRec* const record = m_RecordList.SelectedRecord();
    if (record != nullptr && record != m_pShown)
    {
        Show(*record);
    }
}

void CShownLog::Show(LogRec& record)
{
    m_pShown = &record;
    try
    {
        m_pLogData->SetLogInfo(&record);
    }
    catch (const std::out_of_range&)
    {
        m_DetailPane.ClearValues(); // a record that is too short for the pane is not to stand half in it
    }
    m_DetailPane.ShowShortText();
}

std::wstring CShownLog::SelectedRecordAsExported(bool withLabels)
{
    const LogRec* const record = m_RecordList.SelectedRecord();
    return record == nullptr ? std::wstring() : m_pLogData->ExportLine(*record, withLabels);
}

void CShownLog::ShowWholeText()
{
    if (m_pLogData != nullptr)
    {
        m_DetailPane.ShowWholeText(m_pLogData->GetInfoText());
    }
}
