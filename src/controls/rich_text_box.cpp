#include "controls/rich_text_box.h"

#include "common/errors.h"
#include "controls/rtf_writer.h"
#include "platform/machine_path.h"

#include <QFileInfo>
#include <QSaveFile>

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The most likely cause of a failed write, told from what is on the disk. */
FileError describeFailure(const QSaveFile &file)
{
    const QString path = file.fileName();
    const QFileInfo target(path);
    const QFileInfo folder(target.path());
    if (!folder.isDir())
        return {path, u"La cartella del documento non esiste."_s,
                u"Controllare la cartella degli archivi e il codice del progetto."_s};
    if (target.isDir())
        return {path, u"Al posto del documento c'è una cartella."_s,
                u"Spostare altrove la cartella con il nome del documento."_s};
    if (file.error() == QFileDevice::ResourceError)
        return {path, u"Il disco è pieno: il documento non è stato scritto."_s,
                u"Liberare spazio sul disco e riprovare."_s};
    if (!folder.isWritable() || (target.exists() && !target.isWritable()))
        return {path, u"Il documento o la sua cartella non accetta modifiche."_s,
                u"Controllare i permessi del file e della sua cartella."_s};
    if (file.error() == QFileDevice::RenameError)
        return {path, u"Il documento non può essere sostituito."_s,
                u"Chiudere il documento negli altri programmi e riprovare."_s};
    FileError error(path, u"La scrittura del documento non è riuscita."_s,
                    u"Controllare che il disco funzioni e riprovare."_s);
    error.addDetail(u"Particolari"_s, file.errorString());
    return error;
}

} // namespace

RichTextBox::RichTextBox(const QString &name)
    : m_text(name)
    , m_fontName(u"MS Sans Serif"_s)
{
}

void RichTextBox::saveFile(const QString &path) const
{
    // Written aside, flushed to the disk and renamed; an unfinished file goes with its object. What
    // is still buffered has to be flushed here: committing would not notice that it found no room,
    // and put a cut document in the place of the old one.
    QSaveFile file(MachinePath(path));
    if (!file.open(QIODevice::WriteOnly) || !WriteRtf(file, m_text, m_fontName) || !file.flush() ||
        !file.commit())
        throw describeFailure(file);
}

} // namespace saldoro
