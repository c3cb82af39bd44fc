#include "database/equality_index.h"

namespace saldoro {

void EqualityIndex::add(int row, quint32 hash)
{
    if (static_cast<size_t>(row) >= m_entries.size())
        m_entries.resize(static_cast<size_t>(row) + 1);
    entry(row) = {hash, NoRow, true};
    if (m_entries.size() > m_chains.size())
        grow(); // links every row that is present, this one too
    else
        link(row);
}

void EqualityIndex::grow()
{
    size_t size = 64;
    while (size < 2 * m_entries.size())
        size *= 2;
    m_chains.assign(size, Chain());
    for (int row = 0; row < static_cast<int>(m_entries.size()); ++row) {
        entry(row).next = NoRow;
        if (entry(row).isPresent)
            link(row);
    }
}

void EqualityIndex::link(int row)
{
    Chain &chain = m_chains[chainOf(entry(row).hash)];
    if (chain.first == NoRow || row < chain.first) {
        entry(row).next = chain.first;
        chain.first = row;
        if (chain.last == NoRow)
            chain.last = row;
        return;
    }
    int before = chain.last < row ? chain.last : chain.first;
    while (entry(before).next != NoRow && entry(before).next < row)
        before = entry(before).next;
    entry(row).next = entry(before).next;
    entry(before).next = row;
    if (chain.last == before)
        chain.last = row;
}

void EqualityIndex::remove(int row)
{
    if (static_cast<size_t>(row) >= m_entries.size() || !entry(row).isPresent)
        return;
    Chain &chain = m_chains[chainOf(entry(row).hash)];
    int before = NoRow;
    for (int candidate = chain.first; candidate != row; candidate = entry(candidate).next)
        before = candidate;
    (before == NoRow ? chain.first : entry(before).next) = entry(row).next;
    if (chain.last == row)
        chain.last = before;
    entry(row) = Entry();
}

int EqualityIndex::chainAfter(int row, quint32 hash) const
{
    if (m_chains.empty())
        return NoRow;
    if (row != NoRow && static_cast<size_t>(row) < m_entries.size() && entry(row).isPresent &&
        chainOf(entry(row).hash) == chainOf(hash))
        return entry(row).next;
    int candidate = m_chains[chainOf(hash)].first;
    while (candidate != NoRow && candidate <= row)
        candidate = entry(candidate).next;
    return candidate;
}

} // namespace saldoro
