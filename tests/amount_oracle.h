#pragma once

#include "common/creditor_kind.h"

#include <QMap>
#include <QRegularExpression>
#include <QStringList>

namespace saldoro {

/**
 * What the amount fields of an invoice form must show, worked out in whole ten-thousandths and by
 * field name. Only for whole rates and amounts of at most four decimals, where no rounding can be
 * doubtful.
 */
class AmountOracle
{
public:
    explicit AmountOracle(CreditorKind kind)
        : m_company(kind == CreditorKind::Company)
    {
    }

    QString &text(const QString &name) { return m_texts[name]; }
    qint64 value(const QString &name) { return shownValue(text(name)); }

    void enter(const QString &name) { text(name) = plain(text(name)); }

    void leave(const QString &name)
    {
        if (m_company)
            leaveCompany(name);
        else if (name.startsWith(u"Text4"))
            leaveFee(name);
        else if (name.startsWith(u"Text2"))
            leaveVat(name);
        else
            leaveWithholding(name);
    }

    /** The number that a text in plain form begins with. */
    static qint64 leading(const QString &text)
    {
        static const QRegularExpression number(QStringLiteral("^([+-]?)(\\d*)(?:\\.(\\d{0,4}))?"));
        const QRegularExpressionMatch match = number.match(QString(text).remove(u' '));
        const QString decimals = match.captured(3).leftJustified(4, u'0');
        const qint64 scaled = (match.captured(2) + decimals).toLongLong();
        return match.captured(1) == u"-" ? -scaled : scaled;
    }

    static qint64 shownValue(const QString &text) { return leading(plain(text)); }

    static QString shown(qint64 scaled)
    {
        const qint64 cents = (qAbs(scaled) + 50) / 100;
        static const QRegularExpression gap(QStringLiteral("(\\d)(?=(\\d{3})+$)"));
        const QString whole = QString::number(cents / 100).replace(gap, QStringLiteral("\\1."));
        return QString(scaled < 0 ? 1 : 0, u'-') + whole + u',' +
               QString::number(cents % 100).rightJustified(2, u'0');
    }

private:
    static QString plain(const QString &text)
    {
        const QString undotted = text.split(u'.').join(QString());
        const QString head = undotted.section(u',', 0, 0);
        return head.size() == undotted.size() ? head : head + u'.' + undotted.section(u',', 1);
    }

    QString &text(const char *name) { return text(QString::fromLatin1(name)); }
    qint64 value(const char *name) { return value(QString::fromLatin1(name)); }
    void reshow(const QString &name) { text(name) = shown(leading(text(name))); }

    /** Cents times a whole rate: ten-thousandths without a remainder. */
    void applyRate(const char *base, const char *rate, const char *target)
    {
        text(target) = shown(value(base) / 100 * (leading(text(rate)) / 10000));
    }
    void tidyRate(const QString &rate)
    {
        text(rate) = QString::number(leading(text(rate)) / 10000);
    }

    void leaveFee(const QString &name)
    {
        reshow(name);
        const qint64 both = value("Text4_0") + value("Text4_1");
        text("Text2_0") = shown(both + value("Text4_2"));
        text("Text2_4") = shown(both);
    }

    void leaveVat(const QString &name)
    {
        if (name == u"Text2_1") {
            if (text("Text2_2").isEmpty() || text("Text2_2") == u"0")
                applyRate("Text2_0", "Text2_1", "Text2_2");
            tidyRate(name);
        } else if (name != u"Text2_4" && name != u"Text2_5") {
            reshow(name);
        }
        text("Text2_3") = shown(value("Text2_0") + value("Text2_2") + value("Text2_5"));
    }

    void leaveWithholding(const QString &name)
    {
        if (name == u"Text5_1")
            reshow(name);
        if (name == u"Text5_0") {
            if (leading(text("Text5_1")) == 0)
                applyRate("Text2_4", "Text5_0", "Text5_1");
            tidyRate(name);
        }
        text("Text5_2") = shown(value("Text2_3") - value("Text5_1"));
    }

    void leaveCompany(const QString &name)
    {
        if (name == u"Text2_3")
            return;
        if (name == u"Text2_1") {
            applyRate("Text2_0", "Text2_1", "Text2_2");
            tidyRate(name);
        } else {
            reshow(name);
        }
        text("Text2_3") = shown(value("Text2_0") + value("Text2_2"));
    }

    QMap<QString, QString> m_texts;
    bool m_company;
};

} // namespace saldoro
