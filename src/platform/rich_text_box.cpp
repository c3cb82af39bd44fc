#include "platform/rich_text_box.h"

#include "common/errors.h"
#include "platform/machine_path.h"
#include "platform/rtf_writer.h"

#include <QFileInfo>
#include <QSaveFile>

namespace saldoro {

namespace {

bool isFixedPitch(const QString &fontName)
{
    return fontName.startsWith(QStringLiteral("Courier"), Qt::CaseInsensitive);
}

/** The most likely cause of a failed write, told from what is on the disk. */
FileError describeFailure(const QSaveFile &file)
{
    const QString path = file.fileName();
    const QFileInfo target(path);
    const QFileInfo folder(target.path());
    if (!folder.isDir())
        return {path, QStringLiteral("La cartella del documento non esiste."),
                QStringLiteral("Controllare la cartella degli archivi e il codice del progetto.")};
    if (target.isDir())
        return {path, QStringLiteral("Al posto del documento c'è una cartella."),
                QStringLiteral("Spostare altrove la cartella con il nome del documento.")};
    if (file.error() == QFileDevice::ResourceError)
        return {path, QStringLiteral("Il disco è pieno: il documento non è stato scritto."),
                QStringLiteral("Liberare spazio sul disco e riprovare.")};
    if (!folder.isWritable() || (target.exists() && !target.isWritable()))
        return {path, QStringLiteral("Il documento o la sua cartella non accetta modifiche."),
                QStringLiteral("Controllare i permessi del file e della sua cartella.")};
    if (file.error() == QFileDevice::RenameError)
        return {path, QStringLiteral("Il documento non può essere sostituito."),
                QStringLiteral("Chiudere il documento negli altri programmi e riprovare.")};
    FileError error(path, QStringLiteral("La scrittura del documento non è riuscita."),
                    QStringLiteral("Controllare che il disco funzioni e riprovare."));
    error.addDetail(QStringLiteral("Particolari"), file.errorString());
    return error;
}

} // namespace

RichTextBox::RichTextBox(const QString &name)
    : m_text(name)
    , m_fontName(QStringLiteral("MS Sans Serif"))
{
}

void RichTextBox::saveFile(const QString &path) const
{
    // Written aside, flushed to the disk and renamed; an unfinished file goes with its object. What
    // is still buffered has to be flushed here: committing would not notice that it found no room,
    // and put a cut document in the place of the old one.
    QSaveFile file(MachinePath(path));
    RtfFont font;
    font.name = m_fontName;
    font.fixedPitch = isFixedPitch(m_fontName);
    if (!file.open(QIODevice::WriteOnly) || !WriteRtf(file, m_text, font) || !file.flush() ||
        !file.commit())
        throw describeFailure(file);
}

} // namespace saldoro
