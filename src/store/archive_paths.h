#pragma once

#include "common/program_values.h"

#include <QString>

#include <array>

namespace saldoro {

/**
 * Folders below ArchiveRoot that all programs of the suite share. A path is made by putting texts
 * one behind the other, so what is given here begins with a separator and ends without one. This
 * program uses the three that are marked; the others are listed because their names are taken.
 */
namespace ArchiveFolders {
inline constexpr QStringView Zelt = u"\\ARCHIVI.QX\\ZELT";
inline constexpr QStringView Lavori = u"\\ARCHIVI.QX\\ZELT\\LAVORI";
inline constexpr QStringView Update = u"\\ARCHIVI.QX\\ZELT\\UPDATE";           // used
inline constexpr QStringView Appalti = u"\\ARCHIVI.QX\\ZELT\\LAVORI\\APPALTI"; // used
inline constexpr QStringView TxtBase = u"\\ARCHIVI.QX\\ZELT\\LAVORI\\TXTBASE";
inline constexpr QStringView Rubriche = u"\\ARCHIVI.QX\\ZELT\\LAVORI\\RUBRICHE";
inline constexpr QStringView Tabelle = u"\\ARCHIVI.QX\\ZELT\\LAVORI\\TABELLE"; // used
inline constexpr QStringView Person = u"\\ARCHIVI.QX\\ZELT\\PERSON";
inline constexpr QStringView Ente = u"\\ARCHIVI.QX\\ZELT\\PERSON\\ENTE";
inline constexpr QStringView Utenti = u"\\ARCHIVI.QX\\ZELT\\PERSON\\UTENTI";
inline constexpr QStringView Setup = u"\\ARCHIVI.QX\\ZELT\\PERSON\\SETUP";
inline constexpr QStringView Internet = u"\\ARCHIVI.QX\\ZELT\\INTERNET";
inline constexpr QStringView Publicazione = u"\\ARCHIVI.QX\\ZELT\\INTERNET\\PUBLICAZIONE";
inline constexpr QStringView LavoriInCorso = u"\\ARCHIVI.QX\\ZELT\\INTERNET\\LAVORIINCORSO";
} // namespace ArchiveFolders

/** The databases of a project. */
enum class ArchiveFile
{
    Codes, ///< shared by all projects
    Contract,
    Companies,
    Ledger
};
inline constexpr std::array ArchiveFileList{ArchiveFile::Codes, ArchiveFile::Contract,
                                            ArchiveFile::Companies, ArchiveFile::Ledger};

/** Names of the databases. */
namespace ArchiveFileName {
inline constexpr QStringView Ledger = u"Saldoro.mdb";
inline constexpr QStringView Contract = u"Appalto.mdb";
inline constexpr QStringView Companies = u"AZIDB.mdb";
inline constexpr QStringView Codes = u"chiavi.mdb";
} // namespace ArchiveFileName

/** Folder of a contract project below an archives root, without a trailing backslash. */
QString ProjectFolder(const QString &root, const QString &code);
/** That of the current project. */
QString ProjectFolder(const ProgramValues &values);

/** The databases of the project: payments, contract, companies. */
QString LedgerPath(const ProgramValues &values);
QString ContractPath(const ProgramValues &values);
QString CompaniesPath(const ProgramValues &values);
/** The codes database, which all projects share. */
QString CodesPath(const ProgramValues &values);
/** The update folder, with its trailing backslash. */
QString UpdateFolder(const ProgramValues &values);

/*
 * The databases of a project that is named by its folder, a path of the machine.
 */

/** A folder that the user names, as a path of the machine: as it stands if there is one, else as
 *  MachinePath() reads it, with other letter case and "\" between folders. */
QString GivenFolder(const QString &given);
/** The same. Throws FileError when there is none. */
QString ExistingFolder(const QString &given);

/** A database of the project, found in any letter case; the code map lies beside the folder of the
 *  projects. One that is not there keeps its usual name. */
QString ArchiveFilePath(ArchiveFile file, const QString &folder);

} // namespace saldoro
