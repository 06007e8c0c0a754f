#include "framework/ui/kestrix/app/Kestrix.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t* commandLine, int show)
{
    CKestrixApp application;
    return AfxWinMain(instance, commandLine, show);
}
