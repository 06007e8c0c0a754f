// Interface of OrlDbMg.dll, the suite's event-log database library: what the library and its users share.
// All layouts are those of the 64-bit library, byte for byte.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>

// Request kind, sub kinds and the value that stands after the period of a day list request.
inline constexpr std::uint32_t OrlKindEventLog = 2;
inline constexpr std::uint32_t OrlQueryRecords = 1;
inline constexpr std::uint32_t OrlQueryDays = 2;
inline constexpr std::uint32_t OrlDayListFlag = 1;

// A period from the first to the last moment that it covers, local time.
struct OrlPeriod
{
    SYSTEMTIME from;
    SYSTEMTIME to;
};

static_assert(offsetof(OrlPeriod, to) == 16 && sizeof(OrlPeriod) == 32);

// Argument of a day list request: an empty period, then the flag.
struct OrlDayListRequest
{
    OrlPeriod period;
    std::uint32_t flag;
    std::uint8_t zero[4];
    std::uint16_t zeroTail;
};

static_assert(offsetof(OrlDayListRequest, flag) == 32);
static_assert(offsetof(OrlDayListRequest, zero) == 36);
static_assert(offsetof(OrlDayListRequest, zeroTail) == 40);

// The library's wide string: the text lies inside while the capacity is below OrlInlineCapacity, elsewhere otherwise.
// Length and capacity count characters without the terminator.
inline constexpr std::uint64_t OrlInlineCapacity = 8;

struct OrlWideString
{
    std::uint8_t reserved[8];

    union
    {
        wchar_t inlineText[OrlInlineCapacity];
        const wchar_t* text;
    };

    std::uint64_t length;
    std::uint64_t capacity;
};

static_assert(offsetof(OrlWideString, inlineText) == 8);
static_assert(offsetof(OrlWideString, text) == 8);
static_assert(offsetof(OrlWideString, length) == 24);
static_assert(offsetof(OrlWideString, capacity) == 32);
static_assert(sizeof(OrlWideString) == 40);

// One record of the answer to OrlQueryRecords.
struct OrlLogEntry
{
    std::uint8_t reserved[16];
    OrlWideString line;
    std::uint8_t reservedTail[8];
};

static_assert(offsetof(OrlLogEntry, line) == 16);
static_assert(offsetof(OrlLogEntry, reservedTail) == 56);
static_assert(sizeof(OrlLogEntry) == 64);

// One day of the answer to OrlQueryDays.
struct OrlDayEntry
{
    SYSTEMTIME day;
    std::uint32_t reserved;
};

static_assert(offsetof(OrlDayEntry, reserved) == 16);
static_assert(sizeof(OrlDayEntry) == 20);

// The head of an answer; it and its entries belong to the provider. What follows the two pointers is not read.
template <class Entry>
struct OrlVector
{
    std::uint8_t reserved[8];
    const Entry* first;
    const Entry* last; // past the last entry
};

static_assert(offsetof(OrlVector<OrlLogEntry>, first) == 8);
static_assert(offsetof(OrlVector<OrlLogEntry>, last) == 16);
static_assert(sizeof(OrlVector<OrlLogEntry>) == 24);

// The query object of the library. It has no reference count; its maker frees it. Negative results are failures.
class IDBManagerProvider
{
public:
    virtual HRESULT Reserved() = 0; // the first slot; no user calls it
    virtual HRESULT Initialize(ULONG_PTR zero, ULONG_PTR zeroToo) = 0;
    virtual HRESULT Uninitialize(ULONG_PTR zero, ULONG_PTR zeroToo) = 0;

    // Answers one request: *result becomes an OrlVector of the query's entries that the provider owns until the next
    // query, or stays null when there is nothing. request is an OrlPeriod or an OrlDayListRequest.
    virtual HRESULT QueryValue(std::uint32_t kind, std::uint32_t query, std::uint32_t logSubType, void** result,
                               std::uint32_t flags, const void* request) = 0;

protected:
    ~IDBManagerProvider() = default;
};

// What the library exports, by these names. All words are zero. Results are as those of the provider.
inline constexpr HRESULT OrlSuccess = 0x00040200;
inline constexpr char OrlInitializeName[] = "Orl_Initialize";
inline constexpr char OrlUninitializeName[] = "Orl_Uninitialize";
inline constexpr char OrlCreateName[] = "Orl_CreateFunction";
inline constexpr char OrlFreeName[] = "Orl_FreeFunction";

// Begins the use of the library; the first call.
using OrlInitializeFunction = HRESULT (*)(ULONG_PTR zero, ULONG_PTR zeroToo);

// Ends it; the last call.
using OrlUninitializeFunction = HRESULT (*)(ULONG_PTR zero, ULONG_PTR zeroToo);

// Makes the library's one provider, which the library owns; *provider becomes its address.
using OrlCreateFunction = HRESULT (*)(IDBManagerProvider** provider, ULONG_PTR zero, ULONG_PTR zeroToo);

// Frees the provider, which the library knows: no address is passed.
using OrlFreeFunction = HRESULT (*)(ULONG_PTR zero, ULONG_PTR zeroToo, ULONG_PTR zeroThree);
