#include "invoice/allocation_frame.h"

#include "common/amount_text.h"
#include "controls/buttons.h"
#include "controls/flex_grid.h"
#include "controls/held_key.h"
#include "invoice/amount_fields.h"
#include "invoice/form_fields.h"
#include "invoice/popup_list.h"

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

AllocationFrame::AllocationFrame(const QString &caption, const Sources &sources, FormFields &fields,
                                 QWidget *form)
    : QGroupBox(caption, form)
    , m_values(sources.values)
    , m_fields(fields)
    , m_grid(new FlexGrid(FlexGrid::Selection::Cell, this))
    , m_editor(new QLineEdit(m_grid->viewport()))
    , m_list(new PopupList(form))
    , m_invoiceTotal(new QLabel(this))
    , m_total(new QLineEdit(this))
    , m_block(sources.overview, m_grid->table())
{
    setObjectName(u"Frame2"_s);
    addGrid();
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

void AllocationFrame::prepare(qint32 paymentNumber)
{
    m_paymentNumber = paymentNumber;
    m_editor->hide();
    m_list->hide();
    m_block.prepareGrid();
}

void AllocationFrame::recalculate()
{
    m_block.RecalcAllocationTotal();
    showTotal();
}

void AllocationFrame::showInvoiceTotal(const QString &text)
{
    m_invoiceTotal->setText(text);
}

bool AllocationFrame::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_editor || event->type() != QEvent::KeyPress)
        return false;
    // The key that picked the item may still be held down; it must not confirm an empty amount.
    if (IsRepeatedEnter(*event))
        return true;
    m_grid->scrollTo(m_grid->currentIndex());
    if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
        giveAmountBack();
    else
        m_editor->event(event);
    event->accept(); // the grid around the editor has no part in it
    return true;
}

void AllocationFrame::resizeEvent(QResizeEvent *event)
{
    QGroupBox::resizeEvent(event);
    placeEditor();
}

void AllocationFrame::addGrid()
{
    m_block.prepareGrid();
    Describe(*m_grid, u"MSFlexGrid1"_s, u"Conti di Spesa"_s,
             u"Voci di spesa su cui è ripartito il pagamento; Invio o doppio clic "
             u"sull'importo per modificarlo"_s);
    m_grid->setWidths({codTwips, FlexGrid::Rest, importoTwips});
    m_grid->table().setRightAligned({AllocationColumn::Importo});
    m_grid->setMinimumSize(leastVisibleCharacters * fontMetrics().averageCharWidth(),
                           leastVisibleRows * 2 * fontMetrics().height());
    connect(m_grid, &FlexGrid::cellActivated, this, [this] {
        if (m_fields.focus().moveTo(*m_grid) && m_block.isCurrentCellEditable())
            openEditor();
    });
}

void AllocationFrame::addEditor()
{
    Describe(*m_editor, u"edtTxt"_s, u"Importo"_s,
             u"Importo della voce di spesa, con il punto per i decimali; Esc lo lascia com'era"_s);
    m_editor->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_editor->setFrame(false);
    m_editor->hide();
    m_editor->installEventFilter(this);
    connect(m_editor, &QLineEdit::returnPressed, this, &AllocationFrame::editorConfirmed);
    const auto entered = [this] {
        m_block.editorEntered();
        m_editor->selectAll();
    };
    m_fields.focus().watch(*m_editor, entered, [this] {
        editorLeft();
        return Leaving::Allowed;
    });
}

void AllocationFrame::addPickList()
{
    Describe(*m_list, u"List1"_s, u"Voci di spesa"_s,
             u"Frecce e Invio, o un clic, per scegliere la voce di spesa; Esc per "
             u"rinunciare"_s);
    connect(m_list, &PopupList::picked, this, &AllocationFrame::itemPicked);
    connect(m_list, &PopupList::dismissed, m_grid, [this] { m_fields.focus().moveTo(*m_grid); });
    m_fields.focus().watch(*m_list, {}, [this] {
        pickListLeft();
        return Leaving::Allowed;
    });
}

QBoxLayout *AllocationFrame::makeButtons()
{
    QPushButton *insert =
        new PromptButton(u"Command3"_s, u"&Inserisci"_s,
                         u"Aggiunge una voce di spesa scelta dal quadro di disponibilità"_s, this);
    QPushButton *remove =
        new PromptButton(u"Command4"_s, u"&Elimina"_s,
                         u"Elimina subito la voce di spesa corrente, anche dall'archivio"_s, this);
    m_fields.addButton(*insert, [this] { insertItem(); });
    m_fields.addButton(*remove, [this] { deleteItem(); });
    auto *row = new QHBoxLayout;
    row->addWidget(insert);
    row->addWidget(remove);
    return row;
}

QLayout *AllocationFrame::makeTotals()
{
    Describe(*m_total, u"Text3"_s, u"Totale Conti"_s,
             u"Somma degli importi ripartiti sulle voci di spesa"_s);
    m_total->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_total->setReadOnly(true);
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
    const QStringList lines = m_block.openPickList();
    if (lines.isEmpty())
        return;
    const QPoint corner = m_grid->mapTo(window(), QPoint(0, m_grid->height() / 4));
    m_list->open(lines, QRect(corner, QSize(m_grid->width(), window()->height() - corner.y())));
}

void AllocationFrame::itemPicked(int line)
{
    if (!m_block.pick(line)) {
        m_fields.focus().moveTo(*m_grid);
        return;
    }
    // The list closes with a choice, which is not the same as being left.
    m_fields.focus().forget();
    openEditor();
    m_list->hide();
}

void AllocationFrame::pickListLeft()
{
    m_block.leavePickList();
    m_list->hide();
}

void AllocationFrame::deleteItem()
{
    m_block.deleteCurrentRow(m_values, m_paymentNumber);
    showTotal();
}

void AllocationFrame::openEditor()
{
    m_grid->scrollTo(m_grid->currentIndex());
    m_editor->setText(m_grid->table().currentText());
    m_editor->show();
    placeEditor();
    m_editor->raise();
    m_fields.focus().moveTo(*m_editor);
}

void AllocationFrame::placeEditor()
{
    m_editor->setGeometry(m_grid->visualRect(m_grid->currentIndex()));
}

void AllocationFrame::giveAmountBack()
{
    QString amount = m_grid->table().currentText();
    m_editor->setText(PuntoDecimale(amount));
    m_fields.focus().moveTo(*m_grid);
}

void AllocationFrame::editorConfirmed()
{
    m_block.editorConfirmed(m_editor->text());
    m_fields.focus().moveTo(*m_grid);
}

// The focus is elsewhere by now, so hiding the editor does not move it.
void AllocationFrame::editorLeft()
{
    m_block.editorLeft(m_editor->text());
    m_editor->hide();
    showTotal();
    m_grid->setFocus(Qt::OtherFocusReason);
}

void AllocationFrame::showTotal()
{
    m_total->setText(m_block.totalText());
}

} // namespace saldoro
