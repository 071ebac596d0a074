// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <QString>
#include <gtest/gtest.h>

#include "base/time/clock.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/support/system_messages.h"
#include "tests/wav/watched_pass.h"
#include "tests/wav/wav_builder.h"
#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/pass.h"
#include "wav/wav_file.h"

namespace brindle {

using Names = std::vector<std::string>;

inline constexpr double MebiByte = 1024.0 * 1024.0;
inline constexpr double Just = 1e-9;  // seconds
inline constexpr std::size_t Block = 65536;

/// A clock that moves only when it is read.
class ReadClock : public Clock {
 public:
  /// Goes on by `step` seconds at every reading.
  explicit ReadClock(double step = 0) : step_(step) {}

  [[nodiscard]] double Now() const override {
    const double now = now_;
    now_ += step_;
    if (readingsToJump_ > 0 && --readingsToJump_ == 0) {
      now_ += jump_;
    }
    return now;
  }
  [[nodiscard]] float SecondsSinceMidnight() const override {
    ADD_FAILURE() << "a pass must not be measured by a clock that wraps";
    return 0;
  }
  void After(double, QObject*, std::function<void()>) override {
    ADD_FAILURE() << "a pass waits for nothing";
  }

  /// Behind the next `readings`, all at one moment, it is `seconds` later.
  void JumpAfter(int readings, double seconds) {
    readingsToJump_ = readings;
    jump_ = seconds;
  }

 private:
  double step_;
  mutable double now_ = 1000;
  mutable int readingsToJump_ = 0;
  double jump_ = 0;
};

/// Remembers what it is told and ends the pass at the update of its script.
class ScriptedObserver : public PassObserver {
 public:
  [[nodiscard]] bool Update(const PassProgress& progress) override {
    updates.push_back(progress);
    if (onUpdate) {
      onUpdate(updates.size() - 1);
    }
    return updates.size() != endsAt;
  }

  /// The float percentages of all updates.
  [[nodiscard]] std::vector<float> Percents() const {
    std::vector<float> percents;
    percents.reserve(updates.size());
    for (const auto& update : updates) {
      percents.push_back(update.percent);
    }
    return percents;
  }

  std::size_t endsAt = 0;  ///< the update that ends the pass, counted from 1; 0: none
  std::function<void(std::size_t index)> onUpdate;
  std::vector<PassProgress> updates;
};

/// The same for a normalization pass, of which it remembers what its loops tell. At 100 % it is
/// told while the disk takes the output in: how often that is depends on the disk.
class ObserverOfPass : public ScriptedObserver {
 public:
  [[nodiscard]] bool Update(const PassProgress& progress) override {
    if (progress.percent == 100) {
      return !onSync || onSync();
    }
    return ScriptedObserver::Update(progress);
  }

  std::function<bool()> onSync;  ///< false: would end the pass
};

/// Answers and counts the questions about a target.
class ScriptedQuestions : public TargetQuestions {
 public:
  [[nodiscard]] bool MayOverwrite() override {
    ++asked;
    if (whenAsked) {
      whenAsked();
    }
    return answer;
  }
  void WorksInPlace() override { ++worksInPlace; }

  bool answer = false;
  std::function<void()> whenAsked;
  int asked = 0;
  int worksInPlace = 0;
};

/// Sample bytes that look different everywhere, from -12000 to 12000.
inline std::string Noise(std::size_t bytes) {
  constexpr std::int32_t range = 24001;
  std::string samples(bytes, '\0');
  std::uint32_t state = 20260201;
  for (std::size_t i = 0; i + 1 < bytes; i += 2) {
    state = state * 1664525 + 1013904223;
    const auto level =
        static_cast<std::int16_t>(static_cast<std::int32_t>(state >> 9) % range - 12000);
    std::memcpy(samples.data() + i, &level, sizeof(level));
  }
  if (bytes % 2 == 1) {
    samples.back() = 'o';
  }
  return samples;
}

/// The bytes with all whole words from position `start` on, `length` bytes of them, mapped by
/// `gain`.
inline std::string MappedWords(std::string bytes, std::size_t start, std::size_t length,
                               double gain) {
  std::vector<std::int16_t> mapped;
  for (int level = -32768; level <= 32767; ++level) {
    mapped.push_back(
        static_cast<std::int16_t>(std::clamp(std::nearbyint(level * gain), -32768.0, 32767.0)));
  }
  for (std::size_t i = start - 1; i + 1 < start - 1 + length; i += 2) {
    std::int16_t level = 0;
    std::memcpy(&level, bytes.data() + i, sizeof(level));
    std::memcpy(bytes.data() + i, &mapped[static_cast<std::size_t>(level + 32768)], sizeof(level));
  }
  return bytes;
}

/// The message of the error, or "no error".
template <class Value>
std::string TextOf(const WavResult<Value>& result) {
  return result ? std::string("no error") : MessageOf(result.error()).toStdString();
}

/// The message of an error, or "no error".
inline std::string TextOf(const std::optional<WavError>& error) {
  return error ? MessageOf(*error).toStdString() : std::string("no error");
}

inline const char* TextOf(WatchedPass::Opened opened) {
  switch (opened) {
    case WatchedPass::Opened::Yes:
      return "opened";
    case WatchedPass::Opened::Refused:
      return "refused";
    case WatchedPass::Opened::Failed:
      return "failed";
  }
  return "?";
}

inline const char* TextOf(WatchedPass::Ended ended) {
  switch (ended) {
    case WatchedPass::Ended::Completed:
      return "completed";
    case WatchedPass::Ended::Aborted:
      return "aborted";
    case WatchedPass::Ended::Failed:
      return "failed";
  }
  return "?";
}

/// Runs a whole pass without a watcher. What comes of it in words: "completed", "refused", or the
/// message of the error.
inline std::string RunPass(const PassFiles& files, Buffering buffering, double gain,
                           TargetQuestions& questions) {
  WatchedPass pass;
  const auto opened = pass.Open(files, questions);
  if (opened == WatchedPass::Opened::Failed) {
    return TextOf(pass.Error());
  }
  if (opened != WatchedPass::Opened::Yes) {
    return TextOf(opened);
  }
  const ReadClock clock;
  ObserverOfPass observer;
  const auto ended = pass.Run(GainTable(gain), buffering, clock, observer);
  return ended == WatchedPass::Ended::Failed ? TextOf(pass.Error()) : TextOf(ended);
}

}  // namespace brindle
