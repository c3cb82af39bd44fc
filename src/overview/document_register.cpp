#include "overview/document_register.h"

#include "common/errors.h"
#include "overview/rtf_writer.h"
#include "platform/machine_path.h"
#include "platform/whole_file.h"
#include "store/archive_paths.h"
#include "store/code_map.h"
#include "store/contract_sheet.h"

namespace saldoro {

using namespace Qt::StringLiterals;

namespace {

QString fileName(const ProgramValues &values, QStringView internalCode)
{
    return CodiceEsterno(values, internalCode) + u".rtf"_s;
}

} // namespace

void SaveDocument(const ProgramValues &values, const RichTextBox &box, QStringView internalCode)
{
    const QString path = ProjectFolder(values) + u'\\' + fileName(values, internalCode);
    WholeFile(MachinePath(path), [&](QIODevice &file) {
        return WriteRtf(file, box.text, box.fontName);
    }).replace();
}

void RegisterDocument(const ProgramValues &values, QStringView internalCode)
{
    WithDetail(Detail::Code, internalCode.toString(), [&] {
        ScriviVoceFile(values, CodiceEsterno(values, internalCode), ItemTag::None,
                       DescrizioneFunzione(values, internalCode), fileName(values, internalCode));
    });
}

} // namespace saldoro
