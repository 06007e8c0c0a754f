#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>
#include <vector>

// Room in the process's heap for the rows of a list control, to be kept from before the first row is inserted until
// after the last.
//
// The control has arrays of its rows that grow by ten rows at a time. They can grow where they are as long as nothing
// else lies after them; but in Wine's heap the rows themselves, four small blocks each, come to lie just there, and
// then the arrays have to be moved, byte by byte. With this room the rows find free pieces of a page each and leave the
// place after the arrays alone: 10,000 rows then take half as long. A heap that keeps small blocks apart by itself, as
// that of Windows does, needs none of this.
class ListRowRoom
{
public:
    // Makes room for this many rows. Without memory for that there is less room, and the list is filled all the same.
    explicit ListRowRoom(std::size_t rows);

    ListRowRoom(const ListRowRoom&) = delete;
    ListRowRoom& operator=(const ListRowRoom&) = delete;

private:
    struct Free
    {
        void operator()(void* block) const noexcept { HeapFree(GetProcessHeap(), 0, block); }
    };

    using HeapBlock = std::unique_ptr<void, Free>;

    static HeapBlock Allocate(std::size_t bytes) noexcept;

    std::vector<HeapBlock> m_arrWall; // each keeps two pieces from becoming one
};
