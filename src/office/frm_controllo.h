#pragma once

#include "controls/date_box.h"

#include <QComboBox>
#include <QListWidget>
#include <QWidget>

namespace saldoro {

/** What the check of a contract finds, with what to do, as ShowLines() shows it. Payments that lack
 *  their day can be given it. */
class FrmControllo : public QWidget
{
    Q_OBJECT

public:
    /** @param folder of the project, a path of the machine. */
    FrmControllo(QString folder, QWidget *parent);

    /** Checks the project as it is now; the user may cancel that. To be called once the window is
     *  shown. */
    void check();

private:
    void setDay();

    QString m_folder;
    QListWidget *m_findings;
    QWidget *m_dayRow;
    QComboBox *m_payments; ///< that lack their day
    DateBox *m_day;
};

} // namespace saldoro
