#pragma once

#include <QtGlobal>

#include <vector>

namespace saldoro {

/**
 * Finds the rows of a record set that hold a given value in one column: a hash table with chains,
 * each chain in row order. Rows are numbered from 0 and known here by the hash of their value only;
 * the caller compares the values themselves.
 */
class EqualityIndex
{
public:
    static constexpr int NoRow = -1;

    /** Enters a row that is not in the index. */
    void add(int row, quint32 hash);
    /** Takes a row out; nothing happens when it is not in the index. */
    void remove(int row);

    /** The first row after @p row (NoRow for the very first) whose value has @p hash and meets
     *  @p isEqual, or NoRow. */
    template <typename IsEqual>
    int firstAfter(int row, quint32 hash, const IsEqual &isEqual) const
    {
        for (int candidate = chainAfter(row, hash); candidate != NoRow;
             candidate = entry(candidate).next) {
            if (entry(candidate).hash == hash && isEqual(candidate))
                return candidate;
        }
        return NoRow;
    }

private:
    struct Entry
    {
        quint32 hash = 0;
        int next = NoRow;
        bool isPresent = false;
    };

    struct Chain
    {
        int first = NoRow;
        int last = NoRow;
    };

    const Entry &entry(int row) const { return m_entries[static_cast<size_t>(row)]; }
    Entry &entry(int row) { return m_entries[static_cast<size_t>(row)]; }
    size_t chainOf(quint32 hash) const { return hash & (m_chains.size() - 1); }
    int chainAfter(int row, quint32 hash) const;
    void link(int row);
    void grow();

    std::vector<Entry> m_entries;
    std::vector<Chain> m_chains; ///< a power of two of them
};

} // namespace saldoro
