#include "office/paste_table.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "controls/buttons.h"
#include "controls/message_box.h"
#include "exchange/csv_table.h"
#include "office/task.h"

#include <QBoxLayout>
#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QShortcut>
#include <QSignalBlocker>

#include <set>

namespace saldoro {

using namespace Qt::StringLiterals;

PasteTable::PasteTable(PastedTable &pasted, const QMap<QString, QString> &captions, QWidget *parent)
    : QWidget(parent)
    , m_pasted(pasted)
    , m_model(pasted)
    , m_view(new QTableView(this))
    , m_sum(new QLabel(this))
{
    Describe(*m_view, u"Celle"_s, u"Celle incollate"_s,
             u"Ctrl+V incolla le celle copiate nel foglio elettronico, F2 corregge una cella, Canc "
             "tralascia una riga o la riprende"_s);
    m_view->setModel(&m_model);
    m_view->setTabKeyNavigation(false);
    m_view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                            QAbstractItemView::AnyKeyPressed);
    m_view->setSelectionBehavior(QAbstractItemView::SelectItems);
    m_view->setWordWrap(false);
    constexpr int aroundLine = 6;
    m_view->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + aroundLine);
    for (QWidget *target : {static_cast<QWidget *>(m_view), m_view->viewport()}) {
        target->setAcceptDrops(true);
        target->installEventFilter(this);
    }
    m_sum->setObjectName(u"Somma"_s);
    m_sum->setTextFormat(Qt::PlainText);
    m_sum->setWordWrap(true);

    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    whole->addLayout(makeColumnBoxes(captions));
    whole->addWidget(m_view, 1);
    whole->addWidget(m_sum);
    whole->addLayout(makeButtons());
    setFocusProxy(m_view);
    auto *shortcut = new QShortcut(QKeySequence::Paste, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, &PasteTable::paste);
    connect(&m_model, &PasteModel::dataChanged, this, &PasteTable::showSum);
    connect(&m_model, &PasteModel::modelReset, this, [this] {
        showColumns();
        showSum();
    });
    showColumns();
    showSum();
}

QLayout *PasteTable::makeColumnBoxes(const QMap<QString, QString> &captions)
{
    auto *row = new QHBoxLayout;
    for (const QString &field : m_pasted.table().fieldNames()) {
        auto *box = new QComboBox(this);
        auto *label = new QLabel(captions.value(field) + u':', this);
        label->setBuddy(box);
        Describe(*box, u"Colonna_"_s + field, u"Colonna "_s + PastedTable::caption(field),
                 u"Quale colonna delle celle è "_s + PastedTable::caption(field));
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        row->addWidget(label);
        row->addWidget(box, 1);
        m_columnBoxes[field] = box;
        connect(box, &QComboBox::activated, this, [this, field](int choice) {
            m_model.change([&] { m_pasted.setColumn(field, choice - 1); });
        });
    }
    return row;
}

QLayout *PasteTable::makeButtons()
{
    auto *row = new QHBoxLayout;
    const auto add = [&](const QString &name, const QString &caption, const QString &hint,
                         void (PasteTable::*action)()) {
        auto *button = new PromptButton(name, caption, hint, this);
        connect(button, &QPushButton::clicked, this, action);
        row->addWidget(button);
    };
    add(u"Incolla"_s, u"&Incolla"_s, u"Incolla le celle copiate nel foglio elettronico (Ctrl+V)"_s,
        &PasteTable::paste);
    add(u"Riga_nuova"_s, u"&Riga nuova"_s, u"Aggiunge una riga da scrivere a mano"_s,
        &PasteTable::addRow);
    add(u"Tralascia"_s, u"&Tralascia riga"_s, u"Tralascia le righe scelte o le riprende (Canc)"_s,
        &PasteTable::toggleRows);
    row->addStretch(1);
    return row;
}

