#include "platform/ini_file.h"

#include "common/characters.h"
#include "common/errors.h"
#include "common/legacy_text.h"
#include "platform/machine_path.h"
#include "platform/whole_file.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QStringDecoder>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The whole text; empty when there is no such file. */
QString contentOf(const QString &path)
{
    if (!QFileInfo::exists(path))
        return {};
    const QByteArray data = ReadWholeFile(path);
    const auto marked = QStringConverter::encodingForData(data);
    if (!marked)
        return TextOfStoredBytes(data);
    return QStringDecoder(*marked, QStringConverter::Flag::Stateless).decode(data);
}

/** Finds whole lines that begin with a form; what follows it is captured as "rest". */
QRegularExpression lineOf(const QString &form)
{
    return QRegularExpression(u"(*ANYCRLF)^[ \\t]*"_s + form + u"(?<rest>.*)$"_s,
                              QRegularExpression::MultilineOption |
                                  QRegularExpression::CaseInsensitiveOption);
}

QRegularExpression sectionLine(const QString &section)
{
    return lineOf(u"\\[[ \\t]*"_s + QRegularExpression::escape(section) + u"[ \\t]*\\]"_s);
}

/** The line of a key; see valueIn(). */
QRegularExpressionMatch keyLine(const QString &content, const QString &section, const QString &key)
{
    const qsizetype begin = sectionLine(section).match(content).capturedEnd();
    if (begin < 0)
        return {};
    static const QRegularExpression nextSection = lineOf(u"\\[.*\\]"_s);
    const qsizetype end = content.indexOf(nextSection, begin);
    return lineOf(QRegularExpression::escape(key) + u"[ \\t]*="_s)
        .match(content.left(end < 0 ? content.size() : end), begin);
}

/** The value in the line of a key, without blanks and a pair of quotes around it. */
QString valueIn(const QRegularExpressionMatch &keyLine)
{
    static const QRegularExpression around(u"^[ \\t]+|[ \\t]+\\z"_s);
    const QString value = keyLine.captured(u"rest").remove(around);
    const bool isQuoted = value.size() > 1 && value.front() == value.back() &&
                          (value.front() == u'"' || value.front() == u'\'');
    return isQuoted ? value.sliced(1, value.size() - 2) : value;
}

} // namespace

std::optional<QString> FindIniValue(const QString &fileName, const QString &section,
                                    const QString &key)
{
    const QString content = contentOf(MachinePath(fileName));
    const auto found = keyLine(content, section, key);
    return found.hasMatch() ? std::optional(valueIn(found)) : std::nullopt;
}

void SetIniValue(const QString &fileName, const QString &section, const QString &key,
                 const QString &value)
{
    const QFileInfo info(MachinePath(fileName));
    QString content = contentOf(info.filePath());
    const QString line = key + u"=\""_s + value + u'"';
    const auto earlier = keyLine(content, section, key);
    qsizetype place = sectionLine(section).match(content).capturedEnd();
    if (place < 0) {
        if (!content.isEmpty() && !content.endsWith(u'\n'))
            content += u'\n';
        content += u'[' + section + u"]\n"_s;
        place = content.size() - 1;
    }
    if (earlier.hasMatch())
        content.replace(earlier.capturedStart(), earlier.capturedLength(), line);
    else
        content.insert(place, u'\n' + line);
    if (TrimAtNul(valueIn(keyLine(content, section, key))) != value)
        throw FileError(info.filePath(), u"«%1» non verrebbe riletto com'è."_s.arg(value),
                        u"Scegliere un nome senza caratteri di controllo."_s);
    MakeFolder(info.path());
    WholeFile(info.filePath(), content.toUtf8()).replace();
}

QString ReadIniString(const QString &fileName, const QString &section, const QString &key)
{
    constexpr qsizetype mostCharacters = 254;
    QString value;
    try {
        value = FindIniValue(fileName, section, key).value_or(QString());
    } catch (const FileError &) {
        return {};
    }
    value = TrimAtNul(LeftCharacters(value, mostCharacters));
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
