#pragma once

#include "common/creditor_kind.h"
#include "common/program_values.h"

#include <QPointer>
#include <QWidget>

class QLayout;
class QPushButton;

namespace saldoro {

class FlexGrid;
class TextTable;

/**
 * The main screen: the payments made and, for each cost item of the contract, what is available.
 * It does its work in load() and unload(), each of which can happen many times in its life; what
 * it shows between is what the databases held at the last load.
 *
 * Errors of the databases and of the arithmetic pass through load(), unload() and the event loop.
 */
class FrmPrincipale : public QWidget
{
    Q_OBJECT

public:
    /** @p values must outlive the form. Nothing is read before load(). */
    explicit FrmPrincipale(ProgramValues &values);

    /** Puts the form above the other windows and in the middle of the screen and fills both grids
     *  from the databases; the last payment is the current one then. Shows nothing by itself. */
    void load();
    bool isLoaded() const { return m_loaded; }

    /** Writes the project's documents from the overview as it stands on screen, hides the form and
     *  sends unloaded(). Nothing happens when the form is not loaded. */
    void unload();

    /** Unloads the form, if it is loaded, loads it again and shows it, without sending unloaded().
     *  That it is out of use, it stays. */
    void reload();

    /** Takes the form out of use and puts it back, the focus where it was. While it is out of use
     *  it can't be closed either. */
    void setInUse(bool inUse);

    /** Asks for the form of the payment on the list's current row; see OpenPayment. */
    void CaricaFattura();

    /** Rebuilds the rows of the overview. */
    void LoadArrayProspettoSaldoro();
    void RefreshProspetto();

    /** The cost items with their amounts, as shown; see OverviewColumn. */
    const TextTable &overviewTable() const;

signals:
    /** A payment is to be made, of the number that is current now. The form is out of use until
     *  setInUse(). */
    void nuovoRequested();
    /** The payment of the current number is to be opened. */
    void openPaymentRequested(saldoro::CreditorKind kind);
    /** The form has become the active one, by a click for instance, while it is out of use. */
    void activatedOutOfUse();
    /** The form has gone from the screen and won't come back by itself. */
    void unloaded();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void arrange();
    void prepareGrids();
    QLayout *makeButtons();
    TextTable &payments();
    TextTable &overview();
    void addPayment();
    void activatePayment();
    void deletePayment();
    void finish();

    ProgramValues &m_values;
    FlexGrid *m_payments;
    FlexGrid *m_overview;
    QPushButton *m_modify = nullptr;
    QPointer<QWidget> m_focusBefore; ///< had the focus when the form was taken out of use
    bool m_loaded = false;
};

} // namespace saldoro
