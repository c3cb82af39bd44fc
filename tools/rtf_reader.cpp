#include "rtf_reader.h"

#include <QRegularExpression>
#include <QStringList>

#include <stdexcept>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

class Reader
{
public:
    explicit Reader(const QByteArray &rtf)
        : m_rtf(QString::fromLatin1(rtf))
    {
    }

    RtfContent read()
    {
        static const QRegularExpression token(
            uR"(\{|\}|\\'([0-9a-f]{2})|\\([a-z]+)(-?\d+)? ?|\\([{}\\])|\r|\n|([ -~]))"_s);
        while (m_at < m_rtf.size()) {
            const auto match =
                token.match(m_rtf, m_at, QRegularExpression::NormalMatch,
                            QRegularExpression::AnchorAtOffsetMatchOption |
                                QRegularExpression::DontCheckSubjectStringMatchOption);
            require(match.hasMatch(), u"unreadable"_s);
            take(match);
            m_at = match.capturedEnd();
        }
        require(m_depth == 0 && m_opened, u"group left open"_s);
        if (m_atLineStart) {
            m_content.text.chop(1);
        }
        m_content.font.chop(1);
        return m_content;
    }

private:
    void require(bool holds, const QString &what) const
    {
        if (!holds) {
            throw std::runtime_error(
                (what + u" at %1: "_s.arg(m_at) + m_rtf.mid(m_at, 30)).toStdString());
        }
    }

    void take(const QRegularExpressionMatch &match)
    {
        const QString whole = match.captured();
        if (whole == u"{") {
            require(m_depth > 0 || !m_opened, u"second document"_s);
            m_opened = true;
            ++m_depth;
        } else if (whole == u"}") {
            --m_depth;
        } else if (whole != u"\r" && whole != u"\n") {
            require(m_depth > 0, u"outside of the document"_s);
            if (match.hasCaptured(2)) {
                takeWord(match.captured(2), match.captured(3));
            } else if (match.hasCaptured(1)) {
                takeCharacter(QChar(match.captured(1).toUShort(nullptr, 16)));
            } else {
                takeCharacter(whole.back());
            }
        }
    }

    void takeWord(const QString &word, const QString &number)
    {
        static const QStringList silent{
            u"rtf"_s,    u"ansi"_s,   u"ansicpg"_s,  u"deff"_s,  u"fonttbl"_s, u"f"_s,
            u"fswiss"_s, u"fprq"_s,   u"fcharset"_s, u"pard"_s,  u"lang"_s,    u"fs"_s,
            u"paperw"_s, u"paperh"_s, u"margl"_s,    u"margr"_s, u"margt"_s,   u"margb"_s};
        require(m_toSkip == 0, u"control word in place of a fallback"_s);
        if (word == u"par") {
            add(u'\n');
            m_atLineStart = true;
        } else if (word == u"tab") {
            add(u'\t');
        } else if (word == u"uc") {
            m_fallbacks = number.toInt();
        } else if (word == u"u") {
            add(QChar(static_cast<char16_t>(number.toShort())));
            m_toSkip = m_fallbacks;
        } else if (word == u"fmodern") {
            m_content.fixedPitch = true;
        } else {
            require(silent.contains(word), u"unknown control word"_s);
        }
    }

    void takeCharacter(QChar character)
    {
        if (m_toSkip > 0) {
            --m_toSkip;
        } else {
            add(character);
        }
    }

    void add(QChar character)
    {
        (m_depth > 1 ? m_content.font : m_content.text) += character;
        m_atLineStart = false;
    }

    QString m_rtf;
    qsizetype m_at = 0;
    RtfContent m_content;
    int m_depth = 0;
    int m_fallbacks = 1;
    int m_toSkip = 0;
    bool m_opened = false;
    bool m_atLineStart = false;
};

} // namespace

RtfContent ReadRtf(const QByteArray &rtf)
{
    return Reader(rtf).read();
}

} // namespace saldoro
