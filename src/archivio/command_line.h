#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace saldoro {

/** What the program is asked to do. */
enum class Command
{
    Help,
    Version,
    Verify,
    Import,
    Export
};

/** An option as it was given, with the words behind it. */
struct GivenOption
{
    QString name;
    QStringList words;
};

/** The command line, read. */
struct CommandLine
{
    Command command = Command::Help;
    QStringList folders; ///< as many as the command takes
    QList<GivenOption> options;

    bool has(const QString &name) const { return !words(name).isEmpty(); }
    /** The words behind each mention of an option; one without words gives an empty list for each.
     */
    QList<QStringList> words(const QString &name) const;
};

/** Reads the words after the program's name: a command, then its folders and options in any order.
 *  Throws SaldoroError for what can't be understood. */
CommandLine ParseCommandLine(const QStringList &words);

/** How to call the program. */
QString UsageText();

} // namespace saldoro
