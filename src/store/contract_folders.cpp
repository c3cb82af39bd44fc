#include "store/contract_folders.h"

#include "common/characters.h"
#include "platform/machine_path.h"
#include "platform/whole_file.h"
#include "store/archive_paths.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

bool isUnfinished(const QString &name)
{
    return name.endsWith(UnfinishedEnd, Qt::CaseInsensitive);
}

} // namespace

QString ContractsFolder(const QString &root)
{
    return MachinePath(root + ArchiveFolders::Appalti.toString());
}

QString ContractFolder(const QString &root, const QString &code)
{
    return MachinePath(ProjectFolder(root, code));
}

QStringList ContractCodes(const QString &root)
{
    QStringList codes;
    // Links that lead nowhere, too: their names are taken, and users look for them.
    for (const QFileInfo &entry :
         QDir(ContractsFolder(root))
             .entryInfoList(QDir::Dirs | QDir::System | QDir::NoDotAndDotDot,
                            QDir::Name | QDir::IgnoreCase)) {
        if ((entry.isDir() || entry.isSymbolicLink()) && !isUnfinished(entry.fileName()))
            codes.append(entry.fileName());
    }
    return codes;
}

QString FirstFreeContractCode(const QStringList &codes)
{
    constexpr int most = 99999;
    constexpr int width = 5;
    for (int number = 1; number <= most; ++number) {
        QString code = QString::number(number).rightJustified(width, u'0');
        if (!codes.contains(code))
            return code;
    }
    return {};
}

QString ContractCodeProblem(const QString &code, const QStringList &codes)
{
    // Names of devices: Windows takes them for those whatever follows behind a full stop.
    static const QRegularExpression device(
        u"\\A(?:CON|PRN|AUX|NUL|CONIN\\$|CONOUT\\$|(?:COM|LPT)[0-9¹²³])\\s*(?:\\.|\\z)"_s,
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression forbidden(uR"([<>:"/\\|?*])"_s);
    // The databases in the folder need room, too, within the 255 bytes of a name and the 260
    // characters of a path.
    constexpr int longest = 60;
    if (code.isEmpty())
        return u"Scrivere un codice."_s;
    if (std::ranges::any_of(code, IsUnseen))
        return u"Il codice non può contenere caratteri di controllo."_s;
    if (const auto match = forbidden.match(code); match.hasMatch())
        return u"Il codice non può contenere "_s + match.captured() + u'.';
    if (isUnfinished(code))
        return u"Il codice non può finire con "_s + UnfinishedEnd.toString() + u'.';
    if (code != code.trimmed() || code.startsWith(u'.') || code.endsWith(u'.')) // hidden on Linux
        return u"Il codice non può cominciare né finire con uno spazio o un punto."_s;
    if (device.match(code).hasMatch())
        return u"%1 è un nome riservato da Windows."_s.arg(code);
    if (code.size() > longest)
        return u"Il codice può avere al massimo %1 caratteri."_s.arg(longest);
    if (codes.contains(code, Qt::CaseInsensitive))
        return u"Un appalto con questo codice c'è già."_s;
    return {};
}

} // namespace saldoro
