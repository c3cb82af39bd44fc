#include "overview/frm_principale.h"

#include "common/ending.h"
#include "controls/flex_grid.h"
#include "controls/message_box.h"
#include "controls/notice_strip.h"
#include "controls/prompt_button.h"
#include "controls/screen_reader.h"
#include "controls/window_placement.h"
#include "overview/availability_overview.h"
#include "overview/closing_work.h"
#include "overview/main_screen_notices.h"
#include "overview/payment_opening_and_deletion.h"
#include "overview/payments_list.h"
#include "store/contract_folders.h"
#include "store/payment_numbers.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QLabel>
#include <QTimer>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** First size of the window in twips, 900 by 620 pixels on a screen of 96 dots to the inch. */
constexpr QSize firstSize(13500, 9300);

QLabel *makeHeading(const QString &name, const QString &text, QWidget *buddy)
{
    auto *heading = new QLabel(text, buddy->parentWidget());
    heading->setObjectName(name);
    heading->setBuddy(buddy);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    return heading;
}

} // namespace

FrmPrincipale::FrmPrincipale(ProgramValues &values)
    : m_values(values)
    , m_payments(new FlexGrid(FlexGrid::SelectRows, this))
    , m_overview(new FlexGrid(FlexGrid::SelectRows, this))
    , m_strip(new NoticeStrip(this, NoticeStrip::Worth::Hidden, [this] {
        return MainScreenNotices(m_payments->table(), m_overview->table(), m_isOpenElsewhere);
    }))
{
    setObjectName(u"FrmPrincipale"_s);
    prepareGrids();
    arrange();
    SizeWindow(*this, TwipsToPixels(firstSize, *this));
    for (TextTable *table : {&m_payments->table(), &m_overview->table()}) {
        connect(table, &TextTable::modelReset, m_strip, &NoticeStrip::refreshSoon);
        connect(table, &TextTable::currentMoved, m_strip, &NoticeStrip::refreshSoon);
    }
}

void FrmPrincipale::prepareGrids()
{
    Describe(*m_payments, u"MSFlexGrid1"_s, u"Saldoro effettuati"_s,
             u"Pagamenti già registrati: Invio apre quello scelto, Canc lo elimina, le lettere "
             u"trovano il creditore"_s);
    m_payments->setWidths({400, FlexGrid::Rest, 1000, 1800, 400});
    m_payments->table().setRightAligned({PaymentColumn::Importo});
    m_payments->setSearchColumn(PaymentColumn::Creditore);
    connect(m_payments, &FlexGrid::cellActivated, this, &FrmPrincipale::CaricaFattura);
    connect(m_payments, &FlexGrid::deletePressed, this, &FrmPrincipale::deletePayment);

    Describe(*m_overview, u"MSFlexGrid2"_s, u"Quadro di disponibilità"_s,
             u"Spesa prevista, pagata e ancora disponibile di ogni voce"_s);
    m_overview->setWidths({400, FlexGrid::Rest, 1100, 1100, 1100});
    m_overview->table().setRightAligned(
        {OverviewColumn::Spesa, OverviewColumn::Pagato, OverviewColumn::Disponibilita});
}

void FrmPrincipale::arrange()
{
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(makeHeading(u"Label1_0"_s, u"&Saldoro effettuati"_s, m_payments));
    whole->addWidget(m_payments, 1);
    whole->addSpacing(whole->spacing());
    whole->addWidget(makeHeading(u"Label1_1"_s, u"&Quadro di disponibilità"_s, m_overview));
    whole->addWidget(m_overview, 1);
    whole->addWidget(m_strip);
    whole->addLayout(makeButtons());
}

