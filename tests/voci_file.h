#pragma once

#include "database_probe.h"

#include <optional>

namespace saldoro {

/** What FaultOf() gives for a fault in the table Voci. */
inline QString InVoci(DatabaseFault fault, const QString &field = {})
{
    return Fault(fault, QStringLiteral("Voci"), field);
}

/** A file with the table Voci, seen by the database layer and past it. */
class VociFile
{
protected:
    /** A new file with the table Voci. */
    void create()
    {
        m_path = m_folder.filePath(QStringLiteral("voci%1.mdb").arg(++m_files));
        m_file = Database::create(m_path, {});
        stored(QStringLiteral(
            "CREATE TABLE Voci(Npag LONG, Cod TEXT(10) CONSTRAINT \"ZeroLength Cod\" CHECK("
            "Cod <> ''), Importo CURRENCY, Breve INTEGER16, Tasso DOUBLE, Del DATETIME, "
            "Note MEMO TEXT)"));
    }

    RecordSet open(const QString &sql = QStringLiteral("SELECT * FROM Voci"))
    {
        return m_file->openRecordSet(sql);
    }

    /** What the file itself holds. */
    QString stored(const QString &sql) { return DirectConnection(m_path).run(sql); }
    QString numbers()
    {
        return stored(QStringLiteral("SELECT Npag FROM Voci")).replace(u'\n', u' ');
    }

    /** The payments 1 to 5, whose codes are A, b, a, NULL, B. */
    RecordSet filled(const QString &order = {})
    {
        stored(QStringLiteral(
            "INSERT INTO Voci(Npag, Cod) VALUES(1,'A'),(2,'b'),(3,'a'),(4,NULL),(5,'B')"));
        return open(QStringLiteral("SELECT * FROM Voci ") + order);
    }

    std::optional<Database> m_file;

private:
    QTemporaryDir m_folder;
    int m_files = 0;
    QString m_path;
};

} // namespace saldoro
