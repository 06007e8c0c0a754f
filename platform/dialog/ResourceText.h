#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

// The string resource of this number, or the empty text when the resource module has none.
// Texts are read once and kept, sixteen at a time as they lie in the module, so that a call costs two look-ups in
// tables. The reference stays valid until AfxSetResourceHandle. User-interface thread only.
const std::wstring& LoadText(UINT id);

// The decimal number that a resource text holds. The fallback stands for a text that is missing, holds no number or
// one below 1, or does not fit 31 bits.
std::int32_t LoadNumber(UINT textId, std::int32_t fallback);
