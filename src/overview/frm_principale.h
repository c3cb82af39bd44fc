#pragma once

#include "common/creditor_kind.h"
#include "common/program_values.h"
#include "store/project_open_mark.h"

#include <QPointer>
#include <QWidget>

#include <optional>

class QLayout;
class QPushButton;

namespace saldoro {

class FlexGrid;
class NoticeStrip;
class TextTable;

/**
 * The main screen: the payments made and, for each cost item of the contract, what is available.
 * What it shows is what the databases held when they were last read. Before it closes, it writes
 * the project's documents from the overview as it stands on screen, unless it was never shown or
 * the program is ending after an error.
 *
 * Errors of the databases and of the arithmetic pass through its functions and the event loop.
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

    /** Loads the form and shows it. A visible form first writes the documents, and stays visible. A
     *  form that is out of use stays so. */
    void reopen();

    /** Puts the form back into use after nuovoRequested(), the focus where it was. While it is out
     *  of use it can't be closed either. */
    void putBackInUse();

    /** Asks for the form of the payment on the list's current row; see OpenPayment. */
    void CaricaFattura();

    /** Rebuilds the rows of the overview from the databases. */
    void LoadArrayProspettoSaldoro();
    /** The same for others than the form itself. */
    void RefreshProspetto() { LoadArrayProspettoSaldoro(); }

    /** The cost items with their amounts, as shown; see OverviewColumn. */
    const TextTable &overviewTable() const;

    /** Whether a payment of the list has that number. */
    bool lists(qint32 paymentNumber) const;

signals:
    /** A payment is to be made, of the number that is current now. The form is out of use until
     *  putBackInUse(). */
    void nuovoRequested();
    /** The payment of the current number is to be opened. */
    void openPaymentRequested(saldoro::CreditorKind kind);
    /** Both grids have been filled from the databases. */
    void loaded();
    /** The form has become the active one, by a click for instance, while it is out of use. */
    void activatedOutOfUse();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void arrange();
    void prepareGrids();
    QLayout *makeButtons();
    void addPayment();
    void deletePayment();
    void writeDocuments();
    void lookForOtherWindows();

    ProgramValues &m_values;
    FlexGrid *m_payments;
    FlexGrid *m_overview;
    NoticeStrip *m_strip;
    QPushButton *m_modify = nullptr;
    std::optional<ProjectOpenMark> m_mark; ///< made a moment after load(), to let it paint first
    bool m_isOpenElsewhere = false;
    QPointer<QWidget> m_focusBefore; ///< had the focus when the form was taken out of use
};

} // namespace saldoro
