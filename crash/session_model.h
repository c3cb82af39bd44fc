#pragma once

#include "archive_state.h"
#include "controls/text_table.h"

#include <QJsonObject>
#include <QList>

namespace saldoro {

/*
 * A step of a session is a JSON object:
 *   {"step":"save","kind":"A"|"P","number":n,"texts":{control name: text},
 *    "allocations":[[code, description, amount]...]}   "Conferma" of an invoice form
 *   {"step":"delete","number":n}                       "Elimina" of the main form
 *   {"step":"unallocate","number":n,"code":c}          "Elimina" of an invoice form
 *   {"step":"close"}                                   the main form's closing work, then its load
 */

/**
 * What a session does to an archive, write by write in the documented order, worked out apart from
 * the program's own saving and deleting: rows are written with the engine's own calls, texts are
 * turned into stored values by rules of its own.
 */
class SessionModel
{
public:
    /** @p archive is changed by every step; it must outlive the model. The main form is taken as
     *  loaded just now. */
    explicit SessionModel(TestArchive &archive);

    /** Does a step and gives every state that the archive goes through: as it was, then after each
     *  write. A program that was stopped in the step must have left one of these. */
    QList<ArchiveState> run(const QJsonObject &step);

    /** The overview as it stands on the main form. */
    const TextTable &screen() const { return m_screen; }

private:
    void write(const QString &path, const QString &sql);
    void save(const QJsonObject &step);
    void saveMandate(const QJsonObject &step);
    void remove(int number);
    void close();
    void load();

    TestArchive &m_archive;
    TextTable m_screen;
    QList<ArchiveState> m_states;
};

/** A control's text in Italian notation as ten-thousandths; a rate's when @p isRate. */
qint64 TenThousandths(const QString &text, bool isRate);

/** The ledger column of each amount control of a form: column, control name. */
QList<QPair<QString, QString>> AmountColumns(const QString &kind);

} // namespace saldoro
