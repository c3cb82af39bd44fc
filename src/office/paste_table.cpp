#include "office/paste_table.h"

#include "common/errors.h"
#include "controls/application_look.h"
#include "controls/message_box.h"
#include "controls/screen_reader.h"
#include "exchange/csv_table.h"
#include "exchange/pasted_columns.h"
#include "office/form_parts.h"
#include "office/task.h"

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStyle>
#include <QTimer>

#include <set>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Keys with Ctrl would move the current cell alone: rows that are out of sight would stay the
 *  chosen ones. */
class Cells : public QTableWidget
{
protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override
    {
        const auto *key = dynamic_cast<const QKeyEvent *>(event);
        if (key == nullptr || key->key() == Qt::Key_Space)
            return QTableWidget::selectionCommand(index, event);
        const QKeyEvent plain(key->type(), key->key(), key->modifiers() & ~Qt::ControlModifier);
        return QTableWidget::selectionCommand(index, &plain);
    }
};

} // namespace

PasteTable::PasteTable(PastedTable &pasted, QWidget *parent)
    : QWidget(parent)
    , m_pasted(pasted)
    , m_view(new Cells)
    , m_sum(new QLabel)
{
    setUpView();
    m_sum->setObjectName(u"Somma"_s);
    m_sum->setTextFormat(Qt::PlainText);
    m_sum->setWordWrap(true);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(MakeButton(u"Incolla"_s, u"&Incolla"_s,
                                  u"Incolla le celle copiate nel foglio elettronico (Ctrl+V)"_s,
                                  [this] { paste(); }));
    buttons->addWidget(MakeButton(u"Riga_nuova"_s, u"&Riga nuova"_s,
                                  u"Aggiunge una riga da scrivere a mano"_s, [this] { addRow(); }));
    buttons->addWidget(MakeButton(u"Tralascia"_s, u"&Tralascia riga"_s,
                                  u"Tralascia le righe scelte o le riprende (Canc)"_s,
                                  [this] { toggleRows(); }));
    buttons->addStretch(1);
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    whole->addLayout(makeColumnBoxes());
    whole->addWidget(m_view, 1);
    whole->addWidget(m_sum);
    whole->addLayout(buttons);
    setAcceptDrops(true);
    showAll();
}

void PasteTable::setUpView()
{
    Describe(*m_view, u"Celle"_s, u"Celle incollate"_s,
             u"Ctrl+V incolla le celle copiate nel foglio elettronico, F2 corregge una cella, Canc "
             "tralascia una riga o la riprende"_s);
    m_view->setTabKeyNavigation(false);
    m_view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                            QAbstractItemView::AnyKeyPressed);
    m_view->setWordWrap(false);
    constexpr int aroundLine = 6;
    m_view->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + aroundLine);
    connect(m_view, &QTableWidget::cellChanged, this, [this](int row, int column) {
        m_pasted.setCell(row, column - 1, m_view->item(row, column)->text());
        showAll();
    });
    connect(m_view, &QTableWidget::currentCellChanged, this, &PasteTable::showSum);
    new QShortcut(QKeySequence::Paste, this, this, &PasteTable::paste,
                  Qt::WidgetWithChildrenShortcut);
    // While a cell is edited these are the editor's.
    new QShortcut(Qt::Key_Delete, m_view, this, &PasteTable::toggleRows, Qt::WidgetShortcut);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
        new QShortcut(
            key, m_view, this, [this] { m_view->editItem(m_view->currentItem()); },
            Qt::WidgetShortcut);
}

QLayout *PasteTable::makeColumnBoxes()
{
    auto *row = new QHBoxLayout;
    for (const QString &field : m_pasted.table().fieldNames()) {
        auto *box = new ChoiceBox;
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        const QString caption = field == "Importo"_L1 ? u"I&mporto"_s : u'&' + FieldCaption(field);
        row->addWidget(MakeField(caption, Qt::Horizontal, box, u"Colonna_"_s + field,
                                 u"Quale colonna delle celle è "_s + FieldCaption(field)),
                       1);
        m_columnBoxes[field] = box;
        connect(box, &QComboBox::activated, this, [this, field](int choice) {
            m_pasted.setColumn(field, choice - 1);
            showAll();
        });
    }
    return row;
}

void PasteTable::replaceRows(const std::function<void()> &action)
{
    if (!m_pasted.rows().isEmpty() && !ChiediConferma(u"Sostituire le righe che ci sono già?"_s))
        return;
    if (Attempt(action))
        emit replaced();
    showAll();
    m_view->resizeColumnsToContents();
    int row = 0; // or the first one to be corrected
    for (int each = m_view->rowCount() - 1; each >= 0; --each)
        row = m_pasted.rows()[each].state == PastedState::Faulty ? each : row;
    m_view->doItemsLayout(); // before which there is nothing to scroll, and the row numbers no room
    int cells = 0;
    for (int column = 1; column < m_view->columnCount(); ++column) {
        const int width = std::min(m_view->columnWidth(column), m_view->width() * 2 / 5);
        m_view->setColumnWidth(column, width);
        cells += width;
    }
    // What is said of the rows takes the room that the cells leave.
    const int room = std::max(m_view->width() / 5, m_view->viewport()->width() - cells);
    m_view->setColumnWidth(0, std::min(m_view->columnWidth(0), room));
    m_view->setCurrentCell(row, 1);
    // Once the rows, and what is said of the current one, have their places.
    QTimer::singleShot(0, m_view, [this] { m_view->scrollToItem(m_view->currentItem()); });
}

