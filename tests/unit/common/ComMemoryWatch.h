#pragma once

#include <windows.h>

#include <objidl.h>
#include <oleauto.h>

#include <atomic>
#include <stdexcept>

// The toolchain's headers leave it out.
extern "C" __declspec(dllimport) void WINAPI SetOaNoCache();

// Counts the blocks of COM's memory, in which arrays and their texts lie, that the process takes and gives back while
// the object lives, and can let it run out. One at a time.
class ComMemoryWatch
{
public:
    ComMemoryWatch() = default;

    ~ComMemoryWatch() { Fail(false); }

    ComMemoryWatch(const ComMemoryWatch&) = delete;
    ComMemoryWatch& operator=(const ComMemoryWatch&) = delete;

    // Blocks taken and not given back since the start.
    long BlocksOut() const { return m_spy.m_nBlocks - m_nBefore; }

    // From now on no block is to be had, or again.
    void Fail(bool fails) { m_spy.m_bFails = fails; }

private:
    // Stands by from the first watch to the end of the process: COM gives a spy up only when no block is out.
    class Spy final : public IMallocSpy
    {
    public:
        Spy()
        {
            ::SetOaNoCache(); // else freed texts are kept for later ones
            if (FAILED(::CoRegisterMallocSpy(this)))
            {
                throw std::runtime_error("COM's memory cannot be watched");
            }
        }

        virtual ~Spy() = default;

        HRESULT WINAPI QueryInterface(REFIID id, void** object) override
        {
            const bool known = id == __uuidof(IUnknown) || id == __uuidof(IMallocSpy);
            *object = known ? this : nullptr;
            return known ? S_OK : E_NOINTERFACE;
        }

        ULONG WINAPI AddRef() override { return 1; }

        ULONG WINAPI Release() override { return 1; }

        SIZE_T WINAPI PreAlloc(SIZE_T size) override { return m_bFails ? 0 : size; }

        void* WINAPI PostAlloc(void* block) override
        {
            m_nBlocks += block != nullptr;
            return block;
        }

        void* WINAPI PreFree(void* block, BOOL spied) override
        {
            m_nBlocks -= block != nullptr && spied;
            return block;
        }

        void WINAPI PostFree(BOOL) override {}

        SIZE_T WINAPI PreRealloc(void* block, SIZE_T size, void** asked, BOOL) override
        {
            *asked = block;
            return size;
        }

        void* WINAPI PostRealloc(void* block, BOOL) override { return block; }

        void* WINAPI PreGetSize(void* block, BOOL) override { return block; }

        SIZE_T WINAPI PostGetSize(SIZE_T size, BOOL) override { return size; }

        void* WINAPI PreDidAlloc(void* block, BOOL) override { return block; }

        int WINAPI PostDidAlloc(void*, BOOL, int actual) override { return actual; }

        void WINAPI PreHeapMinimize() override {}

        void WINAPI PostHeapMinimize() override {}

        std::atomic<long> m_nBlocks = 0;
        std::atomic<bool> m_bFails = false;
    };

    static Spy& TheSpy()
    {
        static Spy* const spy = new Spy;
        return *spy;
    }

    Spy& m_spy = TheSpy();
    const long m_nBefore = m_spy.m_nBlocks;
};
