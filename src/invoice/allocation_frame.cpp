#include "invoice/allocation_frame.h"

#include "common/amount_text.h"
#include "controls/enter_and_held_keys.h"
#include "controls/flex_grid.h"
#include "controls/message_box.h"
#include "controls/popup_list.h"
#include "controls/screen_reader.h"
#include "invoice/entry_field.h"
#include "invoice/field_navigation.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

constexpr int codTwips = 900;
constexpr int importoTwips = 1700;
constexpr int leastVisibleRows = 5;
constexpr int leastVisibleCharacters = 56;

} // namespace

AllocationFrame::AllocationFrame(const QString &caption, const TextTable &overview,
                                 const ProgramValues &values, qint32 paymentNumber,
                                 FieldNavigation &navigation, QWidget *form)
    : QGroupBox(caption, form)
    , m_overview(overview)
    , m_values(values)
    , m_paymentNumber(paymentNumber)
    , m_navigation(navigation)
    , m_grid(new FlexGrid(FlexGrid::SelectItems, this))
    , m_editor(new QLineEdit(m_grid->viewport()))
    , m_list(new PopupList(form))
    , m_invoiceTotal(new QLabel(this))
    , m_total(new QLineEdit(this))
{
    setObjectName(u"Frame2"_s);
    addGrid();
    expectTyping();
    addEditor();
    addPickList();
    auto *bottom = new QHBoxLayout;
    bottom->addLayout(makeButtons());
    bottom->addStretch(1);
    bottom->addLayout(makeTotals());
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_grid, 1);
    layout->addLayout(bottom);
}

TextTable &AllocationFrame::table()
{
    return m_grid->table();
}

void AllocationFrame::RecalcAllocationTotal()
{
    m_total->setText(AllocationTotal(table()));
}

QString AllocationFrame::totalText() const
{
    return m_total->text();
}

void AllocationFrame::readInto(InvoiceState &state) const
{
    state.allocations = &m_grid->table();
    state.overview = &m_overview;
    state.allocationTotal = totalText();
    state.typedAllocation = m_typed;
    if (m_typed.isOpen)
        state.typedAllocation.typed = m_editor->text();
}

bool AllocationFrame::eventFilter(QObject *watched, QEvent *event)
{
    // The toolkit lets a composed letter into a line that is read-only.
    if (watched == m_total)
        return event->type() == QEvent::InputMethod;
    if (watched != m_editor || event->type() != QEvent::KeyPress)
        return false;
    // The Enter that picked the item may still be held down; it must not confirm an empty amount.
    if (IsEnter(*event) && IsKeyHeld())
        return true;
    m_grid->scrollTo(m_grid->currentIndex());
    if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        QString amount = table().text(m_editedRow, AllocationColumn::Importo);
        m_editor->setText(PuntoDecimale(amount)); // leaving the editor writes the same amount
        m_navigation.moveTo(*m_grid);
    } else {
        m_editor->event(event);
    }
    event->accept(); // or the grid around the editor would get it
    return true;
}

void AllocationFrame::resizeEvent(QResizeEvent *event)
{
    QGroupBox::resizeEvent(event);
    placeEditor();
}

void AllocationFrame::addGrid()
{
    PrepareAllocations(table());
    Describe(*m_grid, u"MSFlexGrid1"_s, u"Conti di Spesa"_s,
             u"Voci di spesa su cui è ripartito il pagamento; Invio o doppio clic "
             u"sull'importo per modificarlo"_s);
    m_grid->setWidths({codTwips, FlexGrid::Rest, importoTwips});
    table().setRightAligned({AllocationColumn::Importo});
    m_grid->setMinimumSize(leastVisibleCharacters * fontMetrics().averageCharWidth(),
                           leastVisibleRows * 2 * fontMetrics().height());
    connect(m_grid, &FlexGrid::cellActivated, this, [this] {
        if (m_navigation.moveTo(*m_grid) && table().column() == AllocationColumn::Importo)
            openEditor();
    });
    connect(m_grid, &FlexGrid::textTyped, this, [this](const QString &text) {
        // A sign or mark in front is a part of the amount: -5 must not become 5.
        const bool isAmount = text.front().isDigit() || u"-.,"_s.contains(text.front());
        if (m_isFocusTakenBack || !isAmount || !table().currentIndex().isValid() ||
            table().column() != AllocationColumn::Importo)
            return;
        openEditor();
        m_editor->setText(text); // with nothing selected, so that the next one follows
    });
}

void AllocationFrame::expectTyping()
{
    const auto expect = [this] { m_isFocusTakenBack = false; };
    m_navigation.watch(*m_grid, {}, expect);
    connect(m_grid, &FlexGrid::pressed, this, expect);
    connect(&table(), &TextTable::currentMoved, this, expect);
}

