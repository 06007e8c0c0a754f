#pragma once

#include "framework/ui/kestrix/controls/ValueText.h"
#include "framework/ui/kestrix/logs/LogInfoPage.h"
#include "platform/dialog/DialogFramework.h"

#include <array>
#include <span>
#include <string>

enum class FirstInfo;
struct LogKind;

// The page's detail pane: seven rows of a caption and a value, and beside them what makes an allow rule. The first
// value is a link or a text in the same place, as the kind of the log says; the third, which may be cut, opens its
// whole text in its place.
class CDetailPane : public CLogInfoPage
{
public:
    // The tips are the page's and outlive the pane.
    explicit CDetailPane(CToolTipCtrl& tips) : m_ToolTip(tips) {}

    // Takes the controls of the page, in the page's data exchange.
    void DoDataExchange(CDataExchange& exchange);

    // Takes the size of the first value from the template, and hides what no log has shown yet.
    void Start();

    // Shows the first value as this kind of log has it, and lets the values be clicked that do something.
    void SetKind(const LogKind& kind);

    // Takes back what the kind before has made of the first value, and hides it.
    void RemoveKind();

    // The pane of no record: no values and no tips, and nothing of allow rules.
    void Clear();

    std::wstring LinkText() const;

    // For a kind whose third value has a whole text: shows this text in place of the value, or the value again.
    void ShowWholeText(const std::wstring& text);
    void ShowShortText();

    // After a rule is made.
    void DisableAllow();

    // Whether the kind of log has such rules, and whether one can be made now.
    bool HasAllowRule() const;
    bool CanAllow() const;

    // Whether the window is one of the values.
    bool IsValue(HWND window) const;

    // What can be copied: the captions and whole values that are shown, each pair in a line, and of the value that has
    // the keyboard all of it or the part that is selected. Both are empty when there is nothing.
    bool HasValues() const;
    std::wstring AllText() const;
    std::wstring TextToCopy() const;

    // The captions, and what else stands in bold letters.
    static std::span<const UINT> BoldControls();

    // CLogInfoPage
    void SetInfoRow(std::size_t row, const std::wstring& caption, bool visible) override;
    void SetInfoText(std::size_t row, const std::wstring& text, const std::wstring& toolTip) override;
    void SetInfoLink(const std::wstring& text, const std::wstring& toolTip) override;
    void DrawInfoText(std::size_t row, const std::wstring& text, const std::wstring& toolTip) override;
    void DrawTallInfo(const std::wstring& text, int pixels) override;
    void ShowAllowRule(bool show) override;
    void ClearValues() override; // what the kind of log hides stays hidden

private:
    CWindow Item(UINT control) const { return CWindow(m_page.GetDlgItem(static_cast<int>(control))); }

    std::wstring ShownValue(std::size_t row) const;
    void SetValue(std::size_t row, const std::wstring& text, const std::wstring& toolTip);
    void SetLink(const std::wstring& text, const std::wstring& toolTip);
    void Show(UINT control, bool show);

    bool Shows(UINT control) const { return (Item(control).GetStyle() & WS_VISIBLE) != 0; }

    void ShowFirst(FirstInfo how);
    void SizeFirstText(int rows);
    void ShowThirdValue();

    bool HasWholeText() const;

    CToolTipCtrl& m_ToolTip;
    CWindow m_page;
    const LogKind* m_pKind = nullptr;            // null: there is no log
    RECT m_rcInfoValue{};                        // screen rectangle of the first value as the template places it
    CClickText m_InfoLink;                       // the first value as a link
    std::array<CValueText, InfoRows> m_arrValue; // the first as a text; a click may open the third
};
