#pragma once

#include "controls/text_table.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

namespace saldoro {

/** Columns of the list of contracts. */
namespace ContractColumn {
inline constexpr int Codice = 0;
inline constexpr int Voci = 1;
inline constexpr int Spesa = 2;
inline constexpr int Pagamenti = 3;
inline constexpr int Pagato = 4;
inline constexpr int Disponibilita = 5;
inline constexpr int UltimoPagamento = 6;
inline constexpr int Nota = 7; ///< why a contract can't be read
inline constexpr int Count = 8;
} // namespace ContractColumn

/**
 * Fills a table with the contracts of an archive, a row each. The codes are there at once, the
 * figures follow while the event loop runs, those of an earlier reading standing until then. A
 * contract that is locked lets the others go first and is tried again until it has been locked for
 * more than a moment.
 */
class ContractList : public QObject
{
    Q_OBJECT

public:
    /** @p table must outlive the object. */
    explicit ContractList(TextTable &table);

    /** Reads the contracts below the archives root @p root; the current one stays current if it is
     *  still there. A reading that is going on is given up. */
    void read(const QString &root);

    /** Code of the current contract; empty without one. */
    QString currentCode() const;
    void setCurrentCode(const QString &code);

signals:
    /** So many of all contracts have been read. */
    void progressed(int done, int all);

private:
    void readSome();
    void readContract(int row);
    void writeRow(int row, const QStringList &cells);

    TextTable &m_table;
    QString m_folder; ///< of the contracts
    QList<int> m_waiting;
    QList<int> m_locked; ///< to be tried again
    QElapsedTimer m_since;
    QTimer m_next;
};

} // namespace saldoro
