#pragma once

#include "framework/ui/kestrix/logs/ExportWriter.h"
#include "platform/dialog/UniqueHandle.h"

#include <string>

// Writes a UTF-16 text file with byte order mark. A full disk may show only at a later write or at Flush.
//
// The file grows beside its target, as TARGET.kestrix-part, and takes the target's place at the end: the name holds the
// file that stood there or the new one, whole, also when the program is killed or the power fails. A target that cannot
// be replaced is written in place: one that others have open and do not share for deletion, that is hidden or a link,
// or beside which no file can be made.
class ExportStream : public ExportWriter
{
public:
    // Makes the file; false when that is not possible, and for what is no file: a device or a folder. A path of any
    // length will do. Nobody else can open the file beside the target.
    bool Open(const std::wstring& path);

    // Writes what is still in memory, all of it to the disk; false when that failed.
    bool Flush();

    // Closes the file without writing what is still in memory, and puts it in the place of what stood there, also while
    // others have that open and share it for deletion. False when that is not possible: then Delete is to follow.
    bool Close();

    // Closes and deletes the file that Open made; false when it stays. What stood there before stays with it, unless
    // it was written in place.
    bool Delete();

private:
    bool TakeBlock(std::wstring_view block) override;
    bool MakePart();
    bool MakeInPlace();
    bool ReplaceOpenTarget() const;

    UniqueFile m_hFile;
    std::wstring m_strTarget; // these three as the system takes them
    std::wstring m_strPart;   // empty when the target is written in place
    std::wstring m_strAside;  // of a target that others have open
};
