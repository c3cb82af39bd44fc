#include "session_player.h"

#include "common/ending.h"
#include "controls/flex_grid.h"
#include "invoice/frm_nuova_fattura.h"
#include "overview/frm_principale.h"
#include "session_model.h"

#include <QAbstractButton>
#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTest>

#include <unistd.h>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Lets closed forms go away and everything else happen that waits for the event loop. */
void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

template <class Widget = QWidget>
Widget &child(const QWidget &form, const QString &name)
{
    auto *widget = form.findChild<Widget *>(name);
    if (widget == nullptr)
        qFatal("no such control: %s", qPrintable(name));
    return *widget;
}

void click(const QWidget &form, const QString &name)
{
    auto &button = child(form, name);
    QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
    settle();
}

/** Puts a text in the place of what the control holds. */
void typeInto(QWidget &control, const QString &text)
{
    control.setFocus();
    QTest::keyClick(&control, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&control, text);
}

QString dateBoxName(CreditorKind kind)
{
    return kind == CreditorKind::Company ? u"MaskEdBox1_0"_s : u"MaskEdBox1"_s;
}

QString kindOf(const InvoiceForm &form)
{
    return form.objectName() == "FrmAziende"_L1 ? u"A"_s : u"P"_s;
}

/** What the form shows, as the step that saves it. */
QJsonObject saveStep(const InvoiceForm &form)
{
    const QString kind = kindOf(form);
    QJsonObject texts;
    for (const QString &name :
         {u"Text1_0"_s, u"Text1_1"_s, u"Text1_3"_s, u"Mandato"_s, u"MandatoDell"_s})
        texts[name] = child<QLineEdit>(form, name).text();
    for (const auto &[column, name] : AmountColumns(kind))
        texts[name] = child<QLineEdit>(form, name).text();
    texts[u"Memo"_s] = child<QPlainTextEdit>(form, u"Memo"_s).toPlainText();
    texts[u"Del"_s] =
        child<QLineEdit>(
            form, dateBoxName(kind == "A"_L1 ? CreditorKind::Company : CreditorKind::Professional))
            .text();
    QJsonArray rows;
    const TextTable &grid = child<FlexGrid>(form, u"MSFlexGrid1"_s).table();
    for (int row = 1; row < grid.rows(); ++row)
        rows.append(QJsonArray{grid.text(row, 0), grid.text(row, 1), grid.text(row, 2)});
    return {{u"step"_s, u"save"_s},
            {u"kind"_s, kind},
            {u"number"_s, form.paymentNumber()},
            {u"texts"_s, texts},
            {u"allocations"_s, rows}};
}

} // namespace

SessionPlayer::SessionPlayer(FormWiring &forms, quint32 seed, int steps)
    : m_forms(forms)
    , m_random(seed)
    , m_steps(steps)
{
}

void SessionPlayer::say(const QJsonObject &line)
{
    const QByteArray text = QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
    for (qsizetype place = 0; place < text.size();) {
        const ssize_t written =
            ::write(STDOUT_FILENO, text.constData() + place, size_t(text.size() - place));
        if (written < 0)
            ::_exit(3); // whoever listened is gone
        place += written;
    }
}

TextTable &SessionPlayer::list() const
{
    return child<FlexGrid>(*m_forms.mainForm(), u"MSFlexGrid1"_s).table();
}

void SessionPlayer::play()
{
    say({{u"shown"_s, list().rows() - 1}});
    for (int step = 0; step < m_steps && !IsEnding(); ++step) {
        const int choice = list().rows() > 1 ? below(10) : 0;
        if (choice < 4)
            enterNew();
        else if (choice < 7)
            openListed();
        else
            removeListed();
    }
    if (!IsEnding())
        confirm(*m_forms.mainForm(), u"Command2"_s, {{u"step"_s, u"close"_s}});
}

void SessionPlayer::confirm(QWidget &form, const QString &button, const QJsonObject &step)
{
    say(step);
    click(form, button);
    if (!IsEnding())
        say({{u"done"_s, true}});
}

void SessionPlayer::enterNew()
{
    click(*m_forms.mainForm(), u"Command1"_s);
    click(*m_forms.chooser(), below(2) ? u"Option3"_s : u"Option4"_s);
    click(*m_forms.chooser(), u"Command1"_s);
    if (InvoiceForm *form = openForm()) {
        fill(*form);
        for (int more = 1 + below(4); more > 0; --more)
            allocate(*form);
        leave(*form);
    }
}

