#pragma once

#include "suite/samples/Random.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace Samples
{

// One row of a table to draw from, with the number of its cards in the deck.
template <class T>
struct Card
{
    unsigned copies;
    T value;
};

// A table drawn in shuffled order, like a deck of cards: every row comes up before any row has come up more often
// than its copies say. Chance alone would leave the rare rows out of some months.
// The table must live as long as the deck.
template <class T>
class Deck
{
public:
    template <std::size_t Count>
    Deck(const Card<T> (&table)[Count], Random& random) : m_random(random)
    {
        for (const Card<T>& card : table)
        {
            m_arrCard.insert(m_arrCard.end(), card.copies, &card.value);
        }
    }

    template <std::size_t Count>
    Deck(const T (&table)[Count], Random& random) : m_random(random)
    {
        for (const T& value : table)
        {
            m_arrCard.push_back(&value);
        }
    }

    const T& Draw()
    {
        if (m_nNext == 0)
        {
            Shuffle();
            m_nNext = m_arrCard.size();
        }
        return *m_arrCard[--m_nNext];
    }

private:
    void Shuffle()
    {
        for (std::size_t left = m_arrCard.size(); left > 1; --left)
        {
            std::swap(m_arrCard[left - 1], m_arrCard[m_random.Below(static_cast<std::uint32_t>(left))]);
        }
    }

    Random& m_random;
    std::vector<const T*> m_arrCard;
    std::size_t m_nNext = 0;
};

} // namespace Samples
