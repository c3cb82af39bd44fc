#pragma once

#include "common/creditor_kind.h"
#include "common/message_box.h"
#include "controls/text_table.h"
#include "invoice/invoice_form.h"
#include "test_archive.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

namespace saldoro {

/** One invoice form over a temporary archive, driven by keys and clicks as a user would. */
class FormDriver
{
public:
    FormDriver();
    ~FormDriver();

    /** Opens the form of @p kind on a payment and waits until it has the focus. */
    void open(CreditorKind kind, qint32 paymentNumber);

    template <class Widget = QWidget>
    Widget *find(const QString &name) const
    {
        auto *widget = form->findChild<Widget *>(name);
        if (!widget)
            qFatal("no such control: %s", qPrintable(name));
        return widget;
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

    void focus(const QString &name) { find(name)->setFocus(); }
    void type(const QString &text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void hold(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        for (const bool again : {false, true, true}) // it comes again by itself
            qt_handleKeyEvent(form->windowHandle(), QEvent::KeyPress, key, modifiers, {}, again);
    }
    void click(const QString &name) { QTest::mouseClick(find(name), Qt::LeftButton); }

    /** The allocation grid below its header: cells joined by "|", rows by ";". */
    QString allocations() const;

    TestArchive archive;
    ProgramValues values;
    /** Three cost items. */
    TextTable overview;
    std::unique_ptr<InvoiceForm> form;
    /** Message boxes so far, and the answer to questions. */
    QStringList messages;
    MessageAnswer answer = MessageAnswer::No;
    int unloads = 0;

private:
    MessageAnswerer m_realBoxes;
};

} // namespace saldoro
