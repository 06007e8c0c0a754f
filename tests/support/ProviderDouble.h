#pragma once

#include "common/OrlDbMg.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

// An answer of the database library to a record query, built byte for byte: what users must not read is filled with
// 0xCD, and nothing depends on the declarations that users read it with.
class ProviderAnswer
{
public:
    ProviderAnswer();

    // Adds an entry, with its text inside when it is short enough, else elsewhere.
    void Add(std::wstring_view line);

    // Adds an entry whose text lies elsewhere although it would fit inside.
    void AddElsewhere(std::wstring_view line, std::uint64_t capacity);

    // The address that QueryValue answers with; valid until the next change.
    void* Address();

private:
    std::vector<std::uint8_t> m_head;
    std::vector<std::uint8_t> m_entries;
    std::deque<std::wstring> m_texts;
};

// A database library that keeps what it is asked and answers what the test says.
class ProviderDouble : public IDBManagerProvider
{
public:
    struct Query
    {
        std::uint32_t kind;
        std::uint32_t query;
        std::uint32_t logSubType;
        const void* resultBefore;
        std::uint32_t flags;
        std::vector<std::uint8_t> request;
    };

    HRESULT Reserved() override { return E_NOTIMPL; }

    HRESULT Initialize(ULONG_PTR, ULONG_PTR) override { return E_NOTIMPL; }

    HRESULT Uninitialize(ULONG_PTR, ULONG_PTR) override { return E_NOTIMPL; }

    HRESULT QueryValue(std::uint32_t kind, std::uint32_t query, std::uint32_t logSubType, void** result,
                       std::uint32_t flags, const void* request) override;

    HRESULT m_status = 0x00040200; // the success of the suite
    void* m_answer = nullptr;
    std::size_t m_requestSize = 32;
    std::vector<Query> m_arrQuery;
};
