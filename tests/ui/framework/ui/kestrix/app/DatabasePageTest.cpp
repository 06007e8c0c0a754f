#include "tests/ui/framework/ui/kestrix/app/DatabasePageTest.h"

#include "resource/resource.h"

#include <algorithm>

DatabasePageTest::DatabasePageTest()
{
    m_export.Create({}, WS_CHILD | WS_VISIBLE, {0, 600, 80, 625}, m_parent, IDC_FORM_EXPORT);
    m_delete.Create({}, WS_CHILD | WS_VISIBLE, {80, 600, 160, 625}, m_parent, IDC_FORM_DELETE);
    m_page.SetFormButtons(m_export, m_delete);
    m_page.m_bIsLocal = true;
    m_page.m_pParentForm = &m_form;
}

long DatabasePageTest::ErrorCount(const std::wstring& text) const
{
    return std::ranges::count(m_trace.Errors(), text);
}
