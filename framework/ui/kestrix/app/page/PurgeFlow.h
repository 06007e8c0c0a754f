#pragma once

class CDateList;
struct LogKind;

// What the buttons Settings and Delete do: each asks the user and then the service.

void ChangePurgeSettings();

// Nothing is asked while the list has no dates. True when the user wants entries of the log deleted, even if the
// service was out of reach: what the page shows of a record may be gone.
bool DeleteEntries(CDateList& dates, const LogKind& kind);
