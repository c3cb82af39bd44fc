#include "store/code_lookups.h"

#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "common/errors.h"
#include "common/text_cut.h"
#include "database/database.h"

#include <initializer_list>
#include <utility>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Most characters of an item's description that ScriviVoceStringa stores. */
constexpr qsizetype descriptionSize = 60;

/** One of the suite's databases, open for one job with the one record set that the job needs. */
struct OpenTable
{
    Database database;
    RecordSet records;

    OpenTable(Database opened, const QString &sql)
        : database(std::move(opened))
        , records(database.openRecordSet(sql))
    {
    }
};

/** The code map, searched for an internal code; there may be no match. */
OpenTable findCode(const ProgramValues &values, QStringView internalCode)
{
    OpenTable codes(Database::open(CodesPath(values)), u"SELECT * FROM Funzioni ORDER BY CodInt"_s);
    codes.records.findFirst(u"CodInt = '%1'"_s.arg(internalCode));
    return codes;
}

QString likeCriterion(const QString &pattern)
{
    return u"Voce Like '"_s + pattern + u"'"_s;
}

/** The contract sheet, searched for the first item that matches. Opened for writing also where it
 *  is only read: a change that was cut short by a crash is undone by whoever opens the file next,
 *  and that takes the right to write. */
OpenTable findItemLike(const ProgramValues &values, const QString &pattern)
{
    OpenTable sheet(Database::open(ContractPath(values)),
                    u"SELECT * FROM SchedaProgetto ORDER BY VOCE"_s);
    sheet.records.findFirst(likeCriterion(pattern));
    return sheet;
}

/** What a writer does to the key of an item that it found, perhaps in other letter case. */
enum class ExistingKey
{
    Keep,
    Rewrite
};

/** An item of the contract sheet; the values of its other fields come with the writing. */
struct Item
{
    QString code;
    qint16 tag = 0;
    QString description;
};

/** Writes the first item of that code, or a new one when there is none. */
void writeItem(const ProgramValues &values, const Item &item, ExistingKey existing,
               std::initializer_list<std::pair<QString, NewValue>> others)
{
    WithDetail(u"Voce"_s, item.code, [&] {
        // The sheet has a note for every payment: only the items of that code are read and put in
        // order.
        const QString criterion = u"Voce = '"_s + item.code + u"'"_s;
        OpenTable sheet(Database::open(ContractPath(values)),
                        u"SELECT * FROM SchedaProgetto WHERE "_s + criterion + u" ORDER BY VOCE"_s);
        sheet.records.findFirst(criterion);
        const bool isNew = sheet.records.noMatch();
        if (isNew)
            sheet.records.addNew();
        else
            sheet.records.edit();
        if (isNew || existing == ExistingKey::Rewrite)
            sheet.records.set(u"Voce"_s, item.code);
        sheet.records.set(u"Funzione"_s, qint32{item.tag});
        sheet.records.set(u"Descri"_s, item.description);
        for (const auto &[field, value] : others)
            sheet.records.set(field, value);
        sheet.records.update();
    });
}

} // namespace

QString CodiceEsterno(const ProgramValues &values, QStringView internalCode)
{
    return WithDetail(u"Codice"_s, internalCode.toString(), [&] {
        const OpenTable codes = findCode(values, internalCode);
        return codes.records.noMatch() ? QString() : codes.records.field(u"CodExt"_s).text();
    });
}

QString DescrizioneFunzione(const ProgramValues &values, QStringView internalCode)
{
    return WithDetail(u"Codice"_s, internalCode.toString(), [&] {
        return findCode(values, internalCode).records.field(u"Desc"_s).text();
    });
}

void AggiornaVoceImporto(const ProgramValues &values, QStringView internalCode, qint16 tag,
                         Currency amount)
{
    WithDetail(u"Codice"_s, internalCode.toString(), [&] {
        const Item item = [&] {
            const OpenTable codes = findCode(values, internalCode);
            return Item{codes.records.field(u"CodExt"_s).text(), tag,
                        codes.records.field(u"Desc"_s).textOrEmpty()};
        }();
        // The key of an item that is there already stays in the letter case it was written in.
        writeItem(values, item, ExistingKey::Keep,
                  {{u"Stringa"_s, u"€ "_s + FormatImporto(amount)}, {u"Importo"_s, amount}});
    });
}

void ScriviVoceFile(const ProgramValues &values, const QString &item, qint16 tag,
                    const QString &description, const QString &fileName)
{
    writeItem(values, {item, tag, description}, ExistingKey::Rewrite, {{u"NomeFile"_s, fileName}});
}

void ScriviVoceStringa(const ProgramValues &values, const QString &item, qint16 tag,
                       const QString &description, const QString &text)
{
    writeItem(values, {item, tag, LeftCharacters(description, descriptionSize)},
              ExistingKey::Rewrite, {{u"Stringa"_s, text}});
}

bool EsisteVoceLike(const ProgramValues &values, const QString &pattern)
{
    return !findItemLike(values, pattern).records.noMatch();
}

QString StringaVoceLike(const ProgramValues &values, const QString &pattern)
{
    return WithDetail(u"Voce"_s, pattern, [&] {
        return findItemLike(values, pattern).records.field(u"Stringa"_s).textOrEmpty();
    });
}

bool EliminaVociLike(const ProgramValues &values, const QString &pattern)
{
    OpenTable sheet = findItemLike(values, pattern);
    const bool isAny = !sheet.records.noMatch();
    while (!sheet.records.noMatch()) {
        sheet.records.deleteRecord();
        sheet.records.findNext(likeCriterion(pattern));
    }
    return isAny;
}

} // namespace saldoro
