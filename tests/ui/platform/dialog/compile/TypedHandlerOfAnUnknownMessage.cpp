// does not compile: the handler does not fit the message
#include "tests/ui/platform/dialog/compile/Probe.h"

const MessageMap& CProbe::Map()
{
    static constexpr auto rows = MessageRows(On::Message<WM_USER, &CProbe::OnSize>);
    static constexpr MessageMap map{rows, &CWnd::Map};
    return map;
}
