#include "platform/ini_file.h"

#include "common/text_cut.h"
#include "platform/legacy_text.h"
#include "platform/machine_path.h"

#include <QFile>
#include <QStringDecoder>
#include <QStringList>

namespace saldoro {

namespace {

QString decoded(const QByteArray &data)
{
    const auto marked = QStringConverter::encodingForData(data);
    if (!marked)
        return TextOfStoredBytes(data);
    return QStringDecoder(*marked, QStringConverter::Flag::Stateless).decode(data);
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