void PasteTable::paste()
{
    const QString text = QApplication::clipboard()->text();
    if (!text.trimmed().isEmpty())
        replaceRows([&] { m_pasted.setText(text); });
}

/** No focus proxy: Tab would pass over what stands before the cells. */
void PasteTable::focusInEvent(QFocusEvent * /*event*/)
{
    m_view->setFocus();
}

void PasteTable::dragEnterEvent(QDragEnterEvent *event)
{
    const QList<QUrl> files = event->mimeData()->urls();
    event->setAccepted(files.size() == 1 && files.first().isLocalFile());
}

void PasteTable::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    const QString path = event->mimeData()->urls().first().toLocalFile();
    // Questions come later: the program that the file comes from waits until this returns.
    QTimer::singleShot(0, this, [this, path] {
        replaceRows([&] {
            ImportOutcome read;
            const QList<CellRow> rows = ReadCsvRows(path, m_pasted.table(), read);
            if (!read.errors.isEmpty())
                throw SaldoroError(ShortenedLines(read.errors).join(u'\n'));
            m_pasted.setRows(rows, read.warnings);
        });
    });
}

void PasteTable::addRow()
{
    m_pasted.addRow();
    showAll();
    m_view->setFocus();
    m_view->setCurrentCell(m_view->rowCount() - 1, 1);
    m_view->editItem(m_view->currentItem());
}

void PasteTable::toggleRows()
{
    std::set<int> rows;
    for (const QModelIndex &index : m_view->selectionModel()->selectedIndexes())
        rows.insert(index.row());
    m_pasted.toggle(QList<int>(rows.begin(), rows.end()));
    showAll();
}

void PasteTable::showAll()
{
    const QSignalBlocker blocker(m_view);
    QStringList headings{u"Esito"_s};
    for (qsizetype column = 0; column < m_pasted.columns(); ++column)
        headings.append(m_pasted.columnName(column));
    m_view->setColumnCount(static_cast<int>(headings.size()));
    m_view->setHorizontalHeaderLabels(headings);
    m_view->setRowCount(static_cast<int>(m_pasted.rows().size()));
    for (int row = 0; row < m_view->rowCount(); ++row)
        showRow(row);
    for (auto box = m_columnBoxes.cbegin(); box != m_columnBoxes.cend(); ++box) {
        (*box)->clear();
        (*box)->addItem(u"(nessuna)"_s);
        for (qsizetype column = 0; column < m_pasted.columns(); ++column)
            (*box)->addItem(u"%1. %2"_s.arg(column + 1).arg(m_pasted.columnSample(column)));
        (*box)->setCurrentIndex(static_cast<int>(m_pasted.columnOf(box.key())) + 1);
    }
    showSum();
    emit changed();
}

void PasteTable::showRow(int row)
{
    const PastedRow &pasted = m_pasted.rows()[row];
    const bool isFaulty = pasted.state == PastedState::Faulty;
    const bool isTaken = pasted.state == PastedState::Taken;
    const QStringList texts = QStringList{pasted.reason} + pasted.cells;
    const QString toolTip = // in which pasted characters stand for themselves
        pasted.reason.isEmpty() ? QString() : u"<p>%1</p>"_s.arg(pasted.reason.toHtmlEscaped());
    constexpr int faded = 45; // percent; still to be read on a light and on a dark ground
    const QColor grey =
        MixedColor(palette().color(QPalette::Text), palette().color(QPalette::Base), faded);
    for (int column = 0; column < texts.size(); ++column) {
        QTableWidgetItem *item = m_view->item(row, column);
        if (item == nullptr)
            m_view->setItem(row, column, item = new QTableWidgetItem);
        const bool isState = column == 0;
        item->setText(texts[column]);
        item->setToolTip(toolTip);
        item->setForeground(isFaulty || isTaken ? QBrush() : grey);
        QFont font;
        font.setBold(isState && isFaulty);
        item->setFont(font);
        item->setIcon(isState && isFaulty ? style()->standardIcon(QStyle::SP_MessageBoxWarning)
                                          : QIcon());
        const bool isAmount = !isState && column - 1 == m_pasted.columnOf(u"Importo"_s);
        item->setTextAlignment(Qt::AlignVCenter | (isAmount ? Qt::AlignRight : Qt::AlignLeft));
        item->setFlags(item->flags().setFlag(Qt::ItemIsEditable, !isState));
    }
}

void PasteTable::showSum()
{
    QString text = u"Righe da prendere: %1"_s.arg(m_pasted.taken().rows.size());
    if (m_pasted.table().hasAmounts())
        text += u"    Totale: "_s + TotalText(m_pasted.table(), m_pasted.taken().rows);
    text += u"    Tralasciate: %1    Da correggere: %2"_s
                .arg(m_pasted.count(PastedState::SetAside) + m_pasted.count(PastedState::LeftOut))
                .arg(m_pasted.count(PastedState::Faulty));
    if (!m_pasted.remark().isEmpty())
        text += u'\n' + m_pasted.remark();
    // The whole reason, of which the cell may show a part.
    const PastedRow current = m_pasted.rows().value(m_view->currentRow());
    if (current.state == PastedState::Faulty)
        text += u"\nRiga %1: %2"_s.arg(m_view->currentRow() + 1).arg(current.reason);
    m_sum->setText(text);
}

} // namespace saldoro
