#include "archivio/command_line.h"

#include "common/errors.h"

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

/** What a command takes. */
struct CommandForm
{
    QString folders;            ///< their names
    QMap<QString, int> options; ///< with the number of words that follow each
};

const QMap<QString, CommandForm> &commandForms()
{
    static const QMap<QString, CommandForm> forms{
        {u"verifica"_s, {u"CARTELLA"_s, {{u"--codici"_s, 1}, {u"--imposta"_s, 3}}}},
        {u"importa"_s,
         {u"CARTELLA_CSV CARTELLA"_s,
          {{u"--nuovo"_s, 0}, {u"--comunque"_s, 0}, {u"--sostituisci"_s, 1}}}},
        {u"esporta"_s, {u"CARTELLA CARTELLA_CSV"_s, {{u"--sovrascrivi"_s, 0}}}}};
    return forms;
}

SaldoroError misuse(const QString &problem)
{
    return SaldoroError(problem, u"Con --aiuto si leggono le istruzioni."_s);
}

} // namespace

CommandLine ParseCommandLine(const QStringList &words)
{
    if (words.isEmpty())
        throw misuse(u"Manca il comando: verifica, importa o esporta."_s);
    CommandLine line{words.first(), {}, {}};
    for (const QString &word : words) {
        if (word == "--aiuto"_L1 || word == "--versione"_L1)
            return {word, {}, {}};
    }
    const auto form = commandForms().find(line.command);
    if (form == commandForms().end())
        throw misuse(u"Il comando "_s + line.command + u" non esiste."_s);
    for (qsizetype at = 1; at < words.size(); ++at) {
        const QString &word = words[at];
        if (!word.startsWith(u'-')) {
            line.folders.append(word);
            continue;
        }
        // The words behind an option are taken as they stand: a negative amount begins with "-"
        // too.
        const auto option = form->options.find(word);
        if (option == form->options.end())
            throw misuse(u"L'opzione "_s + word + u" non esiste."_s);
        if (words.size() - 1 - at < *option)
            throw misuse(u"Dopo "_s + word + u" manca qualcosa."_s);
        line.options[word].append(words.sliced(at + 1, *option));
        at += *option;
    }
    if (line.folders.size() != form->folders.count(u' ') + 1)
        throw misuse(u"Dopo %1 ci vuole: %2"_s.arg(line.command, form->folders));
    return line;
}

QString UsageText()
{
    return u"Uso: saldoro-archivio verifica [opzioni] CARTELLA\n"
           "     saldoro-archivio importa [opzioni] CARTELLA_CSV CARTELLA\n"
           "     saldoro-archivio esporta [opzioni] CARTELLA CARTELLA_CSV\n"
           "\n"
           "CARTELLA è quella di un progetto: vi sta Saldoro.mdb\n"
           "\n"
           "verifica controlla gli archivi del progetto, senza cambiarli, ed elenca ciò che\n"
           "darà problemi, con che cosa fare.\n"
           "\n"
           "  --codici FILE    la tabella dei codici, se non è ..\\..\\TABELLE\\chiavi.mdb\n"
           "  --imposta PAGAMENTO CAMPO VALORE\n"
           "                   scrive un valore che manca, prima del controllo: CAMPO è\n"
           "                   Del (gg/mm/aaaa), Importo o ImportoIVA (1.234,56). Un valore\n"
           "                   che c'è non viene toccato. Prima lascia accanto una copia di\n"
           "                   Saldoro.mdb. Si può ripetere.\n"
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
           "  --aiuto          queste istruzioni\n"
           "  --versione       la versione\n"
           "\n"
           "Esito: 0 fatto, nessun difetto; 1 difetti trovati, o file che non si possono\n"
           "importare; 2 comando non possibile.\n"_s;
}

} // namespace saldoro
