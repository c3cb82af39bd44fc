#include "office/frm_appalti.h"

#include "common/errors.h"
#include "common/program_values.h"
#include "controls/flex_grid.h"
#include "controls/message_box.h"
#include "controls/screen_reader.h"
#include "controls/window_placement.h"
#include "exchange/export.h"
#include "office/contract_list.h"
#include "office/form_parts.h"
#include "office/frm_controllo.h"
#include "office/frm_creditori.h"
#include "office/frm_voci.h"
#include "office/task.h"
#include "platform/process.h"
#include "store/archives_root.h"
#include "store/contract_folders.h"
#include "store/project_copy.h"
#include "store/project_open_mark.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QPushButton>
#include <QStandardPaths>
#include <QUrl>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Starts Saldoro on a contract: the program that lies with this one, else the one that the system
 *  finds by its name. */
void startSaldoro(const QString &code)
{
    const QString name = u"Saldoro"_s;
    const QString ownFolder = QCoreApplication::applicationDirPath();
    QString program = QStandardPaths::findExecutable(name, {ownFolder});
    if (program.isEmpty())
        program = QStandardPaths::findExecutable(name);
    if (program.isEmpty() || !StartDetached(program, {LaunchToken.toString() + code}))
        throw FileError(program.isEmpty() ? name : program, u"Saldoro non può essere avviato."_s,
                        u"Installare di nuovo il programma."_s);
}

} // namespace

FrmAppalti::FrmAppalti()
    : m_grid(new FlexGrid(FlexGrid::SelectRows))
    , m_contracts(new ContractList(m_grid->table(), this))
    , m_place(new QLineEdit)
    , m_state(new QLabel)
    , m_contractButtons(makeContractButtons())
{
    setObjectName(u"FrmAppalti"_s);
    setWindowTitle(u"Saldoro - Appalti"_s);
    Describe(*m_grid, u"Elenco"_s, u"Appalti"_s, u"Invio apre in Saldoro l'appalto scelto"_s);
    m_grid->setWidths({800, 500, 1300, 900, 1300, 1300, 1400, FlexGrid::Rest});
    m_state->setObjectName(u"Stato"_s);
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    auto *last = new QHBoxLayout;
    last->addWidget(MakeButton(u"Nuovo"_s, u"&Nuovo appalto..."_s,
                               u"Crea un appalto con le voci di un foglio elettronico"_s,
                               [this] { createContract(); }));
    last->addStretch(1);
    last->addWidget(MakeButton(u"Manuale"_s, u"&Manuale"_s, u"Mostra il manuale (F1)"_s,
                               [this] { m_manual.showChapter(*this, ManualChapter::Contracts); }));
    last->addWidget(
        MakeButton(u"Chiudi"_s, u"C&hiudi"_s, u"Chiude questa finestra"_s, [this] { close(); }));
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(makePlace());
    whole->addWidget(m_grid, 1);
    whole->addWidget(m_state);
    whole->addWidget(m_contractButtons);
    whole->addLayout(last);
    connect(m_grid, &FlexGrid::cellActivated, this,
            [this] { Attempt([this] { openContract(); }); });
    connect(&m_grid->table(), &TextTable::currentMoved, this, [this] { showState(0, 0); });
    connect(m_contracts, &ContractList::progressed, this, &FrmAppalti::showState);
    m_manual.offerIn(*this, ManualChapter::Contracts);
    m_grid->setFocus();
    SizeWindow(*this, TwipsToPixels({14400, 9000}, *this));
}

QLayout *FrmAppalti::makePlace()
{
    m_place->setReadOnly(true);
    auto *row = new QHBoxLayout;
    row->addWidget(MakeField(u"&Dove stanno gli archivi"_s, Qt::Horizontal, m_place, u"Cartella"_s,
                             u"Sotto questa cartella ogni appalto ha la sua"_s),
                   1);
    row->addWidget(MakeButton(u"Apri_cartella"_s, u"A&pri cartella"_s,
                              u"Mostra la cartella degli archivi"_s, [this] { openFolder(); }));
    row->addWidget(MakeButton(u"Scegli_cartella"_s, u"&Scegli..."_s,
                              u"Sceglie un'altra cartella per gli archivi"_s,
                              [this] { chooseFolder(); }));
    return row;
}

