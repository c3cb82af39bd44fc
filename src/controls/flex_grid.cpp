#include "controls/flex_grid.h"

#include "controls/enter_and_held_keys.h"
#include "controls/flex_grid_delegate.h"
#include "controls/screen_reader.h"
#include "controls/window_placement.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QtMath>

#include <algorithm>
#include <vector>

namespace saldoro {

using namespace Qt::StringLiterals;

FlexGrid::FlexGrid(SelectionBehavior selected, QWidget *parent)
    : QTableView(parent)
{
    setModel(&m_table);
    FollowSelection(*this);
    setUpLook();
    setSelectionMode(SingleSelection);
    setSelectionBehavior(selected);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    // The wheel scrolls without taking the focus from where the user is writing.
    setFocusPolicy(Qt::StrongFocus);
    if (selectsRows())
        offerCopies();
    measureAll();
    connect(&m_table, &TextTable::modelReset, this, [this] {
        measureAll();
        followTable();
    });
    connect(&m_table, &TextTable::currentMoved, this, &FlexGrid::followTable);
    connect(&m_table, &TextTable::dataChanged, this,
            [this](const QModelIndex &cell) { measureCell(cell.row() + 1, cell.column()); });
    connect(&m_table, &TextTable::headerDataChanged, this,
            [this](Qt::Orientation, int column) { measureCell(0, column); });
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex &cell) { emit cellActivated(cell.row() + 1, cell.column()); });
}

void FlexGrid::setUpLook()
{
    setItemDelegate(new FlexGridDelegate(this));
    setAlternatingRowColors(true);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView *header = horizontalHeader();
    QFont bold;
    bold.setBold(true);
    header->setFont(bold);
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionsClickable(false);
    header->setHighlightSections(false);
    header->setMinimumSectionSize(1);
}

void FlexGrid::setWidths(const QList<int> &twips)
{
    m_restColumn = static_cast<int>(twips.indexOf(Rest));
    m_leastWidths.clear();
    for (const int width : twips)
        m_leastWidths += width == Rest ? 0 : TwipsToPixels(width, *this);
    measureAll();
}

void FlexGrid::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    const int sideways = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    if (selectsRows())
        horizontalScrollBar()->setValue(sideways);
}

void FlexGrid::keyboardSearch(const QString &search)
{
    if (!selectsRows()) {
        emit textTyped(search);
    } else if (m_searchColumn >= 0 && m_table.currentIndex().isValid()) {
        m_table.setColumn(m_searchColumn); // the toolkit searches the current one
        QTableView::keyboardSearch(search);
    }
}

void FlexGrid::offerCopies()
{
    const auto offer = [this](const QString &text, const QKeySequence &keys, bool isWhole) {
        const auto copy = [this, isWhole] {
            const int first = isWhole ? 0 : m_table.row();
            const int last = isWhole ? m_table.rows() - 1 : m_table.row();
            QGuiApplication::clipboard()->setText(m_table.tabText(first, last));
        };
        addAction(text, keys, this, copy)->setShortcutContext(Qt::WidgetShortcut);
    };
    offer(u"Copia la &riga"_s, QKeySequence::Copy, false);
    offer(u"Copia la &tabella"_s, Qt::CTRL | Qt::SHIFT | Qt::Key_C, true);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

bool FlexGrid::event(QEvent *event)
{
    const bool isHandled = QTableView::event(event);
    if (event->type() == QEvent::Paint && hasFocus()) {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    if (event->type() == QEvent::FocusIn)
        TellFocus(*this);
    return isHandled;
}

void FlexGrid::keyPressEvent(QKeyEvent *event)
{
    if (!IsEnter(*event) && event->key() != Qt::Key_Delete) {
        QTableView::keyPressEvent(event);
        return;
    }
    const bool isOnBody = m_table.currentIndex().isValid();
    event->setAccepted(isOnBody);
    // A key held down acts once.
    if (!isOnBody || IsKeyHeld())
        return;
    if (IsEnter(*event))
        emit cellActivated(m_table.row(), m_table.column());
    else
        emit deletePressed();
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        QTableView::mouseDoubleClickEvent(event);
}

void FlexGrid::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    fitColumns();
}

void FlexGrid::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        measureAll();
}