QLayout *FrmPrincipale::makeButtons()
{
    auto *row = new QHBoxLayout;
    row->addStretch(1);
    const auto add = [&](const QString &name, const QString &caption, const QString &hint,
                         auto action) {
        auto *button = new PromptButton(name, caption, hint);
        row->addWidget(button);
        connect(button, &QPushButton::clicked, this, action);
        return button;
    };
    add(u"Command1"_s, u"&Nuovo"_s, u"Registra un nuovo pagamento"_s, &FrmPrincipale::addPayment);
    m_modify = add(u"Command3"_s, u"&Modifica"_s, u"Apre il pagamento scelto"_s,
                   &FrmPrincipale::CaricaFattura);
    add(u"Command4"_s, u"&Elimina"_s,
        u"Elimina il pagamento scelto, dopo averne chiesto conferma"_s,
        &FrmPrincipale::deletePayment);
    add(u"Command2"_s, u"&Chiudi"_s, u"Chiude e scrive i documenti del progetto"_s,
        &QWidget::close);
    m_modify->setEnabled(false);
    return row;
}

const TextTable &FrmPrincipale::overviewTable() const
{
    return m_overview->table();
}

bool FrmPrincipale::lists(qint32 paymentNumber) const
{
    const TextTable &payments = m_payments->table();
    return !payments
                .match(payments.index(0, PaymentColumn::Nr), Qt::DisplayRole,
                       QString::number(paymentNumber), 1, Qt::MatchExactly)
                .isEmpty();
}

void FrmPrincipale::lookForOtherWindows()
{
    if (!m_mark)
        m_mark.emplace(ContractFolder(m_values.ArchiveRoot, m_values.ProjectCode));
    m_isOpenElsewhere = m_mark->isOpenElsewhere();
    m_strip->refreshSoon();
}

void FrmPrincipale::load()
{
    SetTopMost(*this);
    CentraForm(*this);
    TextTable &payments = m_payments->table();
    TextTable &overview = m_overview->table();
    RecordSet stored = OpenPaymentsList(m_values);
    setWindowTitle(u"SALDORO APPALTO ("_s + m_values.ProjectCode + u')');
    PrepareAvailabilityOverview(overview);
    PreparePaymentsList(payments);
    m_modify->setEnabled(false);
    FillPaymentsList(payments, std::move(stored));
    m_modify->setEnabled(payments.rows() > 1);
    LoadArrayProspettoSaldoro();
    if (overview.rows() > 1)
        overview.setRow(1); // the list is continued at its end, the overview read from its start
    constexpr int afterPainting = 50; // milliseconds; the marks are files, which can wait
    QTimer::singleShot(afterPainting, this, &FrmPrincipale::lookForOtherWindows);
    emit loaded();
}

void FrmPrincipale::LoadArrayProspettoSaldoro()
{
    FillAvailabilityOverview(m_overview->table(), m_values);
}

void FrmPrincipale::writeDocuments()
{
    if (isVisible() && !IsEnding())
        WriteProjectDocuments(m_values, overviewTable());
}

void FrmPrincipale::reopen()
{
    writeDocuments();
    load();
    BringToFront(*this);
    m_payments->setFocus(); // as when the form is opened
}

void FrmPrincipale::addPayment()
{
    m_focusBefore = focusWidget();
    setEnabled(false);
    m_values.CurrentPaymentNumber = NextPaymentNumber(m_payments->table().rowCount());
    emit nuovoRequested();
}

void FrmPrincipale::putBackInUse()
{
    setEnabled(true);
    if (m_focusBefore)
        m_focusBefore->setFocus();
}

void FrmPrincipale::CaricaFattura()
{
    if (const auto kind = OpenPayment(m_values, NumberOfListRow(m_payments->table().row())))
        emit openPaymentRequested(*kind);
}

void FrmPrincipale::deletePayment()
{
    const qint32 number = NumberOfListRow(m_payments->table().row());
    if (m_payments->table().rows() == 1 ||
        !ChiediConferma(u"Sei sicuro di vole eliminare il pagamento N°%1"_s.arg(number)))
        return;
    DeletePayment(m_values, number);
    load();
}

void FrmPrincipale::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && !isEnabled())
        emit activatedOutOfUse();
}

void FrmPrincipale::closeEvent(QCloseEvent *event)
{
    event->setAccepted(isEnabled() || IsEnding());
    if (event->isAccepted())
        writeDocuments();
}

} // namespace saldoro
