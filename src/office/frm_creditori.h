#pragma once

#include "exchange/creditor_tables.h"
#include "exchange/pasted_table.h"

#include <QComboBox>
#include <QPushButton>
#include <QWidget>

namespace saldoro {

/**
 * Companies and professionals of a contract, pasted from a spreadsheet or typed, beside those that
 * are there already, and which company is the contractor. A pasted company that is chosen stays
 * chosen when its name is corrected. When its row is no longer taken, the archive's contractor is
 * chosen.
 */
class FrmCreditori : public QWidget
{
    Q_OBJECT

public:
    /** Throws DatabaseError. */
    FrmCreditori(ProgramValues values, QWidget *parent);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *makePage(PastedTable &pasted, const QString &name, const QStringList &known);
    void showState();
    void write();
    bool hasChanges() const;
    /** The chosen contractor if it is another than the stored one, or if the stored one is a known
     *  company that is not linked yet; else empty. */
    QString newContractor() const;

    ProgramValues m_values;
    KnownCreditors m_known;
    PastedTable m_companies;
    PastedTable m_professionals;
    QComboBox *m_contractor;
    QPushButton *m_write;
    bool m_isWritten = false;
};

} // namespace saldoro
