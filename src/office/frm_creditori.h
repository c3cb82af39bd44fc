#pragma once

#include "exchange/creditor_tables.h"
#include "exchange/pasted_table.h"

#include <QComboBox>
#include <QPushButton>
#include <QWidget>

namespace saldoro {

/** Companies and professionals of a contract, pasted from a spreadsheet or typed, beside those that
 *  are there already, and which company is the contractor. The form is modal to its parent and
 *  deletes itself when it is closed. */
class FrmCreditori : public QWidget
{
    Q_OBJECT

public:
    /** @param folder of the project, on the machine. Throws DatabaseError. */
    FrmCreditori(QString folder, QWidget *parent);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *makeCompanies();
    void showState();
    void write();
    bool hasChanges() const;

    QString m_folder;
    KnownCreditors m_known;
    PastedTable m_companies;
    PastedTable m_professionals;
    QComboBox *m_contractor;
    QPushButton *m_write;
};

} // namespace saldoro
