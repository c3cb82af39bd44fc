#pragma once

#include "controls/manual_window.h"

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

class QLayout;

namespace saldoro {

class ContractList;
class FlexGrid;

/**
 * The window of an office that works without the suite: its contracts, where they lie, and what can
 * be done to one. It reads them again whenever it becomes active. After a failure, which is shown,
 * the window stays open.
 */
class FrmAppalti : public QWidget
{
    Q_OBJECT

public:
    FrmAppalti();

    /** Reads setting and contracts; the current contract stays current. */
    void load();

protected:
    void changeEvent(QEvent *event) override;

private:
    QLayout *makePlace();
    QWidget *makeContractButtons();
    void showState(int done, int all);

    void openFolder();
    void chooseFolder();
    void openContract();
    void createContract();
    void replaceBudget();
    void addCreditors();
    void checkContract();
    void copyContract();
    void exportContract();

    /** The archives root that is set, or else proposed. */
    QString root() const;
    QString currentFolder() const;

    /** Shows a form, in which F1 leads to that chapter. */
    void openForm(QWidget &form, QStringView chapter);

    FlexGrid *m_grid;
    ContractList *m_contracts;
    QLineEdit *m_place;
    QLabel *m_state;
    QString m_none;             ///< what is said where there are no contracts
    QWidget *m_contractButtons; ///< in use while there is a current contract
    ManualWindow m_manual;
};

} // namespace saldoro