void SessionPlayer::openListed()
{
    list().setRow(1 + below(list().rows() - 1));
    click(*m_forms.mainForm(), u"Command3"_s);
    InvoiceForm *form = openForm();
    if (form == nullptr)
        return;
    if (below(3) == 0)
        unallocate(*form);
    if (below(4) == 0) {
        confirm(*form, u"Command2"_s, {{u"step"_s, u"close"_s}});
        return;
    }
    fill(*form);
    for (int more = below(3); more > 0; --more)
        allocate(*form);
    leave(*form);
}

void SessionPlayer::removeListed()
{
    const int row = 1 + below(list().rows() - 1);
    list().setRow(row);
    confirm(*m_forms.mainForm(), u"Command4"_s, {{u"step"_s, u"delete"_s}, {u"number"_s, row}});
}

InvoiceForm *SessionPlayer::openForm() const
{
    for (const CreditorKind kind : {CreditorKind::Company, CreditorKind::Professional}) {
        InvoiceForm *form = m_forms.invoiceForm(kind);
        if (form != nullptr && QTest::qWaitForWindowActive(form))
            return form;
    }
    return nullptr;
}

QString SessionPlayer::amount()
{
    return u"%1.%2"_s.arg(1 + below(90000)).arg(below(100), 2, 10, QChar(u'0'));
}

QString SessionPlayer::date()
{
    return u"%1%2%3"_s.arg(1 + below(28), 2, 10, QChar(u'0'))
        .arg(1 + below(12), 2, 10, QChar(u'0'))
        .arg(1990 + below(40));
}

void SessionPlayer::fill(InvoiceForm &form)
{
    const bool isCompany = kindOf(form) == "A"_L1;
    typeInto(child(form, u"Text1_0"_s), u"Creditore d'Oro %1"_s.arg(below(1000)));
    typeInto(child(form, u"Text1_1"_s), QString::number(below(1000)) + u"/B"_s);
    typeInto(
        child(form, dateBoxName(isCompany ? CreditorKind::Company : CreditorKind::Professional)),
        date());
    typeInto(child(form, u"Text1_3"_s), u"Acconto n. %1"_s.arg(below(50)));
    for (const QString &name :
         isCompany ? QStringList{u"Text2_0"_s} : QStringList{u"Text4_0"_s, u"Text4_1"_s})
        typeInto(child(form, name), amount());
    typeInto(child(form, u"Text2_1"_s), QString::number(4 + below(20)));
    typeInto(child(form, u"Memo"_s), u"Nota %1"_s.arg(m_random()));
    typeInto(child(form, u"Mandato"_s), QString::number(below(500)));
    if (below(2))
        typeInto(child(form, u"MandatoDell"_s), date());
}

/** By "Inserisci", the arrows and Enter, as far as there is an item left. */
void SessionPlayer::allocate(InvoiceForm &form)
{
    click(form, u"Command3"_s);
    auto &items = child<QListWidget>(form, u"List1"_s);
    if (!items.isVisible())
        return;
    for (int down = below(items.count()); down > 0; --down)
        QTest::keyClick(&items, Qt::Key_Down);
    QTest::keyClick(&items, Qt::Key_Return);
    auto &editor = child(form, u"edtTxt"_s);
    QTest::keyClick(&editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&editor, amount());
    QTest::keyClick(&editor, Qt::Key_Return);
}

void SessionPlayer::unallocate(InvoiceForm &form)
{
    TextTable &grid = child<FlexGrid>(form, u"MSFlexGrid1"_s).table();
    if (grid.rows() == 1)
        return;
    grid.setRow(1 + below(grid.rows() - 1));
    confirm(form, u"Command4"_s,
            {{u"step"_s, u"unallocate"_s},
             {u"number"_s, form.paymentNumber()},
             {u"code"_s, grid.text(grid.row(), 0)}});
}

/** "Conferma", once the field that has the focus is settled. */
void SessionPlayer::leave(InvoiceForm &form)
{
    child(form, u"Command1"_s).setFocus();
    settle();
    confirm(form, u"Command1"_s, saveStep(form));
}

} // namespace saldoro
