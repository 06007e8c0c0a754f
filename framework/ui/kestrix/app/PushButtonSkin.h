#pragma once

class CExtendButton;

// Gives a push button the face and the cursor that all of them have, and shows it. centred: its text stands in the
// middle, which suits a button without an icon.
void SetSkin(CExtendButton& button, bool centred);
