#include "suite/samples/Names.h"

namespace Samples
{

namespace
{

constexpr Card<std::wstring_view> Folders[] = {
    {14, L"C:\\Users\\maria\\Downloads"},
    {10, L"C:\\Windows\\Temp"},
    {8, L"C:\\Users\\maria\\Documents\\Invoices"},
    {7, L"C:\\Users\\jonas\\Downloads"},
    {5, L"C:\\Users\\jonas\\Desktop"},
    {5, L"D:\\Harbour survey"},
    {5, L"E:\\Backup"},
    {1, L"C:\\Users\\Zoë\\Pictures\\Été à Besançon"},
    {1, L"C:\\Users\\Алексей\\Документы\\Отчёты"},
    {1, L"C:\\Users\\Ελένη\\Λήψεις"},
    {1, L"C:\\Users\\さくら\\ダウンロード"},
    {1, L"C:\\Users\\ليلى\\المستندات"},
    {1, L"\\\\files.example.net\\shared\\Team calendar"},
    {1, L"D:\\Archive\\Projects\\Harbour survey\\2019 to 2024, complete hand-over of the measuring stations\\"
        L"Northern basin and lock gates\\Raw data as delivered by the contractor, not to be changed\\"
        L"Third delivery, with corrections of the second\\Appendix C, photographs of the piers"},
};

constexpr std::wstring_view Files[] = {
    L"setup_free_tools.exe",
    L"invoice_2231.pdf.exe",
    L"player-update.msi",
    L"scan0047.docm",
    L"photos.zip",
    L"readme first.scr",
    L"tax form 50% off.js",
    L"toolbar.dll",
    L"holiday greetings.exe",
    L"price list (final) v2.xlsm",
    L"driver_package.exe",
    L"~tmp4F1C.tmp",
    L"screensaver aquarium.scr",
    L"game trainer +12.exe",
    L"codec_pack.exe",
    L"delivery note.vbs",
    L"curriculum vitæ – Noël.docm",
    L"Straßenverzeichnis.exe",
    L"счёт за март.pdf.exe",
    L"τιμολόγιο Μαρτίου.scr",
    L"請求書の写し.exe",
    L"فاتورة مارس.scr",
    L"🎉 invitation.exe",
    L"map_of_the_old_town_with_all_bus_stops_printable.exe",
};

constexpr Card<std::wstring_view> Programs[] = {
    {6, L"C:\\Program Files\\Pinecone Browser\\pinecone.exe"},
    {4, L"C:\\Program Files\\Brightleaf Mail\\blmail.exe"},
    {4, L"C:\\Windows\\System32\\netsvchost64.exe"},
    {2, L"C:\\Program Files\\Orchard Office\\writer.exe"},
    {2, L"C:\\Program Files (x86)\\Tinker Box\\Sync Helper\\synchelper.exe"},
    {1, L"C:\\Users\\maria\\AppData\\Local\\Temp\\~installer\\unpack7.exe"},
    {1, L"D:\\Games\\Marble Maze\\maze.exe"},
    {1, L"C:\\Users\\Алексей\\Загрузки\\установка.exe"},
    {1, L"C:\\Program Files\\さくら工房\\写真整理.exe"},
    {1, L"D:\\Archive\\Programs\\Harbour survey\\Version that was handed over with the measuring stations in 2019\\"
        L"Tools of the contractor for the conversion of raw data, not to be changed\\64 bits\\Third delivery, with the "
        L"corrections of the second one and the manuals in all languages\\convert and check the data of all piers.exe"},
};

constexpr std::wstring_view Subjects[] = {
    L"Your parcel is waiting",      L"Re: minutes of Tuesday's meeting",
    L"Last reminder: open invoice", L"50% off | today only",
    L"Fwd: holiday photos",         L"Account locked | action required",
    L"Bewerbung als Köchin",        L"Приглашение на семинар",
    L"Πρόσκληση σε γιορτή",         L"会議資料の送付",
    L"دعوة إلى الاجتماع",           L"You have won 🎁",
};

constexpr std::wstring_view Attachments[] = {
    L"label.zip", L"minutes.docm", L"invoice 100%.pdf.exe", L"IMG_2041.scr", L"form|signed.js", L"résumé.xlsm",
};

constexpr std::wstring_view Pages[] = {
    L"http://www.example.com/free/tools/setup.exe",
    L"http://downloads.example.net/player?lang=en&from=banner",
    L"https://mail.example.org/inbox",
    L"http://login.example.net/bank%20account/verify.html",
    L"http://cards.example.com/greeting.php?id=88213",
    L"https://games.example.org/marble-maze/play",
    L"http://192.0.2.77/~promo/win.htm",
    L"http://[2001:db8::51]/index.html",
    L"https://bücher.example.com/katalog",
    L"http://stream.example.org/live/channel/7?quality=high&session=4d1f9a02c6",
    L"http://www.example.net/search?q=cheap%20tickets%20to%20the%20islands",
    L"https://shop.example.com/offers/summer",
};

constexpr std::wstring_view Mailboxes[] = {
    L"maria@example.com", L"jonas@example.com", L"orders@example.net", L"info@example.org", L"help.desk@example.net",
};

std::wstring Hexadecimal(std::uint32_t number)
{
    std::wstring digits;
    do
    {
        digits.insert(digits.begin(), L"0123456789abcdef"[number % 16]);
        number /= 16;
    } while (number != 0);
    return digits;
}

} // namespace

Names::Names(Random& random)
    : m_random(random),
      m_folders(Folders, random),
      m_files(Files, random),
      m_programs(Programs, random),
      m_subjects(Subjects, random),
      m_attachments(Attachments, random),
      m_pages(Pages, random),
      m_mailboxes(Mailboxes, random)
{
}

std::wstring Names::Path()
{
    std::wstring path(Folder());
    path += L'\\';
    path += File();
    return path;
}

std::wstring Names::Ipv4()
{
    return (m_random.Chance(50) ? L"192.0.2." : L"198.51.100.") + std::to_wstring(1 + m_random.Below(254));
}

std::wstring Names::Ipv6()
{
    return L"2001:db8::" + Hexadecimal(1 + m_random.Below(0xFFFE)) + L":" + Hexadecimal(1 + m_random.Below(0xFFFE));
}

std::wstring VersionText(unsigned major, unsigned minor, unsigned build)
{
    return std::to_wstring(major) + L"." + std::to_wstring(minor) + L"." + std::to_wstring(build);
}

} // namespace Samples
