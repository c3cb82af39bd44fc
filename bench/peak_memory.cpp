#include "peak_memory.h"

#include <QFile>

#include <malloc.h>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

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

/** Gives freed memory back to the system and lets its peak count anew from here. */
void forgetPeak()
{
    malloc_trim(0);
    QFile file(u"/proc/self/clear_refs"_s);
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

} // namespace

PeakMemory::PeakMemory()
    : m_before((forgetPeak(), processFigure("VmRSS:")))
{
}

qint64 PeakMemory::grownBy() const
{
    return processFigure("VmHWM:") - m_before;
}

} // namespace saldoro
