#pragma once

#include "suite/samples/Deck.h"

#include <string>
#include <string_view>

namespace Samples
{

// The invented machine behind the logs: its files, programs, mails and peers, drawn by turns.
// Nothing here names a real product, threat or person; hosts and addresses are those set aside for documentation.
class Names
{
public:
    explicit Names(Random& random);

    // A folder without a backslash at its end. One of them is longer than 240 characters.
    std::wstring_view Folder() { return m_folders.Draw(); }

    // A file name, in one of several scripts.
    std::wstring_view File() { return m_files.Draw(); }

    // Folder, backslash and file name.
    std::wstring Path();

    // The full path of a program.
    std::wstring_view Program() { return m_programs.Draw(); }

    // The subject of a mail; it may hold "%" and "|".
    std::wstring_view Subject() { return m_subjects.Draw(); }

    // The file name of an attachment; it may hold "%".
    std::wstring_view Attachment() { return m_attachments.Draw(); }

    // A web address; it may hold "%", and no "|".
    std::wstring_view Page() { return m_pages.Draw(); }

    // A mail address.
    std::wstring_view Mailbox() { return m_mailboxes.Draw(); }

    // An address in 192.0.2.0/24 or 198.51.100.0/24.
    std::wstring Ipv4();
    // An address in 2001:db8::/32.
    std::wstring Ipv6();

private:
    Random& m_random;
    Deck<std::wstring_view> m_folders;
    Deck<std::wstring_view> m_files;
    Deck<std::wstring_view> m_programs;
    Deck<std::wstring_view> m_subjects;
    Deck<std::wstring_view> m_attachments;
    Deck<std::wstring_view> m_pages;
    Deck<std::wstring_view> m_mailboxes;
};

// A version of three numbers whose last one counts the updates.
std::wstring VersionText(unsigned major, unsigned minor, unsigned build);

} // namespace Samples
