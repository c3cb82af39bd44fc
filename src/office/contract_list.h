#pragma once

#include "controls/text_table.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

namespace saldoro {

/**
 * Fills a table with the contracts of an archive, a row each. The codes are there at once, the
 * figures follow while the event loop runs; as long as archive and codes are the same as before,
 * the earlier figures stand until then. A locked contract is tried again after the others, until a
 * moment has passed since the reading began. Which folders are contracts, and which code a new one
 * gets: store/contract_folders.
 */
class ContractList : public QObject
{
    Q_OBJECT

public:
    /** @p table must outlive the object. */
    explicit ContractList(TextTable &table, QObject *parent = nullptr);

    /** Reads the contracts below the archives root @p root. The current one stays current; while it
     *  is not there, none is. With another root the first one becomes current. A reading that is
     *  going on is given up. */
    void read(const QString &root);

    /** The archives root that was read last. */
    const QString &root() const { return m_root; }
    /** Code of the current contract; empty without one. */
    QString currentCode() const;
    void setCurrentCode(const QString &code);
    /** Why the current contract can't be read; empty when it can. */
    QString currentNote() const;

signals:
    /** @p done of @p all contracts have been read. */
    void progressed(int done, int all);

private:
    void readSome();
    /** False for a contract that is to be tried again. */
    bool readContract(int row);

    TextTable &m_table;
    QString m_root;   ///< of the archives
    QString m_chosen; ///< code of the contract that was current last
    QList<int> m_waiting;
    QElapsedTimer m_since;
    QTimer m_next;
};

} // namespace saldoro
