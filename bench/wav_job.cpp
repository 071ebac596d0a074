// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// One job of the normalizer on a real file, for bench/wav to time: wav_job JOB FILE... Prints the
// processor time and the time passed of the job itself, in seconds, and the peak of the program's
// memory, in megabytes.

#include <algorithm>
#include <array>
#include <cstdint>
#include <fcntl.h>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <unistd.h>
#include <variant>
#include <vector>

#include <QApplication>
#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QString>

#include "gallery/recording.h"
#include "shell/owning_window_list.h"
#include "shell/system_desktop.h"
#include "shell/system_films.h"
#include "shell/system_registry.h"
#include "shell/window_catalogue.h"
#include "wav/buffering.h"
#include "wav/gain.h"
#include "wav/level_range.h"
#include "wav/normalization.h"
#include "wav/pass.h"
#include "wav/peak_scan.h"
#include "wav/samples.h"
#include "wav/sound_picture.h"
#include "wav/way_back.h"

namespace brindle {
namespace {

using Arguments = std::vector<QString>;

constexpr double Gain = 1.25;

void Require(bool holds, const char* what) {
  if (!holds) {
    std::cerr << "wav_job: " << what << '\n';
    std::exit(1);
  }
}

bool IsCompleted(Pass& pass) {
  const auto end = RunToEnd(pass, [](const PassProgress&) { return true; });
  return std::holds_alternative<PassCompleted>(end);
}

// This many megabytes of chords that swell and fade under some noise, 16-bit stereo at 44100 Hz.
void Make(const Arguments& arguments) {
  constexpr quint64 most = 4294;  // megabytes that a header can declare
  const auto megabytes = arguments[1].toULongLong();
  Require(megabytes > 0 && megabytes <= most, "no such size");
  const auto dataLength = static_cast<std::uint32_t>(megabytes * 1'000'000);
  QFile file(arguments[0]);
  Require(file.open(QIODevice::WriteOnly), "cannot make the file");
  QDataStream out(&file);
  WriteWavHeader(out, dataLength);
  std::mt19937 random(7);  // NOLINT(cert-msc51-cpp): the same music every time
  std::normal_distribution<float> noise(0, 600);
  for (std::uint32_t frame = 0; frame < dataLength / 4; ++frame) {
    const auto time = static_cast<float>(frame) / static_cast<float>(SamplesPerSecond);
    const float swell = 0.55F + 0.45F * std::sin(time * 0.7F);
    const float chord = std::sin(time * 1382) + 0.7F * std::sin(time * 1741) +
                        0.5F * std::sin(time * 2073) + 0.3F * std::sin(time * 5530);
    for (int side = 0; side < 2; ++side) {
      const float level = 8000 * swell * chord + noise(random);
      out << static_cast<std::int16_t>(std::clamp(level, -26000.0F, 26000.0F));
    }
  }
  Require(out.status() == QDataStream::Ok && file.flush(), "cannot write the file");
}

int OpenToRead(const QString& path) {
  const int file =
      open(qPrintable(path), O_RDONLY);  // NOLINT(cppcoreguidelines-pro-type-vararg): POSIX
  Require(file >= 0, "cannot open the file");
  return file;
}

int OpenToWrite(const QString& path) {
  constexpr int everyone = 0666;
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
  const int file = open(qPrintable(path), O_WRONLY | O_CREAT | O_TRUNC, everyone);
  Require(file >= 0, "cannot make the file");
  return file;
}

// The floor of a scan: nothing but the reads, and the lowest and the highest level of each column.
void FloorScan(const Arguments& arguments) {
  struct Column {
    std::int16_t lowest = 0;
    std::int16_t highest = 0;
  };
  constexpr std::size_t part = 256;  // words; divides a block
  const int file = OpenToRead(arguments[0]);
  const auto blocks = static_cast<std::size_t>(lseek(file, 0, SEEK_END)) / BlockSize + 1;
  lseek(file, 0, SEEK_SET);
  static std::array<Column, SoundPicture::MostColumns> columns;
  static std::array<std::int16_t, BlockWords> block;
  for (std::size_t number = 0; read(file, block.data(), sizeof(block)) > 0; ++number) {
    auto& column = columns.at(number * columns.size() / blocks);
    for (const auto* words = block.data(); words < block.data() + block.size(); words += part) {
      std::int16_t lowest = 0;
      std::int16_t highest = 0;
      for (std::size_t word = 0; word < part; ++word) {
        lowest = std::min(lowest, words[word]);
        highest = std::max(highest, words[word]);
      }
      column = {std::min(column.lowest, lowest), std::max(column.highest, highest)};
    }
  }
  close(file);
  Require(std::any_of(
              columns.begin(), columns.end(),
              [](const Column& column) { return column.lowest < -1000 && column.highest > 1000; }),
          "there is no music in the file");
}

using LevelTable = std::array<std::uint16_t, LevelCount>;

const LevelTable& Table() {
  static LevelTable table;
  for (std::size_t level = 0; level < LevelCount; ++level) {
    table[level] = static_cast<std::uint16_t>(level * 5 / 4);
  }
  return table;
}

void Map(std::uint16_t* word, ssize_t bytes, const LevelTable& table) {
  for (const auto* end = word + bytes / 2; word < end; ++word) {
    *word = table[*word];
  }
}

// The floor of a pass: nothing but the reads, one table lookup a sample, and the writes.
void FloorPass(const Arguments& arguments) {
  const int source = OpenToRead(arguments[0]);
  const int target = OpenToWrite(arguments[1]);
  const auto& table = Table();
  static std::array<std::uint16_t, BlockWords> block;
  for (ssize_t bytes = 0; (bytes = read(source, block.data(), sizeof(block))) > 0;) {
    Map(block.data(), bytes, table);
    Require(write(target, block.data(), static_cast<std::size_t>(bytes)) == bytes, "cannot write");
  }
  close(source);
  close(target);
}

// The same for a pass in place, whose file already has its room.
void FloorInPlace(const Arguments& arguments) {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
  const int file = open(qPrintable(arguments[0]), O_RDWR);
  Require(file >= 0, "cannot open the file");
  const auto& table = Table();
  static std::array<std::uint16_t, BlockWords> block;
  off_t position = 0;
  for (ssize_t bytes = 0; (bytes = pread(file, block.data(), sizeof(block), position)) > 0;
       position += bytes) {
    Map(block.data(), bytes, table);
    Require(pwrite(file, block.data(), static_cast<std::size_t>(bytes), position) == bytes,
            "cannot write");
  }
  close(file);
}

void Scan(const Arguments& arguments) {
  const SystemClock clock;
  PeakScan scan(arguments[0], clock);
  Require(IsCompleted(scan), "the scan failed");
  const auto found = scan.Found();
  Require(found.lowest < -1000 && found.highest > 1000, "there is no music in the file");
}

void Normalize(const PassFiles& files, Buffering buffering) {
  const SystemClock clock;
  Normalization pass(files);
  const auto opened = pass.Open();
  Require(opened.has_value(), "the files do not open");
  Require(*opened == Normalization::Opened::Ready || pass.Overwrite(), "the target stays");
  pass.Start(GainTable(Gain), buffering, clock);
  Require(IsCompleted(pass), "the pass failed");
}

void PassMulti(const Arguments& arguments) {
  Normalize({arguments[0], arguments[1], false}, Buffering::Multi);
}
void PassSingle(const Arguments& arguments) {
  Normalize({arguments[0], arguments[1], false}, Buffering::Single);
}
void PassInPlace(const Arguments& arguments) {
  Normalize({arguments[0], {}, true}, Buffering::Multi);
}

// The same with its way back, in a folder of records.
void PassRecorded(const Arguments& arguments) {
  const SystemClock clock;
  const LevelRange loudest{.lowest = -26000, .highest = 26000};
  Normalization pass({arguments[0], {}, true});
  Require(pass.Open().has_value(), "the file does not open");
  const WayBack wayBack(arguments[1]);
  Require(wayBack.Keep(pass, Gain, Buffering::Multi, {.levels = loudest}).has_value(), "no record");
  pass.Start(GainTable(Gain), Buffering::Multi, clock);
  Require(IsCompleted(pass), "the pass failed");
}

void TakeBack(const Arguments& arguments) {
  const SystemClock clock;
  WayBack wayBack(arguments[1]);
  wayBack.LookFor(arguments[0]);
  Require(wayBack.IsThere(), "there is nothing to undo");
  {
    const auto undo = wayBack.Undo(clock);
    Require(undo && IsCompleted(**undo), "the undo failed");
  }
  wayBack.Forget();
}

// What the window asks for, answered at once. The end of the pass is that of the program.
class Answers : public MessageBoxes, public FileDialogs {
 public:
  explicit Answers(QString file) : file_(std::move(file)) {}
  void Ask(QWidget*, const QString& text, BoxButtons buttons,
           const WhenAnswered& answered) override {
    if (buttons == BoxButtons::Ok) {
      QApplication::exit(
          text.startsWith(QStringLiteral("WAV file was successfully normalized")) ? 0 : 1);
    }
    answered(buttons == BoxButtons::Ok ? BoxAnswer::Ok : BoxAnswer::Yes);
  }
  void AskForExisting(QWidget*, const FileQuestion&, const WhenChosen& chosen) override {
    chosen(file_);
  }
  void AskForTarget(QWidget*, const FileQuestion&, const QString&, const WhenChosen&) override {}
  void AskForFolder(QWidget*, const FileQuestion&, const WhenChosen&) override {}

