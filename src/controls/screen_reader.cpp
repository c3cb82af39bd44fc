#include "controls/screen_reader.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>

namespace saldoro {

namespace {

/** The toolkit asks for each class of an object, the lowest first, before it answers itself. */
QAccessibleInterface *plainWindow(const QString &className, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    const bool isPlain = widget && className == QLatin1String("QWidget");
    return isPlain && widget->windowType() == Qt::Window
               ? new QAccessibleWidget(widget, QAccessible::Window)
               : nullptr;
}

} // namespace

void Describe(QWidget &control, const QString &objectName, const QString &name, const QString &hint)
{
    control.setObjectName(objectName);
    control.setAccessibleName(QString(name).remove(u'&'));
    control.setAccessibleDescription(hint);
    control.setToolTip(hint);
}

void GiveWindowsTheirRole()
{
    QAccessible::installFactory(plainWindow);
}

void FollowSelection(QAbstractItemView &view)
{
    // Queued: what becomes current in the usual way is selected before.
    const auto follow = [&view] {
        const QModelIndexList selected = view.selectionModel()->selectedIndexes();
        if (!selected.isEmpty() && !selected.contains(view.currentIndex()))
            view.setCurrentIndex(selected.first());
    };
    QObject::connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, &view, follow,
                     Qt::QueuedConnection);
}

void TellFocus(QWidget &control)
{
    const auto tell = [&control] {
        if (!QAccessible::isActive() || QApplication::focusWidget() != &control)
            return;
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&control);
        const auto *view = qobject_cast<QAbstractItemView *>(&control);
        auto *table = spoken ? spoken->tableInterface() : nullptr;
        if (table && view && view->currentIndex().isValid())
            spoken = table->cellAt(view->currentIndex().row(), view->currentIndex().column());
        if (!spoken)
            return;
        QAccessibleEvent event(spoken, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    };
    QMetaObject::invokeMethod(&control, tell, Qt::QueuedConnection);
}

} // namespace saldoro
