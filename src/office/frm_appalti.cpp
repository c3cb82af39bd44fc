#include "office/frm_appalti.h"

#include "common/errors.h"
#include "common/program_values.h"
#include "controls/buttons.h"
#include "controls/flex_grid.h"
#include "controls/message_box.h"
#include "controls/window_placement.h"
#include "controls/window_size.h"
#include "exchange/archive_tables.h"
#include "exchange/export.h"
#include "office/contract_list.h"
#include "office/frm_controllo.h"
#include "office/frm_creditori.h"
#include "office/frm_voci.h"
#include "office/task.h"
#include "platform/process.h"
#include "store/archives_root.h"
#include "store/contract_codes.h"
#include "store/open_project.h"
#include "store/project_copy.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
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
    QString program =
        QStandardPaths::findExecutable(name, {QCoreApplication::applicationDirPath()});
    if (program.isEmpty())
        program = QStandardPaths::findExecutable(name);
    if (program.isEmpty() || !StartDetached(program, {LaunchToken.toString() + code}))
        throw FileError(program.isEmpty() ? name : program, u"Saldoro non può essere avviato."_s,
                        u"Installare di nuovo il programma."_s);
}

void open(QWidget &form)
{
    CentraForm(form);
    BringToFront(form);
}

} // namespace

FrmAppalti::FrmAppalti()
    : m_grid(new FlexGrid(FlexGrid::Selection::Rows, this))
    , m_contracts(new ContractList(m_grid->table()))
    , m_place(new QLineEdit(this))
    , m_state(new QLabel(this))
{
    setObjectName(u"FrmAppalti"_s);
    setWindowTitle(u"Saldoro - Appalti"_s);
    m_contracts->setParent(this);
    Describe(*m_grid, u"Elenco"_s, u"Appalti"_s, u"Invio apre in Saldoro l'appalto scelto"_s);
    m_grid->setWidths({800, 500, 1300, 900, 1300, 1300, 1400, FlexGrid::Rest});
    m_state->setObjectName(u"Stato"_s);
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(makePlace());
    whole->addWidget(m_grid, 1);
    whole->addWidget(m_state);
    whole->addLayout(makeButtons());
    connect(m_grid, &FlexGrid::cellActivated, this,
            [this] { Attempt([this] { openContract(); }); });
    connect(&m_grid->table(), &TextTable::currentMoved, this, [this] { showState(0, 0); });
    connect(m_contracts, &ContractList::progressed, this, &FrmAppalti::showState);
    m_grid->setFocus();
    constexpr int widthInTwips = 14400; // 960 by 600 pixels at 96 dots to the inch
    constexpr int heightInTwips = 9000;
    SizeWindow(*this, {TwipsToPixels(widthInTwips, *this), TwipsToPixels(heightInTwips, *this)});
}

FrmAppalti::~FrmAppalti() = default;

QLayout *FrmAppalti::makePlace()
{
    auto *row = new QHBoxLayout;
    auto *label = new QLabel(u"&Dove stanno gli archivi:"_s, this);
    label->setBuddy(m_place);
    Describe(*m_place, u"Cartella"_s, u"Cartella degli archivi"_s,
             u"Sotto questa cartella ogni appalto ha la sua"_s);
    m_place->setReadOnly(true);
    row->addWidget(label);
    row->addWidget(m_place, 1);
    row->addWidget(addButton(u"Apri_cartella"_s, u"A&pri cartella"_s,
                             u"Mostra la cartella degli archivi"_s, &FrmAppalti::openFolder));
    row->addWidget(addButton(u"Scegli_cartella"_s, u"&Scegli..."_s,
                             u"Sceglie un'altra cartella per gli archivi"_s,
                             &FrmAppalti::chooseFolder));
    return row;
}

QLayout *FrmAppalti::makeButtons()
{
    auto *grid = new QGridLayout;
    auto *start = addButton(u"Apri"_s, u"&Apri in Saldoro"_s, u"Apre in Saldoro l'appalto scelto"_s,
                            &FrmAppalti::openContract);
    auto *create = addButton(u"Nuovo"_s, u"&Nuovo appalto..."_s,
                             u"Crea un appalto con le voci di un foglio elettronico"_s,
                             &FrmAppalti::createContract);
    auto *replace = addButton(u"Variante"_s, u"Nuova &variante..."_s,
                              u"Dà all'appalto scelto le voci di una nuova variante"_s,
                              &FrmAppalti::replaceBudget);
    auto *creditors = addButton(u"Creditori"_s, u"&Imprese e professionisti..."_s,
                                u"Aggiunge all'appalto scelto i creditori da cercare in Saldoro"_s,
                                &FrmAppalti::addCreditors);
    auto *check = addButton(u"Controlla"_s, u"Con&trolla"_s,
                            u"Elenca che cosa darà problemi nell'appalto scelto"_s,
                            &FrmAppalti::checkContract);
    auto *copy = addButton(u"Copia"_s, u"&Copia..."_s,
                           u"Copia gli archivi dell'appalto scelto in un'altra cartella"_s,
                           &FrmAppalti::copyContract);
    auto *toCsv = addButton(u"Esporta"_s, u"&Esporta in CSV..."_s,
                            u"Scrive le tabelle dell'appalto scelto in file CSV"_s,
                            &FrmAppalti::exportContract);
    auto *close =
        addButton(u"Chiudi"_s, u"C&hiudi"_s, u"Chiude questa finestra"_s, &FrmAppalti::closeWindow);
    m_ofContract = {start, replace, creditors, check, copy, toCsv};
    int place = 0;
    constexpr int perRow = 4;
    for (QPushButton *button : {start, create, replace, creditors, check, copy, toCsv, close}) {
        grid->addWidget(button, place / perRow, place % perRow);
        ++place;
    }
    return grid;
}

