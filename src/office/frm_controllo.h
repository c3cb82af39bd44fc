#pragma once

#include "controls/date_box.h"

#include <QComboBox>
#include <QListWidget>
#include <QWidget>

namespace saldoro {

/** What the check of a contract finds, with what to do. Payments that lack their day can be given
 *  it. */
class FrmControllo : public QWidget
{
    Q_OBJECT

public:
    /** Checks the project in @p folder (of the machine). Throws SaldoroError for databases that
     *  can't be looked into just now. */
    FrmControllo(QString folder, QWidget *parent);

private:
    void check();
    void setDay();

    QString m_folder;
    QListWidget *m_findings;
    QWidget *m_dayRow;
    QComboBox *m_payments; ///< that lack their day
    DateBox *m_day;
};

} // namespace saldoro
