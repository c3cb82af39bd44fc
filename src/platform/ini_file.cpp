#include "platform/ini_file.h"

#include "common/text_cut.h"
#include "platform/machine_path.h"

#include <QFile>
#include <QStringDecoder>
#include <QStringList>

#include <array>

namespace saldoro {

namespace {

/** What Windows-1252 has at 0x80 to 0x9F; the five free places stay control characters. */
constexpr std::array<char16_t, 32> windows1252Block = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString fromWindows1252(const QByteArray &data)
{
    constexpr char16_t blockStart = 0x80;
    QString text = QString::fromLatin1(data);
    for (QChar &character : text) {
        const char16_t code = character.unicode();
        if (code >= blockStart && code < blockStart + windows1252Block.size())
            character = windows1252Block.at(code - blockStart);
    }
    return text;
}

QString decoded(const QByteArray &data)
{
    const auto marked = QStringConverter::encodingForData(data);
    QStringDecoder decoder(marked.value_or(QStringConverter::Utf8),
                           QStringConverter::Flag::Stateless);
    const QString text = decoder.decode(data);
    return decoder.hasError() && !marked ? fromWindows1252(data) : text;
}

/** Without the blanks and tabs at both ends. */
QStringView stripped(QStringView text)
{
    const auto isBlank = [](QChar character) { return character == u' ' || character == u'\t'; };
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.mid(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

QStringView withoutQuotes(QStringView value)
{
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == u'"' || value.front() == u'\'');
    return quoted ? value.mid(1, value.size() - 2) : value;
}

bool sameName(QStringView left, QStringView right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

/** The name in a section line, no value for any other line. */
std::optional<QStringView> sectionName(QStringView line)
{
    const qsizetype end = line.lastIndexOf(u']');
    if (!line.startsWith(u'[') || end < 0)
        return std::nullopt;
    return stripped(line.mid(1, end - 1));
}

std::optional<QString> valueIn(QString content, const QString &section, const QString &key)
{
    content.replace(u'\r', u'\n');
    bool inSection = false;
    for (const QStringView rawLine : QStringView(content).split(u'\n')) {
        const QStringView line = stripped(rawLine);
        if (line.startsWith(u';'))
            continue;
        if (const auto name = sectionName(line)) {
            if (inSection)
                return std::nullopt; // a second section of that name is not looked at
            inSection = sameName(*name, stripped(section));
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (inSection && equals >= 0 && sameName(stripped(line.first(equals)), stripped(key)))
            return withoutQuotes(stripped(line.mid(equals + 1))).toString();
    }
    return std::nullopt;
}

} // namespace

std::optional<QString> FindIniValue(const QString &fileName, const QString &section,
                                    const QString &key)
{
    QFile file(MachinePath(fileName));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return valueIn(decoded(file.readAll()), section, key);
}

QString ReadIniString(const QString &fileName, const QString &section, const QString &key)
{
    QString value = FindIniValue(fileName, section, key).value_or(QString());
    value = TrimAtNul(LeftCharacters(value, IniValueLimit));
    while (value.endsWith(u' '))
        value.chop(1);
    return value;
}

QString TrimAtNul(const QString &text)
{
    const qsizetype end = text.indexOf(QChar(u'\0'));
    return end < 0 ? text : text.first(end);
}

} // namespace saldoro
