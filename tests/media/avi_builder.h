// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <QFile>
#include <QString>
#include <gtest/gtest.h>

namespace brindle {

/// A chunk of an AVI file made by hand.
struct BuiltPiece {
  bool isVideo = true;
  std::uint32_t size = 0;
  bool isKey = false;
};

/// An AVI file made by hand: 25 frames a second, 320 x 240, and one track of PCM or MP3 at 1000
/// bytes a unit. Its pieces hold nothing but zeros, which take no room on the disk.
struct AviBuilder {
  std::vector<BuiltPiece> pieces;
  bool hasAudio = true;
  bool hasOldIndex = true;
  bool hasNewIndex = false;
  std::uint32_t sampleSize = 4;           ///< of audio
  std::uint32_t bytesPerSecond = 176400;  ///< of audio

  static std::string Number(std::uint64_t value, int count = 4) {
    std::string text;
    for (int i = 0; i < count; ++i) {
      text += static_cast<char>(value >> (8 * i) & 0xFFU);
    }
    return text;
  }
  static std::string Chunk(const std::string& id, const std::string& contents) {
    return id + Number(contents.size()) + contents + std::string(contents.size() % 2, '\0');
  }
  static std::string List(const std::string& kind, const std::string& contents) {
    return "LIST" + Number(contents.size() + 4) + kind + contents;
  }

  /// Writes the file, sparse where the file system can do that.
  void Write(const QString& path) const {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    // The headers are as long as they will be, whatever the index of segments says.
    const auto headLength = static_cast<std::int64_t>(Head({}, {}, 0).size());
    std::int64_t at = headLength;
    std::string old;
    std::vector<std::string> indexes(2);
    std::vector<std::int64_t> positions;
    const auto base = headLength - 4;
    for (const auto& piece : pieces) {
      const std::string id = piece.isVideo ? "00dc" : "01wb";
      ASSERT_TRUE(file.seek(at));
      file.write(QByteArray::fromStdString(id + Number(piece.size)));
      old += id + Number(piece.isKey || !piece.isVideo ? 0x10 : 0) +
             Number(static_cast<std::uint64_t>(at - base)) + Number(piece.size);
      indexes[piece.isVideo ? 0 : 1] +=
          Number(static_cast<std::uint64_t>(at + 8 - base)) +
          Number(piece.size | (piece.isKey || !piece.isVideo ? 0 : 0x8000'0000U));
      at += 8 + piece.size + piece.size % 2;
    }
    std::vector<std::int64_t> lengths;
    for (std::size_t i = 0; hasNewIndex && i < (hasAudio ? 2U : 1U); ++i) {
      const auto index =
          Chunk("ix0" + std::to_string(i),
                Number(0x0100'0002) + Number(indexes[i].size() / 8) + (i == 0 ? "00dc" : "01wb") +
                    Number(static_cast<std::uint64_t>(base), 8) + Number(0) + indexes[i]);
      ASSERT_TRUE(file.seek(at));
      file.write(QByteArray::fromStdString(index));
      positions.push_back(at);
      lengths.push_back(static_cast<std::int64_t>(index.size()));
      at += static_cast<std::int64_t>(index.size());
    }
    const auto movieEnd = at;
    if (hasOldIndex) {
      ASSERT_TRUE(file.seek(at));
      file.write(QByteArray::fromStdString(Chunk("idx1", old)));
    } else {
      ASSERT_TRUE(file.resize(at));
    }
    ASSERT_TRUE(file.seek(0));
    file.write(QByteArray::fromStdString(Head(positions, lengths, movieEnd - base)));
  }

 private:
  [[nodiscard]] std::string Head(const std::vector<std::int64_t>& positions,
                                 const std::vector<std::int64_t>& lengths,
                                 std::int64_t movie) const {
    std::uint64_t frames = 0;
    std::uint64_t bytes = 0;
    for (const auto& piece : pieces) {
      (piece.isVideo ? frames : bytes) += piece.isVideo ? 1 : piece.size;
    }
    const auto indexOfSegments = [&](std::size_t track) {
      if (!hasNewIndex) {
        return std::string();
      }
      std::string index =
          Number(4) + Number(1) + (track == 0 ? "00dc" : "01wb") + std::string(12, '\0');
      index += track < positions.size()
                   ? Number(static_cast<std::uint64_t>(positions[track]), 8) +
                         Number(static_cast<std::uint64_t>(lengths[track])) + Number(frames)
                   : std::string(16, '\0');
      return Chunk("indx", index);
    };
    const auto main = Number(40000) + Number(0) + Number(0) + Number(0x10) + Number(frames) +
                      Number(0) + Number(hasAudio ? 2 : 1) + Number(0) + Number(320) + Number(240) +
                      std::string(16, '\0');
    const auto video = "vidsXVID" + std::string(12, '\0') + Number(1) + Number(25) + Number(0) +
                       Number(frames) + std::string(12, '\0') + std::string(8, '\0');
    const auto picture = Number(40) + Number(320) + Number(240) + Number(1, 2) + Number(24, 2) +
                         "XVID" + std::string(20, '\0');
    const auto audio = "auds" + std::string(16, '\0') + Number(sampleSize) +
                       Number(bytesPerSecond) + Number(0) + Number(bytes / sampleSize) +
                       std::string(8, '\0') + Number(sampleSize) + std::string(8, '\0');
    const auto sound = Number(1, 2) + Number(2, 2) + Number(44100) + Number(bytesPerSecond) +
                       Number(sampleSize, 2) + Number(16, 2) + Number(0, 2);
    auto tracks = List("strl", Chunk("strh", video) + Chunk("strf", picture) + indexOfSegments(0));
    if (hasAudio) {
      tracks += List("strl", Chunk("strh", audio) + Chunk("strf", sound) + indexOfSegments(1));
    }
    const auto headers = List("hdrl", Chunk("avih", main) + tracks);
    return "RIFF" + Number(static_cast<std::uint64_t>(movie) + headers.size() + 12) + "AVI " +
           headers + "LIST" + Number(static_cast<std::uint64_t>(movie)) + "movi";
  }
};

}  // namespace brindle
