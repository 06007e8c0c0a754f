// compiles
#include "tests/ui/platform/dialog/compile/Probe.h"

const MessageMap& CProbe::Map()
{
    static constexpr auto rows = MessageRows(
        On::Message<WM_SIZE, &CProbe::OnSize>, On::Message<WM_TIMER, &CProbe::OnTimer>,
        On::Command<1, &CProbe::OnClick>, On::Command<2, &CProbe::OnClick>,
        On::Control<LBN_SELCHANGE, 1, &CProbe::OnClick>, On::Notify<LVN_COLUMNCLICK, 1, &CProbe::OnColumnClick>,
        On::ReflectedNotify<LVN_COLUMNCLICK, &CProbe::OnColumnClick>, On::CtlColor<&CProbe::OnCtlColor>,
        On::Message<WM_USER, &CProbe::OnAny>);
    static constexpr MessageMap map{rows, &CWnd::Map};
    return map;
}
