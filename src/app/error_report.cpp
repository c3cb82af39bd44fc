#include "app/error_report.h"

#include "common/errors.h"

namespace saldoro {

namespace {

/** The folder of a path with either kind of separator, or a stand-in when there is none. */
QString folderOf(const QString &path)
{
    const qsizetype end = qMax(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    return end > 0 ? u'"' + path.first(end) + u'"' : QStringLiteral("CARTELLA");
}

bool isAboutStoredValues(const DatabaseError &error)
{
    return error.fault() == DatabaseFault::NullValue ||
           error.fault() == DatabaseFault::TypeMismatch;
}

} // namespace

QString ErrorReport(const std::exception &error)
{
    const auto *own = dynamic_cast<const SaldoroError *>(&error);
    if (own == nullptr)
        return QStringLiteral("Si è verificato un errore imprevisto.\nParticolari: ") +
               QString::fromUtf8(error.what()) +
               QStringLiteral("\n\nAnnotare questo messaggio e rivolgersi all'assistenza.");
    QString text = own->message();
    const auto *database = dynamic_cast<const DatabaseError *>(own);
    if (database != nullptr && isAboutStoredValues(*database))
        text += QStringLiteral("\n\nPer controllare l'archivio eseguire: saldoro-verifica ") +
                folderOf(own->detail(QStringLiteral("File")));
    return text;
}

} // namespace saldoro
