#pragma once

#include "common/creditor_kind.h"

#include <QDialog>

class QAbstractButton;

namespace saldoro {

/**
 * The chooser of the kind of a new payment's creditor, company or professional. Its two buttons
 * are the only way out; Enter is "Continua" unless "Annulla" has the focus. It stays above the
 * other windows.
 */
class FrmNuovaFattura : public QDialog
{
    Q_OBJECT

public:
    /** @param owner the form that it stays above. */
    explicit FrmNuovaFattura(QWidget *owner = nullptr);

    /** Does nothing: Esc is no way out. */
    void reject() override {}

signals:
    /** "Continua" was pressed: the form of @p kind is to be opened. finished() follows, as it does
     *  after "Annulla". */
    void continued(saldoro::CreditorKind kind);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QWidget *makeOptions();
    QLayout *makeButtons();

    QAbstractButton *m_company = nullptr;
};

} // namespace saldoro
