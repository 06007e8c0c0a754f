// does not compile: TwoRowsOfThisTableAnswerTheSameMessage
#include "tests/ui/platform/dialog/compile/Probe.h"

const MessageMap& CProbe::Map()
{
    static constexpr auto rows =
        MessageRows(On::Message<WM_SIZE, &CProbe::OnSize>, On::Message<WM_TIMER, &CProbe::OnTimer>,
                    On::Message<WM_SIZE, &CProbe::OnSize>);
    static constexpr MessageMap map{rows, &CWnd::Map};
    return map;
}
