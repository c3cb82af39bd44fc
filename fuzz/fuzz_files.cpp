#include "controls/rtf_writer.h"
#include "fuzzer.h"
#include "platform/ini_file.h"
#include "rtf_text.h"

#include <QBuffer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString stripped(const QString &text)
{
    static const QRegularExpression ends(u"\\A[ \\t]+|[ \\t]+\\z"_s);
    return QString(text).remove(ends);
}

/** The value by regular expressions over whole lines. */
QString readSlowly(const QString &content, const QString &section, const QString &key)
{
    static const QRegularExpression lineEnd(u"\\r\\n|\\n|\\r"_s);
    static const QRegularExpression header(u"\\A\\[(.*)\\].*\\z"_s,
                                           QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression quoted(u"\\A([\"'])(.*)\\1\\z"_s,
                                           QRegularExpression::DotMatchesEverythingOption);
    int inside = 0; // sections of that name begun so far; only the first counts
    bool isInside = false;
    for (const QString &raw : content.split(lineEnd)) {
        const QString line = stripped(raw);
        const auto match = header.match(line);
        if (line.startsWith(u';'))
            continue;
        if (match.hasMatch()) {
            isInside = stripped(match.captured(1)).toLower() == section.toLower() && ++inside == 1;
            continue;
        }
        if (!isInside || !line.contains(u'=') ||
            stripped(line.section(u'=', 0, 0)).toLower() != key.toLower())
            continue;
        QString value = stripped(line.section(u'=', 1));
        if (const auto marks = quoted.match(value); marks.hasMatch())
            value = marks.captured(2);
        value = value.left(254).section(QChar(u'\0'), 0, 0);
        while (value.endsWith(u' '))
            value.chop(1);
        return value;
    }
    return {};
}

} // namespace

void FuzzIni(Random &random)
{
    static const QStringList pieces = {u"[Configuration]"_s,
                                       u"[configuration"_s,
                                       u"[ CONFIGURATION ]"_s,
                                       u"[altra]"_s,
                                       u"Build"_s,
                                       u"BUILD"_s,
                                       u"Buil"_s,
                                       u"="_s,
                                       u"="_s,
                                       u" "_s,
                                       u"\t"_s,
                                       u"\n"_s,
                                       u"\r\n"_s,
                                       u"\r"_s,
                                       u"\n"_s,
                                       u";"_s,
                                       u"\""_s,
                                       u"'"_s,
                                       u"10168"_s,
                                       u"è"_s,
                                       u"€"_s,
                                       u"x"_s,
                                       QString(QChar(0)),
                                       QString(260, u'v')};
    QString content = random.chance(3) ? QString() : u"[Configuration]\n"_s;
    content += random.text(pieces, 14);
    if (random.chance(2))
        content += u"\nBuild="_s + random.text(pieces, 4);
    // Older programs write code page 1252, in which no accented letter is sound UTF-8.
    QByteArray bytes = content.toUtf8();
    if (random.chance(3))
        bytes.replace("è", "\xE8").replace("€", "\x80");
    static const QTemporaryDir folder;
    QFile file(folder.filePath(u"prova.ini"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) < 0)
        throw std::runtime_error("the file can't be written");
    file.close();
    RequireSame(content, ReadIniString(file.fileName(), u"Configuration"_s, u"Build"_s),
                readSlowly(content, u"Configuration"_s, u"Build"_s));
}

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
    if (!WriteRtf(buffer, text, {u"Courier New"_s, 17, true}))
        throw std::runtime_error("the writer gave up");
    RequireSame(text, ReadRtf(written).text, MeantText(text));
}

} // namespace saldoro
