#include "archivio/command_line.h"

#include "common/errors.h"

#include <algorithm>
#include <array>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

struct OptionForm
{
    QStringView name;
    int words; ///< that follow it
};

struct CommandForm
{
    Command command;
    QStringView name;
    QStringView folders; ///< names of those that it takes
    QList<OptionForm> options;
};

const std::array<CommandForm, 3> &commandForms()
{
    static const std::array<CommandForm, 3> forms{
        {{Command::Verify, u"verifica", u"CARTELLA", {{u"--codici", 1}, {u"--imposta", 3}}},
         {Command::Import,
          u"importa",
          u"CARTELLA_CSV CARTELLA",
          {{u"--nuovo", 0}, {u"--comunque", 0}, {u"--sostituisci", 1}}},
         {Command::Export, u"esporta", u"CARTELLA CARTELLA_CSV", {{u"--sovrascrivi", 0}}}}};
    return forms;
}

SaldoroError misuse(const QString &problem)
{
    return SaldoroError(problem, u"Con --aiuto si leggono le istruzioni."_s);
}

template <typename Forms>
const auto *formOf(const QString &word, const Forms &forms)
{
    const auto found = std::find_if(forms.begin(), forms.end(),
                                    [&word](const auto &form) { return form.name == word; });
    return found == forms.end() ? nullptr : &*found;
}

/** The option's words are taken as they stand: a negative amount begins with "-" too. */
GivenOption takeOption(const CommandForm &form, const QString &name, QStringList &rest)
{
    const OptionForm *option = formOf(name, form.options);
    if (option == nullptr)
        throw misuse(u"L'opzione "_s + name + u" non esiste."_s);
    if (rest.size() < option->words)
        throw misuse(u"Dopo "_s + name + u" manca qualcosa."_s);
    GivenOption given{name, rest.first(option->words)};
    rest.remove(0, option->words);
    return given;
}

} // namespace

QList<QStringList> CommandLine::words(const QString &name) const
{
    QList<QStringList> result;
    for (const GivenOption &option : options) {
        if (option.name == name)
            result.append(option.words);
    }
    return result;
}

CommandLine ParseCommandLine(const QStringList &words)
{
    if (words.isEmpty())
        throw misuse(u"Manca il comando: verifica, importa o esporta."_s);
    const CommandForm *form = formOf(words.first(), commandForms());
    CommandLine line;
    QStringList rest = form == nullptr ? words : words.sliced(1);
    while (!rest.isEmpty()) {
        const QString word = rest.takeFirst();
        if (word == "--aiuto"_L1 || word == "--versione"_L1) {
            line.command = word == "--aiuto"_L1 ? Command::Help : Command::Version;
            return line;
        }
        if (form == nullptr)
            throw misuse(u"Il comando "_s + word + u" non esiste."_s);
        if (word.startsWith(u'-'))
            line.options.append(takeOption(*form, word, rest));
        else
            line.folders.append(word);
    }
    if (line.folders.size() != form->folders.count(u' ') + 1)
        throw misuse(u"Dopo %1 ci vuole: %2"_s.arg(form->name, form->folders));
    line.command = form->command;
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
