#pragma once

#include "exchange/import.h"
#include "exchange/pasted_table.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QWidget>

class QBoxLayout;

namespace saldoro {

class FlexGrid;

/**
 * The cost items of a contract, pasted from a spreadsheet: of a new contract, whose code is asked
 * for, or a new variant of the budget of one that is there, beside which stands what changes. The
 * form is modal to its parent and deletes itself when it is closed.
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
    void arrange();
    QWidget *makeCodeRow();
    QWidget *makeComparison();
    QWidget *makeRefusals();
    QBoxLayout *makeButtons();
    void showProblems();
    void showComparison();
    void write(bool evenSo);
    void showRefusals(const ImportOutcome &outcome);
    QString code() const;
    QString folder() const;

    QString m_root;
    bool m_isVariant;
    QStringList m_codes; ///< that are taken
    PastedTable m_pasted;
    QLineEdit *m_code;
    QLabel *m_codeProblem;
    FlexGrid *m_comparison;
    QListWidget *m_refusals;
    QPushButton *m_evenSo;
    QPushButton *m_write;
    bool m_isWritten = false;
};

} // namespace saldoro
