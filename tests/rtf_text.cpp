#include "rtf_text.h"

#include <QRegularExpression>
#include <QStringList>

namespace saldoro {

using namespace Qt::StringLiterals;

QString MeantText(const QString &text)
{
    QString meant;
    for (const uint codePoint : text.toUcs4()) {
        meant += QChar::fromUcs4(codePoint);
    }
    static const QRegularExpression lineBreak(u"\r\n|[\n\v\f\r]"_s);
    return meant.replace(lineBreak, u"\n"_s).remove(QChar(u'\0'));
}

QString HostileText(std::mt19937 &random, int parts)
{
    static const QStringList pieces =
        u"{|}|\\|\t| |   |\r\n|\r|\n|\r\n\r\n|\\par |\\u8364?|\\'e9|{\\*\\x}|\\~\\-\\_|\\bin9 "
        u"|?|-1 |7|;|"
        "àèìòùÀÈ|€ "
        "1.234,50|Žœ…–“”|Řłω|😀|👩‍👩‍👧|🇮🇹|e\u0301|שלום|"
        "مرحبا "
        "بك|漢字|\u00a0|\u00ad|\u200b|"
        "\u2028|\u0085|\u200f|\ufffd|\U0010fffd|\u0001|\v|\f|\u001b|\u007f|<b>&amp;|$%`*_#|Nr. 12|"
        "dell'Acqua|http://x.it"_s.split(u'|');
    QString text;
    for (int part = 0; part < parts; ++part) {
        text += pieces.at(static_cast<qsizetype>(random() % static_cast<quint32>(pieces.size())));
    }
    return text;
}

} // namespace saldoro
