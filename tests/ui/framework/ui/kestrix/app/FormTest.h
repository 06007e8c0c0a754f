#pragma once

#include "framework/ui/kestrix/app/Kestrix.h"
#include "framework/ui/kestrix/app/LogFormDlg.h"
#include "framework/ui/kestrix/logs/LogKinds.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/MessageBoxRecorder.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/ui/framework/ui/kestrix/app/DatabaseDouble.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

// The form, which does a list of steps while it runs. All messages that a step posts are dealt with before the next
// step. After the last one the form ends with the result EndedByTest, or waits to be ended by what the steps did.
class ScriptedForm : public CLogFormDlg
{
public:
    using Step = std::function<void()>;

    static constexpr INT_PTR EndedByTest = 77;
    static constexpr INT_PTR EndedByLimit = 78; // the form ran for twenty seconds

    // Runs the steps and then ends the form.
    INT_PTR Run(std::vector<Step> steps);

    // Runs the steps, one of which is to end the form.
    INT_PTR RunToItsOwnEnd(std::vector<Step> steps);

    BOOL OnInitDialog() override;

    CWindow Item(UINT control) const { return CWindow(GetDlgItem(static_cast<int>(control))); }

    // The viewer page; null when there is none.
    CKestrixDlg* Page() const;

protected:
    static const MessageMap& Map();

    const MessageMap& GetMessageMap() const override { return Map(); }

private:
    LRESULT OnNextStep(WPARAM, LPARAM);
    void OnTimer(UINT_PTR timer);

    std::vector<Step> m_steps;
    std::size_t m_nStep = 0;
    bool m_bEndsItself = false;
};

// A form on a daily file of three records, with its message boxes answered.
class FormTest : public ::testing::Test
{
protected:
    FormTest();

    const LanguageFile m_language;
    DatabaseDouble m_database;
    CKestrixApp m_app; // lends the page the database
    const MessageBoxRecorder m_boxes;
    const TemporaryFolder m_folder;
    ScriptedForm m_form;
};
