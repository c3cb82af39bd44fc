#include "verify/field_checks.h"

#include "common/errors.h"
#include "common/text_cut.h"

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

template <typename T, typename Read>
Stored<T> stored(const FieldValue &field, const Read &read)
{
    if (field.isNull())
        return {true, std::nullopt};
    try {
        return {false, read(field)};
    } catch (const DatabaseError &) {
        return {false, std::nullopt}; // CheckFields() says what is wrong with it
    }
}

/** What is wrong with a text of the field; empty when nothing is. */
QString textFault(const FieldDef &field, const QString &text)
{
    if (text.isEmpty() && !field.allowZeroLength)
        return u"il testo è vuoto, mentre il campo deve essere pieno o senza valore."_s;
    if (field.size > 0 && CharacterCount(text) > field.size)
        return u"il testo ha %1 caratteri e il campo ne tiene %2."_s.arg(CharacterCount(text))
            .arg(field.size);
    if (text.contains(QChar(u'\0')))
        return u"il testo contiene caratteri nulli, che non si vedono."_s;
    return {};
}

QString expectedValue(FieldType type)
{
    switch (type) {
    case FieldType::Date:
        return u"una data"_s;
    case FieldType::Currency:
        return u"un importo"_s;
    default:
        return u"un numero intero"_s;
    }
}

/** Reads the value as its type; throws DatabaseError. */
void readAs(const FieldValue &value, FieldType type)
{
    if (type == FieldType::Date)
        value.date();
    else if (type == FieldType::Currency)
        value.currency();
    else
        value.integer();
}

QString valueFault(const FieldDef &field, const FieldValue &value)
{
    if (field.type == FieldType::Text || field.type == FieldType::Memo)
        return textFault(field, value.text());
    try {
        readAs(value, field.type);
    } catch (const DatabaseError &) {
        return u"il valore «%1» non è %2: il programma si ferma quando lo legge."_s.arg(
            LeftCharacters(value.text(), 40), expectedValue(field.type));
    }
    return {};
}

} // namespace

Stored<QString> ReadText(const RecordSet &records, int column)
{
    return stored<QString>(records.field(column), [](const FieldValue &v) { return v.text(); });
}

Stored<Currency> ReadAmount(const RecordSet &records, int column)
{
    return stored<Currency>(records.field(column),
                            [](const FieldValue &v) { return v.currency(); });
}

Stored<qint32> ReadWhole(const RecordSet &records, int column)
{
    return stored<qint32>(records.field(column), [](const FieldValue &v) { return v.integer(); });
}

void CheckFields(const RecordSet &records, const TableDef &table, const QString &place,
                 Findings &findings)
{
    for (const FieldDef &field : table.fields()) {
        const FieldValue value = records.field(field.name);
        if (value.isNull())
            continue;
        const QString fault = valueFault(field, value);
        if (!fault.isEmpty())
            findings.append(
                {FindingGroup::Values, place + u", "_s + table.name() + u'.' + field.name, fault,
                 u"correggere il valore nell'archivio, con l'aiuto dell'assistenza."_s});
    }
}

} // namespace saldoro
