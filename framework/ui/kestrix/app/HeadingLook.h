#pragma once

#include "framework/ui/kestrix/controls/ColorText.h"

// The look of headings, as the language file chooses style and face. The size is in pixels.
CColorText::FontLook HeadingLook();
