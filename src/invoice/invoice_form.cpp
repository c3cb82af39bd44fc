#include "invoice/invoice_form.h"

#include "common/ending.h"
#include "controls/date_box.h"
#include "controls/message_box.h"
#include "controls/notice_strip.h"
#include "controls/prompt_button.h"
#include "controls/window_placement.h"
#include "invoice/allocation_frame.h"
#include "invoice/amount_fields.h"
#include "invoice/creditor_fields.h"
#include "invoice/entry_field.h"
#include "invoice/note_fields.h"
#include "invoice/payment_load.h"
#include "invoice/payment_save.h"
#include "store/creditor_search.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>

#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

InvoiceForm::InvoiceForm(CreditorKind kind, ProgramValues &values, const TextTable &overview)
    : m_values(values)
    , m_loaded{{kind, values.CurrentPaymentNumber}}
    , m_navigation(*this)
    , m_page(new QWidget(this))
    , m_number(new QLabel(this))
    , m_creditor(new CreditorFields(kind, m_navigation, this))
    , m_amounts(new AmountFields(kind, m_navigation, this))
    , m_notes(new NoteFields(m_navigation, this))
    , m_allocation(new AllocationFrame(isCompany() ? u" Conti di Spesa "_s : u"Conti di Spesa"_s,
                                       overview, values, paymentNumber(), m_navigation, this))
    , m_strip(new NoticeStrip(this, NoticeStrip::Worth::Shown, [this] { return notices(); }))
{
    setObjectName(isCompany() ? u"FrmAziende"_s : u"FrmProfessionisti"_s);
    setWindowTitle(isCompany() ? u"Aziende"_s : u"Professionisti"_s);
    m_number->setObjectName(u"Label2"_s);
    m_number->setTextFormat(Qt::PlainText);
    QFont heading = m_number->font();
    heading.setBold(true);
    m_number->setFont(heading);
    addCreditorLists();
    arrange();
    connect(&m_amounts->totalBox(), &QLineEdit::textChanged, &m_allocation->invoiceTotal(),
            &QLabel::setText);
    followContent();
    connect(&overview, &TextTable::modelReset, m_strip, &NoticeStrip::refreshSoon);
}

void InvoiceForm::load()
{
    SetTopMost(*this);
    constexpr QSize least(15000, 8400); // twips
    const QSize below(0, layout()->itemAt(1)->sizeHint().height());
    SizeWindow(*this, (m_page->sizeHint() + below).expandedTo(TwipsToPixels(least, *this)));
    CentraForm(*this);
    loadPayment();
    // The second blank is the sign of a number that is not negative.
    m_number->setText(u"Pagamento N.  %1"_s.arg(paymentNumber()));
    m_allocation->RecalcAllocationTotal();
    m_creditor->creditorBox().setFocus(Qt::OtherFocusReason);
    m_open = true;
}

void InvoiceForm::closeEvent(QCloseEvent *event)
{
    event->accept();
    if (!IsEnding() && std::exchange(m_open, false))
        emit unloaded();
}

void InvoiceForm::addCreditorLists()
{
    if (!isCompany()) {
        m_creditor->addList(u"Command5"_s, u"&Ricerca"_s,
                            u"Elenca i professionisti incaricati nel contratto"_s,
                            [this] { return ProfessionalCreditors(m_values); });
        return;
    }
    m_creditor->addList(
        u"Command5"_s, u"&Ricerca"_s,
        u"Elenca le imprese partecipanti il cui nome inizia come il creditore scritto"_s,
        [this] { return ParticipatingCompanies(m_values, m_creditor->creditorBox().text()); });
    m_principals = m_creditor->addList(
        u"Command6"_s, u"&Mandanti"_s, u"Elenca le mandanti dell'associazione di imprese"_s,
        [this] { return Principals(m_values, m_contractor.IdImpresa); });
    m_principals->setEnabled(false);
}

void InvoiceForm::arrange()
{
    auto *left = new QVBoxLayout;
    auto *right = new QVBoxLayout;
    left->addWidget(m_amounts);
    if (isCompany()) // whose few amounts leave room below them
        left->addWidget(m_notes, 1);
    else
        right->addWidget(m_notes);
    right->addWidget(m_allocation, 1);
    auto *columns = new QHBoxLayout;
    columns->addLayout(left);
    columns->addLayout(right, 1);
    auto *whole = new QVBoxLayout(m_page);
    whole->addWidget(m_number);
    whole->addWidget(m_creditor);
    whole->addLayout(columns, 1);
    addPage();
}

