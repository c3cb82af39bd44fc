#pragma once

#include "empty_archive.h"
#include "store/archive_paths.h"

#include <QDir>
#include <QTemporaryDir>

namespace saldoro {

/** A temporary archive with one project, and its databases as text for comparison. */
class TestArchive
{
public:
    explicit TestArchive(const QString &projectCode = QStringLiteral("00112"));
    /** A folder of its own with the files of @p other, which is quicker than making new ones. */
    TestArchive(const TestArchive &other);

    const ProgramValues &values() const { return m_values; }

    /** Rows of @p sql on an archive path, as BareFile gives them: past the database layer. */
    QString rows(const QString &archivePath, const QString &sql) const;
    QString ledgerRows(const QString &sql) const { return rows(LedgerPath(values()), sql); }
    QString contractRows(const QString &sql) const { return rows(ContractPath(values()), sql); }

    /** Runs statements past the database layer, to plant what other programs may leave. */
    void execute(const QString &archivePath, const QString &sql) const;

private:
    void copyFrom(const ProgramValues &original);

    /** Archives stand under names with accents, too. */
    QTemporaryDir m_folder{QDir::tempPath() + QStringLiteral("/saldoro-è-XXXXXX")};
    ProgramValues m_values;
};

} // namespace saldoro
