#include "form_driver.h"

#include "archive_probe.h"
#include "controls/flex_grid.h"
#include "controls/stray_input.h"

namespace saldoro {

using namespace Qt::StringLiterals;

void Play(const QWidget *form, const QString &steps)
{
    if (!form)
        qFatal("no form to play: %s", qPrintable(steps));
    for (const QString &step : steps.split(u", "_s)) {
        const QString verb = step.section(u' ', 0, 0);
        const QString object = step.section(u' ', 1);
        if (verb == "to"_L1) {
            Find(*form, object)->setFocus();
        } else if (verb == "click"_L1) {
            QWidget *control = Find(*form, object);
            // An option shows in but a part of its room.
            QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(8, control->height() / 2));
        } else if (verb == "type"_L1) {
            QTest::keyClicks(form->focusWidget(), object);
        } else if (verb == "hold"_L1) {
            const QKeyCombination key = QKeySequence(object)[0];
            for (const bool again : {false, true, true})
                qt_handleKeyEvent(form->windowHandle(), QEvent::KeyPress, key.key(),
                                  key.keyboardModifiers(), {}, again);
        } else {
            const QKeyCombination key = QKeySequence(step)[0];
            QTest::keyClick(form->focusWidget(), key.key(), key.keyboardModifiers());
        }
    }
}

FormDriver::FormDriver()
    : values(archive.values())
    , overview(5)
{
    WatchStrayInput();
    AddStandardCodes(archive.values());
    AddRow(overview, {u"A1"_s, u"Scavi e rinterri"_s, {}, {}, u"12.500,00"_s});
    AddRow(overview, {u"A2"_s, u"Murature"_s, {}, {}, u"1.800,00"_s});
    AddRow(overview, {u"B10"_s, u"Spese tecniche"_s, {}, {}, u"640,00"_s});
}

void FormDriver::open(CreditorKind kind, qint32 paymentNumber)
{
    values.CurrentPaymentNumber = paymentNumber;
    form = std::make_unique<InvoiceForm>(kind, values, overview);
    QObject::connect(form.get(), &InvoiceForm::unloaded, form.get(), [this] { ++unloads; });
    form->load();
    values.CurrentPaymentNumber = 99; // another form's business
    form->show();
    if (!QTest::qWaitForWindowActive(form.get()))
        qFatal("the form did not become active");
}

QString FormDriver::texts(const QString &names) const
{
    QStringList shown;
    for (const QString &name : names.split(u' '))
        shown += text(name).isEmpty() ? u"-"_s : text(name);
    return shown.join(u' ');
}

QString FormDriver::allocations() const
{
    return BodyText(find<FlexGrid>(u"MSFlexGrid1"_s)->table()).replace(u'\n', u';');
}

} // namespace saldoro
