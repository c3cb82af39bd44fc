#include "controls/screen_reader.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>

namespace saldoro {

namespace {

/** Asked for each class of an object, the lowest first, before the toolkit's own answer. */
QAccessibleInterface *plainWindow(const QString &className, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    const bool isPlain = widget && className == QLatin1String("QWidget");
    return isPlain && widget->windowType() == Qt::Window
               ? new QAccessibleWidget(widget, QAccessible::Window)
               : nullptr;
}

void tellFocus(QWidget &control)
{
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&control);
    if (spoken == nullptr)
        return;
    const auto *view = qobject_cast<QAbstractItemView *>(&control);
    QAccessibleTableInterface *table = spoken->tableInterface();
    if (view && table && view->currentIndex().isValid())
        spoken = table->cellAt(view->currentIndex().row(), view->currentIndex().column());
    if (spoken == nullptr)
        return;
    QAccessibleEvent event(spoken, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void GiveWindowsTheirRole()
{
    QAccessible::installFactory(plainWindow);
}

void TellFocus(QWidget &control)
{
    const auto tell = [&control] {
        if (QAccessible::isActive() && QApplication::focusWidget() == &control)
            tellFocus(control);
    };
    QMetaObject::invokeMethod(&control, tell, Qt::QueuedConnection);
}

} // namespace saldoro
