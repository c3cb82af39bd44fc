#include "store/code_lookups.h"

#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "common/errors.h"
#include "common/text_cut.h"
#include "platform/database.h"

namespace saldoro {

namespace {

using namespace Qt::StringLiterals;

/** Most characters of an item's description that ScriviVoceStringa stores. */
constexpr qsizetype DescriptionSize = 60;

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
OpenTable findCode(const ProgramValues &values, const QString &internalCode)
{
    OpenTable codes(Database::open(CodesPath(values)), u"SELECT * FROM Funzioni ORDER BY CodInt"_s);
    codes.records.findFirst(u"CodInt = '"_s + internalCode + u"'"_s);
    return codes;
}

QString contractSheetSql()
{
    return u"SELECT * FROM SchedaProgetto ORDER BY VOCE"_s;
}

/** Calls @p read, for something that belongs to a code or an item; an error in it names that. */
template <typename Read>
auto naming(const QString &label, const QString &key, const Read &read)
{
    try {
        return read();
    } catch (SaldoroError &error) {
        error.addDetail(label, key);
        throw;
    }
}

/** The contract sheet, searched for the first item that matches; only for reading. Opened for
 *  writing all the same: a change that was cut short by a crash is undone by whoever opens the file
 *  next, and that takes the right to write. */
OpenTable findItemLike(const ProgramValues &values, const QString &pattern)
{
    OpenTable sheet(Database::open(ContractPath(values)), contractSheetSql());
    sheet.records.findFirst(u"Voce Like '"_s + pattern + u"'"_s);
    return sheet;
}

/** What a writer does to the key of an item that it found, perhaps in other letter case. */
enum class ExistingKey
{
    Keep,
    Rewrite
};

/** The contract sheet with the buffer of an item ready to be filled: of the first item of that
 *  code, or of a new one. */
OpenTable beginItem(const ProgramValues &values, const QString &item, ExistingKey existing)
{
    // The sheet has a note for every payment: only the items of that code are read and put in
    // order.
    const QString criterion = u"Voce = '"_s + item + u"'"_s;
    OpenTable sheet(Database::open(ContractPath(values)),
                    u"SELECT * FROM SchedaProgetto WHERE "_s + criterion + u" ORDER BY VOCE"_s);
    sheet.records.findFirst(criterion);
    const bool isNew = sheet.records.noMatch();
    if (isNew) {
        sheet.records.addNew();
    } else {
        sheet.records.edit();
    }
    if (isNew || existing == ExistingKey::Rewrite) {
        sheet.records.set(u"Voce"_s, item);
    }
    return sheet;
}

} // namespace

QString CodiceEsterno(const ProgramValues &values, const QString &internalCode)
{
    return naming(u"Codice"_s, internalCode, [&] {
        const OpenTable codes = findCode(values, internalCode);
        return codes.records.noMatch() ? QString() : codes.records.field(u"CodExt"_s).text();
    });
}

QString DescrizioneFunzione(const ProgramValues &values, const QString &internalCode)
{
    return naming(u"Codice"_s, internalCode,
                  [&] { return findCode(values, internalCode).records.field(u"Desc"_s).text(); });
}

void AggiornaVoceImporto(const ProgramValues &values, const QString &internalCode, qint16 tag,
                         Currency amount)
{
    QString item;
    QString description;
    naming(u"Codice"_s, internalCode, [&] {
        const OpenTable codes = findCode(values, internalCode);
        item = codes.records.field(u"CodExt"_s).text();
        description = codes.records.field(u"Desc"_s).textOrEmpty();
    });
    // The key of an item that is there already stays in the letter case it was written in.
    OpenTable sheet = beginItem(values, item, ExistingKey::Keep);
    sheet.records.set(u"Funzione"_s, qint32{tag});
    sheet.records.set(u"Descri"_s, description);
    sheet.records.set(u"Stringa"_s, u"€ "_s + FormatImporto(amount));
    sheet.records.set(u"Importo"_s, amount);
    sheet.records.update();
}

void ScriviVoceFile(const ProgramValues &values, const QString &item, qint16 tag,
                    const QString &description, const QString &fileName)
{
    OpenTable sheet = beginItem(values, item, ExistingKey::Rewrite);
    sheet.records.set(u"Funzione"_s, qint32{tag});
    sheet.records.set(u"Descri"_s, description);
    sheet.records.set(u"NomeFile"_s, fileName);
    sheet.records.update();
}

void ScriviVoceStringa(const ProgramValues &values, const QString &item, qint16 tag,
                       const QString &description, const QString &text)
{
    OpenTable sheet = beginItem(values, item, ExistingKey::Rewrite);
    sheet.records.set(u"Funzione"_s, qint32{tag});
    sheet.records.set(u"Descri"_s, LeftCharacters(description, DescriptionSize));
    sheet.records.set(u"Stringa"_s, text);
    sheet.records.update();
}

bool EsisteVoceLike(const ProgramValues &values, const QString &pattern)
{
    return !findItemLike(values, pattern).records.noMatch();
}

QString StringaVoceLike(const ProgramValues &values, const QString &pattern)
{
    return naming(u"Voce"_s, pattern, [&] {
        return findItemLike(values, pattern).records.field(u"Stringa"_s).textOrEmpty();
    });
}

bool EliminaVociLike(const ProgramValues &values, const QString &pattern)
{
    OpenTable sheet(Database::open(ContractPath(values)), contractSheetSql());
    const QString criterion = u"Voce Like '"_s + pattern + u"'"_s;
    bool deleted = false;
    sheet.records.findFirst(criterion);
    while (!sheet.records.noMatch()) {
        sheet.records.deleteRecord();
        deleted = true;
        sheet.records.findNext(criterion);
    }
    return deleted;
}

QString VoceMandato(const ProgramValues &values, qint32 paymentNumber)
{
    return CodiceEsterno(values, u"P97"_s) + u'_' + QString::number(paymentNumber);
}

} // namespace saldoro
