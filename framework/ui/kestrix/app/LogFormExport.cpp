// The form's Export button: asks for a file and has the log write what the page has loaded.

#include "framework/ui/kestrix/app/LogFormDlg.h"

void CLogFormDlg::OnBnClickedBtnExport() {}
