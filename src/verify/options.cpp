#include "verify/options.h"

#include "common/errors.h"

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

SaldoroError misuse(const QString &problem)
{
    return SaldoroError(problem, u"Con --aiuto si leggono le istruzioni."_s);
}

/** The words one after the other. */
class Words
{
public:
    explicit Words(const QStringList &words)
        : m_words(words)
    {
    }

    bool atEnd() const { return m_next == m_words.size(); }
    QString take(const QString &option)
    {
        if (atEnd())
            throw misuse(u"Dopo "_s + option + u" manca qualcosa."_s);
        return m_words[m_next++];
    }

private:
    QStringList m_words;
    qsizetype m_next = 0;
};

void takeFolder(const QString &word, Options &options)
{
    if (word.startsWith(u'-'))
        throw misuse(u"L'opzione "_s + word + u" non esiste."_s);
    if (!options.folder.isEmpty())
        throw misuse(u"Si può controllare una cartella alla volta."_s);
    options.folder = word;
}

void takeWord(Words &words, Options &options)
{
    const QString word = words.take({});
    if (word == "--aiuto"_L1)
        options.request = Request::Help;
    else if (word == "--versione"_L1)
        options.request = Request::Version;
    else if (word == "--codici"_L1)
        options.codes = words.take(word);
    else if (word == "--imposta"_L1) {
        const QString payment = words.take(word);
        const QString field = words.take(word);
        options.missingValues.append(ParseMissingValue(payment, field, words.take(word)));
    } else
        takeFolder(word, options);
}

} // namespace

Options ParseOptions(const QStringList &wordList)
{
    Options options;
    Words words(wordList);
    while (!words.atEnd() && options.request == Request::Check)
        takeWord(words, options);
    if (options.request == Request::Check && options.folder.isEmpty())
        throw misuse(u"Manca la cartella del progetto da controllare."_s);
    return options;
}

QString UsageText()
{
    return u"Uso: saldoro-verifica [opzioni] CARTELLA\n"
           "\n"
           "Controlla gli archivi di un progetto, senza cambiarli, ed elenca ciò che darà\n"
           "problemi, con che cosa fare. CARTELLA è quella del progetto, con Saldoro.mdb.\n"
           "\n"
           "  --codici FILE    la tabella dei codici, se non è ..\\..\\TABELLE\\chiavi.mdb\n"
           "  --imposta PAGAMENTO CAMPO VALORE\n"
           "                   scrive un valore che manca, prima del controllo: CAMPO è\n"
           "                   Del (gg/mm/aaaa), Importo o ImportoIVA (1.234,56). Un valore\n"
           "                   che c'è non viene toccato. Prima lascia accanto una copia di\n"
           "                   Saldoro.mdb. Si può ripetere.\n"
           "  --aiuto          queste istruzioni\n"
           "  --versione       la versione\n"
           "\n"
           "Esito: 0 nessun difetto, 1 difetti trovati, 2 controllo non possibile.\n"_s;
}

} // namespace saldoro