void FlexGrid::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    if (!current.isValid())
        return;
    // The toolkit makes the first row current, but does not select it, when the focus comes in.
    if (!selectionModel()->isSelected(current))
        selectionModel()->select(current, selectionCommand(current, nullptr));
    m_table.setCurrentCell(current.row() + 1, current.column());
}

QModelIndex FlexGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex current = currentIndex();
    if (!selectsRows() || !current.isValid())
        return QTableView::moveCursor(action, modifiers);
    if (action == MoveHome || action == MoveEnd)
        return current.siblingAtRow(action == MoveHome ? 0 : m_table.rowCount() - 1);
    if (action != MoveLeft && action != MoveRight)
        return QTableView::moveCursor(action, modifiers);
    horizontalScrollBar()->triggerAction(action == MoveLeft ? QScrollBar::SliderSingleStepSub
                                                            : QScrollBar::SliderSingleStepAdd);
    return current;
}

QItemSelectionModel::SelectionFlags FlexGrid::selectionCommand(const QModelIndex &index,
                                                               const QEvent * /*event*/) const
{
    // The current row is selected, always and alone: also after a click with Ctrl or beside it.
    if (!index.isValid())
        return QItemSelectionModel::NoUpdate;
    const QItemSelectionModel::SelectionFlags flags = QItemSelectionModel::ClearAndSelect;
    return selectsRows() ? flags | QItemSelectionModel::Rows : flags;
}

void FlexGrid::measureAll()
{
    const int rowHeight = fontMetrics().height() * 3 / 2;
    verticalHeader()->setDefaultSectionSize(rowHeight);
    horizontalHeader()->setMinimumHeight(rowHeight);
    // Each letter is measured once: a table may hold a hundred thousand texts, and the toolkit is
    // slow to measure one.
    constexpr qreal unknown = -1;
    const QFontMetricsF metrics(font());
    std::vector<qreal> letters(0x10000, unknown);
    const auto widthOf = [&](const QString &text) {
        qreal width = 0;
        for (const QChar letter : text) {
            qreal &known = letters[letter.unicode()];
            if (known == unknown)
                known = metrics.horizontalAdvance(letter);
            width += known;
        }
        return qCeil(width);
    };
    m_textWidths.clear();
    for (int column = 0; column < m_table.columns(); ++column) {
        int widest = horizontalHeader()->fontMetrics().horizontalAdvance(m_table.text(0, column));
        for (int row = 1; row < m_table.rows() && column != m_restColumn; ++row)
            widest = std::max(widest, widthOf(m_table.text(row, column)));
        m_textWidths.append(widest);
    }
    fitColumns();
}

void FlexGrid::measureCell(int row, int column)
{
    if (row > 0 && column == m_restColumn)
        return;
    const QFontMetrics metrics = row == 0 ? horizontalHeader()->fontMetrics() : fontMetrics();
    const int width = metrics.horizontalAdvance(m_table.text(row, column));
    if (width <= m_textWidths.at(column))
        return;
    m_textWidths[column] = width;
    fitColumns();
}

// The header's own fitting to contents looks at the rows in sight alone, so columns would change
// while one scrolls; over all rows it is a hundred times slower. It knows no bounds of widths.
void FlexGrid::fitColumns()
{
    constexpr int marginTwips = 400;
    const int space = FlexGridDelegate::spaceAroundText(*this);
    int rest = width() - TwipsToPixels(marginTwips, *this);
    QList<int> widths;
    for (int column = 0; column < m_textWidths.size(); ++column) {
        int wanted = m_textWidths.at(column) + space;
        if (column != m_restColumn && !m_table.rightAligned().contains(column))
            wanted = std::min(wanted, width() / 2);
        widths.append(std::max(m_leastWidths.value(column), wanted));
        if (column != m_restColumn)
            rest -= widths.last();
    }
    if (m_restColumn >= 0 && m_restColumn < widths.size())
        widths[m_restColumn] = std::max(widths.at(m_restColumn), rest);
    for (int column = 0; column < widths.size(); ++column)
        setColumnWidth(column, widths.at(column));
}

void FlexGrid::followTable()
{
    const QModelIndex cell = m_table.currentIndex();
    if (cell == currentIndex())
        return;
    if (!cell.isValid()) {
        selectionModel()->clear();
        return;
    }
    selectionModel()->setCurrentIndex(cell, selectionCommand(cell, nullptr));
    scrollTo(cell);
}

} // namespace saldoro
