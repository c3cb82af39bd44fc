#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace saldoro {

/** The characters of a text in UTF-8, all of them: one that begins with a byte order mark keeps
 *  it. */
QString TextOfUtf8(QByteArrayView bytes);

/**
 * The characters of a stored text. Older programs leave texts in the Western code page (1252) of
 * the files; a text that is no UTF-8 is read so. Every byte then stands for a character of its
 * own, so nothing of the text is lost, as it would be with a stand-in for what can't be read.
 */
QString TextOfStoredBytes(QByteArrayView bytes);

/** The byte of that code page for a character from 0x80 on; none when the page has no such
 *  character. */
std::optional<unsigned char> CodePageByte(char16_t character);

} // namespace saldoro
