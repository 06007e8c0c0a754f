#pragma once

#include <cstddef>
#include <string_view>

namespace Fuzz
{

// Memory for inputs that ends at a page that cannot be touched, in every build: a read past the end of an input stops
// the program at the very instruction.
class GuardedBlock
{
public:
    // Throws std::bad_alloc.
    GuardedBlock();
    ~GuardedBlock();
    GuardedBlock(const GuardedBlock&) = delete;
    GuardedBlock& operator=(const GuardedBlock&) = delete;

    // A copy of the bytes that ends where the page begins, valid until the next call. Throws std::length_error for more
    // than 2 MB.
    std::string_view Put(std::string_view bytes);

private:
    char* m_pages;
};

} // namespace Fuzz
