#include "archivio/command_line.h"

#include "common/errors.h"
#include "exchange/command_options.h"

#include <QCommandLineParser>

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

/** What a command takes. */
struct CommandForm
{
    QString operands;         ///< their names
    QStringList options = {}; ///< those that a value belongs to end with "="
    qsizetype repeated = 0;   ///< operands at the end that may be given more than once
};

SaldoroError misuse(const QString &problem)
{
    return SaldoroError(problem, u"Con --aiuto si leggono le istruzioni."_s);
}

/** --aiuto or --versione, where one is asked for before "--". */
QString request(const QStringList &words)
{
    for (const QString &word : words) {
        if (word == "--"_L1)
            break;
        if (QStringList{u"--aiuto"_s, u"--help"_s, u"-h"_s}.contains(word))
            return u"--aiuto"_s;
        if (QStringList{u"--versione"_s, u"--version"_s}.contains(word))
            return u"--versione"_s;
    }
    return {};
}

/** Lets the toolkit separate options from operands. */
void readWords(QStringList words, const CommandForm &form, CommandLine &line)
{
    QCommandLineParser parser;
    for (const QString &option : form.options) {
        const qsizetype mark = option.endsWith(u'=') ? 1 : 0;
        parser.addOption({option.sliced(2).chopped(mark), {}, mark == 1 ? u"VALORE"_s : QString()});
    }
    if (form.options.isEmpty() && !words.contains(u"--"_s))
        words.insert(1, u"--"_s); // a negative amount is no option
    const bool isUnderstood = parser.parse(words);
    for (const QString &option : parser.unknownOptionNames())
        throw misuse(u"L'opzione %1 non esiste."_s.arg(option));
    if (!isUnderstood)
        throw misuse(u"Il valore di un'opzione manca, o non ci vuole."_s);
    line.operands = parser.positionalArguments();
    for (const QString &option : parser.optionNames())
        line.options[u"--"_s + option] = parser.values(option);
}

} // namespace

CommandLine ParseCommandLine(const QStringList &words)
{
    static const QMap<QString, CommandForm> forms{
        {u"verifica"_s, {u"CARTELLA"_s, {CommandOption::Codes + u'='}}},
        {u"imposta"_s, {u"CARTELLA PAGAMENTO CAMPO VALORE"_s, {}, 3}},
        {u"importa"_s,
         {u"CARTELLA_CSV CARTELLA"_s,
          {CommandOption::NewProject, CommandOption::EvenSo, CommandOption::Replace + u'='}}},
        {u"esporta"_s, {u"CARTELLA CARTELLA_CSV"_s, {CommandOption::Overwrite}}}};
    if (const QString asked = request(words); !asked.isEmpty())
        return {asked, {}, {}};
    if (words.isEmpty())
        throw misuse(u"Manca il comando: verifica, imposta, importa o esporta."_s);
    CommandLine line{words.first(), {}, {}};
    const auto form = forms.find(line.command);
    if (form == forms.end())
        throw misuse(u"Il comando %1 non esiste."_s.arg(line.command));
    readWords(words, *form, line);
    const qsizetype more = line.operands.size() - form->operands.count(u' ') - 1;
    if (more < 0 || line.operands.contains(QString()) ||
        (form->repeated == 0 ? more > 0 : more % form->repeated != 0))
        throw misuse(u"Dopo %1 ci vuole: %2"_s.arg(line.command, form->operands));
    return line;
}

} // namespace saldoro
