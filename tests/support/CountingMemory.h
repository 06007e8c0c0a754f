#pragma once

#include <cstddef>
#include <limits>
#include <memory_resource>
#include <new>

// Memory from the heap that knows how much of it is out, and can be made to run out.
class CountingMemory : public std::pmr::memory_resource
{
public:
    std::size_t BytesOut() const { return m_nBytes; }

    std::size_t BlocksOut() const { return m_nBlocks; }

    std::size_t MostBytesOut() const { return m_nMostBytes; }

    // Lets so many allocations succeed; all that follow throw std::bad_alloc.
    void FailAfter(std::size_t allocations) { m_nLeft = allocations; }

    void NeverFail() { m_nLeft = Unlimited; }

    // Whether an allocation was refused.
    bool HasFailed() const { return m_bFailed; }

private:
    static constexpr std::size_t Unlimited = std::numeric_limits<std::size_t>::max();

    void* do_allocate(std::size_t bytes, std::size_t alignment) override
    {
        if (m_nLeft == 0)
        {
            m_bFailed = true;
            throw std::bad_alloc();
        }
        void* const block = std::pmr::new_delete_resource()->allocate(bytes, alignment);
        m_nLeft -= m_nLeft == Unlimited ? 0 : 1;
        m_nBytes += bytes;
        m_nMostBytes = m_nBytes > m_nMostBytes ? m_nBytes : m_nMostBytes;
        ++m_nBlocks;
        return block;
    }

    void do_deallocate(void* block, std::size_t bytes, std::size_t alignment) override
    {
        std::pmr::new_delete_resource()->deallocate(block, bytes, alignment);
        m_nBytes -= bytes;
        --m_nBlocks;
    }

    bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override { return this == &other; }

    std::size_t m_nBytes = 0;
    std::size_t m_nMostBytes = 0;
    std::size_t m_nBlocks = 0;
    std::size_t m_nLeft = Unlimited;
    bool m_bFailed = false;
};
