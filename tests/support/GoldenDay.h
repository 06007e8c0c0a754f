#pragma once

#include <string>
#include <vector>

class CZPTLogBase;

// A golden day: lines of a log and what the log makes of them, as a text that a person can read and a test compares. It
// stands in a file NAME.day of the folder golden beside the tests of the logs:
//
//     # What the day shows.
//     log: VLG                 the extension of the kind
//     form: database           or "file": as the provider has the lines, or as a daily file has them
//
//     [lines]                  each as Visible shows it, see VisibleText.h
//     [records]                for each line by its number the icon and the fields by theirs, or that it was refused
//     [list]                   titles and widths of the columns, the rows as they come up, and their order after a
//                              click on each column in turn and after a second one
//     [pane]                   for each record the rows of the detail pane: caption, text, whether it is a link, tool
//                              tip
//     [export]                 the lines of the file
//
// A new day is written down to its lines; the first run of its test adds what the log makes of them, and
// tools/update-golden-days shows that and keeps it.

// Puts the lines of the day into the log and compares what it makes of them with the file. The log has just been made.
// What was found, if it differs, is left in the build folder.
void ExpectGoldenDay(CZPTLogBase& log, const std::string& name);

struct GoldenDayHead
{
    std::string name;
    std::wstring extension;
    bool isFromDatabase;
};

// The days that stand in the folder itself. Folders below it are for days whose tests prepare the log in a way of their
// own, and name the day with its folder.
std::vector<GoldenDayHead> GoldenDays();
