// does not compile: TwoRowsOfThisTableAnswerTheSameMessage
#include "tests/ui/platform/dialog/compile/Probe.h"

const MessageMap& CProbe::Map()
{
    static constexpr auto rows =
        MessageRows(On::CtlColor<&CProbe::OnCtlColor>, On::Message<WM_CTLCOLORSTATIC, &CProbe::OnCtlColor>);
    static constexpr MessageMap map{rows, &CWnd::Map};
    return map;
}
