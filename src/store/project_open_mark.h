#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

namespace saldoro {

/**
 * Says that this program has a project open, for as long as the object lives. The mark is a lock
 * file in the user's own settings folder, so only programs of the same user on the same machine see
 * it. A program that died leaves no mark that counts. The mark warns of a second window, and keeps
 * two imports from making the same project. RequireClosed() refuses changes to an open one; an
 * import does, too, unless it is told to go on even so. A mark that can't be written (no such
 * folder, full disk) is left out in silence.
 */
class ProjectOpenMark
{
public:
    /** @param projectFolder a path of the machine, of a folder that need not be there yet. */
    explicit ProjectOpenMark(const QString &projectFolder);

    /** Whether another program has the project open right now. */
    bool isOpenElsewhere() const;

private:
    QString m_projectFolder;
    std::unique_ptr<QLockFile> m_mark;
};

/** Whether any program has the project in @p projectFolder (a path of the machine) open. */
bool IsProjectOpen(const QString &projectFolder);

/** Throws SaldoroError while any program has it open. */
void RequireClosed(const QString &projectFolder);

} // namespace saldoro
