#include "framework/ui/kestrix/logs/ZPTLogUpdateCodes.h"

#include "framework/ui/kestrix/logs/CodeTexts.h"
#include "resource/UpdateTexts.h"

#include <algorithm>
#include <iterator>

namespace UpdateCodes
{

namespace
{

constexpr CodeText Runs[] = {{200, IDS_UPDATE_PRODUCT}};
static_assert(IsSorted(Runs));

constexpr CodeText Transfers[] = {{201, IDS_UPDATE_CONNECTION},
                                  {202, IDS_UPDATE_DOWNLOAD_LIST},
                                  {203, IDS_UPDATE_DOWNLOAD_FILES},
                                  {221, IDS_UPDATE_CHECK}};
static_assert(IsSorted(Transfers));

constexpr CodeText Steps[] = {{204, IDS_UPDATE_PREPARATION},
                              {205, IDS_UPDATE_INSTALLATION},
                              {206, IDS_UPDATE_REPLACEMENT},
                              {207, IDS_UPDATE_RESTART_SERVICE},
                              {208, IDS_UPDATE_REMOVAL}};
static_assert(IsSorted(Steps));

constexpr CodeText Modules[] = {{164, IDS_UPDATE_SETUP_PROGRAM},
                                {169, IDS_UPDATE_HELP_FILES},
                                {209, IDS_UPDATE_MAIN_CONSOLE},
                                {210, IDS_UPDATE_PROTECTION_SERVICE},
                                {211, IDS_UPDATE_REAL_TIME_SCAN_MODULE},
                                {212, IDS_UPDATE_MANUAL_SCAN_MODULE},
                                {213, IDS_UPDATE_MAIL_SCAN_MODULE},
                                {214, IDS_UPDATE_WEB_SCAN_MODULE},
                                {215, IDS_UPDATE_URL_FILTER_MODULE},
                                {216, IDS_UPDATE_FIREWALL_MODULE},
                                {217, IDS_UPDATE_DATA_PREVENTION_MODULE},
                                {218, IDS_UPDATE_SYSTEM_TUNER_MODULE},
                                {219, IDS_UPDATE_OWN_MODULE},
                                {220, IDS_UPDATE_LOG_VIEWER}};
static_assert(IsSorted(Modules));

constexpr CodeText Engines[] = {{4, IDS_UPDATE_SCAN_ENGINE_PACKAGE},
                                {16, IDS_UPDATE_VIRUS_SCAN_ENGINE},
                                {4096, IDS_UPDATE_SPYWARE_SCAN_ENGINE},
                                {0x14000000, IDS_UPDATE_ARCHIVE_ENGINE},
                                {0x20000100, IDS_UPDATE_FIREWALL_ENGINE},
                                {0x21000800, IDS_UPDATE_FIREWALL_DRIVER},
                                {0x21001000, IDS_UPDATE_NETWORK_MONITOR_DRIVER},
                                {0x21080000, IDS_UPDATE_URL_FILTER_ENGINE},
                                {0x21100000, IDS_UPDATE_WEB_THREAT_ENGINE},
                                {0x22000010, IDS_UPDATE_VIRUS_SCAN_DRIVER},
                                {0x22000020, IDS_UPDATE_FILE_MONITOR_DRIVER},
                                {0x22000040, IDS_UPDATE_REGISTRY_MONITOR_DRIVER},
                                {0x22000080, IDS_UPDATE_SELF_PROTECTION_DRIVER},
                                {0x22000100, IDS_UPDATE_PROCESS_MONITOR_DRIVER},
                                {0x22000200, IDS_UPDATE_BOOT_SCAN_DRIVER},
                                {0x22400000, IDS_UPDATE_SCRIPT_SCAN_ENGINE},
                                {0x24080000, IDS_UPDATE_SYSTEM_CLEANUP_ENGINE},
                                {0x24100000, IDS_UPDATE_VULNERABILITY_ENGINE},
                                {0x24200000, IDS_UPDATE_DATA_PREVENTION_ENGINE},
                                {0x24400000, IDS_UPDATE_SUSPICIOUS_CHANGE_ENGINE},
                                {0x24800000, IDS_UPDATE_SYSTEM_TUNER_ENGINE},
                                {0x28000000, IDS_UPDATE_RULE_ENGINE},
                                {0x28088000, IDS_UPDATE_QUARANTINE_ENGINE},
                                {0x28100000, IDS_UPDATE_ROOTKIT_SCAN_ENGINE},
                                {0x28200000, IDS_UPDATE_MEMORY_SCAN_ENGINE},
                                {0x28400000, IDS_UPDATE_BEHAVIOR_ENGINE},
                                {0x28800004, IDS_UPDATE_MAIL_FILTER_ENGINE},
                                {0x28800008, IDS_UPDATE_DOWNLOAD_SCAN_ENGINE}};
static_assert(IsSorted(Engines));

constexpr CodeText Patterns[] = {{4, IDS_UPDATE_VIRUS_PATTERN},
                                 {512, IDS_UPDATE_BOOT_VIRUS_PATTERN},
                                 {2048, IDS_UPDATE_SYSTEM_CLEANUP_PATTERN},
                                 {0x00080000, IDS_UPDATE_MACRO_VIRUS_PATTERN},
                                 {0x00100000, IDS_UPDATE_SCRIPT_VIRUS_PATTERN},
                                 {0x20000001, IDS_UPDATE_DIALER_PATTERN},
                                 {0x20000020, IDS_UPDATE_SPYWARE_PATTERN},
                                 {0x20000040, IDS_UPDATE_SPYWARE_EXCEPTION_PATTERN},
                                 {0x20000400, IDS_UPDATE_FIREWALL_PATTERN},
                                 {0x20008000, IDS_UPDATE_COOKIE_PATTERN},
                                 {0x40000010, IDS_UPDATE_PHISHING_ADDRESS_LIST},
                                 {0x40000020, IDS_UPDATE_BLOCKED_ADDRESS_LIST},
                                 {0x40000040, IDS_UPDATE_TRUSTED_ADDRESS_LIST},
                                 {0x40000080, IDS_UPDATE_URL_CATEGORY_LIST},
                                 {0x40000100, IDS_UPDATE_MAIL_FILTER_RULES},
                                 {0x40000200, IDS_UPDATE_SPAM_RULES},
                                 {0x40000400, IDS_UPDATE_SCRIPT_RULES},
                                 {0x40000800, IDS_UPDATE_FIREWALL_RULES},
                                 {0x40001000, IDS_UPDATE_INTRUSION_SIGNATURES},
                                 {0x40002000, IDS_UPDATE_NETWORK_WORM_SIGNATURES},
                                 {0x40004000, IDS_UPDATE_VULNERABILITY_LIST},
                                 {0x40008000, IDS_UPDATE_SECURITY_FIX_LIST},
                                 {0x40010000, IDS_UPDATE_SUSPICIOUS_CHANGE_RULES},
                                 {0x40020000, IDS_UPDATE_BEHAVIOR_RULES},
                                 {0x40040000, IDS_UPDATE_PROGRAM_REPUTATION_LIST},
                                 {0x40080000, IDS_UPDATE_TRUSTED_PROGRAM_LIST},
                                 {0x40100000, IDS_UPDATE_SELF_PROTECTION_RULES},
                                 {0x40200000, IDS_UPDATE_DATA_PREVENTION_RULES},
                                 {0x40400000, IDS_UPDATE_STARTUP_PROGRAM_LIST},
                                 {0x40800000, IDS_UPDATE_BROWSER_ADD_ON_LIST},
                                 {0x41000000, IDS_UPDATE_REGISTRY_RULES},
                                 {0x48000000, IDS_UPDATE_CERTIFICATE_LIST},
                                 {0x48000001, IDS_UPDATE_REVOKED_CERTIFICATE_LIST},
                                 {0x48000002, IDS_UPDATE_DOWNLOAD_REPUTATION_LIST},
                                 {0x48000100, IDS_UPDATE_SYSTEM_TUNER_RULES},
                                 {0x48000800, IDS_UPDATE_HOSTS_FILE_RULES},
                                 {0x48001000, IDS_UPDATE_QUARANTINE_RULES},
                                 {0x48040002, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040003, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040004, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040005, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040006, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040007, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040008, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040009, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040010, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040011, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040012, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040013, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040014, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040015, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040017, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040018, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040019, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040020, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040022, IDS_UPDATE_SUPPLEMENT},
                                 {0x48040023, IDS_UPDATE_SUPPLEMENT}};
static_assert(IsSorted(Patterns));

constexpr CodeText Licenses[] = {
    {223, IDS_UPDATE_LICENSE_CHECK}, {224, IDS_UPDATE_LICENSE_RENEWAL}, {225, IDS_UPDATE_PRODUCT_REGISTRATION}};
static_assert(IsSorted(Licenses));

constexpr CodeText Releases[] = {{166, IDS_UPDATE_HOT_FIX},
                                 {168, IDS_UPDATE_SERVICE_PACK},
                                 {227, IDS_UPDATE_LANGUAGE_PACK},
                                 {232, IDS_UPDATE_SETTINGS}};
static_assert(IsSorted(Releases));

// The events of the group of each number. Number 0 has none.
constexpr std::span<const CodeText> Groups[] = {{},      Runs,     Transfers, Steps,   Modules,
                                                Engines, Patterns, Licenses,  Releases};

// Text 0 stands for none.
constexpr CodeText EngineErrors[] = {{0, 0},
                                     {1, 0},
                                     {4, 0},
                                     {5, 0},
                                     {6, 0},
                                     {10, 0},
                                     {16, IDS_UPDATE_DISK_FULL},
                                     {25, 0},
                                     {28, IDS_UPDATE_NO_SERVER},
                                     {47, IDS_UPDATE_CANCELED},
                                     {48, IDS_UPDATE_ALREADY_RUNNING},
                                     {49, 0},
                                     {55, IDS_UPDATE_NO_PROXY},
                                     {56, IDS_UPDATE_PROXY_REFUSED},
                                     {58, IDS_UPDATE_DISK_FULL},
                                     {59, IDS_UPDATE_LICENSE_EXPIRED},
                                     {1000001, IDS_UPDATE_RESTART_FIRST},
                                     {0xC0010000, 0},
                                     {0xC0010002, 0},
                                     {0xC0010003, 0},
                                     {0xC0010004, 0},
                                     {0xC0010005, 0},
                                     {0xC0010006, 0},
                                     {0xC0010007, 0},
                                     {0xC0010008, 0},
                                     {0xC0010009, 0},
                                     {0xC001000A, 0},
                                     {0xC0020004, 0},
                                     {0xC0020005, 0},
                                     {0xC0110002, IDS_UPDATE_NO_SERVER},
                                     {0xC0110003, IDS_UPDATE_NO_SERVER},
                                     {0xC0110004, IDS_UPDATE_NO_SERVER},
                                     {0xC0170002, IDS_UPDATE_NO_SERVER},
                                     {0xC0170003, IDS_UPDATE_NO_SERVER},
                                     {0xC0170004, IDS_UPDATE_NO_SERVER},
                                     {0xC0170005, IDS_UPDATE_NO_SERVER},
                                     {0xC0170006, IDS_UPDATE_NO_SERVER},
                                     {0xC1000001, 0},
                                     {0xC2000001, IDS_UPDATE_NO_PROXY},
                                     {0xC2000002, IDS_UPDATE_PROXY_REFUSED},
                                     {0xC2000003, IDS_UPDATE_NO_SERVER},
                                     {0xC3000001, IDS_UPDATE_ALREADY_RUNNING},
                                     {0xC3000002, IDS_UPDATE_DISK_FULL},
                                     {0xC3000003, 0},
                                     {0xC3000004, 0}};
static_assert(IsSorted(EngineErrors));

constexpr CodeText ProductErrors[] = {
    {1, IDS_UPDATE_ERROR}, {2, IDS_UPDATE_INSTALLATION_ERROR}, {3, IDS_UPDATE_INSTALLATION_ERROR}};
static_assert(IsSorted(ProductErrors));

} // namespace

std::wstring_view EventText(std::int32_t group, std::uint32_t event)
{
    const bool isGroup = group >= 0 && static_cast<std::size_t>(group) < std::size(Groups);
    return isGroup ? TextOfCode(Groups[group], event) : std::wstring_view();
}

std::wstring_view EngineErrorText(std::uint32_t code)
{
    return TextOfCode(EngineErrors, code, IDS_UPDATE_OTHER_ENGINE_ERROR);
}

std::wstring_view ProductErrorText(std::uint32_t code)
{
    return TextOfCode(ProductErrors, code, IDS_UPDATE_UNKNOWN_ERROR);
}

} // namespace UpdateCodes