QPushButton *FrmAppalti::addButton(const QString &name, const QString &caption, const QString &hint,
                                   void (FrmAppalti::*action)())
{
    auto *button = new PromptButton(name, caption, hint, this);
    connect(button, &QPushButton::clicked, this,
            [this, action] { Attempt([this, action] { (this->*action)(); }); });
    return button;
}

void FrmAppalti::load()
{
    try {
        m_place->setText(
            QDir::toNativeSeparators(root()) +
            (StoredArchivesRoot() ? QString() : u" (proposta: nasce con il primo appalto)"_s));
        m_contracts->read(root());
        showState(0, m_grid->table().rows() - 1);
    } catch (const FileError &error) {
        m_place->setText(QString(error.message()).simplified()); // a box would make it active again
    }
}

void FrmAppalti::showState(int done, int all)
{
    const QString code = m_contracts->currentCode();
    for (QPushButton *button : m_ofContract)
        button->setEnabled(!code.isEmpty());
    const TextTable &table = m_grid->table();
    const QString note = code.isEmpty() ? QString() : table.text(table.row(), ContractColumn::Nota);
    m_state->setText(done < all       ? u"Letti %1 appalti su %2"_s.arg(done).arg(all)
                     : code.isEmpty() ? u"Nessun appalto."_s
                     : note.isEmpty() ? u"Appalto "_s + code
                                      : u"Appalto %1: %2"_s.arg(code, note));
}

QString FrmAppalti::root() const
{
    const auto stored = StoredArchivesRoot();
    return stored ? *stored : ArchivesRootOf(ProposedArchivesRoot());
}

QString FrmAppalti::currentFolder() const
{
    return ContractsFolder(root()) + u'/' + m_contracts->currentCode();
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
    const auto stored = StoredArchivesRoot();
    if (stored && *stored != chosen &&
        !ChiediConferma(u"La cartella degli archivi vale per Saldoro e per tutti i programmi che "
                        "usano gli stessi archivi: cercheranno gli appalti in «%1» e non più in "
                        "«%2». Cambiarla?"_s.arg(chosen, *stored)))
        return;
    StoreArchivesRoot(chosen);
    load();
}

void FrmAppalti::openContract()
{
    if (m_contracts->currentCode().isEmpty())
        return;
    if (!StoredArchivesRoot())
        StoreArchivesRoot(root());
    startSaldoro(m_contracts->currentCode());
}

void FrmAppalti::createContract()
{
    auto *form = new FrmVoci(ArchivesRootOf(root()), {}, this);
    connect(form, &FrmVoci::written, this, [this](const QString &code) {
        load();
        m_contracts->setCurrentCode(code);
        Attempt([this] { openContract(); });
    });
    open(*form);
}

void FrmAppalti::refuseOpen() const
{
    if (IsProjectOpen(currentFolder()))
        throw SaldoroError(u"L'appalto è aperto in Saldoro."_s,
                           u"Chiudere la sua finestra e riprovare."_s);
}

void FrmAppalti::replaceBudget()
{
    refuseOpen();
    open(*new FrmVoci(root(), m_contracts->currentCode(), this));
}

void FrmAppalti::addCreditors()
{
    refuseOpen();
    open(*new FrmCreditori(currentFolder(), this));
}

void FrmAppalti::checkContract()
{
    open(*new FrmControllo(currentFolder(), this));
}

void FrmAppalti::copyContract()
{
    const QString folder =
        QFileDialog::getExistingDirectory(this, u"Dove mettere la copia"_s, QDir::homePath());
    QString copy;
    if (!folder.isEmpty() && AttemptLong(*this, u"Copia dell'appalto"_s, [&](const TaskStep &step) {
            copy = CopyProject(currentFolder(), folder, step);
        }))
        ShowMessage(MessageKind::Information,
                    u"La copia degli archivi sta in:\n"_s + QDir::toNativeSeparators(copy));
}

void FrmAppalti::exportContract()
{
    const QDir folder(
        QFileDialog::getExistingDirectory(this, u"Dove scrivere i file CSV"_s, QDir::homePath()));
    if (folder.path() == u"."_s)
        return;
    bool overwrite = false;
    for (const ExchangedTable &table : ExchangedTables())
        overwrite = overwrite || folder.exists(table.fileName());
    if (overwrite && !ChiediConferma(u"Nella cartella ci sono già file CSV. Sostituirli?"_s))
        return;
    QString summary;
    if (AttemptLong(*this, u"Esportazione in CSV"_s, [&](const TaskStep &) {
            summary = ExportProject(currentFolder(), folder.path(), overwrite);
        }))
        ShowMessage(MessageKind::Information,
                    u"Tabelle scritte in %1:\n\n%2"_s.arg(QDir::toNativeSeparators(folder.path()),
                                                          summary));
}

void FrmAppalti::closeWindow()
{
    close();
}

void FrmAppalti::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        load();
}

} // namespace saldoro
