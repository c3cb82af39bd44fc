// saldoro_demo_tour PROGETTO CARTELLA_IMMAGINI: opens the program's windows one after the other as
// a user would, saves a picture of each, and prints what they show and what closing the main form
// has written. Needs no display. The archive is the one that the per-user setting names, as for the
// program itself.

#include "app/application.h"
#include "app/form_flow.h"
#include "app/start_up.h"
#include "common/characters.h"
#include "common/ending.h"
#include "common/errors.h"
#include "controls/flex_grid.h"
#include "controls/message_box.h"
#include "invoice/frm_nuova_fattura.h"
#include "invoice/invoice_form.h"
#include "office/frm_appalti.h"
#include "office/frm_voci.h"
#include "overview/frm_principale.h"
#include "platform/machine_path.h"
#include "rtf_reader.h"
#include "store/archive_paths.h"
#include "store/code_map.h"
#include "store/contract_sheet.h"
#include "store/mandate_note.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QTextStream>

#include <algorithm>
#include <array>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

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

class DemoTour
{
public:
    /** @p forms shows the main form already; pictures go to @p pictureFolder, a machine path. */
    DemoTour(const ProgramValues &values, FormFlow &forms, const QString &pictureFolder)
        : m_values(values)
        , m_forms(forms)
        , m_pictureFolder(pictureFolder)
    {
    }

    /** Stops early once the program is on its way out after an error. Throws SaldoroError. */
    void run()
    {
        using Step = void (DemoTour::*)();
        for (const Step step :
             {&DemoTour::showForms, &DemoTour::showContracts, &DemoTour::printTables,
              &DemoTour::close, &DemoTour::printDocuments, &DemoTour::printTotals}) {
            if (!IsEnding())
                (this->*step)();
            m_output.flush();
        }
    }

private:
    FrmPrincipale &mainForm() const { return *m_forms.mainForm(); }
    TextTable &paymentsList() const
    {
        return mainForm().findChild<FlexGrid *>(u"MSFlexGrid1"_s)->table();
    }

    void showForms()
    {
        QDir().mkpath(m_pictureFolder);
        m_output << u"Immagini delle finestre:\n"_s;
        picture(&mainForm(), u"1-schermata-principale"_s);
        openPayment(CreditorKind::Professional, u"2-pagamento-professionista"_s);
        openPayment(CreditorKind::Company, u"3-pagamento-azienda"_s);
        openNew(CreditorKind::Professional, u"5-nuovo-professionista"_s);
        openNew(CreditorKind::Company, u"6-nuova-azienda"_s);
        showNotices();
    }

    /** The last payment of a kind that has a mandate note: it shows most. */
    void openPayment(CreditorKind kind, const QString &pictureName)
    {
        const Database ledger = Database::openReadOnly(LedgerPath(m_values));
        RecordSet payments =
            ledger.openRecordSet(u"SELECT * FROM Fatture WHERE AziProf = "_s +
                                 (kind == CreditorKind::Company ? u"'A'"_s : u"'P'"_s));
        for (int row = paymentsList().rows() - 1; row > 0 && !IsEnding(); --row) {
            payments.findFirst(u"Npag = "_s + QString::number(row));
            if (payments.noMatch() || !EsisteVoceLike(m_values, VoceMandato(m_values, row)))
                continue;
            paymentsList().setRow(row);
            press(mainForm(), u"Command3"_s);
            return picture(m_forms.invoiceForm(kind), pictureName);
        }
    }

    void openNew(CreditorKind kind, const QString &pictureName)
    {
        press(mainForm(), u"Command1"_s);
        FrmNuovaFattura *chooser = m_forms.chooser();
        if (chooser == nullptr)
            return;
        press(*chooser, kind == CreditorKind::Company ? u"Option3"_s : u"Option4"_s);
        if (kind == CreditorKind::Professional)
            picture(chooser, u"4-nuova-fattura"_s); // it looks the same for the other kind
        press(*chooser, u"Command1"_s);
        picture(m_forms.invoiceForm(kind), pictureName);
    }

    /** Other amounts that are passed through count a hundredfold, and the form says so. */
    void showNotices()
    {
        if (IsEnding() || paymentsList().rows() < 3)
            return;
        paymentsList().setRow(2);
        press(mainForm(), u"Command3"_s);
        InvoiceForm *form = m_forms.invoiceForm(CreditorKind::Professional);
        if (form == nullptr)
            return;
        form->findChild<QWidget *>(u"Text2_5"_s)->setFocus();
        picture(form, u"7-avvisi"_s);
    }

    /** The list of contracts, and a new one of which one row is to be corrected. */
    void showContracts()
    {
        FrmAppalti contracts;
        contracts.load();
        contracts.show();
        settle();
        contracts.findChild<QLineEdit *>(u"Cartella"_s)->setText(u"/srv/archivi"_s);
        picture(&contracts, u"8-appalti"_s);
        QGuiApplication::clipboard()->setText(
            u"Comune di Borgo\nCod.\tVoce di spesa\tImporto\n\tA. Lavori\n"
            "A01\tLavori a misura\t412.500,00\nA02\tOneri della sicurezza\t12.400,00\n"
            "\tTotale A\t424.900,00\n\tB. Somme a disposizione\n"
            "B01\tImprevisti\t20.000,00\nB02\tSpese tecniche\tda definire"_s);
        FrmVoci items(m_values.ArchiveRoot, {}, &contracts);
        items.show();
        settle();
        press(items, u"Incolla"_s);
        picture(&items, u"9-nuovo-appalto"_s);
    }

