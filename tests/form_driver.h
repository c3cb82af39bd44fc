#pragma once

#include "answered_boxes.h"
#include "common/creditor_kind.h"
#include "controls/text_table.h"
#include "invoice/invoice_form.h"
#include "test_archive.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

namespace saldoro {

/** The control of that name, which has to be there. */
template <class Widget = QWidget>
Widget *Find(const QWidget &form, const QString &name)
{
    auto *widget = form.findChild<Widget *>(name);
    if (!widget)
        qFatal("no such control: %s", qPrintable(name));
    return widget;
}

/**
 * Carries out steps such as "to Text1_0, type Bo, Tab, click Command1": the focus given to a
 * control, a text typed, a key (also "Alt+E") and a click. Keys go to what has the focus in the
 * form, active or not. A key that is held down ("hold Tab") comes again by itself. The form has to
 * be open.
 */
void Play(const QWidget *form, const QString &steps);

/** One invoice form over a temporary archive, driven by keys and clicks as a user would. */
class FormDriver : public AnsweredBoxes
{
public:
    FormDriver();

    /** Opens the form of @p kind on a payment and waits until it has the focus. */
    void open(CreditorKind kind, qint32 paymentNumber);

    template <class Widget = QWidget>
    Widget *find(const QString &name) const
    {
        return Find<Widget>(*form, name);
    }

    QString text(const QString &name) const { return find<QLineEdit>(name)->text(); }
    /** Texts of the named lines, joined by blanks; an empty one reads "-". */
    QString texts(const QString &names) const;
    /** Name of the control that has the focus; empty without one. */
    QString focused() const
    {
        const QWidget *control = QApplication::focusWidget();
        return control ? control->objectName() : QString();
    }

    void play(const QString &steps) const { Play(form.get(), steps); }

    /** The allocation grid below its header: cells joined by "|", rows by ";". */
    QString allocations() const;

    TestArchive archive;
    ProgramValues values;
    /** Three cost items. */
    TextTable overview;
    std::unique_ptr<InvoiceForm> form;
    int unloads = 0;
};

} // namespace saldoro
