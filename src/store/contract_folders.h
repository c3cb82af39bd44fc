#pragma once

#include <QString>
#include <QStringList>

namespace saldoro {

/*
 * The contracts of an archive and their codes, which are the names of their folders. The codes of
 * items: store/internal_codes.
 */

/** The folder of the contracts below an archives root, a path of the machine; it may be missing. */
QString ContractsFolder(const QString &root);

/** The folder of the contract of that code, a path of the machine; it may be missing. */
QString ContractFolder(const QString &root, const QString &code);

/** The codes of all contracts below @p root, by name in any letter case. A folder that is being
 *  made, which ends in UnfinishedEnd, is none; a link that leads nowhere is one. */
QStringList ContractCodes(const QString &root);

/** The lowest number of five digits, from 00001, that none of @p codes is; empty when all are. */
QString FirstFreeContractCode(const QStringList &codes);

/** Why a new contract can't have that code, as a sentence in Italian; empty when it can. A code
 *  must be able to name a folder on Windows and on Linux, has at most 60 characters (one beyond the
 *  basic plane counts twice), does not end in UnfinishedEnd, does not begin with a full stop or a
 *  blank, has no characters that no screen shows, and is none of @p codes in any letter case. */
QString ContractCodeProblem(const QString &code, const QStringList &codes);

} // namespace saldoro
