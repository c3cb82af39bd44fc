// Writes documents for the readers of other makers: rtf_cases FOLDER. Beside each NAME.rtf stands
// NAME.txt with the text that was meant.

#include "overview/rtf_writer.h"
#include "platform/whole_file.h"
#include "rtf_text.h"

#include <QFile>

#include <cstdio>
#include <stdexcept>

using namespace saldoro;
using namespace Qt::StringLiterals;

namespace {

constexpr int randomTexts = 12;

void writeCase(const QString &folder, const QString &name, const QString &text)
{
    WholeFile(folder + u'/' + name + u".rtf"_s, [&](QIODevice &document) {
        return WriteRtf(document, text, u"Courier New"_s);
    }).replace();
    QFile file(folder + u'/' + name + u".txt"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0) {
        throw std::runtime_error("no room for the expected texts");
    }
}

void writeTexts(const QString &folder)
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
    std::mt19937 random(19970514);
    for (int number = 0; number < randomTexts; ++number) {
        // A letter at the end: what stands last must not be one that a reader drops.
        writeCase(folder, u"random-%1"_s.arg(number), HostileText(random, 2000 * number) + u'z');
    }
}

} // namespace

int main(int count, char *arguments[])
{
    try {
        writeTexts(QString::fromLocal8Bit(count == 2 ? arguments[1] : "."));
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
