#include "archivio/command_line.h"

#include "common/errors.h"

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

/** What a command takes. */
struct CommandForm
{
    QString operands;            ///< their names
    QMap<QString, bool> options; ///< and whether a value belongs to it
    int repeated = 0;            ///< operands at the end that may be given more than once
};

const QMap<QString, CommandForm> &commandForms()
{
    static const QMap<QString, CommandForm> forms{
        {u"verifica"_s, {u"CARTELLA"_s, {{u"--codici"_s, true}}}},
        {u"imposta"_s, {u"CARTELLA PAGAMENTO CAMPO VALORE"_s, {}, 3}},
        {u"importa"_s,
         {u"CARTELLA_CSV CARTELLA"_s,
          {{u"--nuovo"_s, false}, {u"--comunque"_s, false}, {u"--sostituisci"_s, true}}}},
        {u"esporta"_s, {u"CARTELLA CARTELLA_CSV"_s, {{u"--sovrascrivi"_s, false}}}}};
    return forms;
}

SaldoroError misuse(const QString &problem)
{
    return SaldoroError(problem, u"Con --aiuto si leggono le istruzioni."_s);
}

/** --aiuto or --versione, where one is asked for. */
QString request(const QStringList &options)
{
    static const QMap<QString, QString> requests{{u"--aiuto"_s, u"--aiuto"_s},
                                                 {u"--help"_s, u"--aiuto"_s},
                                                 {u"-h"_s, u"--aiuto"_s},
                                                 {u"--versione"_s, u"--versione"_s},
                                                 {u"--version"_s, u"--versione"_s}};
    for (const QString &option : options) {
        if (requests.contains(option))
            return requests[option];
    }
    return {};
}

bool isOption(const QString &word)
{
    return word.startsWith(u'-') && word.size() > 1 && !word[1].isDigit();
}

/** Takes the option off the front of @p words, with its value. */
void takeOption(QStringList &words, const CommandForm &form, CommandLine &line)
{
    const QString word = words.takeFirst();
    const QString name = word.section(u'=', 0, 0);
    const bool isJoined = word.contains(u'=');
    const auto option = form.options.find(name);
    if (option == form.options.end())
        throw misuse(u"L'opzione "_s + name + u" non esiste."_s);
    if (isJoined && !*option)
        throw misuse(u"L'opzione "_s + name + u" non prende alcun valore."_s);
    if (*option && !isJoined && words.isEmpty())
        throw misuse(u"Dopo "_s + name + u" manca qualcosa."_s);
    QStringList &values = line.options[name];
    if (*option)
        values.append(isJoined ? word.section(u'=', 1) : words.takeFirst());
}

} // namespace

CommandLine ParseCommandLine(const QStringList &words)
{
    if (const QString asked = request(words.first((words + QStringList(u"--"_s)).indexOf(u"--"_s)));
        !asked.isEmpty())
        return {asked, {}, {}};
    if (words.isEmpty())
        throw misuse(u"Manca il comando: verifica, imposta, importa o esporta."_s);
    CommandLine line{words.first(), {}, {}};
    const auto form = commandForms().find(line.command);
    if (form == commandForms().end())
        throw misuse(u"Il comando "_s + line.command + u" non esiste."_s);
    QStringList left = words.sliced(1);
    while (!left.isEmpty() && left.first() != "--"_L1) {
        if (isOption(left.first()))
            takeOption(left, *form, line);
        else
            line.operands.append(left.takeFirst());
    }
    line.operands.append(left.sliced(left.isEmpty() ? 0 : 1));
    const qsizetype more = line.operands.size() - form->operands.count(u' ') - 1;
    if (more < 0 || (form->repeated == 0 ? more > 0 : more % form->repeated != 0))
        throw misuse(u"Dopo %1 ci vuole: %2"_s.arg(line.command, form->operands));
    return line;
}

QString UsageText()
{
    return u"Uso: saldoro-archivio verifica [opzioni] CARTELLA\n"
           "     saldoro-archivio imposta CARTELLA PAGAMENTO CAMPO VALORE ...\n"
           "     saldoro-archivio importa [opzioni] CARTELLA_CSV CARTELLA\n"
           "     saldoro-archivio esporta [opzioni] CARTELLA CARTELLA_CSV\n"
           "\n"
           "CARTELLA è quella di un progetto: vi sta Saldoro.mdb\n"
           "\n"
           "verifica controlla gli archivi del progetto, senza cambiarli, ed elenca ciò che\n"
           "darà problemi, con che cosa fare.\n"
           "\n"
           "  --codici FILE    la tabella dei codici, se non è ..\\..\\TABELLE\\chiavi.mdb\n"
           "\n"
           "imposta scrive un valore che manca: CAMPO è Del (gg/mm/aaaa), Importo o\n"
           "ImportoIVA (1.234,56). Un valore che c'è non viene toccato. Prima lascia accanto\n"
           "una copia di Saldoro.mdb. PAGAMENTO CAMPO VALORE si possono ripetere.\n"
           "\n"
           "importa riempie le tabelle del progetto con i file CSV di CARTELLA_CSV, ognuno\n"
           "con il nome della sua tabella. Scrive tutto o niente.\n"
           "\n"
           "  --nuovo          fa anche le cartelle del progetto\n"
           "  --sostituisci TABELLA\n"
           "                   le righe del file prendono il posto di quelle della tabella.\n"
           "                   Si può ripetere.\n"
           "  --comunque       importa anche ciò che darà problemi più tardi\n"
           "\n"
           "esporta scrive le tabelle del progetto in file CSV.\n"
           "\n"
           "  --sovrascrivi    i file nuovi prendono il posto di quelli che ci sono\n"
           "\n"
           "Per tutti:\n"
           "\n"
           "  -h, --help, --aiuto\n"
           "                   queste istruzioni\n"
           "  --version, --versione\n"
           "                   la versione\n"
           "  --               ciò che segue non è un'opzione\n"
           "\n"
           "Esito: 0 fatto, nessun difetto; 1 difetti trovati, o file che non si possono\n"
           "importare; 2 comando non possibile.\n"_s;
}

} // namespace saldoro
