// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brindle {

/// A quotient of whole numbers, in lowest terms: 24000/1001. Both are above 0.
struct Fraction {
  std::int64_t numerator = 1;
  std::int64_t denominator = 1;

  [[nodiscard]] double Value() const {
    return static_cast<double>(numerator) / static_cast<double>(denominator);
  }
};

/// The video of a film. Of several, the first.
struct FilmVideo {
  std::string codec;    ///< "mpeg4", "h264"
  int width = 0;        ///< pixels
  int height = 0;       ///< pixels
  Fraction pixelShape;  ///< width of a pixel to its height
  Fraction frameRate;   ///< frames per second, exactly
  std::int64_t frames = 0;
  std::int64_t bytes = 0;  ///< of its packets alone

  /// Width to height on the screen.
  [[nodiscard]] double Shape() const { return width * pixelShape.Value() / height; }
};

struct FilmAudio {
  std::string codec;             ///< "mp3", "ac3"
  double kilobitsPerSecond = 0;  ///< 1000 bits; the mean
  int channels = 0;
  int sampleRate = 0;      ///< Hz
  std::int64_t bytes = 0;  ///< of its packets alone
};

/// A frame that can be the first of a part, and what lies before it.
struct FilmKeyFrame {
  std::int64_t frame = 0;     ///< counted from 0
  std::int64_t position = 0;  ///< of its packet in the file, bytes from its beginning
  std::int64_t videoBytes = 0;
  std::int64_t audioBytes = 0;  ///< all tracks
  /// What the container adds for the packets counted above when it is written anew.
  std::int64_t containerBytes = 0;
  std::int64_t packets = 0;  ///< those counted above
  /// What a part that begins here has in addition: headers of pieces of audio that are cut in two.
  std::int64_t extraBytes = 0;
};

/// What the parts of a film have in common when they are written.
struct FilmParts {
  std::string container;        ///< "avi", "matroska", "mp4"; empty if none can be written
  std::int64_t fixedBytes = 0;  ///< what the container of a part without a packet has
  FilmKeyFrame end;             ///< what lies before the end of the film
};

/// What there is to know about a film file.
struct Film {
  std::string container;   ///< "avi", "matroska", "mp4", "mpegts"
  std::int64_t bytes = 0;  ///< of the file
  double seconds = 0;      ///< running time
  std::optional<FilmVideo> video;
  std::vector<FilmAudio> audio;
  std::int64_t containerBytes = 0;  ///< what is neither video nor audio
  /// How many frames lie between two pieces of audio, in the mean; none without both.
  std::optional<double> framesBetweenAudio;
  /// In their order; the first one is at frame 0 in most films. Empty unless asked for.
  std::vector<FilmKeyFrame> keyFrames;
  FilmParts parts;
};

}  // namespace brindle
