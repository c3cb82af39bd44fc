#include "common/errors.h"

#include <utility>

namespace saldoro {

namespace {

struct FaultText
{
    QString problem;
    QString remedy;
};

FaultText describe(DatabaseFault fault)
{
    switch (fault) {
    case DatabaseFault::FileMissing:
        return {QStringLiteral("L'archivio non è stato trovato."),
                QStringLiteral("Controllare la cartella degli archivi impostata, il codice del "
                               "progetto e che la cartella del progetto esista.")};
    case DatabaseFault::FileExists:
        return {QStringLiteral("L'archivio da creare esiste già."),
                QStringLiteral("Spostare altrove il file esistente e riprovare.")};
    case DatabaseFault::NotADatabase:
        return {QStringLiteral("Il file non è un archivio dati leggibile oppure è danneggiato."),
                QStringLiteral("Rimettere al suo posto una copia di riserva del file.")};
    case DatabaseFault::Locked:
        return {QStringLiteral("L'archivio è occupato da un altro programma."),
                QStringLiteral("Chiudere gli altri programmi che usano il progetto e riprovare.")};
    case DatabaseFault::ReadOnly:
        return {QStringLiteral("L'archivio non accetta modifiche."),
                QStringLiteral("Controllare i permessi del file e della sua cartella.")};
    case DatabaseFault::DiskFull:
        return {QStringLiteral("La scrittura nell'archivio non è riuscita."),
                QStringLiteral("Liberare spazio sul disco o controllare che funzioni.")};
    case DatabaseFault::TableMissing:
        return {QStringLiteral("Nell'archivio manca una tabella."),
                QStringLiteral("Controllare che il file sia quello giusto per questo programma.")};
    case DatabaseFault::FieldMissing:
        return {QStringLiteral("Nella tabella manca un campo."),
                QStringLiteral("Controllare che il file sia quello giusto per questo programma.")};
    case DatabaseFault::SyntaxError:
        return {QStringLiteral("Il criterio di ricerca non è valido."),
                QStringLiteral("Controllare che i codici non contengano apostrofi o caratteri "
                               "speciali.")};
    case DatabaseFault::NoCurrentRecord:
        return {QStringLiteral("Nessun record corrente: il dato cercato non esiste."),
                QStringLiteral("Controllare che la tabella indicata contenga il dato.")};
    case DatabaseFault::NullValue:
        return {QStringLiteral("Manca un valore che è necessario."),
                QStringLiteral("Completare il valore mancante nell'archivio.")};
    case DatabaseFault::TypeMismatch:
        return {QStringLiteral("Il valore non è del tipo previsto per il campo."),
                QStringLiteral("Correggere il valore nell'archivio.")};
    case DatabaseFault::FieldTooSmall:
        return {QStringLiteral("Il valore è troppo lungo o troppo grande per il campo."),
                QStringLiteral("Abbreviare il testo o ridurre il numero e riprovare.")};
    case DatabaseFault::ZeroLengthRefused:
        return {QStringLiteral("Il campo non accetta un testo vuoto."),
                QStringLiteral("Scrivere un testo nel campo.")};
    case DatabaseFault::RecordGone:
        return {QStringLiteral("Il record è stato eliminato da un altro programma."),
                QStringLiteral("Riaprire il programma per vedere lo stato attuale.")};
    case DatabaseFault::Other:
        break;
    }
    return {QStringLiteral("L'archivio dati ha segnalato un errore."),
            QStringLiteral("Annotare questo messaggio e rivolgersi all'assistenza.")};
}

} // namespace

SaldoroError::SaldoroError(QString problem, QString remedy)
    : m_problem(std::move(problem))
    , m_remedy(std::move(remedy))
{
}

void SaldoroError::addDetail(const QString &label, const QString &value)
{
    if (!value.isEmpty() && detail(label).isEmpty())
        m_details.append({label, value});
}

QString SaldoroError::detail(const QString &label) const
{
    for (const auto &line : m_details) {
        if (line.first == label)
            return line.second;
    }
    return {};
}

QString SaldoroError::message() const
{
    QString text = m_problem;
    for (const auto &line : m_details)
        text += u'\n' + line.first + QStringLiteral(": ") + line.second;
    if (!m_remedy.isEmpty())
        text += QStringLiteral("\n\n") + m_remedy;
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
    addDetail(QStringLiteral("File"), path);
}

DatabaseError::DatabaseError(DatabaseFault fault, const QString &file, const QString &table,
                             const QString &field, const QString &extra)
    : SaldoroError(describe(fault).problem, describe(fault).remedy)
    , m_fault(fault)
{
    addDetail(QStringLiteral("File"), file);
    addDetail(QStringLiteral("Tabella"), table);
    addDetail(QStringLiteral("Campo"), field);
    addDetail(QStringLiteral("Particolari"), extra);
}

} // namespace saldoro
