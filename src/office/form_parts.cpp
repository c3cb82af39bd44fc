#include "office/form_parts.h"

#include "common/message_lines.h"
#include "controls/prompt_button.h"
#include "controls/screen_reader.h"
#include "controls/window_placement.h"
#include "office/task.h"

#include <QApplication>
#include <QBoxLayout>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QShortcut>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** A mnemonic presses a button without closing a cell's editor; its text would be missing. */
void takeOpenCell()
{
    const QWidget *editor = QApplication::focusWidget();
    QWidget *cells = editor == nullptr ? nullptr : editor->parentWidget();
    if (cells != nullptr && cells->objectName() == "qt_scrollarea_viewport"_L1)
        cells->setFocus();
}

} // namespace

QWidget *MakeField(const QString &caption, Qt::Orientation direction, QWidget *field,
                   const QString &name, const QString &hint)
{
    auto *group = new QWidget;
    auto *layout = new QBoxLayout(
        direction == Qt::Horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, group);
    layout->setContentsMargins({});
    auto *label = new QLabel(caption + u':');
    label->setBuddy(field);
    layout->addWidget(label);
    layout->addWidget(field, 1);
    Describe(*field, name, caption, hint);
    return group;
}

QPushButton *MakeButton(const QString &name, const QString &caption, const QString &hint,
                        const std::function<void()> &action)
{
    auto *button = new PromptButton(name, caption, hint);
    QObject::connect(button, &QPushButton::clicked, button, [button, action] {
        takeOpenCell();
        if (button->isEnabled() && button->isVisible()) // still, with what the cell holds now
            Attempt(action);
    });
    return button;
}

QLayout *MakeLastRow(QPushButton *write, QWidget &form)
{
    auto *row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(write);
    row->addWidget(MakeButton(u"Annulla"_s, u"Annu&lla"_s, u"Chiude senza scrivere niente"_s,
                              [&form] { form.close(); }));
    return row;
}

void ShowLines(QListWidget &list, const QStringList &lines)
{
    constexpr qsizetype most = 1000;
    list.clear();
    list.addItems(FirstLines(lines, u"Ce ne sono altri %1, che qui non si leggono."_s, most));
    list.setCurrentRow(0);
}

QString NativePaths(const QStringList &paths)
{
    return QDir::toNativeSeparators(paths.join(u'\n'));
}

void SetUpModal(QWidget &form, const QString &name, const QString &title, QSize size)
{
    form.setObjectName(name);
    form.setAttribute(Qt::WA_DeleteOnClose);
    form.setWindowModality(Qt::WindowModal);
    form.setWindowTitle(title);
    QObject::connect(new QShortcut(Qt::Key_Escape, &form), &QShortcut::activated, &form,
                     &QWidget::close);
    SizeWindow(form, TwipsToPixels(size, form));
    CentraForm(form);
}

} // namespace saldoro
