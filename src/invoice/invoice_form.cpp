#include "invoice/invoice_form.h"

#include "common/ending.h"
#include "common/number_text.h"
#include "controls/date_box.h"
#include "controls/notice_strip.h"
#include "controls/window_placement.h"
#include "invoice/allocation_frame.h"
#include "invoice/allocation_total.h"
#include "invoice/amount_fields.h"
#include "invoice/creditor_fields.h"
#include "invoice/entry_field.h"
#include "invoice/note_fields.h"
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

namespace {

/** What tells the two invoice forms apart at sight, beside their amounts. */
struct Look
{
    QString objectName;
    QString title;
    QString dateBoxName;
    QString allocationCaption;
    QString searchHint;
};

const Look &lookOf(CreditorKind kind)
{
    static const Look company{
        u"FrmAziende"_s, u"Aziende"_s, u"MaskEdBox1_0"_s, u" Conti di Spesa "_s,
        u"Elenca le imprese partecipanti il cui nome inizia come il creditore scritto"_s};
    static const Look professional{u"FrmProfessionisti"_s, u"Professionisti"_s, u"MaskEdBox1"_s,
                                   u"Conti di Spesa"_s,
                                   u"Elenca i professionisti incaricati nel contratto"_s};
    return kind == CreditorKind::Company ? company : professional;
}

} // namespace

InvoiceForm::InvoiceForm(CreditorKind kind, ProgramValues &values, const TextTable &overview)
    : m_values(values)
    , m_payment{kind, values.CurrentPaymentNumber}
    , m_navigation(*this)
    , m_page(new QWidget(this))
    , m_number(new QLabel(this))
    , m_creditor(new CreditorFields(lookOf(kind).dateBoxName, m_navigation, this))
    , m_amounts(new AmountFields(kind, m_navigation, this))
    , m_notes(new NoteFields(m_navigation, this))
    , m_allocation(new AllocationFrame(lookOf(kind).allocationCaption, overview, values,
                                       m_payment.number, m_navigation, this))
    , m_strip(new NoticeStrip(this, NoticeStrip::Worth::Shown, [this] { return notices(); }))
{
    setObjectName(lookOf(kind).objectName);
    setWindowTitle(lookOf(kind).title);
    m_number->setObjectName(u"Label2"_s);
    m_number->setTextFormat(Qt::PlainText);
    QFont heading = m_number->font();
    heading.setBold(true);
    m_number->setFont(heading);
    addCreditorLists(lookOf(kind).searchHint);
    arrange();
    connect(&m_amounts->totalBox(), &QLineEdit::textChanged, &m_allocation->invoiceTotal(),
            &QLabel::setText);
    followContent();
    connect(&overview, &TextTable::modelReset, m_strip, &NoticeStrip::refreshSoon);
}

void InvoiceForm::load()
{
    SetTopMost(*this);
    constexpr int openingWidth = 15000; // twips
    constexpr int openingHeight = 8400;
    const QSize least(TwipsToPixels(openingWidth, *this), TwipsToPixels(openingHeight, *this));
    const QSize below(0, layout()->itemAt(1)->sizeHint().height());
    SizeWindow(*this, (m_page->sizeHint() + below).expandedTo(least));
    CentraForm(*this);
    loadPayment();
    m_number->setText(u"Pagamento N. "_s + SignedNumberText(m_payment.number));
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

void InvoiceForm::addCreditorLists(const QString &searchHint)
{
    m_creditor->addList(u"Command5"_s, u"&Ricerca"_s, searchHint, [this] {
        return isCompany() ? ParticipatingCompanies(m_values, m_creditor->creditorBox().text())
                           : ProfessionalCreditors(m_values);
    });
    if (!isCompany())
        return;
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

// On a screen that is too small for large letters the page scrolls, after the focus by itself;
// notices and buttons stay in sight.
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
        // The whole control as far as there is room, and its cursor.
        QRect place(now->mapTo(area->widget(), QPoint()), now->size());
        place.setSize(place.size().boundedTo(area->viewport()->size()));
        area->ensureVisible(place.center().x(), place.center().y(), place.width() / 2 + 1,
                            place.height() / 2 + 1);
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
    if (isCompany()) {
        m_contractor = LoadContractor(m_values);
        m_principals->setEnabled(m_contractor.isAssociation);
        m_payment.creditore = m_contractor.name;
    }
    LoadPagamento(m_values, m_payment, m_allocation->table());
    m_creditor->showRecord(m_payment);
    m_amounts->showTexts(m_payment.amounts);
    m_notes->showRecord(m_payment);
    m_isListed = m_payment.storedKind.has_value();
    const TextTable &stored = m_allocation->table();
    for (int row = 1; row < stored.rows(); ++row)
        m_storedAllocations[stored.text(row, AllocationColumn::Cod)] =
            stored.text(row, AllocationColumn::Importo);
}

void InvoiceForm::savePayment()
{
    if (!ConfirmTotals(m_allocation->totalText(), m_amounts->totalBox().text()))
        return;
    m_creditor->readInto(m_payment);
    m_payment.amounts = m_amounts->texts();
    m_notes->readInto(m_payment);
    SavePagamento(m_values, m_payment, m_allocation->table());
    close();
}

void InvoiceForm::setListed(bool isListed)
{
    m_isListed = isListed;
    m_strip->refreshSoon();
}

/** Each change of what the notices are about refreshes them. The strip itself is called, since some
 *  changes come while the form is being destroyed. */
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
    InvoiceState state{m_payment};
    m_creditor->readInto(state.shown);
    m_notes->readInto(state.shown);
    m_allocation->readInto(state);
    state.dateLeft = findChild<DateBox *>(lookOf(m_payment.kind).dateBoxName)->leftWith();
    state.mandateDateLeft = findChild<DateBox *>(u"MandatoDell"_s)->leftWith();
    for (const EntryField *field : findChildren<EntryField *>()) {
        if (field->isCut())
            state.cutFields += field->objectName();
    }
    state.shown.amounts = m_amounts->texts();
    state.past = m_amounts->past();
    state.focus = focusWidget() ? focusWidget()->objectName() : QString();
    state.isMeantNew = m_isMeantNew;
    state.isListed = m_isListed;
    state.loadedNote = m_payment.memo;
    state.contractor = m_contractor.name;
    state.storedAllocations = m_storedAllocations;
    return InvoiceNotices(state);
}

} // namespace saldoro
