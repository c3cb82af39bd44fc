#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace saldoro {

/** The command line, read. */
struct CommandLine
{
    QString command;      ///< verifica, imposta, importa, esporta, --aiuto or --versione
    QStringList operands; ///< as many as the command takes
    /** The options that are given, each with its values. */
    QMap<QString, QStringList> options;
};

/** Reads the words after the program's name: a command, then its operands and options in any order,
 *  "--option=value" as well as "--option value"; behind "--" no word is an option. `imposta` has
 *  no options: without "--" each of its words is an operand, a negative amount too. Where --aiuto,
 *  --versione or their English names stand before "--", nothing else counts. Throws SaldoroError
 *  for what can't be understood. */
CommandLine ParseCommandLine(const QStringList &words);

} // namespace saldoro
