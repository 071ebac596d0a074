// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/film_sound.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include <QFile>
#include <QFileInfo>
#include <QString>

namespace brindle {

using namespace std::string_view_literals;
using namespace Qt::StringLiterals;

namespace {

bool HasAt(std::string_view bytes, std::size_t place, std::string_view mark) {
  return bytes.size() >= place && bytes.substr(place).starts_with(mark);
}

// Packets of a fixed length that all begin with the same byte; on discs, 4 bytes stand before each.
bool IsTransportStream(std::string_view bytes) {
  const auto at = [bytes](std::size_t first, std::size_t length) {
    return HasAt(bytes, first, "G"sv) && HasAt(bytes, first + length, "G"sv) &&
           HasAt(bytes, first + 2 * length, "G"sv);
  };
  return at(0, 188) || at(4, 192);
}

// A name within quotation marks where a shell would take it apart.
QString Quoted(const QString& name) {
  const bool isPlain = std::all_of(name.begin(), name.end(), [](QChar character) {
    return character.isLetterOrNumber() || u"._-"_s.contains(character);
  });
  return isPlain ? name : u'"' + name + u'"';
}

}  // namespace

bool BeginsLikeFilm(std::string_view bytes) {
  const bool isAvi = HasAt(bytes, 0, "RIFF"sv) && HasAt(bytes, 8, "AVI "sv);
  const bool isMp4 = HasAt(bytes, 4, "ftyp"sv) || HasAt(bytes, 4, "moov"sv);
  const bool isMatroska = HasAt(bytes, 0, "\x1A\x45\xDF\xA3"sv);
  const bool isProgramStream = HasAt(bytes, 0, "\0\0\x01\xBA"sv);
  const bool isAsf = HasAt(bytes, 0, "\x30\x26\xB2\x75\x8E\x66\xCF\x11"sv);
  const bool isFlash = HasAt(bytes, 0, "FLV\x01"sv);
  return isAvi || isMp4 || isMatroska || isProgramStream || isAsf || isFlash ||
         IsTransportStream(bytes);
}

bool IsFilm(const QString& path) {
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
    return false;
  }
  const auto bytes = file.read(FilmBeginning);
  return BeginsLikeFilm({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

QString HowToGetSound(const QString& path) {
  const QFileInfo file(path);
  return u"%1 is a film, and only the sound of WAV files can be normalized. This command writes "
         u"the "
         "sound of the film to a WAV file:\r\n\r\nffmpeg -i %2 -vn -c:a pcm_s16le %3"_s.arg(
             file.fileName(), Quoted(file.fileName()), Quoted(file.completeBaseName() + u".wav"_s));
}

}  // namespace brindle
