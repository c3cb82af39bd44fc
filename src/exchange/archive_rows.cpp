#include "exchange/archive_rows.h"

#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "common/errors.h"
#include "platform/legacy_text.h"
#include "platform/machine_path.h"

#include <QDir>
#include <QFileInfo>
#include <QStringBuilder>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

std::optional<NewValue> exactDay(QByteArrayView stored, const FieldValue &field)
{
    if (stored.isEmpty())
        return QString();
    constexpr qsizetype DayLength = 10;
    const QDate day = stored.size() == DayLength ? field.dateOrNone() : QDate();
    return day.isValid() ? std::optional<NewValue>(day) : std::nullopt;
}

} // namespace

QString ArchiveFilePath(ArchiveFile file, const QString &folder)
{
    QStringView name = ArchiveFiles::Ledger;
    QString place = QDir(folder).absolutePath();
    switch (file) {
    case ArchiveFile::Codes:
        name = ArchiveFiles::Codes;
        place += u"/../../TABELLE"_s;
        break;
    case ArchiveFile::Contract:
        name = ArchiveFiles::Contract;
        break;
    case ArchiveFile::Companies:
        name = ArchiveFiles::Companies;
        break;
    case ArchiveFile::Ledger:
        break;
    }
    return MachinePath(QDir::cleanPath(place) % u'/' % name);
}

QString ExistingFolder(const QString &given)
{
    QString folder = QFileInfo(given).isDir() ? given : MachinePath(given);
    if (!QFileInfo(folder).isDir())
        throw FileError(folder, u"La cartella non esiste."_s,
                        u"Controllare il nome della cartella."_s);
    return folder;
}

std::optional<NewValue> ExactValue(const FieldDef &field, const FieldValue &stored)
{
    if (stored.isNull())
        return NewValue();
    const std::optional<QByteArrayView> bytes = stored.storedBytes();
    switch (field.type) {
    case FieldType::Text:
    case FieldType::Memo:
        if (bytes && !bytes->isValidUtf8())
            return std::nullopt;
        return bytes ? TextOfUtf8(*bytes) : stored.text();
    case FieldType::Date:
        return bytes ? exactDay(*bytes, stored) : std::nullopt;
    default:
        break;
    }
    if (bytes)
        return std::nullopt;
    try {
        return field.type == FieldType::Currency ? NewValue(stored.currency())
                                                 : NewValue(stored.integer());
    } catch (const DatabaseError &) {
        return std::nullopt;
    }
}

QString TableSummary(const ExchangedTable &table, qsizetype rows, std::optional<Currency> total)
{
    QString text =
        table.name() + u": "_s + QString::number(rows) + (rows == 1 ? u" riga"_s : u" righe"_s);
    if (!table.summedField.isEmpty())
        text += u", totale "_s + table.summedField + u' ' +
                (total ? FormatImporto(*total) : u"fuori misura"_s);
    return text;
}

TableTotal::TableTotal(const ExchangedTable &table)
    : m_total(Currency())
{
    for (qsizetype place = 0; place < table.definition.fields().size(); ++place) {
        if (table.definition.fields()[place].name == table.summedField)
            m_place = place;
    }
}

void TableTotal::add(const QList<NewValue> &values)
{
    const auto *amount = m_place < 0 ? nullptr : std::get_if<Currency>(&values[m_place]);
    if (amount == nullptr || !m_total)
        return;
    try {
        *m_total += *amount;
    } catch (const OverflowError &) {
        m_total.reset();
    }
}

} // namespace saldoro