// Where large letters leave too little room the page scrolls, and follows the focus. Notices and
// buttons stay in sight.
void InvoiceForm::addPage()
{
    auto *area = new QScrollArea(this);
    area->setFocusPolicy(Qt::NoFocus);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(m_page);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(area);
    auto *foot = new QVBoxLayout;
    const QMargins margins = m_page->layout()->contentsMargins();
    foot->setContentsMargins(margins.left(), 0, margins.right(), margins.bottom());
    foot->addWidget(m_strip);
    foot->addLayout(makeButtons());
    layout->addLayout(foot);
    connect(qApp, &QApplication::focusChanged, area, [area](QWidget *, QWidget *now) {
        if (!area->isAncestorOf(now))
            return;
        // The toolkit cares for the cursor only; the rest of the control, and its caption, may be
        // out of sight.
        QRect control(now->mapTo(area->widget(), QPoint()), now->size());
        for (const QLabel *label : area->findChildren<QLabel *>()) {
            if (label->buddy() == now)
                control |= QRect(label->mapTo(area->widget(), QPoint()), label->size());
        }
        control.setSize(control.size().boundedTo(area->viewport()->size()));
        area->ensureVisible(control.center().x(), control.center().y(), control.width() / 2 + 1,
                            control.height() / 2 + 1);
        area->ensureWidgetVisible(now);
    });
}

QLayout *InvoiceForm::makeButtons()
{
    auto *row = new QHBoxLayout;
    row->addStretch(1);
    auto *confirm =
        m_navigation.addButton(u"Command1"_s, u"&Conferma"_s, u"Salva il pagamento e chiude"_s,
                               this, [this] { savePayment(); });
    row->addWidget(confirm);
    confirm->setEnabled(false);
    connect(&m_creditor->creditorBox(), &QLineEdit::textChanged, confirm,
            [confirm](const QString &creditor) { confirm->setEnabled(!creditor.isEmpty()); });
    // Giving up is always possible, also from a date that cannot be left.
    auto *cancel =
        new PromptButton(u"Command2"_s, u"&Annulla"_s,
                         u"Chiude senza salvare; le voci già eliminate restano eliminate"_s, this);
    row->addWidget(cancel);
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
    return row;
}

void InvoiceForm::loadPayment()
{
    PaymentRecord &payment = m_loaded.shown;
    if (isCompany()) {
        m_contractor = LoadContractor(m_values);
        m_principals->setEnabled(m_contractor.isAssociation);
        m_loaded.contractor = payment.creditore = m_contractor.name;
    }
    LoadPagamento(m_values, payment, m_allocation->table());
    m_creditor->showRecord(payment);
    m_amounts->showTexts(payment.amounts);
    m_notes->showRecord(payment);
    m_loaded.note = payment.memo;
    m_loaded.isListed = payment.storedKind.has_value();
    const TextTable &stored = m_allocation->table();
    for (int row = 1; row < stored.rows(); ++row)
        m_loaded.storedAllocations.insert(stored.text(row, AllocationColumn::Cod),
                                          stored.text(row, AllocationColumn::Importo));
}

void InvoiceForm::savePayment()
{
    // Compared as texts: a total that was typed over may mean the same and read otherwise.
    if (m_allocation->totalText() != m_amounts->totalBox().text() &&
        !ChiediConferma(u"Gli importi non coincidono continuare ? "_s))
        return;
    SavePagamento(m_values, shown(), m_allocation->table());
    close();
}

PaymentRecord InvoiceForm::shown() const
{
    PaymentRecord record = m_loaded.shown;
    m_creditor->readInto(record);
    record.amounts = m_amounts->texts();
    m_notes->readInto(record);
    return record;
}

void InvoiceForm::setAskedNumber(qint32 number)
{
    m_loaded.askedNumber = number;
    m_strip->refreshSoon();
}

void InvoiceForm::setListed(bool isListed)
{
    m_loaded.isListed = isListed;
    m_strip->refreshSoon();
}

/** Each change of what the notices are about refreshes them. The connections end with the strip:
 *  some changes come while the form is being destroyed. */
void InvoiceForm::followContent()
{
    const auto refresh = [strip = m_strip] { strip->refreshSoon(); };
    for (const QLineEdit *line : findChildren<QLineEdit *>()) {
        connect(line, &QLineEdit::textChanged, m_strip, refresh);
        connect(line, &QLineEdit::inputRejected, m_strip, refresh);
    }
    connect(findChild<QPlainTextEdit *>(), &QPlainTextEdit::textChanged, m_strip, refresh);
    connect(&m_allocation->table(), &TextTable::dataChanged, m_strip, refresh);
    connect(&m_allocation->table(), &TextTable::modelReset, m_strip, refresh);
    connect(qApp, &QApplication::focusChanged, m_strip, refresh);
}

Notices InvoiceForm::notices() const
{
    InvoiceState state = m_loaded;
    state.shown = shown();
    m_allocation->readInto(state);
    state.dateBox = m_creditor->dateBox().objectName();
    state.dateLeft = m_creditor->dateBox().leftWith();
    state.offersNone = m_creditor->offersNone();
    state.mandateDateLeft = m_notes->mandateDate().leftWith();
    for (const EntryField *field : findChildren<EntryField *>()) {
        if (field->isCut())
            state.cutFields += field->objectName();
    }
    state.past = m_amounts->past();
    state.focus = focusWidget() ? focusWidget()->objectName() : QString();
    return InvoiceNotices(state);
}

} // namespace saldoro
