// does not compile: takes nothing and gives nothing
#include "tests/ui/platform/dialog/compile/Probe.h"

const MessageMap& CProbe::Map()
{
    static constexpr auto rows = MessageRows(On::Command<1, &CProbe::OnClickWithResult>);
    static constexpr MessageMap map{rows, &CWnd::Map};
    return map;
}
