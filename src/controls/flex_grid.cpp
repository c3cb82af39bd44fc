#include "controls/flex_grid.h"

#include "common/form_helpers.h"
#include "controls/flex_grid_columns.h"
#include "controls/flex_grid_delegate.h"
#include "controls/flex_grid_model.h"
#include "controls/held_key.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace saldoro {

FlexGrid::FlexGrid(Selection selection, QWidget *parent)
    : QTableView(parent)
    , m_selection(selection)
    , m_model(std::make_unique<FlexGridModel>(m_table))
    , m_columns(std::make_unique<FlexGridColumns>())
{
    setModel(m_model.get());
    WatchHeldKeys();
    setUpLook();
    setUpSelection();
    measureAll();
    connect(m_model.get(), &FlexGridModel::modelReset, this, [this] {
        measureAll();
        followTable();
    });
    connect(m_model.get(), &FlexGridModel::rowsInserted, this, &FlexGrid::followTable);
    connect(m_model.get(), &FlexGridModel::rowsRemoved, this, &FlexGrid::followTable);
    connect(m_model.get(), &FlexGridModel::currentMoved, this, &FlexGrid::followTable);
    connect(m_model.get(), &FlexGridModel::textChanged, this, [this](int row, int column) {
        if (m_columns->measureCell(m_table, row, column))
            fitColumns();
    });
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex &cell) { emit cellActivated(cell.row() + 1, cell.column()); });
}

FlexGrid::~FlexGrid() = default;

void FlexGrid::setUpLook()
{
    setItemDelegate(new FlexGridDelegate(m_selection == Selection::Rows
                                             ? FlexGridDelegate::FocusMark::None
                                             : FlexGridDelegate::FocusMark::Cell,
                                         this));
    setAlternatingRowColors(true);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setCornerButtonEnabled(false);
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

void FlexGrid::setUpSelection()
{
    setSelectionMode(SingleSelection);
    setSelectionBehavior(m_selection == Selection::Rows ? SelectRows : SelectItems);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    // The wheel scrolls without taking the focus from where the user is writing.
    setFocusPolicy(Qt::StrongFocus);
}

void FlexGrid::setLeastWidth(int column, int twips)
{
    m_columns->setLeastWidth(column, TwipsToPixels(twips, *this));
    fitColumns();
}

void FlexGrid::setRestColumn(int column)
{
    m_columns->setRestColumn(column);
    measureAll();
}

void FlexGrid::setRightAligned(const QList<int> &columns)
{
    m_model->setRightAligned(columns);
}

QRect FlexGrid::currentCellRect() const
{
    const QModelIndex cell = m_model->currentCell();
    return cell.isValid() ? visualRect(cell).translated(viewport()->pos()) : QRect();
}

void FlexGrid::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    const int sideways = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    if (m_selection == Selection::Rows)
        horizontalScrollBar()->setValue(sideways);
}

void FlexGrid::keyboardSearch(const QString & /*search*/) {}

bool FlexGrid::event(QEvent *event)
{
    const bool isHandled = QTableView::event(event);
    if (event->type() == QEvent::Paint && hasFocus())
        drawFocusFrame();
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return isHandled;
}

void FlexGrid::drawFocusFrame()
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void FlexGrid::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter && event->key() != Qt::Key_Delete) {
        QTableView::keyPressEvent(event);
        return;
    }
    const bool isOnBody = m_model->currentCell().isValid();
    event->setAccepted(isOnBody);
    // A key held down acts once.
    if (!isOnBody || IsKeyHeld())
        return;
    if (isEnter)
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
    if (m_isFollowing || m_model->isChanging() || !current.isValid())
        return;
    const QScopedValueRollback following(m_isFollowing, true);
    // The toolkit makes the first row current, but does not select it, when the focus comes in.
    if (!selectionModel()->isSelected(current))
        selectionModel()->select(current, selectingFlags());
    m_table.setRow(current.row() + 1);
    m_table.setColumn(current.column());
}

QModelIndex FlexGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex current = currentIndex();
    if (m_selection == Selection::Cell || !current.isValid())
        return QTableView::moveCursor(action, modifiers);
    QScrollBar *sideways = horizontalScrollBar();
    switch (action) {
    case MoveHome:
        return current.siblingAtRow(0);
    case MoveEnd:
        return current.siblingAtRow(m_model->rowCount() - 1);
    case MoveLeft:
        sideways->triggerAction(QScrollBar::SliderSingleStepSub);
        return current;
    case MoveRight:
        sideways->triggerAction(QScrollBar::SliderSingleStepAdd);
        return current;
    default:
        return QTableView::moveCursor(action, modifiers);
    }
}

QItemSelectionModel::SelectionFlags FlexGrid::selectionCommand(const QModelIndex &index,
                                                               const QEvent * /*event*/) const
{
    // The current row is selected, always and alone: also after a click with Ctrl or beside it.
    return index.isValid() ? selectingFlags() : QItemSelectionModel::NoUpdate;
}

QItemSelectionModel::SelectionFlags FlexGrid::selectingFlags() const
{
    const QItemSelectionModel::SelectionFlags flags = QItemSelectionModel::ClearAndSelect;
    return m_selection == Selection::Rows ? flags | QItemSelectionModel::Rows : flags;
}

void FlexGrid::measureAll()
{
    const int rowHeight = fontMetrics().height() * 3 / 2;
    verticalHeader()->setDefaultSectionSize(rowHeight);
    horizontalHeader()->setMinimumHeight(rowHeight);
    m_columns->measure(m_table, font(), horizontalHeader()->font());
    fitColumns();
}

void FlexGrid::fitColumns()
{
    constexpr int marginTwips = 400;
    const FlexGridColumns::Room room{width(), TwipsToPixels(marginTwips, *this),
                                     FlexGridDelegate::spaceAroundText(*this)};
    const QList<int> widths = m_columns->widths(room, m_model->rightAligned());
    for (int column = 0; column < widths.size(); ++column)
        setColumnWidth(column, widths.at(column));
}

void FlexGrid::followTable()
{
    if (m_isFollowing)
        return;
    const QScopedValueRollback following(m_isFollowing, true);
    const QModelIndex cell = m_model->currentCell();
    if (!cell.isValid()) {
        selectionModel()->clear();
        return;
    }
    selectionModel()->setCurrentIndex(cell, selectingFlags());
    scrollTo(cell);
}

} // namespace saldoro
