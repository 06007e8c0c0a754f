#include "platform/dialog/DeviceContext.h"

#include "platform/dialog/FrameworkState.h"

#include <algorithm>

CMemoryDC::CMemoryDC() noexcept : CDC(nullptr)
{
    auto& spares = GetFrameworkState().spareMemoryDCs;
    const auto spare = std::ranges::find_if(spares, &UniqueMemoryDC::operator bool);
    m_dc.reset(spare != spares.end() ? spare->release() : ::CreateCompatibleDC(nullptr));
    m_hDC = m_dc.get();
    ::SaveDC(m_hDC);
}

CMemoryDC::~CMemoryDC()
{
    constexpr int asCreated = 1; // the first state that was saved
    ::RestoreDC(m_hDC, asCreated);
    auto& spares = GetFrameworkState().spareMemoryDCs;
    if (const auto room = std::ranges::find_if_not(spares, &UniqueMemoryDC::operator bool); room != spares.end())
    {
        room->reset(m_dc.release());
    }
}

CMemDC::CMemDC(HDC target, const RECT& area) noexcept : CDC(target), m_hTarget(target), m_part(area)
{
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    if (width <= 0 || height <= 0 || !m_bitmap.CreateCompatibleBitmap(target, width, height))
    {
        return;
    }
    m_memory.emplace();
    if (m_memory->GetSafeHdc() == nullptr)
    {
        return;
    }
    m_hDC = m_memory->GetSafeHdc();
    ::SelectObject(m_hDC, m_bitmap);
    ::SetWindowOrgEx(m_hDC, area.left, area.top, nullptr);
}

CMemDC::~CMemDC()
{
    if (m_hDC == m_hTarget)
    {
        return;
    }
    ::BitBlt(m_hTarget, m_part.left, m_part.top, m_part.right - m_part.left, m_part.bottom - m_part.top, m_hDC,
             m_part.left, m_part.top, SRCCOPY);
}

void FillSolidRect(HDC dc, const RECT& rect, COLORREF colour) noexcept
{
    const COLORREF before = ::SetDCBrushColor(dc, colour);
    ::FillRect(dc, &rect, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
    ::SetDCBrushColor(dc, before);
}

void Draw3dRect(HDC dc, const RECT& rect, COLORREF topLeft, COLORREF bottomRight) noexcept
{
    if (::IsRectEmpty(&rect))
    {
        return; // the edges would lie outside
    }
    FillSolidRect(dc, {rect.left, rect.top, rect.right - 1, rect.top + 1}, topLeft);
    FillSolidRect(dc, {rect.left, rect.top, rect.left + 1, rect.bottom - 1}, topLeft);
    FillSolidRect(dc, {rect.right - 1, rect.top, rect.right, rect.bottom}, bottomRight);
    FillSolidRect(dc, {rect.left, rect.bottom - 1, rect.right, rect.bottom}, bottomRight);
}
