#include "bench_archive.h"

#include "bulk_archive.h"

#include <QDir>
#include <QFile>

#include <map>
#include <stdexcept>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString &benchFolder()
{
    static QString folder;
    return folder;
}

ProgramValues makeArchive(int payments)
{
    ArchiveBuilder archive(benchFolder(), QString::number(payments));
    archive.addStandardCodes();
    BulkSize size;
    size.payments = payments;
    size.allocations = 3 * payments;
    size.costItems = 200;
    size.mandateNotes = payments;
    FillArchive(archive, size);
    return archive.values();
}

} // namespace

const ProgramValues &BenchArchive(int payments)
{
    static std::map<int, ProgramValues> archives;
    const auto known = archives.find(payments);
    return known != archives.end()
               ? known->second
               : archives.emplace(payments, makeArchive(payments)).first->second;
}

void SetBenchFolder(const QString &folder)
{
    benchFolder() = folder;
    const QString settings = folder + u"/saldoro"_s;
    QFile file(settings + u"/registro.ini"_s);
    const QString setting = u"[Software\\Dornvale\\ZELT]\ndrivers=%1\n"_s.arg(folder);
    if (!QDir().mkpath(settings) || !file.open(QIODevice::WriteOnly) ||
        file.write(setting.toUtf8()) < 0)
        throw std::runtime_error("no settings can be written in the folder of the archives");
    qputenv("XDG_CONFIG_HOME", folder.toUtf8());
}

} // namespace saldoro
