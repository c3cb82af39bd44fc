#pragma once

#include "database/database.h"
#include "database/table_def.h"

#include <QString>

namespace saldoro {

/** What the databases are created with: general sort order, code page 1252. */
inline constexpr QStringView ArchiveLocale = u";LANGID=0x0409;CP=1252;COUNTRY=0";

/**
 * Creates an empty payment ledger, ArchiveFiles::Ledger in @p projectFolder (an archive path
 * without a trailing backslash). The folder must exist. Tables `Fatture` and `Spese`, no keys, no
 * indexes. Returns the open ledger, which the program keeps until it ends; everyone else opens the
 * file anew. Throws FileExists, FileMissing (no such folder), ReadOnly, DiskFull; a failure in
 * between leaves the file as it is.
 */
Database CreateLedgerDatabase(const QString &projectFolder);

/** The ledger's table of payments and that of their allocations, as every ledger has them. */
TableDef FattureTable();
TableDef SpeseTable();

/** The ledger's allocations of one payment, updatable. */
RecordSet OpenAllocations(const Database &ledger, qint32 paymentNumber);

/**
 * Makes the first allocation of that cost item the current record; true when there is one. An
 * empty code stands for a null one, as it is stored, so that such a row is found again too.
 */
bool FindAllocation(RecordSet &allocations, const QString &code);

/*
 * Of the payment that an open set of the ledger's payments stands on. Throws NoCurrentRecord,
 * FieldMissing.
 */

/** Whether the kind is exactly "P"; every other payment counts as a company's. */
bool IsProfessional(const RecordSet &payments);

/** What a professional's payment holds beside fee and VAT, a null being 0; 0 for companies. */
Currency OtherAmounts(const RecordSet &payments);

/** Importo, ImportoIVA and the other amounts. A null in the first two throws NullValue, a sum
 *  beyond the currency range OverflowError. */
Currency GrossAmount(const RecordSet &payments);

/** Most characters of the ledger's text columns, for entry fields and writers. */
namespace LedgerSize {
inline constexpr int Creditore = 60;
inline constexpr int NFat = 10;
inline constexpr int Descrizione = 50;
inline constexpr int Cod = 10;
} // namespace LedgerSize

} // namespace saldoro
