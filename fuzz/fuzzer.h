#pragma once

#include <QString>
#include <QStringList>

#include <random>
#include <stdexcept>

namespace saldoro {

/** Chance for one case: the same seed makes the same case on every machine. */
class Random
{
public:
    explicit Random(quint64 seed)
        : m_engine(seed)
    {
    }
    quint64 bits() { return m_engine(); }
    /** From 0 to @p limit - 1. */
    int below(int limit) { return static_cast<int>(m_engine() % static_cast<quint64>(limit)); }
    bool chance(int ofHowMany) { return below(ofHowMany) == 0; }
    const QString &pick(const QStringList &pieces)
    {
        return pieces[below(static_cast<int>(pieces.size()))];
    }
    /** Up to @p most pieces in a row. */
    QString text(const QStringList &pieces, int most)
    {
        QString result;
        for (int left = below(most + 1); left > 0; --left)
            result += pick(pieces);
        return result;
    }

private:
    std::mt19937_64 m_engine;
};

/** Ends a case: the program and its reference differ about @p input. */
[[noreturn]] inline void Differ(const QString &input, const QString &program,
                                const QString &reference)
{
    throw std::runtime_error(QStringLiteral("input <%1>\n  program   <%2>\n  reference <%3>")
                                 .arg(input, program, reference)
                                 .toStdString());
}

inline void RequireSame(const QString &input, const QString &program, const QString &reference)
{
    if (program != reference)
        Differ(input, program, reference);
}

/** One case each; a difference is a std::runtime_error. */
void FuzzAmount(Random &random);  ///< ImportoDaTesto, FormatImporto
void FuzzDate(Random &random);    ///< DataDaTesto, FormatData
void FuzzDateBox(Random &random); ///< DateBox by keys
void FuzzCsv(Random &random);     ///< CsvReader, AmountOf, AmountCell
void FuzzRtf(Random &random);     ///< WriteRtf

} // namespace saldoro
