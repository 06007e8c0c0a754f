#include "platform/dialog/ListRowRoom.h"

namespace
{

// In Wine 8, with what the heap adds: the row 80, its array of columns 144 and the head of that 64, its number 48.
// Where they have other sizes the room is a little too large or too small, which does no harm.
constexpr std::size_t RowBytes = 80 + 144 + 64 + 48;

// The largest block that Wine's heap takes for small: it looks for room for a row among those before it cuts a large
// one.
constexpr std::size_t PieceBytes = 4096 - 16;

} // namespace

ListRowRoom::HeapBlock ListRowRoom::Allocate(std::size_t bytes) noexcept
{
    return HeapBlock(HeapAlloc(GetProcessHeap(), 0, bytes));
}

ListRowRoom::ListRowRoom(std::size_t rows)
{
    std::vector<HeapBlock> pieces(rows * RowBytes / PieceBytes);
    m_arrWall.reserve(pieces.size());
    for (HeapBlock& piece : pieces)
    {
        piece = Allocate(PieceBytes);
        m_arrWall.push_back(Allocate(1));
    }
}
