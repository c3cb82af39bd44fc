#include "controls/rtf_writer.h"
#include "fuzzer.h"
#include "rtf_text.h"

#include <QBuffer>

namespace saldoro {

void FuzzRtf(Random &random)
{
    std::mt19937 engine(static_cast<quint32>(random.bits()));
    QString text = HostileText(engine, random.below(12));
    for (int units = random.below(4); units > 0; --units)
        text.insert(random.below(static_cast<int>(text.size()) + 1),
                    QChar(static_cast<char16_t>(random.bits())));
    QByteArray written;
    QBuffer buffer(&written);
    buffer.open(QIODevice::WriteOnly);
    if (!WriteRtf(buffer, text, QStringLiteral("Courier New")))
        throw std::runtime_error("the writer gave up");
    RequireSame(text, ReadRtf(written).text, MeantText(text));
}

} // namespace saldoro
