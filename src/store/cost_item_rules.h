#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace saldoro {

/** Characters of a code that a pick of a cost item hands on. */
inline constexpr int PickedCodeWidth = 5;
/** Most cost items that can be offered for a pick. */
inline constexpr int PickListSize = 201;

/** Order of codes as the databases compare them: without regard to letter case. */
struct CodeOrder
{
    bool operator()(const QString &left, const QString &right) const;
};

/** A cost item of the budget, with its nulls. */
struct CostItem
{
    std::optional<QString> code;
    std::optional<QString> description;
};

/** Something about a cost item that trips the program. */
struct CostItemFault
{
    qsizetype item = 0; ///< its place among the items, from 0
    QString field;      ///< `Voce` or `Descri`
    QString problem; ///< in Italian: what is wrong and what comes of it, a sentence in lower case
};

/** What stops the main screen at one of these cost items, or keeps a pick from handing on its code
 *  as it is; in the order of the items. */
QList<CostItemFault> CostItemFaults(const QList<CostItem> &items);

} // namespace saldoro
