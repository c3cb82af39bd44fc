#include "common/errors.h"

#include <QDir>

#include <algorithm>
#include <array>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

struct FaultText
{
    DatabaseFault fault;
    QStringView problem;
    QStringView remedy;
};

constexpr std::array<FaultText, 20> faultTexts{{
    {DatabaseFault::FileMissing, u"L'archivio non è stato trovato.",
     u"Controllare la cartella degli archivi impostata, il codice del "
     "progetto e che la cartella del progetto esista."},
    {DatabaseFault::FileExists, u"L'archivio da creare esiste già.",
     u"Spostare altrove il file esistente e riprovare."},
    {DatabaseFault::NotADatabase, u"Il file non è un archivio dati leggibile oppure è danneggiato.",
     u"Rimettere al suo posto una copia di riserva del file."},
    {DatabaseFault::Locked, u"L'archivio è occupato da un altro programma.",
     u"Chiudere gli altri programmi che usano il progetto e riprovare."},
    {DatabaseFault::ReadOnly, u"L'archivio non accetta modifiche.",
     u"Controllare i permessi del file e della sua cartella."},
    {DatabaseFault::DiskFull, u"La scrittura nell'archivio non è riuscita.",
     u"Liberare spazio sul disco o controllare che funzioni."},
    {DatabaseFault::ReadFailed, u"La lettura dell'archivio non è riuscita.",
     u"Controllare i permessi, il disco e la rete, e riprovare."},
    {DatabaseFault::TableMissing, u"Nell'archivio manca una tabella.",
     u"Controllare che il file sia quello giusto per questo programma."},
    {DatabaseFault::FieldMissing, u"Nella tabella manca un campo.",
     u"Controllare che il file sia quello giusto per questo programma."},
    {DatabaseFault::SyntaxError, u"Il criterio di ricerca non è valido.",
     u"Controllare che i codici non contengano apostrofi o caratteri "
     "speciali."},
    {DatabaseFault::NoCurrentRecord, u"Nessun record corrente: il dato cercato non esiste.",
     u"Controllare che la tabella indicata contenga il dato."},
    {DatabaseFault::NullValue, u"Manca un valore che è necessario.",
     u"Completare il valore mancante nell'archivio."},
    {DatabaseFault::TypeMismatch, u"Il valore non è del tipo previsto per il campo.",
     u"Correggere il valore nell'archivio."},
    {DatabaseFault::FieldTooSmall, u"Il valore è troppo lungo o troppo grande per il campo.",
     u"Abbreviare il testo o ridurre il numero e riprovare."},
    {DatabaseFault::ZeroLengthRefused, u"Il campo non accetta un testo vuoto.",
     u"Scrivere un testo nel campo."},
    {DatabaseFault::RecordGone, u"Il record è stato eliminato da un altro programma.",
     u"Riaprire il programma per vedere lo stato attuale."},
    {DatabaseFault::NotStored,
     u"Una regola propria della tabella (trigger, controllo o indice) non ha lasciato scrivere il "
     "record.",
     u"Chiedere a chi ha preparato l'archivio di togliere la regola dalla tabella."},
    {DatabaseFault::OtherEncoding,
     u"L'archivio tiene i testi in una codifica (UTF-8 o UTF-16) diversa da quella degli altri.",
     u"Chiedere a chi ha preparato gli archivi di farli tutti in UTF-8."},
    {DatabaseFault::Endless, u"La lettura dell'archivio non arriva alla fine.",
     u"Chiedere a chi ha preparato l'archivio di correggere le interrogazioni memorizzate."},
    {DatabaseFault::Other, u"L'archivio dati ha segnalato un errore.",
     u"Annotare questo messaggio e rivolgersi all'assistenza."},
}};

/** In the order of the enumeration. */
constexpr std::array<QStringView, 15> detailLabels{
    u"File",      u"Tabella",   u"Campo", u"Particolari", u"Pagamento",
    u"Pagamenti", u"Riga",      u"Righe", u"Colonna",     u"Voce",
    u"Codice",    u"Creditore", u"Esito", u"Già fatto",   u"File già sostituiti"};

const FaultText &textOf(DatabaseFault fault)
{
    return *std::ranges::find(faultTexts, fault, &FaultText::fault);
}

} // namespace

QString LabelOf(Detail detail)
{
    return detailLabels.at(static_cast<size_t>(detail)).toString();
}

SaldoroError::SaldoroError(QString problem, QString remedy)
    : m_problem(std::move(problem))
    , m_remedy(std::move(remedy))
{
}

void SaldoroError::addDetail(Detail detail, const QString &value)
{
    if (!value.isEmpty() && this->detail(detail).isEmpty())
        m_details.append({detail, value});
}

QString SaldoroError::detail(Detail detail) const
{
    for (const auto &[known, value] : m_details) {
        if (known == detail)
            return value;
    }
    return {};
}

QString SaldoroError::message() const
{
    QString text = m_problem;
    for (const auto &[detail, value] : m_details)
        text += u'\n' + LabelOf(detail) + u": "_s + value;
    if (!m_remedy.isEmpty())
        text += u"\n\n"_s + m_remedy;
    return text;
}

const char *SaldoroError::what() const noexcept
{
    m_what = message().toUtf8();
    return m_what.constData();
}

FileError::FileError(const QString &path, const QString &problem, const QString &remedy)
    : SaldoroError(problem, remedy)
{
    addDetail(Detail::File, QDir::toNativeSeparators(path));
}

DatabaseError::DatabaseError(DatabaseFault fault, const QString &file, const QString &table,
                             const QString &field, const QString &extra)
    : SaldoroError(textOf(fault).problem.toString(), textOf(fault).remedy.toString())
    , m_fault(fault)
{
    addDetail(Detail::File, QDir::toNativeSeparators(file));
    addDetail(Detail::Table, table);
    addDetail(Detail::Field, field);
    addDetail(Detail::Particulars, extra);
}

} // namespace saldoro
