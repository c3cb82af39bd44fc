#include "overview/document_register.h"

#include "common/errors.h"
#include "store/archive_paths.h"
#include "store/code_lookups.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

/** The suite's readers go by the item; they give the tag of these entries no meaning. */
constexpr qint16 registerTag = 0;

QString fileName(const ProgramValues &values, QStringView internalCode)
{
    return CodiceEsterno(values, internalCode) + u".rtf"_s;
}

} // namespace

void SaveDocument(const ProgramValues &values, const RichTextBox &box, QStringView internalCode)
{
    box.saveFile(ProjectFolder(values) + u'\\' + fileName(values, internalCode));
}

void RegisterDocument(const ProgramValues &values, QStringView internalCode)
{
    WithDetail(Detail::Code, internalCode.toString(), [&] {
        ScriviVoceFile(values, CodiceEsterno(values, internalCode), registerTag,
                       DescrizioneFunzione(values, internalCode), fileName(values, internalCode));
    });
}

} // namespace saldoro
