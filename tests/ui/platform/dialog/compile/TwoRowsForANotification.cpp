// does not compile: TwoRowsOfThisTableAnswerTheSameMessage
#include "tests/ui/platform/dialog/compile/Probe.h"

const MessageMap& CProbe::Map()
{
    static constexpr auto rows = MessageRows(On::Notify<LVN_COLUMNCLICK, 1, &CProbe::OnColumnClick>,
                                             On::Notify<LVN_COLUMNCLICK, 1, &CProbe::OnColumnClick>);
    static constexpr MessageMap map{rows, &CWnd::Map};
    return map;
}
