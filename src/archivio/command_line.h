#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace saldoro {

/** The command line, read. */
struct CommandLine
{
    QString command;     ///< verifica, importa, esporta, --aiuto or --versione
    QStringList folders; ///< as many as the command takes
    /** The options that are given, with the words behind all mentions of one. */
    QMap<QString, QStringList> options;
};

/** Reads the words after the program's name: a command, then its folders and options in any order;
 *  --aiuto and --versione go before all others. Throws SaldoroError for what can't be understood.
 */
CommandLine ParseCommandLine(const QStringList &words);

/** How to call the program. */
QString UsageText();

} // namespace saldoro
