#pragma once

#include "suite/database/Sqlite.h"

namespace EventLog
{

// What a database of ours is marked with ("ZpEL"), and the version of what is described below.
inline constexpr std::int64_t ApplicationId = 0x5A70454C;
inline constexpr std::int64_t SchemaVersion = 2;

// Version 2:
//   events(id, kind, day, time, line), index (kind, day): ids ascend in the order in which events were added. The line
//   is a blob of UTF-16 characters, so that every character stays what it is; "cast(line as text)" shows it.
// Version 1 was the same without the time.

// Makes an empty file, which nobody else has open, a database of the current version.
void CreateSchema(const Connection& connection);

// Brings a database of ours to the current version. Throws DatabaseError, and leaves the file as it is, when it is no
// database of ours or of a newer version.
void RequireSchema(const Connection& connection);

} // namespace EventLog