    /** Saves the form's picture; an invoice form is closed afterwards, as "Annulla" would. */
    void picture(QWidget *form, const QString &name)
    {
        settle();
        if (form == nullptr || IsEnding())
            return;
        const QString path = m_pictureFolder + u'/' + name + u".png"_s;
        if (!form->grab().save(path))
            throw FileError(path, u"L'immagine non può essere scritta."_s,
                            u"Controllare i permessi e lo spazio libero sul disco."_s);
        m_output << u"  %1\n"_s.arg(path);
        if (qobject_cast<InvoiceForm *>(form) != nullptr)
            form->close();
        settle();
    }

    void printTables()
    {
        printTable(u"Saldoro effettuati"_s, paymentsList(), {0, 3});
        printTable(u"Quadro di disponibilità"_s, mainForm().overviewTable(), {2, 3, 4});
    }

    /** @p amounts are the columns that are aligned to the right. */
    void printTable(const QString &heading, const TextTable &table, const QList<int> &amounts)
    {
        m_output << u'\n' << heading;
        QList<qsizetype> widths(table.columns(), 0);
        for (int row = 0; row < table.rows(); ++row) {
            for (int column = 0; column < table.columns(); ++column)
                widths[column] = std::max(widths[column], CharacterCount(table.text(row, column)));
        }
        for (int row = 0; row < table.rows(); ++row) {
            m_output << u"\n  "_s;
            for (int column = 0; column < table.columns(); ++column) {
                const QString text = table.text(row, column);
                m_output << (amounts.contains(column)
                                 ? QString(widths[column] - CharacterCount(text), u' ') + text
                                 : FixedWidth(text, widths[column]))
                         << u"  "_s;
            }
        }
        m_output << u'\n';
    }

    void close()
    {
        mainForm().close();
        settle();
    }

    void printDocuments()
    {
        const QString folder = MachinePath(ProjectFolder(m_values));
        for (const QString &code : {u"QDP"_s, u"P98"_s, u"P99"_s, u"P98P"_s, u"P99P"_s}) {
            QFile file(folder + u'/' + CodiceEsterno(m_values, code) + u".rtf"_s);
            if (!file.open(QIODevice::ReadOnly))
                throw FileError(file.fileName(), u"Il documento non può essere letto."_s);
            m_output << u"\nDocumento %1 - %2\n%3\n\n"_s.arg(
                            code, DescrizioneFunzione(m_values, code), file.fileName())
                     << ReadRtf(file.readAll()).text << u'\n';
        }
    }

    void printTotals()
    {
        m_output << u"\nTotali registrati nel contratto\n"_s;
        for (const QString &code : {u"QS1A"_s, u"QS1P"_s, u"QS1T"_s})
            m_output << u"  "_s << FixedWidth(DescrizioneFunzione(m_values, code), 36)
                     << StringaVoceLike(m_values, CodiceEsterno(m_values, code)) << u'\n';
        m_output << u"\nImmagini:  %1\nDocumenti e archivi del progetto:  %2\n"_s.arg(
            m_pictureFolder, MachinePath(ProjectFolder(m_values)));
    }

    const ProgramValues &m_values;
    FormFlow &m_forms;
    QString m_pictureFolder;
    QTextStream m_output{stdout};
};

bool printMessage(MessageKind /*kind*/, const QString &text)
{
    QTextStream(stderr) << u'\n' << text << u'\n';
    return false;
}

/** The off-screen platform remarks on everything that needs a screen; only failures matter. */
void printFailure(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        QTextStream(stderr) << text << u'\n';
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3) {
        QTextStream(stderr) << u"Uso: saldoro_demo_tour PROGETTO CARTELLA_IMMAGINI\n"_s;
        return 2;
    }
    qInstallMessageHandler(printFailure);
    if (!qgetenv("QT_QPA_PLATFORM").startsWith("offscreen")) // whose screen may be described
        qputenv("QT_QPA_PLATFORM", "offscreen");
    std::array<char *, 2> programOnly = {argv[0], nullptr};
    int programOnlyCount = 1;
    Application application(programOnlyCount, programOnly.data());
    ReplaceMessageBoxes(printMessage);
    ProgramValues values;
    FormFlow forms(values);
    std::optional<Database> createdLedger;
    const QString tail = LaunchToken.toString() + QString::fromLocal8Bit(argv[1]);
    const QString pictures = QString::fromLocal8Bit(argv[2]);
    // The tour is over when it returns: there is no loop to be entered.
    return application.run([&] {
        if (StartUp(values, tail, createdLedger)) {
            forms.mainForm()->reopen();
            DemoTour(values, forms, pictures).run();
        }
        return false;
    });
}
