#include "verify/value_checks.h"

#include "common/characters.h"
#include "common/message_lines.h"

#include <algorithm>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** What a value should be that is given as text since it is not of its kind; else empty. */
QString expectedInstead(FieldType type, const NewValue &value)
{
    const auto *text = std::get_if<QString>(&value);
    if (text == nullptr || (type == FieldType::Date && text->isEmpty()))
        return {};
    return type == FieldType::Date                                 ? u"una data"_s
           : type == FieldType::Currency                           ? u"un importo esatto"_s
           : type == FieldType::Long || type == FieldType::Integer ? u"un numero intero"_s
                                                                   : QString();
}

/** Rows of tables whose rows have no names are told by their number. */
QString nameOfRow(const CheckedProject &project, const ProjectTable &table, qsizetype row)
{
    for (const auto *rows : {&project.payments, &project.allocations, &project.budget}) {
        if (rows->isEmpty() || rows->first().table != &table)
            continue;
        return std::ranges::find(*rows, row, &CheckedRow::storedRow)->name();
    }
    return u"Riga %1"_s.arg(row + 1);
}

} // namespace

void CheckValues(const CheckedProject &project, Findings &findings)
{
    for (const auto &[name, table] : project.tables) {
        for (qsizetype at = 0; at < table.definition.fields().size(); ++at) {
            const FieldDef &field = table.definition.fields()[at];
            for (qsizetype row = 0; !IsText(field) && row < table.rows.size(); ++row) {
                const NewValue &value = table.rows[row][at];
                const QString expected = expectedInstead(field.type, value);
                if (!expected.isEmpty())
                    findings.append(
                        {FindingGroup::Values,
                         u"%1, %2.%3"_s.arg(nameOfRow(project, table, row), name, field.name),
                         u"il valore «%1» non è %2: il programma si ferma quando lo "
                         "legge, o ne legge un altro."_s.arg(
                             LeftCharacters(TextOf(value), MostCharactersQuoted), expected),
                         InTheArchive.toString(), name, row});
            }
        }
    }
}

} // namespace saldoro