QWidget *FrmAppalti::makeContractButtons()
{
    auto *group = new QWidget;
    auto *grid = new QGridLayout(group);
    grid->setContentsMargins({});
    const auto add = [&](const QString &name, const QString &caption, const QString &hint,
                         void (FrmAppalti::*action)()) {
        constexpr int buttonsInRow = 3;
        const int at = grid->count();
        grid->addWidget(MakeButton(name, caption, hint, [this, action] { (this->*action)(); }),
                        at / buttonsInRow, at % buttonsInRow);
    };
    add(u"Apri"_s, u"&Apri in Saldoro"_s, u"Apre in Saldoro l'appalto scelto"_s,
        &FrmAppalti::openContract);
    add(u"Variante"_s, u"Nuova &variante..."_s,
        u"Dà all'appalto scelto le voci di una nuova variante"_s, &FrmAppalti::replaceBudget);
    add(u"Creditori"_s, u"&Imprese e professionisti..."_s,
        u"Aggiunge all'appalto scelto i creditori da cercare in Saldoro"_s,
        &FrmAppalti::addCreditors);
    add(u"Controlla"_s, u"Con&trolla"_s, u"Elenca che cosa darà problemi nell'appalto scelto"_s,
        &FrmAppalti::checkContract);
    add(u"Copia"_s, u"&Copia..."_s, u"Copia gli archivi dell'appalto scelto in un'altra cartella"_s,
        &FrmAppalti::copyContract);
    add(u"Esporta"_s, u"&Esporta in CSV..."_s,
        u"Scrive le tabelle dell'appalto scelto in file CSV"_s, &FrmAppalti::exportContract);
    return group;
}

void FrmAppalti::load()
{
    try {
        const QString proposal = u" (proposta: nasce con il primo appalto)"_s;
        m_place->setText(ShownRoot(root()) + (UsedArchivesRoot() ? QString() : proposal));
        // Whole, where the field shows a part; the names of folders are no markup.
        m_place->setToolTip(u"<p>%1</p>"_s.arg(m_place->text().toHtmlEscaped()));
        m_none = QFileInfo(ContractsFolder(root())).isReadable()
                     ? u"Nessun appalto."_s
                     : u"Nessun appalto: la cartella degli archivi non c'è o non si può leggere. "
                       "Nasce con il primo appalto; se c'era già, vedere se il suo disco è "
                       "collegato."_s;
        m_contracts->read(root());
        showState(0, m_grid->table().rows() - 1);
    } catch (const FileError &error) {
        // Closing a message box would activate the window, which would load it again.
        m_place->setText(QString(error.message()).simplified());
    }
}

void FrmAppalti::showState(int done, int all)
{
    const QString code = m_contracts->currentCode();
    const QString note = m_contracts->currentNote();
    m_contractButtons->setEnabled(!code.isEmpty());
    m_state->setText(done < all       ? u"Letti %1 appalti su %2"_s.arg(done).arg(all)
                     : code.isEmpty() ? m_none
                     : note.isEmpty() ? u"Appalto "_s + code
                                      : u"Appalto %1: %2"_s.arg(code, note));
}

QString FrmAppalti::root() const
{
    const auto used = UsedArchivesRoot();
    return used ? *used : ArchivesRootOf(ProposedArchivesRoot());
}

QString FrmAppalti::currentFolder() const
{
    return ContractFolder(m_contracts->root(), m_contracts->currentCode());
}

void FrmAppalti::openForm(QWidget &form, QStringView chapter)
{
    m_manual.offerIn(form, chapter);
    BringToFront(form);
}

