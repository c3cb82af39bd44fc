#pragma once

#include "exchange/pasted_table.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QWidget>

namespace saldoro {

/**
 * Cost items that are pasted from a spreadsheet. They make a new contract, for whose code the form
 * asks, or a new variant of the budget of a contract that is there; the form then shows what
 * changes.
 */
class FrmVoci : public QWidget
{
    Q_OBJECT

public:
    /** @param root archives root
     *  @param code of the contract that gets a new variant; empty for a new contract. */
    FrmVoci(QString root, const QString &code, QWidget *parent);

signals:
    /** The contract of that code has its cost items; the form closes. */
    void written(const QString &code);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *makeCodeRow();
    QWidget *makeRefusals();
    QLayout *makeButtons();
    void showState();
    void showChanges();
    void write(bool evenSo);
    QString folder() const;

    QString m_root;
    bool m_isVariant;
    QStringList m_codes; ///< that are taken
    PastedTable m_pasted;
    QLineEdit *m_code;
    QLabel *m_codeProblem;
    QListWidget *m_changes;
    QListWidget *m_refusals;
    QPushButton *m_evenSo;
    QPushButton *m_write;
    bool m_isWritten = false;
};

} // namespace saldoro
