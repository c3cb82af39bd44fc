#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QList>
#include <QPushButton>
#include <QString>
#include <QWidget>

class QLayout;

namespace saldoro {

class ContractList;
class FlexGrid;

/**
 * The window of an office that works without the suite: its contracts, where they lie, and what can
 * be done to one. It is read again whenever it becomes active. Failures are told and leave it open.
 */
class FrmAppalti : public QWidget
{
    Q_OBJECT

public:
    FrmAppalti();
    ~FrmAppalti() override;

    /** Reads setting and contracts; the current contract stays current. */
    void load();

protected:
    void changeEvent(QEvent *event) override;

private:
    QLayout *makePlace();
    QLayout *makeButtons();
    QPushButton *addButton(const QString &name, const QString &caption, const QString &hint,
                           void (FrmAppalti::*action)());
    void showState(int done, int all);

    void openFolder();
    void chooseFolder();
    void openContract();
    void createContract();
    void replaceBudget();
    void addCreditors();
    /** Throws SaldoroError while Saldoro has the current contract open. */
    void refuseOpen() const;
    void checkContract();
    void copyContract();
    void exportContract();
    void closeWindow();

    QString root() const;
    QString currentFolder() const;

    FlexGrid *m_grid;
    ContractList *m_contracts;
    QLineEdit *m_place;
    QLabel *m_state;
    QList<QPushButton *> m_ofContract; ///< in use while there is a current contract
};

} // namespace saldoro
