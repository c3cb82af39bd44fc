// Writes documents for the readers of other makers: rtf_cases FOLDER. The hand-made and random
// texts go to FOLDER/texts, each NAME.rtf beside NAME.txt with the text that was meant; a project
// with hostile payments goes below FOLDER/archive and is closed once.

#include "archive_builder.h"
#include "bare_file.h"
#include "common/amount_text.h"
#include "common/archive_folders.h"
#include "controls/rich_text_box.h"
#include "database/database.h"
#include "overview/overview_document.h"
#include "rtf_text.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <functional>
#include <stdexcept>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

constexpr int PaymentCount = 3000;
constexpr int ItemCount = 200;
constexpr int RandomTexts = 6;

void writeCase(const QString &folder, const QString &name, const QString &text)
{
    RichTextBox box(text);
    box.setFontName(u"Courier New"_s);
    box.saveFile(folder + u'\\' + name + u".rtf"_s);
    QFile file(folder + u'/' + name + u".txt"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0) {
        throw std::runtime_error("no room for the expected texts");
    }
}

void writeTexts(const QString &folder, std::mt19937 &random)
{
    const QList<std::pair<QString, QString>> texts{
        {u"empty"_s, QString()},
        {u"one-line"_s, u"a"_s},
        {u"break-at-the-end"_s, u"a\r\n"_s},
        {u"breaks"_s, u"\r\n\r\na\rb\n\n\r\nc\r\n\r\n"_s},
        {u"blanks"_s, u"  a   b  \r\n   \r\n c "_s},
        {u"tabs"_s, u"\ta\t\t b\t"_s},
        {u"escapes"_s, u"{a} \\b\\ }{ \\par \\'e9 \\u8364? \\\\{\\*\\x}"_s},
        {u"accents"_s, u"perché città € 1 – “x” ł ő Ž 7 è9?"_s},
        {u"right-to-left"_s, u"שלום 12 עולם (א) مرحبا, abc"_s},
        {u"emoji"_s, u"😀1 👩‍👩‍👧 🇮🇹 x"_s},
        {u"controls"_s, u"a\u0001b\vc\fd\u001be\u007ff\u0085g\u00adh"_s},
        {u"byte-order-mark"_s, u"\ufeffa\ufeff"_s},
        {u"long-line"_s, QString(60'000, u'{') + u"è "_s.repeated(30'000) + u"end"_s},
    };
    for (const auto &[name, text] : texts) {
        writeCase(folder, name, text);
    }
    for (int number = 0; number < RandomTexts; ++number) {
        // A letter at the end: what stands last must not be one that a reader drops.
        writeCase(folder, u"random-%1"_s.arg(number), HostileText(random, 800) + u'z');
    }
}

qint64 randomAmount(std::mt19937 &random)
{
    return static_cast<qint64>(random()) * static_cast<qint64>(random() % 9U) -
           static_cast<qint64>(random());
}

QString quoted(const QString &text)
{
    return u'\'' + RaddoppiaApici(text) + u'\'';
}

QString textOrNull(std::mt19937 &random, int parts, int size)
{
    const QString text = HostileText(random, parts).left(size);
    return text.isEmpty() || random() % 16U == 0 ? u"NULL"_s : quoted(text);
}

QString randomPayment(std::mt19937 &random, int number)
{
    static const QStringList kinds{u"A"_s, u"P"_s, u"P"_s, u"A"_s, u"p"_s, u"a"_s};
    const QDate day = QDate(1995, 1, 1).addDays(static_cast<int>(random() % 15000U));
    QStringList values{quoted(kinds.at(static_cast<qsizetype>(random() % 6U))),
                       QString::number(number),
                       textOrNull(random, 8, 20),
                       textOrNull(random, 3, 5),
                       random() % 9U == 0 ? u"NULL"_s : quoted(day.toString(Qt::ISODate)),
                       number % 500 == 0
                           ? quoted(HostileText(random, 20'000) + u'z')
                           : textOrNull(random, static_cast<int>(random() % 20U), 500),
                       textOrNull(random, 8, 20)};
    for (int amount = 0; amount < 6; ++amount) {
        values += QString::number(randomAmount(random));
    }
    values += random() % 2U == 0 ? u"NULL"_s : QString::number(randomAmount(random));
    return u"INSERT INTO Fatture (AziProf, Npag, Creditore, NFat, Del, Memo, Descrizione, Importo,"
           " ImportoIVA, ImportoPrest, Contributo, CassaPrev, ImportoRA, AltriImporti01) VALUES ("_s +
           values.join(u',') + u");"_s;
}

QString randomItem(std::mt19937 &random, int number)
{
    return u"INSERT INTO UltimaPerVariante (Voce, Descri, Importo) VALUES ('V%1', %2, %3);"_s
        .arg(number)
        .arg(quoted(HostileText(random, 10).remove(u'\r').remove(u'\n')))
        .arg(randomAmount(random));
}

/** Past the database layer and in one go, since a synced write for each row takes long. */
void insertRows(const QString &archivePath, int count, const std::function<QString(int)> &statement)
{
    QString sql = u"BEGIN;"_s;
    for (int number = 1; number <= count; ++number) {
        sql += statement(number);
    }
    BareFile(archivePath).rows(sql + u"COMMIT"_s);
}

/** The overview's table, with the budget in all three columns of amounts. */
void fillOverview(TextTable &overview, const ProgramValues &values)
{
    const Database contract = Database::open(ContractPath(values));
    RecordSet items = contract.openRecordSet(u"SELECT * FROM UltimaPerVariante"_s);
    overview.setRows(items.recordCount() + 1);
    for (int row = 1; !items.eof(); ++row, items.moveNext()) {
        overview.setText(row, 0, items.field(u"Voce"_s).text());
        overview.setText(row, 1, items.field(u"Descri"_s).text());
        for (int column = 2; column < 5; ++column) {
            overview.setText(row, column, FormatImporto(items.field(u"Importo"_s).currency()));
        }
    }
}

} // namespace

int main(int count, char *arguments[])
{
    try {
        std::mt19937 random(19970514);
        const QString folder = QString::fromLocal8Bit(count == 2 ? arguments[1] : ".");
        QDir().mkpath(folder + u"/texts"_s);
        writeTexts(folder + u"/texts"_s, random);
        ArchiveBuilder archive(folder + u"/archive"_s, u"00112"_s);
        archive.addStandardCodes();
        ProgramValues values = archive.values();
        insertRows(LedgerPath(values), PaymentCount,
                   [&](int number) { return randomPayment(random, number); });
        insertRows(ContractPath(values), ItemCount,
                   [&](int number) { return randomItem(random, number); });
        TextTable overview(5);
        fillOverview(overview, values);
        WriteProjectDocuments(values, overview);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
