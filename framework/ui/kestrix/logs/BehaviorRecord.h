#pragma once

#include "framework/ui/kestrix/logs/LogRec.h"

// The record form of the behavior monitor, in which it tells what a program tried to change, and what records of other
// forms in the same logs share with it.

inline constexpr std::uint32_t BehaviorSource = 0x10000000;

// Takes the token of the source: sets its code, the second one only for a source that is not the behavior monitor, and
// appends what it means.
void TakeSource(std::wstring_view token, LogRec& record, std::uint32_t& source, std::uint32_t& otherSource);

// Appends what one of the tokens 3 to 13 means. Returns whether it is the one that a record of a daily file ends with.
bool AppendBehaviorToken(std::size_t index, std::wstring_view token, LogRec& record);
