#include "demo_tour.h"

#include "common/archive_folders.h"
#include "common/ending.h"
#include "common/errors.h"
#include "common/text_cut.h"
#include "controls/flex_grid.h"
#include "database/database.h"
#include "invoice/frm_nuova_fattura.h"
#include "invoice/invoice_form.h"
#include "overview/frm_principale.h"
#include "platform/machine_path.h"
#include "rtf_reader.h"
#include "store/code_lookups.h"
#include "store/mandate_note.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

/** Lets everything happen that waits for the event loop: layout, closed forms going away. */
void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void press(const QWidget &form, const QString &button)
{
    form.findChild<QAbstractButton *>(button)->click();
    settle();
}

QList<qsizetype> columnWidths(const TextTable &table)
{
    QList<qsizetype> widths(table.columns(), 0);
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.columns(); ++column) {
            widths[column] = std::max(widths[column], CharacterCount(table.text(row, column)));
        }
    }
    return widths;
}

QString documentText(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw FileError(path, u"Il documento non può essere letto."_s);
    }
    return ReadRtf(file.readAll()).text;
}

} // namespace

DemoTour::DemoTour(const ProgramValues &values, FormFlow &forms, QString pictureFolder)
    : m_values(values)
    , m_forms(forms)
    , m_pictureFolder(std::move(pictureFolder))
    , m_output(stdout)
{
}

void DemoTour::run()
{
    if (!QDir().mkpath(m_pictureFolder)) {
        throw FileError(m_pictureFolder, u"La cartella delle immagini non può essere creata."_s,
                        u"Controllare i permessi e lo spazio libero sul disco."_s);
    }
    m_output << u"Immagini delle finestre:\n"_s;
    picture(m_forms.mainForm(), u"1-schermata-principale"_s);
    openPayment(CreditorKind::Professional, u"2-pagamento-professionista"_s);
    openPayment(CreditorKind::Company, u"3-pagamento-azienda"_s);
    openNew(CreditorKind::Professional, u"5-nuovo-professionista"_s);
    openNew(CreditorKind::Company, u"6-nuova-azienda"_s);
    printTable(u"Saldoro effettuati"_s, paymentsList(), {0, 3});
    printTable(u"Quadro di disponibilità"_s, m_forms.mainForm()->overviewTable(), {2, 3, 4});
    if (!IsEnding()) {
        m_forms.mainForm()->close();
        settle();
    }
    if (!IsEnding()) {
        printDocuments();
        printTotals();
    }
}

TextTable &DemoTour::paymentsList() const
{
    return m_forms.mainForm()->findChild<FlexGrid *>(u"MSFlexGrid1"_s)->table();
}

/** The last row of a kind whose payment has a mandate note: it shows most. */
std::optional<int> DemoTour::rowOf(CreditorKind kind) const
{
    const QString wanted = kind == CreditorKind::Company ? u"A"_s : u"P"_s;
    const Database ledger = Database::openReadOnly(LedgerPath(m_values));
    RecordSet payments = ledger.openRecordSet(u"SELECT * FROM Fatture"_s);
    for (int row = paymentsList().rows() - 1; row > 0; --row) {
        payments.findFirst(u"Npag = "_s + QString::number(row));
        if (!payments.noMatch() && payments.field(u"AziProf"_s).textOrEmpty() == wanted &&
            EsisteVoceLike(m_values, VoceMandato(m_values, row))) {
            return row;
        }
    }
    return std::nullopt;
}

void DemoTour::openPayment(CreditorKind kind, const QString &pictureName)
{
    const std::optional<int> row = rowOf(kind);
    if (IsEnding() || !row) {
        return;
    }
    paymentsList().setRow(*row);
    press(*m_forms.mainForm(), u"Command3"_s);
    picture(m_forms.invoiceForm(kind), pictureName);
}

void DemoTour::openNew(CreditorKind kind, const QString &pictureName)
{
    if (IsEnding()) {
        return;
    }
    press(*m_forms.mainForm(), u"Command1"_s);
    FrmNuovaFattura *chooser = m_forms.chooser();
    if (chooser == nullptr) {
        return;
    }
    press(*chooser, kind == CreditorKind::Company ? u"Option3"_s : u"Option4"_s);
    if (kind == CreditorKind::Professional) {
        picture(chooser, u"4-nuova-fattura"_s); // it looks the same for the other kind
    }
    press(*chooser, u"Command1"_s);
    picture(m_forms.invoiceForm(kind), pictureName);
}

/** Saves the form's picture; an invoice form is closed afterwards, as "Annulla" would. */
void DemoTour::picture(QWidget *form, const QString &name)
{
    settle();
    if (form == nullptr || IsEnding()) {
        return;
    }
    const QString path = m_pictureFolder + u'/' + name + u".png"_s;
    if (!form->grab().save(path)) {
        throw FileError(path, u"L'immagine non può essere scritta."_s,
                        u"Controllare i permessi e lo spazio libero sul disco."_s);
    }
    m_output << u"  %1\n"_s.arg(path);
    m_output.flush();
    if (qobject_cast<InvoiceForm *>(form) != nullptr) {
        form->close();
        settle();
    }
}

void DemoTour::printTable(const QString &heading, const TextTable &table, const QList<int> &amounts)
{
    m_output << u'\n' << heading << u'\n';
    const QList<qsizetype> widths = columnWidths(table);
    for (int row = 0; row < table.rows(); ++row) {
        QString line = u"  "_s;
        for (int column = 0; column < table.columns(); ++column) {
            const QString text = table.text(row, column);
            line += amounts.contains(column)
                        ? QString(widths[column] - CharacterCount(text), u' ') + text
                        : FixedWidth(text, widths[column]);
            line += u"  "_s;
        }
        m_output << line << u'\n';
    }
    m_output.flush();
}

void DemoTour::printDocuments()
{
    const QString folder = MachinePath(ProjectFolder(m_values));
    for (const QString &code : {u"QDP"_s, u"P98"_s, u"P99"_s, u"P98P"_s, u"P99P"_s}) {
        const QString path = folder + u'/' + CodiceEsterno(m_values, code) + u".rtf"_s;
        m_output << u"\nDocumento %1 - %2\n%3\n\n"_s.arg(code, DescrizioneFunzione(m_values, code),
                                                         path);
        m_output << documentText(path) << u'\n';
        m_output.flush();
    }
}

void DemoTour::printTotals()
{
    m_output << u"\nTotali registrati nel contratto\n"_s;
    for (const QString &code : {u"QS1A"_s, u"QS1P"_s, u"QS1T"_s}) {
        m_output << u"  "_s << FixedWidth(DescrizioneFunzione(m_values, code), 36)
                 << StringaVoceLike(m_values, CodiceEsterno(m_values, code)) << u'\n';
    }
    m_output << u"\nImmagini:  %1\nDocumenti e archivi del progetto:  %2\n"_s.arg(
        m_pictureFolder, MachinePath(ProjectFolder(m_values)));
}

} // namespace saldoro
