#pragma once

#include "amount_oracle.h"
#include "test_archive.h"

#include <algorithm>

namespace saldoro {

/** What the databases must hold, as text. */
struct Books
{
    using Row = QMap<QString, QString>; ///< cells by column; a null is missing

    QList<Row> payments;
    QList<QStringList> allocations;  ///< number, code, description, ten-thousandths
    QMap<qint32, QStringList> notes; ///< creditor, number and date of the mandate

    QStringList *allocation(qint32 number, const QString &code)
    {
        const auto found =
            std::find_if(allocations.begin(), allocations.end(), [&](const QStringList &row) {
                return row.at(0).toInt() == number && row.at(1) == code;
            });
        return found == allocations.end() ? nullptr : &*found;
    }

    QString print() const
    {
        using namespace Qt::StringLiterals;
        QStringList lines;
        for (const Row &payment : payments) {
            QStringList cells;
            for (const QString &column : columns())
                cells += payment.value(column, u"-"_s);
            lines += cells.join(u'|');
        }
        for (const QStringList &row : allocations)
            lines += row.join(u'|');
        for (auto note = notes.cbegin(); note != notes.cend(); ++note)
            lines += u"M0097_%1|Pag. N.%1 - %2|Mandato nr.%3 del %4"_s.arg(note.key())
                         .arg(note->at(0), note->at(1), note->at(2));
        return lines.join(u'\n');
    }

    static QString read(const TestArchive &archive)
    {
        using namespace Qt::StringLiterals;
        const QString payments =
            u"SELECT %1 FROM Fatture ORDER BY rowid"_s.arg(columns().join(u','))
                .replace(u"Del,"_s, u"coalesce(strftime('%d/%m/%Y', Del), "
                                    "'__/__/____'),"_s);
        QStringList parts{archive.ledgerRows(payments),
                          archive.ledgerRows(u"SELECT * FROM Spese ORDER BY rowid"_s),
                          archive.contractRows(
                              u"SELECT Voce, Descri, Stringa FROM SchedaProgetto ORDER BY Voce"_s)};
        parts.removeAll(QString());
        return parts.join(u'\n');
    }

private:
    static QStringList columns()
    {
        using namespace Qt::StringLiterals;
        return u"AziProf Npag Creditore NFat Del Descrizione Memo Aliquota Importo "
               "ImportoIVA AliquotaRA ImportoPrest Contributo CassaPrev ImportoRA "
               "AltriImporti01"_s.split(u' ');
    }
};

/** What an invoice form must show of one payment. */
class FormModel
{
public:
    FormModel(CreditorKind kind, qint32 paymentNumber, const Books &books);

    void saveTo(Books &books) const;

    /** Sum of the allocations in display form. */
    QString total() const
    {
        qint64 sum = 0;
        for (const QStringList &cells : rows)
            sum += AmountOracle::shownValue(cells.at(2));
        return AmountOracle::shown(sum);
    }

    qint32 number;
    QStringList order;            ///< the controls as Tab visits them, up to the grid
    QStringList amountNames;      ///< the amount fields, whether Tab visits them or not
    mutable AmountOracle amounts; ///< reading a text may add it
    QMap<QString, QString> texts; ///< the other lines and the note, by name
    QList<QStringList> rows;      ///< allocations: code, description, amount
    int row = 0;                  ///< the current one, from 1

private:
    static bool isRate(const QString &name) { return name == u"Text2_1" || name == u"Text5_0"; }