void FrmAppalti::openFolder()
{
    QString folder = ContractsFolder(root());
    while (!QDir(folder).exists() && QFileInfo(folder).path() != folder)
        folder = QFileInfo(folder).path();
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

void FrmAppalti::chooseFolder()
{
    const QString folder =
        QFileDialog::getExistingDirectory(this, u"Cartella degli archivi"_s, root());
    if (folder.isEmpty())
        return;
    const QString chosen = ArchivesRootOf(folder);
    const auto used = UsedArchivesRoot();
    if (used && *used != chosen &&
        !ChiediConferma(u"La cartella degli archivi vale per Saldoro e per tutti i programmi che "
                        "usano gli stessi archivi: cercheranno gli appalti in «%1» e non più in "
                        "«%2». Cambiarla?"_s.arg(chosen, ShownRoot(*used))))
        return;
    StoreArchivesRoot(chosen);
    load();
}

void FrmAppalti::openContract()
{
    if (m_contracts->currentCode().isEmpty())
        return;
    if (!UsedArchivesRoot())
        StoreArchivesRoot(root());
    if (root() != m_contracts->root()) { // where Saldoro would look for the contract
        load();
        throw SaldoroError(u"La cartella degli archivi è cambiata nel frattempo."_s,
                           u"L'elenco è stato riletto: scegliere di nuovo l'appalto."_s);
    }
    startSaldoro(m_contracts->currentCode());
}

void FrmAppalti::createContract()
{
    const QString where = root();
    if (UsedArchivesRoot() && !QFileInfo::exists(ContractsFolder(where)) &&
        !ChiediConferma(u"In «%1» non ci sono archivi. Se stanno su un disco che non è collegato, "
                        "rispondere No e collegarlo. Cominciare qui un archivio nuovo?"_s.arg(
                            ShownRoot(where))))
        return;
    auto *form = new FrmVoci(ArchivesRootOf(where), {}, this);
    connect(form, &FrmVoci::written, this, [this, where](const QString &code) {
        load();
        m_contracts->setCurrentCode(code);
        if (root() == where && m_contracts->currentCode() == code)
            Attempt([this] { openContract(); });
    });
    openForm(*form, ManualChapter::PastedItems);
}

void FrmAppalti::replaceBudget()
{
    RequireClosed(currentFolder());
    openForm(*new FrmVoci(m_contracts->root(), m_contracts->currentCode(), this),
             ManualChapter::PastedItems);
}

void FrmAppalti::addCreditors()
{
    RequireClosed(currentFolder());
    ProgramValues values;
    values.ArchiveRoot = m_contracts->root();
    values.ProjectCode = m_contracts->currentCode();
    openForm(*new FrmCreditori(values, this), ManualChapter::Contracts);
}

void FrmAppalti::checkContract()
{
    auto *form = new FrmControllo(currentFolder(), this);
    openForm(*form, ManualChapter::Check);
    form->check();
}

void FrmAppalti::copyContract()
{
    const QString contract = currentFolder(); // which the list may lose while the dialog is open
    const QString folder =
        QFileDialog::getExistingDirectory(this, u"Dove mettere la copia"_s, QDir::homePath());
    QString copy;
    if (!folder.isEmpty() &&
        AttemptLong(*this, u"Copia dell'appalto"_s, [&] { copy = CopyProject(contract, folder); }))
        ShowMessage(MessageKind::Information,
                    u"La copia degli archivi sta in:\n"_s + NativePaths({copy}));
}

void FrmAppalti::exportContract()
{
    const QString contract = currentFolder();
    const QString folder =
        QFileDialog::getExistingDirectory(this, u"Dove scrivere i file CSV"_s, QDir::homePath());
    if (folder.isEmpty())
        return;
    const bool overwrite = HasExportedFiles(folder);
    if (overwrite && !ChiediConferma(u"Nella cartella ci sono già file CSV. Sostituirli?"_s))
        return;
    QString summary;
    if (AttemptLong(*this, u"Esportazione in CSV"_s,
                    [&] { summary = ExportProject(contract, folder, overwrite); }))
        ShowMessage(MessageKind::Information,
                    u"Tabelle scritte in %1:\n\n%2"_s.arg(NativePaths({folder}), summary));
}

void FrmAppalti::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        load();
}

} // namespace saldoro
