#pragma once

#include "platform/dialog/DialogFramework.h"

#include <functional>
#include <utility>
#include <vector>

// Alt with a letter, as the system sends it.
inline constexpr LPARAM AltIsDown = 0x20000001;

// A dialog of the program, which does a list of steps while it runs. All messages that a step posts are dealt with
// before the next step; so a step that is to open another dialog posts what opens it, and the next steps run in that
// one. After the last step the dialog ends with the result EndedByTest, or waits to be ended by what the steps did.
template <class Dialog>
class ScriptedDialog : public Dialog
{
public:
    using Step = std::function<void()>;

    static constexpr INT_PTR EndedByTest = 77;
    static constexpr INT_PTR EndedByLimit = 78; // the dialog ran for twenty seconds

    // Runs the steps and then ends the dialog.
    INT_PTR Run(std::vector<Step> steps)
    {
        m_steps = std::move(steps);
        m_nStep = 0;
        return this->DoModal();
    }

    // Runs the steps, one of which is to end the dialog.
    INT_PTR RunToItsOwnEnd(std::vector<Step> steps)
    {
        m_bEndsItself = true;
        return Run(std::move(steps));
    }

    BOOL OnInitDialog() override
    {
        ::SetTimer(this->m_hWnd, LimitTimer, Limit, nullptr);
        this->PostMessage(NextStep);
        return Dialog::OnInitDialog();
    }

    CWindow Item(UINT control) const { return CWindow(this->GetDlgItem(static_cast<int>(control))); }

protected:
    static const MessageMap& Map()
    {
        static constexpr auto rows = MessageRows(On::Message<NextStep, &ScriptedDialog::OnNextStep>,
                                                 On::Message<WM_TIMER, &ScriptedDialog::OnTimer>);
        static constexpr MessageMap map{rows, &Dialog::Map};
        return map;
    }

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    static constexpr UINT NextStep = WM_APP + 1;
    static constexpr UINT_PTR LimitTimer = 4711;
    static constexpr UINT Limit = 20'000; // milliseconds

    LRESULT OnNextStep(WPARAM, LPARAM)
    {
        if (m_nStep < m_steps.size())
        {
            m_steps[m_nStep++]();
            this->PostMessage(NextStep);
        }
        else if (!m_bEndsItself)
        {
            this->EndDialog(EndedByTest);
        }
        return 0;
    }

    void OnTimer(UINT_PTR timer)
    {
        if (timer == LimitTimer)
        {
            this->EndDialog(EndedByLimit);
        }
    }

    std::vector<Step> m_steps;
    std::size_t m_nStep = 0;
    bool m_bEndsItself = false;
};