    QString m_kind;
    QList<std::pair<QString, QString>> m_columns; ///< name of the control, column
};

inline FormModel::FormModel(CreditorKind kind, qint32 paymentNumber, const Books &books)
    : number(paymentNumber)
    , amounts(kind)
    , m_kind(kind == CreditorKind::Company ? u'A' : u'P')
{
    using namespace Qt::StringLiterals;
    const bool company = kind == CreditorKind::Company;
    const QString date = company ? u"MaskEdBox1_0"_s : u"MaskEdBox1"_s;
    const QString amountOrder = company
                                    ? u"Text2_0 Text2_1 Text2_2"_s
                                    : u"Text4_0 Text4_1 Text4_2 Text2_0 Text2_1 Text2_2 Text2_5 "
                                      "Text2_3 Text5_0 Text5_1 Text5_2"_s;
    amountNames = amountOrder.split(u' ') << (company ? u"Text2_3"_s : u"Text2_4"_s);
    order = u"Text1_0 Command5 Text1_1 %1 Text1_3 %2 Mandato MandatoDell Memo "
            "MSFlexGrid1"_s.arg(date, amountOrder)
                .split(u' ');
    QString columns = u"Text1_0=Creditore Text1_1=NFat %1=Del Text1_3=Descrizione "
                      "Memo=Memo Text2_1=Aliquota Text2_0=Importo "
                      "Text2_2=ImportoIVA "_s.arg(date);
    if (!company)
        columns += u"Text5_0=AliquotaRA Text4_0=ImportoPrest Text4_1=Contributo "
                   "Text4_2=CassaPrev Text5_1=ImportoRA Text2_5=AltriImporti01"_s;
    for (const QString &pair : columns.split(u' ', Qt::SkipEmptyParts))
        m_columns.append({pair.section(u'=', 0, 0), pair.section(u'=', 1)});

    const QString mask = u"__/__/____"_s;
    texts = {{u"Text1_0"_s, {}}, {u"Text1_1"_s, {}},       {u"Text1_3"_s, {}}, {date, mask},
             {u"Mandato"_s, {}}, {u"MandatoDell"_s, mask}, {u"Memo"_s, {}}};
    if (!books.payments.isEmpty())
        texts[u"Memo"_s] = books.payments.last()[u"Memo"_s];
    for (const Books::Row &payment : books.payments) {
        if (payment[u"Npag"_s].toInt() != number)
            continue;
        const auto stored = [&payment](const char *column) {
            return payment[QString::fromLatin1(column)].toLongLong();
        };
        for (const auto &[name, column] : std::as_const(m_columns)) {
            if (!amountNames.contains(name))
                texts[name] = payment[column];
            else if (payment.contains(column))
                amounts.text(name) = isRate(name)
                                         ? QString::number(payment[column].toLongLong() / 10000)
                                         : AmountOracle::shown(payment[column].toLongLong());
        }
        const qint64 total =
            stored("Importo") + stored("ImportoIVA") + (company ? 0 : stored("AltriImporti01"));
        amounts.text(u"Text2_3"_s) = AmountOracle::shown(total);
        amounts.text(u"Text5_2"_s) = AmountOracle::shown(total - stored("ImportoRA"));
        amounts.text(u"Text2_4"_s) =
            AmountOracle::shown(amounts.value(u"Text4_0"_s) + amounts.value(u"Text4_1"_s));
        break;
    }
    for (const QStringList &stored : books.allocations) {
        if (stored.at(0).toInt() == number)
            rows += {stored.at(1), stored.at(2), AmountOracle::shown(stored.at(3).toLongLong())};
    }
    row = static_cast<int>(rows.size());
    if (const auto note = books.notes.constFind(number); note != books.notes.cend()) {
        texts[u"Mandato"_s] = note->at(1);
        texts[u"MandatoDell"_s] = note->at(2);
    }
}

inline void FormModel::saveTo(Books &books) const
{
    using namespace Qt::StringLiterals;
    const QString numberText = QString::number(number);
    auto payment =
        std::find_if(books.payments.begin(), books.payments.end(), [&](const Books::Row &stored) {
            return stored[u"Npag"_s] == numberText && stored[u"AziProf"_s] == m_kind;
        });
    if (payment == books.payments.end())
        payment = books.payments.insert(payment, Books::Row{{u"AziProf"_s, m_kind}});
    (*payment)[u"Npag"_s] = numberText;
    for (const auto &[name, column] : m_columns)
        (*payment)[column] = !amountNames.contains(name) ? texts[name]
                             : isRate(name)
                                 ? QString::number(AmountOracle::leading(amounts.text(name)))
                                 : QString::number(amounts.value(name));
    for (const QStringList &cells : rows) {
        QStringList *stored = books.allocation(number, cells.at(0));
        if (!stored) {
            books.allocations += {numberText, cells.at(0), cells.at(1).left(50), QString()};
            stored = &books.allocations.last();
        }
        (*stored)[3] = QString::number(AmountOracle::shownValue(cells.at(2)));
    }
    books.notes[number] = {texts[u"Text1_0"_s], texts[u"Mandato"_s], texts[u"MandatoDell"_s]};
}

} // namespace saldoro
