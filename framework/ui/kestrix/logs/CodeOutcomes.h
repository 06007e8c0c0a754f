#pragma once

#include "framework/ui/kestrix/logs/LogRec.h"

#include <windows.h>

#include <cstdint>
#include <span>

// How something ended: the text of the language file that says so, and the icon of the record's row.
struct Outcome
{
    UINT text; // 0: none
    std::uint32_t image;
};

// A code in a log line and what it means.
struct CodeOutcome
{
    std::uint32_t code;
    Outcome outcome;
};

// What a code means; for one that is not in the table, other.
Outcome OutcomeOfCode(std::span<const CodeOutcome> table, std::uint32_t code, const Outcome& other);

// Gives the record the icon, and the text as its next field.
void AppendOutcome(const Outcome& outcome, LogRec& record);
