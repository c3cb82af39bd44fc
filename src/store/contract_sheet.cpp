#include "store/contract_sheet.h"

#include "common/amount_text.h"
#include "common/characters.h"
#include "common/errors.h"
#include "database/database.h"
#include "store/archive_paths.h"
#include "store/code_map.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** Most characters of an item's description that ScriviVoceStringa stores. */
constexpr qsizetype descriptionSize = 60;

QString itemCriterion(const QString &item)
{
    return u"Voce = '"_s + item + u"'"_s;
}

QString likeCriterion(const QString &pattern)
{
    return u"Voce Like '"_s + pattern + u"'"_s;
}

/** The items of the contract sheet that meet a condition, in their order. */
RecordSet openSheet(const ProgramValues &values, const QString &condition)
{
    return Database::open(ContractPath(values))
        .openRecordSet(u"SELECT * FROM SchedaProgetto"_s + condition + u" ORDER BY VOCE"_s);
}

/** The contract sheet, searched for the first item that matches; there may be none. */
RecordSet findItemLike(const ProgramValues &values, const QString &pattern)
{
    RecordSet sheet = OpenContractSheet(values);
    sheet.findFirst(likeCriterion(pattern));
    return sheet;
}

/** WriteItem() of the closed sheet. */
void openAndWrite(const ProgramValues &values, const QString &item, const ItemValues &fields)
{
    WithDetail(Detail::Item, item, [&] {
        // The sheet has a note for every payment: only the items of that code are read and put in
        // order.
        RecordSet sheet = openSheet(values, u" WHERE "_s + itemCriterion(item));
        WriteItem(sheet, item, fields);
    });
}

} // namespace

// Opened for writing also where it is only read: a change that was cut short by a crash is undone
// by whoever opens the file next, and that takes the right to write.
RecordSet OpenContractSheet(const ProgramValues &values)
{
    return openSheet(values, {});
}

bool FindItem(RecordSet &sheet, const QString &item)
{
    sheet.findFirst(itemCriterion(item));
    return !sheet.noMatch();
}

void WriteItem(RecordSet &sheet, const QString &item, const ItemValues &fields)
{
    if (FindItem(sheet, item)) {
        sheet.edit();
    } else {
        sheet.addNew();
        sheet.set(u"Voce"_s, item);
    }
    for (const auto &[field, value] : fields)
        sheet.set(field, value);
    sheet.update();
}

void AggiornaVoceImporto(const ProgramValues &values, QStringView internalCode, qint16 tag,
                         Currency amount)
{
    WithDetail(Detail::Code, internalCode.toString(), [&] {
        const RecordSet codes = FindCode(values, internalCode);
        const QString item = codes.field(u"CodExt"_s).text();
        openAndWrite(values, item,
                     {{u"Funzione"_s, qint32{tag}},
                      {u"Descri"_s, codes.field(u"Desc"_s).textOrEmpty()},
                      {u"Stringa"_s, EuroText(amount)},
                      {u"Importo"_s, amount}});
    });
}

void ScriviVoceFile(const ProgramValues &values, const QString &item, qint16 tag,
                    const QString &description, const QString &fileName)
{
    openAndWrite(values, item,
                 {{u"Voce"_s, item},
                  {u"Funzione"_s, qint32{tag}},
                  {u"Descri"_s, description},
                  {u"NomeFile"_s, fileName}});
}

void ScriviVoceStringa(const ProgramValues &values, const QString &item, qint16 tag,
                       const QString &description, const QString &text)
{
    openAndWrite(values, item,
                 {{u"Voce"_s, item},
                  {u"Funzione"_s, qint32{tag}},
                  {u"Descri"_s, LeftCharacters(description, descriptionSize)},
                  {u"Stringa"_s, text}});
}

bool EsisteVoceLike(const ProgramValues &values, const QString &pattern)
{
    return !findItemLike(values, pattern).noMatch();
}

QString StringaVoceLike(const ProgramValues &values, const QString &pattern)
{
    return WithDetail(Detail::Item, pattern, [&] {
        return findItemLike(values, pattern).field(u"Stringa"_s).textOrEmpty();
    });
}

bool EliminaVociLike(const ProgramValues &values, const QString &pattern)
{
    RecordSet sheet = findItemLike(values, pattern);
    const bool isAny = !sheet.noMatch();
    while (!sheet.noMatch()) {
        sheet.deleteRecord();
        sheet.findNext(likeCriterion(pattern));
    }
    return isAny;
}

} // namespace saldoro
