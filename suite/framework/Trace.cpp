#include "suite/framework/Trace.h"

#include <windows.h>

namespace Framework
{

void Trace(const std::string& text)
{
    OutputDebugStringA(("VdFrwkSvc: " + text + "\n").c_str());
}

} // namespace Framework