void PasteTable::replaceRows(const std::function<void()> &action)
{
    const bool hasRows = m_pasted.rows().size() > m_pasted.count(PastedState::Kept);
    if (hasRows && !ChiediConferma(u"Sostituire le righe che ci sono già?"_s))
        return;
    Attempt([&] { m_model.change(action); });
    m_view->resizeColumnsToContents();
    for (int column = 0; column < m_model.columnCount(); ++column)
        m_view->setColumnWidth(column,
                               std::min(m_view->columnWidth(column), m_view->width() * 2 / 5));
    int row = 0; // or the first one to be corrected
    for (int each = m_model.rowCount() - 1; each >= 0; --each)
        row = m_pasted.rows()[each].state == PastedState::Faulty ? each : row;
    m_view->setCurrentIndex(m_model.index(row, 1));
}

void PasteTable::paste()
{
    const QString text = QGuiApplication::clipboard()->text();
    if (!text.trimmed().isEmpty())
        replaceRows([&] { m_pasted.setText(text); });
}

void PasteTable::readFile(const QString &path)
{
    replaceRows([&] {
        QStringList errors;
        const QList<CellRow> rows = ReadCsvRows(path, m_pasted.table(), errors);
        if (!errors.isEmpty())
            throw SaldoroError(errors.join(u'\n'));
        m_pasted.setRows(rows);
    });
}

void PasteTable::addRow()
{
    qsizetype row = 0;
    m_model.change([&] { row = m_pasted.addRow(); });
    const QModelIndex first = m_model.index(static_cast<int>(row), 1);
    m_view->setFocus();
    m_view->setCurrentIndex(first);
    m_view->edit(first);
}

void PasteTable::toggleRows()
{
    const QModelIndex current = m_view->currentIndex();
    std::set<int> rows;
    for (const QModelIndex &index : m_view->selectionModel()->selectedIndexes())
        rows.insert(index.row());
    m_model.change([&] {
        for (const int row : rows)
            m_pasted.toggle(row);
    });
    m_view->setCurrentIndex(m_model.index(current.row(), current.column()));
}

void PasteTable::showColumns()
{
    for (auto box = m_columnBoxes.cbegin(); box != m_columnBoxes.cend(); ++box) {
        (*box)->clear();
        (*box)->addItem(u"(nessuna)"_s);
        for (qsizetype column = 0; column < m_pasted.columns(); ++column)
            (*box)->addItem(u"%1. %2"_s.arg(column + 1).arg(m_pasted.columnSample(column)));
        (*box)->setCurrentIndex(static_cast<int>(m_pasted.columnOf(box.key())) + 1);
    }
}

void PasteTable::showSum()
{
    const auto total = m_pasted.total();
    QString text = u"Righe da prendere: %1"_s.arg(m_pasted.taken().size());
    if (m_pasted.table().place(u"Importo"_s) >= 0)
        text += u"    Totale: "_s + (total ? FormatImporto(*total) : u"fuori misura"_s);
    text += u"    Tralasciate: %1    Da correggere: %2"_s
                .arg(m_pasted.count(PastedState::SetAside) + m_pasted.count(PastedState::LeftOut))
                .arg(m_pasted.count(PastedState::Faulty));
    if (!m_pasted.remark().isEmpty())
        text += u'\n' + m_pasted.remark();
    m_sum->setText(text);
    emit changed();
}

bool PasteTable::eventFilter(QObject *watched, QEvent *event)
{
    // Keys of a cell's editor come by here, too.
    const bool isKey = event->type() == QEvent::KeyPress && m_view->hasFocus();
    const int key = isKey ? static_cast<QKeyEvent *>(event)->key() : 0;
    if (key == Qt::Key_Delete) {
        toggleRows();
        return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        m_view->edit(m_view->currentIndex());
        return true;
    }
    if (event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove ||
        event->type() == QEvent::Drop) {
        auto *drop = static_cast<QDropEvent *>(event);
        const QList<QUrl> files = drop->mimeData()->urls();
        if (files.size() != 1 || !files.first().isLocalFile())
            return false;
        drop->acceptProposedAction();
        if (event->type() == QEvent::Drop)
            readFile(files.first().toLocalFile());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace saldoro
