// does not compile: TwoRowsOfThisTableAnswerTheSameMessage
#include "tests/ui/platform/dialog/compile/Probe.h"

const MessageMap& CProbe::Map()
{
    static constexpr auto rows =
        MessageRows(On::Command<1, &CProbe::OnClick>, On::Control<BN_CLICKED, 1, &CProbe::OnClick>);
    static constexpr MessageMap map{rows, &CWnd::Map};
    return map;
}