void AllocationFrame::addEditor()
{
    Describe(*m_editor, u"edtTxt"_s, u"Importo"_s,
             u"Importo della voce di spesa, con il punto per i decimali; Esc lo lascia com'era"_s);
    m_editor->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_editor->setFrame(false);
    m_editor->hide();
    m_editor->installEventFilter(this);
    connect(m_editor, &QLineEdit::returnPressed, this, [this] { m_navigation.moveTo(*m_grid); });
    const auto entered = [this] {
        m_editedRow = table().row();
        m_typed = {table().text(m_editedRow, AllocationColumn::Cod), {}, true};
    };
    m_navigation.watch(*m_editor, entered, [this] { editorLeft(); });
}

void AllocationFrame::addPickList()
{
    Describe(*m_list, u"List1"_s, u"Voci di spesa"_s,
             u"Frecce e Invio, o un clic, per scegliere la voce di spesa; Esc per rinunciare"_s);
    connect(m_list, &PopupList::answered, this, &AllocationFrame::itemPicked);
    m_navigation.watch(*m_list, {}, [this] {
        EndInsertion(table());
        m_list->hide();
    });
}

QLayout *AllocationFrame::makeButtons()
{
    auto *row = new QHBoxLayout;
    row->addWidget(
        m_navigation.addButton(u"Command3"_s, u"&Inserisci"_s,
                               u"Aggiunge una voce di spesa scelta dal quadro di disponibilità"_s,
                               this, [this] { insertItem(); }));
    row->addWidget(
        m_navigation.addButton(u"Command4"_s, u"&Elimina"_s,
                               u"Elimina subito la voce di spesa corrente, anche dall'archivio"_s,
                               this, [this] { deleteItem(); }));
    return row;
}

QLayout *AllocationFrame::makeTotals()
{
    Describe(*m_total, u"Text3"_s, u"Totale Conti"_s,
             u"Somma degli importi ripartiti sulle voci di spesa"_s);
    m_total->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_total->setReadOnly(true);
    m_total->installEventFilter(this);
    m_total->setMinimumWidth(BoxWidth(*m_total, WidestAmount));
    m_total->setFocusPolicy(Qt::ClickFocus);
    m_invoiceTotal->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_invoiceTotal->setTextFormat(Qt::PlainText);
    auto *totals = new QGridLayout;
    totals->addWidget(new QLabel(u"Totale Conti"_s, this), 0, 0);
    totals->addWidget(m_total, 0, 1);
    totals->addWidget(new QLabel(u"Totale Fattura"_s, this), 1, 0);
    totals->addWidget(m_invoiceTotal, 1, 1);
    return totals;
}

void AllocationFrame::insertItem()
{
    m_offered = ItemsOnOffer(m_overview, table());
    if (m_offered.isEmpty()) {
        ShowMessage(MessageKind::Information, u"Nessun elemento da inserire disponibile"_s);
        return;
    }
    BeginInsertion(table());
    QStringList lines;
    for (const OfferedItem &item : m_offered)
        lines += item.line;
    m_list->open(lines, *m_grid, m_grid->height() / 4);
}

void AllocationFrame::itemPicked(int line)
{
    if (line >= 0 && PickItem(table(), m_offered.at(line)))
        openEditor();
    else
        m_navigation.moveTo(*m_grid);
}

void AllocationFrame::deleteItem()
{
    table().setColumn(AllocationColumn::Cod);
    if (table().row() > 0) {
        if (ChiediConferma(u"Vuoi eliminare il Cod. "_s + table().currentText() + u"?"_s))
            DeleteCurrentRow(table(), m_values, m_paymentNumber);
        table().setColumn(AllocationColumn::Importo);
    }
    RecalcAllocationTotal();
}

void AllocationFrame::openEditor()
{
    m_grid->scrollTo(m_grid->currentIndex());
    m_editor->setText(table().currentText());
    m_editor->show();
    placeEditor();
    m_editor->raise();
    m_navigation.moveTo(*m_editor);
}

void AllocationFrame::placeEditor()
{
    m_editor->setGeometry(m_grid->visualRect(m_grid->currentIndex()));
}

// The focus is elsewhere by now, so hiding the editor does not move it.
void AllocationFrame::editorLeft()
{
    m_typed.typed = m_editor->text();
    m_typed.isOpen = false;
    WriteAmount(table(), m_editedRow, m_typed.typed);
    m_editor->hide();
    RecalcAllocationTotal();
    m_isFocusTakenBack = window()->focusWidget() != m_grid;
    m_grid->setFocus(Qt::OtherFocusReason);
}

} // namespace saldoro