 private:
  QString file_;
};

// The real window: empty or, if there is a file, with what a user does to normalize it.
void Window(const Arguments& arguments) {
  Settings record;
  record.WavRememberFolders = true;
  record.WavMultiBuffer = true;
  record.WavAutoNormalize = true;
  record.WavNormalizePercent = 100;
  SystemClock clock;
  Answers answers(arguments.empty() ? QString() : arguments[0]);
  SystemDesktop desktop(answers, clock, {});
  SystemRegistry registry;
  SystemFilmSource films(clock, {});
  SystemPartWriter parts(clock, {});
  OwningWindowList windows(desktop);
  const Product product;
  Services services{record,  windows,  clock, answers, answers,
                    desktop, registry, films, parts,   product};
  record.WavOverwriteSource = arguments.size() == 1;
  if (arguments.size() > 1) {
    record.WavTargetFile = arguments[1];
  } else if (!arguments.empty()) {
    record.AppFolder = QFileInfo(arguments[0]).path();  // where the record of the pass goes
  }
  AddAllWindows(windows, services, [](const auto& then) { then(); });
  windows.Open(WindowId::WavNorm);
  if (arguments.empty()) {
    QApplication::processEvents();
    return;
  }
  for (const auto* button : {"btnOpen", "btnScan"}) {
    windows.Load(WindowId::WavNorm).findChild<QPushButton*>(QString::fromLatin1(button))->click();
  }
  Require(QApplication::exec() == 0, "the window did not normalize the file");
}

double ProcessorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// The peak of the program's own memory, in megabytes; what the system reports to a parent includes
// the parent's own.
double PeakMegabytes() {
  QFile status(QStringLiteral("/proc/self/status"));
  Require(status.open(QIODevice::ReadOnly), "no /proc");
  for (const auto& line : status.readAll().split('\n')) {
    if (line.startsWith("VmHWM:")) {
      return line.simplified().split(' ').at(1).toDouble() / 1024;
    }
  }
  Require(false, "the peak of the memory is not told");
  return 0;
}

int Run(const QString& job, const Arguments& arguments) {
  struct Job {
    qsizetype files;
    std::function<void(const Arguments&)> run;
  };
  const std::map<QString, Job> jobs{
      {QStringLiteral("make"), {2, Make}},
      {QStringLiteral("floor-scan"), {1, FloorScan}},
      {QStringLiteral("floor-pass"), {2, FloorPass}},
      {QStringLiteral("floor-in-place"), {1, FloorInPlace}},
      {QStringLiteral("scan"), {1, Scan}},
      {QStringLiteral("pass-multi"), {2, PassMulti}},
      {QStringLiteral("pass-single"), {2, PassSingle}},
      {QStringLiteral("pass-in-place"), {1, PassInPlace}},
      {QStringLiteral("pass-recorded"), {2, PassRecorded}},
      {QStringLiteral("undo"), {2, TakeBack}},
      {QStringLiteral("window"), {0, Window}},
      {QStringLiteral("window-at-work"), {2, Window}},
      {QStringLiteral("window-in-place"), {1, Window}},
  };
  const auto found = jobs.find(job);
  Require(found != jobs.end(), "there is no such job");
  Require(found->second.files == static_cast<qsizetype>(arguments.size()), "wrong arguments");
  const auto passedAtStart = std::chrono::steady_clock::now();
  const double processorAtStart = ProcessorSeconds();
  found->second.run(arguments);
  const double processor = ProcessorSeconds() - processorAtStart;
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - passedAtStart;
  std::cout << processor << ' ' << passed.count() << ' ' << PeakMegabytes() << '\n';
  return 0;
}

}  // namespace
}  // namespace brindle

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const auto words = QApplication::arguments();
  brindle::Require(words.size() > 1, "which job?");
  return brindle::Run(words[1], brindle::Arguments(words.begin() + 2, words.end()));
}
