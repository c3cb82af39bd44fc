#include "invoice/allocation_total.h"

#include "common/amount_text.h"
#include "common/errors.h"
#include "controls/message_box.h"
#include "invoice/allocation_block.h"

namespace saldoro {

using namespace Qt::StringLiterals;

QString AllocationTotal(const TextTable &grid)
{
    Currency total;
    for (int row = 1; row < grid.rows(); ++row) {
        const auto code = [&] { return grid.text(row, AllocationColumn::Cod); };
        WithDetail(Detail::Row, QString::number(row), [&] {
            WithDetail(Detail::Item, code,
                       [&] { total += ImportoDaTesto(grid.text(row, AllocationColumn::Importo)); });
        });
    }
    return FormatImporto(total);
}

bool ConfirmTotals(const QString &allocationTotal, const QString &invoiceTotal)
{
    return allocationTotal == invoiceTotal ||
           ChiediConferma(u"Gli importi non coincidono continuare ? "_s);
}

} // namespace saldoro
