// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/types.h>
#include <unistd.h>
#include <variant>

#include <QObject>
#include <QString>

#include "base/time/clock.h"
#include "tests/wav/watched_pass.h"
#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/pass.h"
#include "wav/peak_scan.h"
#include "wav/wav_file.h"
#include "wav/wav_header.h"

namespace brindle {
namespace {

void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

/// A file without a folder: it leaves nothing behind if the program ends in the middle.
class MemoryFile {
 public:
  explicit MemoryFile(const char* name)
      : descriptor_(memfd_create(name, 0)),
        path_(QStringLiteral("/proc/self/fd/") + QString::number(descriptor_)) {
    Require(descriptor_ >= 0);
  }

  [[nodiscard]] const QString& Path() const { return path_; }

  void Put(std::string_view bytes) const {
    Require(ftruncate(descriptor_, 0) == 0);
    Require(pwrite(descriptor_, bytes.data(), bytes.size(), 0) ==
            static_cast<ssize_t>(bytes.size()));
  }

  [[nodiscard]] std::string Bytes() const {
    const auto length = lseek(descriptor_, 0, SEEK_END);
    Require(length >= 0);
    std::string bytes(static_cast<std::size_t>(length), '\0');
    Require(pread(descriptor_, bytes.data(), bytes.size(), 0) == length);
    return bytes;
  }

 private:
  int descriptor_;
  QString path_;
};

/// A second passes at each of the first looks, then hardly any time: an update at every word would
/// mean a write at every word.
class SlowingClock : public Clock {
 public:
  [[nodiscard]] double Now() const override {
    constexpr int first = 30;
    constexpr double hardly = 1.0 / 16384;
    now_ += looks_++ < first ? 1 : hardly;
    return now_;
  }
  [[nodiscard]] float SecondsSinceMidnight() const override { return 0; }
  void After(double, QObject*, std::function<void()>) override {}

 private:
  mutable double now_ = 0;
  mutable int looks_ = 0;
};

/// Lets this many updates go by and ends the pass at the next one.
class PatientObserver : public PassObserver {
 public:
  explicit PatientObserver(int patience) : patience_(patience) {}

  [[nodiscard]] bool Update(const PassProgress& progress) override {
    Require(progress.wholePercent >= 0 && progress.wholePercent <= 100);
    Require(progress.percent >= 0 && progress.percent <= 100 && progress.elapsed > 0);
    return patience_-- > 0;
  }

 private:
  int patience_;
};

class NoQuestions : public TargetQuestions {
 public:
  [[nodiscard]] bool MayOverwrite() override { std::abort(); }
  void WorksInPlace() override { std::abort(); }
};

/// What the first bytes of an input select.
struct Choices {
  std::size_t filler = 0;  ///< bytes of filler: large files from small inputs
  std::size_t where = 0;   ///< where in the rest it is
  int patience = 0;        ///< updates until the pass is ended
};

constexpr std::size_t ChoiceBytes = 4;

Choices ChoicesOf(const std::uint8_t* data, std::size_t rest) {
  constexpr std::size_t block = 65536;
  constexpr int patient = 128;
  constexpr int forever = 1'000'000;
  return {.filler = data[0] % 3 * block + data[1],
          .where = std::min<std::size_t>(data[2], rest),
          .patience = data[3] < patient ? forever : data[3] - patient};
}

// Contains no byte of a tag.
std::string Filler(std::size_t length) {
  std::string filler(length, '\0');
  std::uint32_t state = 1;
  for (auto& byte : filler) {
    state = state * 1664525 + 1013904223;
    byte = static_cast<char>(state >> 24 | 0x80U);
  }
  return filler;
}

std::optional<std::size_t> StartOfSamples(const std::string& bytes) {
  const auto tag = std::min(bytes.find("data"), bytes.find("DATA"));
  return tag == std::string::npos ? std::nullopt : std::optional(tag + 8);
}

void CheckHeader(const MemoryFile& source, const std::string& bytes) {
  const auto header = ReadHeader(source.Path());
  Require(header || !std::holds_alternative<WavError>(header.error()));
  if (header) {
    Require(StartOfSamples(bytes).has_value());
    const auto duration = header->Duration();
    Require(!duration || std::isfinite(*duration));
  }
}

void CheckScan(const MemoryFile& source, const std::string& bytes, int patience) {
  const SlowingClock clock;
  PatientObserver observer(patience);
  const auto scan = ScanPeaks(source.Path(), clock, observer);
  Require(scan.lowest <= 0 && scan.highest >= 0);
  Require(scan.error.has_value() != StartOfSamples(bytes).has_value());
  Require(std::isfinite(scan.throughput) && scan.throughput >= 0);
}

WatchedPass::Ended Normalize(const MemoryFile& source, const MemoryFile& target, bool isInPlace,
                             Buffering buffering, int patience) {
  static const GainTable table(-0.7);
  WatchedPass pass;
  NoQuestions questions;
  const PassFiles files{.source = source.Path(), .target = target.Path(), .isInPlace = isInPlace};
  if (pass.Open(files, questions) != WatchedPass::Opened::Yes) {
    Require(pass.Error().has_value());
    return WatchedPass::Ended::Failed;
  }
  const SlowingClock clock;
  PatientObserver observer(patience);
  const auto ended = pass.Run(table, buffering, clock, observer);
  Require(pass.Error().has_value() == (ended == WatchedPass::Ended::Failed));
  Require(std::isfinite(pass.Throughput()) && pass.Throughput() >= 0);
  return ended;
}

void CheckPass(const MemoryFile& source, const MemoryFile& target, const std::string& bytes,
               Buffering buffering, int patience) {
  target.Put({});
  const auto ended = Normalize(source, target, false, buffering, patience);
  const auto start = StartOfSamples(bytes);
  Require((ended == WatchedPass::Ended::Failed) != start.has_value());
  Require(source.Bytes() == bytes);
  const auto written = target.Bytes();
  if (!start) {
    Require(written.empty());
    return;
  }
  const auto headerLength = std::min(*start, bytes.size());
  Require(written.compare(0, headerLength, bytes, 0, headerLength) == 0);
  Require(written.size() <= bytes.size());
  Require(ended != WatchedPass::Ended::Completed || written.size() == bytes.size());

  // In place, the result is the same; after an abort, the rest is as it was.
  Require(Normalize(source, target, true, buffering, patience) == ended);
  Require(source.Bytes() == written + bytes.substr(written.size()));
  source.Put(bytes);
}

void Check(const std::uint8_t* data, std::size_t size) {
  static const MemoryFile source("source");
  static const MemoryFile target("target");
  static const std::string filler = Filler(140'000);
  const auto choices = ChoicesOf(data, size - ChoiceBytes);
  std::string bytes(data + ChoiceBytes, data + size);
  bytes.insert(choices.where, filler, 0, choices.filler);

  source.Put(bytes);
  CheckHeader(source, bytes);
  CheckScan(source, bytes, choices.patience);
  CheckPass(source, target, bytes, Buffering::Single, choices.patience);
  CheckPass(source, target, bytes, Buffering::Multi, choices.patience);
}

}  // namespace
}  // namespace brindle

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size >= brindle::ChoiceBytes) {
    brindle::Check(data, size);
  }
  return 0;
}
