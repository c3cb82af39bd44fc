#include "bench_close.h"

#include "bare_file.h"
#include "bench_archive.h"
#include "overview/availability_overview.h"
#include "overview/closing_work.h"
#include "platform/machine_path.h"
#include "store/archive_paths.h"
#include "store/code_map.h"

#include <QFile>

#include <cstdio>
#include <fcntl.h>
#include <malloc.h>
#include <stdexcept>
#include <unistd.h>
#include <vector>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** One document with its register entry. */
struct Document
{
    QByteArray path;
    QByteArray content;
    QByteArray item;
    QByteArray description;
    QByteArray fileName;
};

ProgramValues archiveFor(const benchmark::State &state)
{
    return BenchArchive(2 * static_cast<int>(state.range(0)));
}

void fillOverview(TextTable &overview, const ProgramValues &values)
{
    PrepareAvailabilityOverview(overview);
    FillAvailabilityOverview(overview, values);
}

/** What the program wrote last. */
std::vector<Document> readDocuments(const ProgramValues &values)
{
    std::vector<Document> documents;
    for (const char *code : {"QDP", "P98", "P99", "P98P", "P99P"}) {
        const QString item = CodiceEsterno(values, QString::fromLatin1(code));
        const QString name = item + u".rtf"_s;
        const QString path = MachinePath(ProjectFolder(values) + u'\\' + name);
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            throw std::runtime_error("a document is missing");
        documents.push_back({path.toUtf8(), file.readAll(), item.toUtf8(),
                             DescrizioneFunzione(values, QString::fromLatin1(code)).toUtf8(),
                             name.toUtf8()});
    }
    return documents;
}

qint64 sizeOf(const std::vector<Document> &documents)
{
    qint64 size = 0;
    for (const Document &document : documents)
        size += document.content.size();
    return size;
}

/** Written aside, flushed to the disk and renamed. */
void writeFile(const Document &document)
{
    const QByteArray aside = document.path + ".bare";
    const int file = open(aside.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const auto size = static_cast<size_t>(document.content.size());
    const bool isWritten =
        file >= 0 && write(file, document.content.constData(), size) == document.content.size() &&
        fsync(file) == 0 && close(file) == 0;
    if (!isWritten || std::rename(aside.constData(), document.path.constData()) != 0)
        throw std::runtime_error("a document can't be written");
}

/** Each entry through a connection of its own, as the program writes it. */
void registerFile(const ProgramValues &values, const Document &document)
{
    BareFile(ContractPath(values))
        .prepare("UPDATE SchedaProgetto SET Funzione = 0, Descri = ?, NomeFile = ? WHERE Voce = ?")
        .run(document.description, document.fileName, document.item);
}

void writeTotal(const ProgramValues &values, const QByteArray &item)
{
    BareFile(ContractPath(values))
        .prepare("UPDATE SchedaProgetto SET Funzione = 0, Descri = ?, Stringa = ?, Importo = ?"
                 " WHERE Voce = ?")
        .run(QByteArray("Totale"), QByteArray("€ 1.000,00"), qint64{10000000}, item);
}

/** A figure of the process in bytes; the system states it in kilobytes. */
qint64 processFigure(const QByteArray &name)
{
    QFile file(u"/proc/self/status"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.mid(name.size()).trimmed().split(' ').first().toLongLong() * 1024;
    }
    return 0;
}

/** Gives freed memory back to the system and restarts the count of its peak here. */
void forgetPeak()
{
    malloc_trim(0);
    QFile file(u"/proc/self/clear_refs"_s);
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

} // namespace

void CloseMainScreen(benchmark::State &state)
{
    ProgramValues values = archiveFor(state);
    TextTable overview;
    fillOverview(overview, values);
    forgetPeak();
    const qint64 before = processFigure("VmRSS:");
    for (auto round : state)
        WriteProjectDocuments(values, overview);
    constexpr double megabyte = 1 << 20;
    state.counters["memory"] = static_cast<double>(processFigure("VmHWM:") - before) / megabyte;
    state.counters["documents"] = static_cast<double>(sizeOf(readDocuments(values))) / megabyte;
}

void CloseBare(benchmark::State &state)
{
    ProgramValues values = archiveFor(state);
    TextTable overview;
    fillOverview(overview, values);
    WriteProjectDocuments(values, overview);
    const std::vector<Document> documents = readDocuments(values);
    std::vector<QByteArray> totals;
    for (const char *code : {"QS1A", "QS1P", "QS1T"})
        totals.push_back(CodiceEsterno(values, QString::fromLatin1(code)).toUtf8());
    for (auto round : state) {
        BareFile ledger(LedgerPath(values));
        ledger.readAll("SELECT * FROM Fatture  WHERE AziProf = 'A' ORDER BY Npag ");
        ledger.readAll("SELECT * FROM Fatture  WHERE AziProf = 'P' ORDER BY Npag ");
        for (const Document &document : documents) {
            writeFile(document);
            registerFile(values, document);
        }
        for (const QByteArray &item : totals)
            writeTotal(values, item);
    }
}

} // namespace saldoro
