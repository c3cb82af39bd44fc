#pragma once

#include "app/form_flow.h"
#include "common/ending.h"
#include "controls/flex_grid.h"
#include "form_driver.h"
#include "invoice/frm_nuova_fattura.h"
#include "overview/frm_principale.h"
#include "sound_project.h"

namespace saldoro {

/** The main screen, and the real forms tied together, over three payments of which the second is a
 *  professional's. Questions are answered with Yes. */
class OpenProgram : public AnsweredBoxes
{
public:
    OpenProgram()
    {
        saysYes = true;
        PlantPayments(archive, "('A',3,'Cave Unite','2021-05-20',250000,55000,NULL)");
        archive.execute(ContractPath(values),
                        u"INSERT INTO SchedaProgetto (Voce) VALUES ('M0097_2'),('M0097_22')"_s);
        forms.mainForm()->reopen();
        if (!QTest::qWaitForWindowActive(&main))
            qFatal("the main form did not become active");
    }
    ~OpenProgram() { SetEnding(false); }

    FrmNuovaFattura *chooser() const { return forms.chooser(); }
    InvoiceForm *company() { return forms.invoiceForm(CreditorKind::Company); }
    void play(const QString &steps) const { Play(&main, steps); }
    void modify(int row)
    {
        list.setRow(row);
        play(u"click Command3"_s);
    }
    /** What was asked, and which forms are open with their payments. */
    QString told()
    {
        QStringList all = messages;
        for (const CreditorKind kind : {CreditorKind::Company, CreditorKind::Professional}) {
            if (const InvoiceForm *form = forms.invoiceForm(kind))
                all += KindCode(kind) + u' ' + QString::number(form->paymentNumber());
        }
        if (chooser())
            all += u"new "_s + QString::number(values.CurrentPaymentNumber);
        return all.join(u' ');
    }
    /** Removes the documents in the project folder; how many there were. */
    qsizetype takeDocuments() const
    {
        QDir folder(project.folder());
        const QStringList names = folder.entryList({u"*.rtf"_s});
        for (const QString &name : names)
            folder.remove(name);
        return names.size();
    }

    SoundProject project;
    const TestArchive &archive = project.archive;
    ProgramValues values = archive.values();
    FormFlow forms{values};
    FrmPrincipale &main = *forms.mainForm();
    FlexGrid *const grid = Find<FlexGrid>(main, u"MSFlexGrid1"_s);
    TextTable &list = grid->table();
    const TextTable &overview = main.overviewTable();
};

} // namespace saldoro
