#pragma once

#include "framework/ui/kestrix/app/Kestrix.h"
#include "framework/ui/kestrix/app/LogFormDlg.h"
#include "framework/ui/kestrix/logs/LogKinds.h"
#include "tests/support/LanguageFile.h"
#include "tests/support/MessageBoxRecorder.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/ui/framework/ui/kestrix/app/DatabaseDouble.h"
#include "tests/ui/framework/ui/kestrix/app/ScriptedDialog.h"

#include <gtest/gtest.h>

// The form under a script.
class ScriptedForm : public ScriptedDialog<CLogFormDlg>
{
public:
    // The viewer page; null when there is none.
    CKestrixDlg* Page() const;
};

// A form on a daily file of three records, with its message boxes answered.
class FormTest : public ::testing::Test
{
protected:
    FormTest();

    // As the user does: the choice of this text in the page's combo, then View.
    void SwitchTo(UINT choice);

    const LanguageFile m_language;
    DatabaseDouble m_database;
    CKestrixApp m_app; // lends the page the database
    MessageBoxRecorder m_boxes;
    const TemporaryFolder m_folder;
    ScriptedForm m_form;
};
